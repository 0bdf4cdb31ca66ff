// How long the window lets its user wait, on the offscreen platform and in a home of its own:
//     desktop_benchmark EXAMPLE_FOLDER
// prints a table of what was measured beside its goal.

#include "ModalAnswers.h"
#include "TarvoMainWindow.h"
#include "TarvoSettings.h"
#include "TarvoViewController.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sys/resource.h>

namespace {

constexpr int kLongRows = 40000;
constexpr double kKbPerMb = 1024.0;

void row(const char* what, double measured, const char* unit, double goal) {
    std::printf("| %-58s | %8.2f %-2s | %6.2f %-2s | %s\n", what, measured, unit, goal, unit,
                measured <= goal ? "" : "missed");
}

double seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.elapsed()) / 1000.0;
}

double peakMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / kKbPerMb;
}

/// An ascent of one-second data.
void writeLongSounding(const std::string& path) {
    std::ofstream file(path);
    file << "FileFormat,CSV\nYear,2023\nMonth,1\nDay,17\nHour,11\nMinute,0\nSecond,0\nAscending,\"true\"\n"
         << "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,GPS Altitude\n";
    for (int i = 0; i < kLongRows; ++i) {
        const double z = 0.8 * i;
        file << "Data," << i << ',' << 1013.0 * std::exp(-z / 7000.0) << ',' << 15.0 - 0.0065 * std::min(z, 11000.0)
             << ',' << 50.0 + 30.0 * std::sin(z / 900.0) << ',' << 10.0 + 5.0 * std::sin(z / 700.0) << ','
             << 180.0 + 60.0 * std::sin(z / 3000.0) << ",60,10," << z << '\n';
    }
}

int rawRows(const TarvoMainWindow& window) {
    const auto* raw = window.activeView()->findChild<QWidget*>("RawView");
    return raw->findChild<QTableView*>()->model()->rowCount();
}

double timeToOpen(TarvoMainWindow& window, const QString& path) {
    QElapsedTimer timer;
    timer.start();
    window.processFile(path);
    QCoreApplication::processEvents();
    return seconds(timer);
}

} // namespace

int main(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (home.path() + "/.config").toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: desktop_benchmark EXAMPLE_FOLDER\n", stderr);
        return 2;
    }
    const ModalAnswers answers;
    {
        const TarvoMainWindow first; // makes the files of the user
    }
    sinceStart.restart();
    TarvoMainWindow window;
    window.show();
    QCoreApplication::processEvents();
    std::puts("| what | measured | goal |");
    row("start to a shown window", seconds(sinceStart), "s", 1.0);
    row("a D file of 1,660 frames, opened to a filled Raw grid",
        timeToOpen(window, QString(argv[1]) + "/D20100119_180708.4"), "s", 0.7);
    const std::string longFile = home.path().toStdString() + "/long.csv";
    writeLongSounding(longFile);
    row("a file of 40,000 rows", timeToOpen(window, QString::fromStdString(longFile)), "s", 4.0);
    row("peak memory with both open", peakMb(), "MB", 400.0);
    if (rawRows(window) < kLongRows) {
        std::fputs("The Raw grid isn't filled.\n", stderr);
        return 1;
    }
    QElapsedTimer timer;
    timer.start();
    window.recompute();
    row("the recompute of 40,000 rows", seconds(timer), "s", 4.0);
    return 0;
}
