#pragma once

#include <QProcess>
#include <string>

/// The Kermit program that sends a file by Zmodem over a serial line.
class ZmodemProcess : public QProcess {
    Q_OBJECT

public:
    /// \p kermitPath is the program, \p port the name of the line, \p speed its bits per second.
    ZmodemProcess(std::string kermitPath, std::string fileName, std::string port, std::string speed,
                  QObject* parent = nullptr);

    /// Starts the program; the signals of QProcess tell how it goes.
    void transmit();
    /// Whether the file went over, for a program that has ended well; to be asked once.
    bool hasSent();
    /// What Kermit is told to do.
    std::string commands() const;

private:
    std::string _kermitPath;
    std::string _fileName;
    std::string _port;
    std::string _speed;
};
