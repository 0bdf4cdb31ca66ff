// Starts the main window in the home of the environment and ends when it is shown. Each box and the question for a
// path, answered by their defaults, and the window become a line of JSON on standard output.

#include "StartedProgram.h"
#include "TarvoMainWindow.h"

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    ModalAnswers answers;
    answers.onBox(sayBox);
    answers.operate("Tarvo - Browse for Sounding Database", [](QDialog& dialog) {
        sayBox({dialog.windowTitle().toStdString(), "asked", {}});
        dialog.accept();
    });
    TarvoMainWindow window;
    window.show();
    QTimer::singleShot(0, [&window] {
        sayBox({window.windowTitle().toStdString(), window.isMaximized() ? "shown maximised" : "shown", {}});
        QApplication::quit();
    });
    QApplication::exec();
    return 0;
}
