// Starts the main window in the home of the environment and ends when it is shown. Each box and the question for a
// path, answered by their defaults, and the window become a line of JSON on standard output.

#include "ModalAnswers.h"
#include "TarvoMainWindow.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

void say(const QString& title, const QString& text) {
    const QJsonObject line{{"title", title}, {"text", text}};
    std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    ModalAnswers answers;
    answers.onBox(
        [](const ModalAnswers::Box& box) { say(QString::fromStdString(box.title), QString::fromStdString(box.text)); });
    answers.operate("Tarvo - Browse for Sounding Database", [](QDialog& dialog) {
        say(dialog.windowTitle(), "asked");
        dialog.accept();
    });
    TarvoMainWindow window;
    window.show();
    QTimer::singleShot(0, [&window] {
        say(window.windowTitle(), window.isMaximized() ? "shown maximised" : "shown");
        QApplication::quit();
    });
    QApplication::exec();
    return 0;
}
