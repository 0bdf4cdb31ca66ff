#include "WorkerPool.h"

#include "AtomicFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

volatile std::sig_atomic_t stopSignal = 0;

void requestStop(int signal) {
    stopSignal = signal;
}

/// Holds the stopping signals back for as long as it lives: they arrive only in poll(), so that none falls between the
/// look at stopSignal and the wait. A signal that the caller ignores (nohup, a job in the background of a script) stays
/// ignored. A reader of our output that has gone stops the run like the others.
class StopSignals {
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

void writeAll(int fd, const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t n = write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno != EINTR) {
            return;
        }
        done += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
}

} // namespace

struct WorkerPool::Worker {
    pid_t pid;
    int pipe;
    std::size_t index;
    Clock::time_point start;
    std::string received;
    bool closed = false;
    bool timedOut = false;

    double seconds() const { return std::chrono::duration<double>(Clock::now() - start).count(); }

    /// Takes what the worker has written; notes when it has closed its end.
    void receive() {
        std::array<char, 65536> buffer;
        const ssize_t n = read(pipe, buffer.data(), buffer.size());
        if (n > 0) {
            received.append(buffer.data(), static_cast<std::size_t>(n));
        } else if (n == 0 || errno != EINTR) {
            closed = true;
        }
    }
};

bool WorkerPool::start(const std::vector<BatchJob>& jobs, std::size_t index, std::vector<Worker>& workers,
                       const std::function<void()>& inWorker) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
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
            close(other.pipe);
        }
        if (getppid() == parent) {
            ConfigSet& config = jobs[index].config != nullptr ? *jobs[index].config : _config;
            writeAll(ends[1], packReport(runBatchJob(jobs[index], config, _database)));
        }
        _exit(0);
    }
    close(ends[1]);
    workers.push_back({pid, ends[0], index, Clock::now(), {}});
    return true;
}

/// Waits for the end of a worker that has closed its pipe or was killed, and makes its report.
FileReport WorkerPool::finish(const BatchJob& job, Worker& worker) const {
    int status = 0;
    while (waitpid(worker.pid, &status, 0) < 0 && errno == EINTR) {
    }
    close(worker.pipe);
    FileReport report;
    if (!worker.timedOut && WIFEXITED(status) && WEXITSTATUS(status) == 0 && unpackReport(worker.received, report)) {
        return report;
    }
    for (const BatchJob::Product& product : job.products) {
        std::remove(AtomicFile::temporaryName(product.path, worker.pid).c_str());
    }
    std::string reason = "The process of this file ended without a report";
    if (worker.timedOut) {
        reason = "Timed out after " + std::to_string(static_cast<long>(_limits.timeout)) + " s";
    } else if (WIFSIGNALED(status)) {
        reason = std::string("The process of this file crashed: ") + strsignal(WTERMSIG(status));
    }
    report = FileReport::failure(job.input, reason);
    report.seconds = worker.seconds();
    return report;
}

int WorkerPool::run(const std::vector<BatchJob>& jobs, const Listener& listener, std::size_t first) {
    // What the plan freed lies scattered over the heap. Left so, every worker would gather it up again, and copy the
    // whole heap of a long list in doing so.
    malloc_trim(0);
    const StopSignals signals;
    std::vector<Worker> workers;
    std::size_t next = first;
    while (stopSignal == 0 && (next < jobs.size() || !workers.empty())) {
        bool looksOn = false; // without waiting for a worker, but with an eye on the signals
        while (!looksOn && next < jobs.size() && workers.size() < static_cast<std::size_t>(_limits.jobs)) {
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
            } else if (!start(jobs, next, workers, [&] { signals.restoreDefaults(); })) {
                const std::string reason = std::strerror(errno);
                if (!workers.empty()) {
                    break; // out of processes for now: one that ends makes room
                }
                listener(next, FileReport::failure(job.input, "No process can be started: " + reason));
            }
            ++next;
        }
        std::vector<pollfd> polled;
        double wait = looksOn || workers.empty() ? 0.0 : _limits.timeout;
        for (const Worker& worker : workers) {
            polled.push_back({worker.pipe, POLLIN, 0});
            wait = std::min(wait, _limits.timeout - worker.seconds());
        }
        if (signals.poll(polled, wait) < 0) {
            continue;
        }
        for (std::size_t i = 0; i < workers.size(); ++i) {
            if (polled[i].revents != 0) {
                workers[i].receive();
            }
            if (!workers[i].closed && workers[i].seconds() >= _limits.timeout) {
                kill(workers[i].pid, SIGKILL);
                workers[i].timedOut = true;
            }
        }
        for (auto worker = workers.begin(); worker != workers.end();) {
            if (worker->closed || worker->timedOut) {
                listener(worker->index, finish(jobs[worker->index], *worker));
                worker = workers.erase(worker);
            } else {
                ++worker;
            }
        }
    }
    for (Worker& worker : workers) {
        kill(worker.pid, SIGKILL);
        finish(jobs[worker.index], worker);
    }
    return stopSignal;
}
