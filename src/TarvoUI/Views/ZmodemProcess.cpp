#include "ZmodemProcess.h"

#include "UiText.h"

#include <QProcessEnvironment>

#include <iostream>

ZmodemProcess::ZmodemProcess(std::string kermitPath, std::string fileName, std::string port, std::string speed,
                             QObject* parent)
    : QProcess(parent), _kermitPath(std::move(kermitPath)), _fileName(std::move(fileName)), _port(std::move(port)),
      _speed(std::move(speed)) {}

std::string ZmodemProcess::commands() const {
    return "set line " + _port + ",set speed " + _speed +
           ",set serial 8N1,set protocol zmodem,set carrier off,set flow-control none,send " + _fileName + ",quit";
}

void ZmodemProcess::transmit() {
    const QStringList arguments{"-Y", "-C", toQString(commands())};
    std::cerr << "command: " << _kermitPath << " " << arguments.join(' ').toStdString() << std::endl;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C"); // or hasSent() wouldn't know the words
    setProcessEnvironment(environment);
    start(toQString(_kermitPath), arguments, QIODevice::ReadWrite);
}

/// C-Kermit ends with 0 whatever became of the transfer, even where there is no such port: there the program that it
/// sends with has to say that all is over.
bool ZmodemProcess::hasSent() {
    const QByteArray said = readAllStandardOutput() + readAllStandardError();
    return !said.contains("C-Kermit") || said.contains("Transfer complete");
}
