// Starts up in the home of the environment: InitTarvoFiles with every box answered, each of which becomes a line of
// JSON on standard output. With two arguments it only copies the first to the second.

#include "InitTarvoFiles.h"
#include "StartedProgram.h"

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    ModalAnswers answers;
    answers.onBox(sayBox);
    if (argc == 3) {
        FileManager(argv[2], argv[1]).copyFile(argv[1], argv[2]);
    } else {
        const InitTarvoFiles files(TarvoSettings::kApplication);
    }
    return 0;
}
