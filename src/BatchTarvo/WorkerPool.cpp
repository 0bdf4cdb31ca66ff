#include "WorkerPool.h"

#include "AtomicFile.h"
#include "ConfigSet.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <poll.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

volatile std::sig_atomic_t stopSignal = 0;

void requestStop(int signal) {
    stopSignal = signal;
}

} // namespace

/// Holds the stopping signals back for as long as it lives: they arrive only in poll(), so that none falls between the
/// look at stopSignal and the wait. A signal that the caller ignores (nohup, a job in the background of a script) stays
/// ignored. A reader of our output that has gone stops the run like the others.
class WorkerPool::StopSignals {
public:
    StopSignals() {
        stopSignal = 0;
        sigset_t held;
        sigemptyset(&held);
        struct sigaction action {};
        action.sa_handler = requestStop;
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            sigaction(kSignals[i], nullptr, &_before[i]);
            if (_before[i].sa_handler != SIG_IGN) {
                sigaddset(&held, kSignals[i]);
                sigaction(kSignals[i], &action, nullptr);
            }
        }
        sigprocmask(SIG_BLOCK, &held, &_maskBefore);
    }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals() {
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            sigaction(kSignals[i], &_before[i], nullptr);
        }
        sigprocmask(SIG_SETMASK, &_maskBefore, nullptr);
    }
    int poll(std::vector<pollfd>& polled, double seconds) const {
        const double bounded = std::clamp(seconds, 0.0, 3600.0) + 1e-3;
        timespec wait{};
        wait.tv_sec = static_cast<time_t>(bounded);
        wait.tv_nsec = static_cast<long>((bounded - static_cast<double>(wait.tv_sec)) * 1e9);
        return ppoll(polled.data(), polled.size(), &wait, &_maskBefore);
    }
    /// For a worker: a signal ends it at once, and the parent tidies up.
    void restoreDefaults() const {
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            if (_before[i].sa_handler != SIG_IGN) {
                std::signal(kSignals[i], SIG_DFL);
            }
        }
        sigprocmask(SIG_SETMASK, &_maskBefore, nullptr);
    }

private:
    static constexpr std::array<int, 4> kSignals{SIGINT, SIGTERM, SIGHUP, SIGPIPE};
    std::array<struct sigaction, kSignals.size()> _before{};
    sigset_t _maskBefore{};
};

namespace {

using Length = std::uint64_t; // ahead of each message

/// False when the other end is gone. Never raises SIGPIPE, which would stop the run.
bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (n < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(n > 0 ? static_cast<std::size_t>(n) : 0);
    }
    return true;
}

std::string_view bytesOf(const Length& number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

/// Gives the store back what a file changed in it: the next one begins as this one did.
void takeBack(const ConfigSet& before, const ConfigSet& after) {
    for (const auto& [id, item] : before) {
        ConfigItem* changed = after[id];
        if (changed != nullptr) {
            item->isNumeric() ? changed->set(item->value()) : changed->set(item->text());
        }
    }
}

} // namespace

struct WorkerPool::Worker {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    pid_t pid;
    int socket;
    std::size_t known;         ///< how many jobs there were when it was made
    std::size_t index = kNone; ///< of the job that it works at
    int served = 0;
    Clock::time_point start{};
    std::string received{};
    bool closed = false;
    bool timedOut = false;

    bool idle() const { return index == kNone; }
    double seconds() const { return std::chrono::duration<double>(Clock::now() - start).count(); }

    /// Gives it a job. False when it is gone.
    bool take(std::size_t job) {
        if (!sendAll(socket, bytesOf(job))) {
            return false;
        }
        index = job;
        start = Clock::now();
        ++served;
        return true;
    }
    /// Takes what the worker has written; notes when it has closed its end.
    void receive() {
        std::array<char, 65536> buffer;
        const ssize_t n = recv(socket, buffer.data(), buffer.size(), 0);
        if (n > 0) {
            received.append(buffer.data(), static_cast<std::size_t>(n));
        } else if (n == 0 || errno != EINTR) {
            closed = true;
        }
    }
    /// The report of its job once it is there whole.
    bool takeReport(FileReport& report) {
        Length length = 0;
        if (received.size() < sizeof length) {
            return false;
        }
        std::memcpy(&length, received.data(), sizeof length);
        if (received.size() - sizeof length < length || !unpackReport(received.substr(sizeof length, length), report)) {
            return false;
        }
        received.erase(0, sizeof length + length);
        return true;
    }
    /// Sends it home, and waits until it has gone.
    int dismiss() {
        close(socket);
        int status = 0;
        while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
        }
        return status;
    }
};

bool WorkerPool::start(const std::vector<BatchJob>& jobs, Workers& workers, const std::function<void()>& inWorker) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) {
        return false;
    }
    std::fflush(nullptr); // or the worker would have a copy of what is still to be printed
    const pid_t parent = getpid();
    const pid_t pid = fork();
    if (pid < 0) {
        close(ends[0]);
        close(ends[1]);
        return false;
    }
    if (pid == 0) {
        inWorker();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(ends[0]);
        for (const Worker& other : workers) {
            close(other.socket);
        }
        if (getppid() == parent) {
            serve(jobs, ends[1]);
        }
        _exit(0);
    }
    close(ends[1]);
    workers.push_back({pid, ends[0], jobs.size()});
    return true;
}

/// The life of a worker: the number of a job comes in, its report goes out, until the parent closes its end.
void WorkerPool::serve(const std::vector<BatchJob>& jobs, int socket) {
    Length index = 0;
    while (recv(socket, &index, sizeof index, MSG_WAITALL) == static_cast<ssize_t>(sizeof index)) {
        const BatchJob& job = jobs[index];
        const ConfigSet& config = job.config != nullptr ? *job.config : _config;
        const auto own = config.copy();
        const std::string report = packReport(runBatchJob(job, *own, _database));
        takeBack(config, *own);
        if (!sendAll(socket, bytesOf(report.size())) || !sendAll(socket, report)) {
            break;
        }
    }
    _exit(0);
}

/// Gives the job to a worker without one. False, with the reason in errno, when none can be had.
bool WorkerPool::assign(const std::vector<BatchJob>& jobs, std::size_t index, Workers& workers,
                        const std::function<void()>& inWorker) {
    constexpr int kMost = 200; // files for one process: whatever it may have lost of its memory comes back
    for (auto worker = workers.begin(); worker != workers.end();) {
        if (!worker->idle()) {
            ++worker;
            continue;
        }
        if (worker->known > index && worker->served < kMost && worker->take(index)) {
            return true;
        }
        worker->dismiss();
        worker = workers.erase(worker);
    }
    return start(jobs, workers, inWorker) && workers.back().take(index);
}

/// Waits for the end of a worker that was lost over its job, and makes the report of that.
FileReport WorkerPool::loss(const BatchJob& job, Worker& worker) const {
    const int status = worker.dismiss();
    for (const BatchJob::Product& product : job.products) {
        std::remove(AtomicFile::temporaryName(product.path, worker.pid).c_str());
    }
    std::string reason = "The process of this file ended without a report";
    if (worker.timedOut) {
        reason = "Timed out after " + std::to_string(static_cast<long>(_limits.timeout)) + " s";
    } else if (WIFSIGNALED(status)) {
        reason = std::string("The process of this file crashed: ") + strsignal(WTERMSIG(status));
    }
    FileReport report = FileReport::failure(job.input, reason);
    report.seconds = worker.seconds();
    return report;
}

/// Passes on what the workers have to say, and drops those that are lost.
void WorkerPool::hear(const std::vector<BatchJob>& jobs, Workers& workers, const Listener& listener) {
    for (auto worker = workers.begin(); worker != workers.end();) {
        FileReport report;
        if (!worker->idle() && !worker->timedOut && worker->takeReport(report)) {
            const std::size_t index = worker->index;
            worker->index = Worker::kNone;
            listener(index, report);
        }
        if (!worker->closed && !worker->timedOut) {
            ++worker;
            continue;
        }
        if (worker->idle()) {
            worker->dismiss();
        } else {
            listener(worker->index, loss(jobs[worker->index], *worker));
        }
        worker = workers.erase(worker);
    }
}

/// Takes in what the workers say within \p wait seconds, and kills the ones whose time is over. False if a signal came.
bool WorkerPool::await(Workers& workers, const StopSignals& signals, double wait) const {
    std::vector<pollfd> polled;
    for (const Worker& worker : workers) {
        polled.push_back({worker.socket, POLLIN, 0});
        wait = worker.idle() ? wait : std::min(wait, _limits.timeout - worker.seconds());
    }
    if (signals.poll(polled, wait) < 0) {
        return false;
    }
    for (std::size_t i = 0; i < workers.size(); ++i) {
        if (polled[i].revents != 0) {
            workers[i].receive();
        }
        if (!workers[i].idle() && !workers[i].closed && workers[i].seconds() >= _limits.timeout) {
            kill(workers[i].pid, SIGKILL);
            workers[i].timedOut = true;
        }
    }
    return true;
}

int WorkerPool::run(const std::vector<BatchJob>& jobs, const Listener& listener, std::size_t first) {
    // What the plan freed lies scattered over the heap. Left so, every worker would gather it up again, and copy the
    // whole heap of a long list in doing so.
    malloc_trim(0);
    const StopSignals signals;
    const auto inWorker = [&] { signals.restoreDefaults(); };
    Workers workers;
    const auto atWork = [&] {
        return std::count_if(workers.begin(), workers.end(), [](const Worker& worker) { return !worker.idle(); });
    };
    std::size_t next = first;
    while (stopSignal == 0 && (next < jobs.size() || atWork() > 0)) {
        bool looksOn = false; // without waiting for a worker, but with an eye on the signals
        while (!looksOn && next < jobs.size() && atWork() < _limits.jobs) {
            const BatchJob& job = jobs[next];
            if (!job.refusal.empty()) {
                listener(next, FileReport::failure(job.input, job.refusal));
            } else if (_isDone && _isDone(job)) {
                FileReport report;
                report.file = job.input;
                report.skipped = true;
                report.failed = false;
                listener(next, report);
                looksOn = true;
            } else if (!assign(jobs, next, workers, inWorker)) {
                const std::string reason = std::strerror(errno);
                if (atWork() > 0) {
                    break; // out of processes for now: one that ends makes room
                }
                listener(next, FileReport::failure(job.input, "No process can be started: " + reason));
            }
            ++next;
        }
        if (await(workers, signals, looksOn || atWork() == 0 ? 0.0 : _limits.timeout)) {
            hear(jobs, workers, listener);
        }
    }
    for (Worker& worker : workers) {
        if (worker.idle()) {
            worker.dismiss();
        } else {
            kill(worker.pid, SIGKILL);
            loss(jobs[worker.index], worker);
        }
    }
    return stopSignal;
}
