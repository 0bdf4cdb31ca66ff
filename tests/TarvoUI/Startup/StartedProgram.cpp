#include "StartedProgram.h"

#include "TimeLimit.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

StartedProgram::StartedProgram(const std::filesystem::path& home, const QStringList& arguments,
                               const QString& configHome) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(home.string()));
    environment.remove("XDG_CONFIG_HOME");
    if (!configHome.isEmpty()) {
        environment.insert("XDG_CONFIG_HOME", configHome);
    }
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(STARTUP_PROGRAM, arguments);
    if (program.waitForFinished(kPatience) && program.exitStatus() == QProcess::NormalExit) {
        _exitStatus = program.exitCode();
    }
    for (const QByteArray& line : program.readAllStandardOutput().split('\n')) {
        const QJsonObject box = QJsonDocument::fromJson(line).object();
        if (!box.isEmpty()) {
            _boxes.push_back({box["title"].toString().toStdString(), box["text"].toString().toStdString(),
                              static_cast<QMessageBox::Icon>(box["icon"].toInt())});
        }
    }
}

QStringList StartedProgram::boxTexts() const {
    QStringList texts;
    for (const ModalAnswers::Box& box : _boxes) {
        texts.append(QString::fromStdString(box.text));
    }
    return texts;
}
