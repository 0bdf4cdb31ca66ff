// The synoptic map: opening it over many soundings, going over to another level, and redrawing the background.
//     map_benchmark [--geography FILE]; by default the one that scripts/make-geodatabase made.

#include "QMicroMap.h"
#include "SynopticWidget.h"
#include "SyntheticStations.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

/// The middle of five runs, ms.
double median(const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + 2, times.end());
    return times[2];
}

void tell(const char* what, double ms, const char* goal) {
    QTextStream(stdout) << QString("%1 %2 ms   goal %3\n").arg(what, -58).arg(ms, 8, 'f', 1).arg(goal);
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString path =
        arguments.size() == 3 ? arguments[2] : QString(TARVO_SOURCE_DIR "/build/geodata/ne1to50m.sqlite");
    const QTemporaryDir folder;
    try {
        SpatiaLiteDB geography(path.toStdString());
        auto many = SoundingDB::openOrCreate(folder.filePath("many.sqlite").toStdString());
        SyntheticStations::enter(*many, 100, 100);
        QPrinter printer;
        std::unique_ptr<SynopticWidget> window;
        tell("Opening the map with 10,000 soundings in the table", median([&] {
                 window = std::make_unique<SynopticWidget>(geography, many.get(), &printer);
                 window->resize(1280, 800);
                 window->show();
                 QApplication::processEvents();
             }),
             "2000");
        auto some = SoundingDB::openOrCreate(folder.filePath("some.sqlite").toStdString());
        SyntheticStations::enter(*some, 20, 25);
        window->setSoundingDB(some.get());
        window->findChild<QPushButton*>("_selectAll")->click();
        QApplication::processEvents();
        auto* level = window->findChild<QComboBox*>("_levelSelect");
        int index = 16;
        tell("Going over to another level with 500 stations", median([&] {
                 level->setCurrentIndex(++index);
                 QApplication::processEvents();
             }),
             "500");
        window->findChild<QPushButton*>("_selectAll")->click();
        auto* map = window->findChild<QMicroMap*>();
        const auto redraw = [&] { map->viewport()->grab(); };
        map->reset();
        tell("Redrawing the whole world", median(redraw), "50");
        for (const auto& [what, view] : {std::pair("Redrawing North America", QRectF(-130.0, 10.0, 80.0, 50.0)),
                                         std::pair("Redrawing the Gulf of Mexico", QRectF(-100.0, 17.0, 24.0, 15.0)),
                                         std::pair("Redrawing Florida", QRectF(-84.0, 24.0, 6.0, 4.0))}) {
            map->showView(view);
            tell(what, median(redraw), "50");
        }
    } catch (const std::string& error) {
        QTextStream(stderr) << QString::fromStdString(error) << "\n";
        return 1;
    }
    return 0;
}
