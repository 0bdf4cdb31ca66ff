#include "Environment.h"
#include "TarvoMainWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>
#include <clocale>

namespace {

constexpr char kName[] = "Tarvo";
constexpr char kVersion[] = "V3.4.8";
constexpr char kDescription[] = "Sounding Quality Workbench";

const QLoggingCategory& mainCategory() {
    static const QLoggingCategory category("tarvo.main", QtWarningMsg);
    return category;
}

} // namespace

int main(int argc, char* argv[]) {
    setTimeZone("TZ=GMT0");
    keepFreedMemory();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // Qt takes the user's; numbers in files have points, whatever the user's have
    qSetMessagePattern("%{category}.%{type}:%{file}@%{line} in %{function}: %{message}");
    qCInfo(mainCategory) << "Tarvo info console logging enabled.";
    qCDebug(mainCategory) << "Tarvo debug console logging enabled.";
    QCoreApplication::setApplicationName(kName);
    QCoreApplication::setApplicationVersion(kVersion);
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    TarvoMainWindow window;
    window.show();
    QApplication::exec();
    return 0;
}
