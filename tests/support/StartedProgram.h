#pragma once

#include "ModalAnswers.h"
#include "TimeLimit.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include <cstdio>
#include <filesystem>
#include <vector>

/// What a program that a test starts says of itself, on a line of standard output.
inline void sayBox(const ModalAnswers::Box& box) {
    const QJsonObject line{
        {"title", QString::fromStdString(box.title)}, {"text", QString::fromStdString(box.text)}, {"icon", box.icon}};
    std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

/// One run of such a program in a home of its own, to its end.
class StartedProgram {
public:
    /// \p configHome is where the desktop keeps configurations, as far as the environment tells.
    StartedProgram(const char* path, const std::filesystem::path& home, const QStringList& arguments = {},
                   const QString& configHome = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", QString::fromStdString(home.string()));
        environment.remove("XDG_CONFIG_HOME");
        if (!configHome.isEmpty()) {
            environment.insert("XDG_CONFIG_HOME", configHome);
        }
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(path, arguments);
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

    /// -1 when the program crashed or hung.
    int exitStatus() const { return _exitStatus; }
    const std::vector<ModalAnswers::Box>& boxes() const { return _boxes; }
    QStringList boxTexts() const {
        QStringList texts;
        for (const ModalAnswers::Box& box : _boxes) {
            texts.append(QString::fromStdString(box.text));
        }
        return texts;
    }

private:
    int _exitStatus = -1;
    std::vector<ModalAnswers::Box> _boxes;
};
