// Starts up in the home of the environment: InitTarvoFiles with every box answered, each of which becomes a line of
// JSON on standard output. With two arguments it only copies the first to the second.

#include "InitTarvoFiles.h"
#include "ModalAnswers.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <optional>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    ModalAnswers answers;
    answers.onBox([](const ModalAnswers::Box& box) {
        const QJsonObject line{{"title", QString::fromStdString(box.title)},
                               {"text", QString::fromStdString(box.text)},
                               {"icon", box.icon}};
        std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    });
    if (argc == 3) {
        FileManager(argv[2], argv[1]).copyFile(argv[1], argv[2]);
    } else {
        const InitTarvoFiles files(TarvoSettings::kApplication);
    }
    return 0;
}
