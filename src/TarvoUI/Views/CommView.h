#pragma once

#include "TarvoView.h"
#include "ZmodemProcess.h"

#include <string>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QPushButton;

/// What the operator of a dropsonde adds to its message: header, mission, remarks. Each entry goes into the coded
/// message at once, and again after each new coding; what was put into the message by hand meanwhile stays. The tab
/// also sends the message over a serial line.
class CommView : public TarvoView {
    Q_OBJECT

public:
    CommView(DocumentController* doc, QPrinter* printer, QWidget* parent);
    ~CommView() override;

    void update() override;
    int printPreview() override;
    int print() override;

private slots:
    void changeAbrHdrOvr();
    void clearAbrHdrOvr();
    void changeCorrectionNum();
    void changeDoubtfulHts();
    void changeAcAgency();
    void changeMissionStorm();
    void changeMissionId();
    void changeObsNum();
    void changeIcao(int index);
    void changeEnvironment(int index);
    void changeAzimuth(const QString& text);
    void changeAtcf();
    void changeRetransObnum();
    void changeCorrected();
    void changeLastReport();
    void changeCommPort(int index);
    void changeBaudRate(int index);
    void sendMessage();
    void clearSendStatus();
    void zmodemStarted();
    void zmodemFinished(int exitCode, QProcess::ExitStatus status);
    void zmodemError(QProcess::ProcessError error);
    void commPreview(QPrinter* printer);

private:
    // The form.
    void makeForm();
    QGroupBox* makeHeader();
    QGroupBox* makeDoubtful();
    QGroupBox* makeMission();
    QGroupBox* makeRemarks();
    QGroupBox* makeComm();
    QLineEdit* addEdit(QFormLayout* form, const char* label, const char* name, const char* mask,
                       void (CommView::*slot)());
    QComboBox* addCombo(QFormLayout* form, const char* label, const char* name, const QStringList& items);
    void fillForm();
    void connectForm();

    void updateAbrHeader();
    void update61616();
    void update62626();
    void updateDoubtfulHts();
    std::vector<std::string> textFromWMO() const;
    static std::string forceLength(std::string text, int n);
    /// Stores the entry when it differs from what is stored. True when it does.
    bool storeText(const char* item, const QLineEdit* edit);
    /// Whether the user has typed in the field since this was asked last: who only goes through it changes nothing.
    static bool takeModified(QLineEdit* edit);
    void storeNumber(const char* item, int value);

    void setUpPage();
    void configureSendToARWO();
    void tellFailure(const QString& detail);
    void forgetProcess();
    void cleanupWMOfile();

    std::string _kermitPath;
    ZmodemProcess* _process = nullptr; // null when idle
    QString _messageFile;              // empty when idle
    int _writtenVersion = -1;          // of the message that has the entries
    int _doubtfulVersion = -1;         // of the message that says that heights are doubtful

    QLabel* _topLabel = nullptr;
    QLineEdit* _abrHdrOvr = nullptr;
    QPushButton* _abrHdrOvrClear = nullptr;
    QLineEdit* _correctionNum = nullptr;
    QCheckBox* _doubtfulHeights = nullptr;
    QLineEdit* _agencyAC = nullptr;
    QLineEdit* _missionStorm = nullptr;
    QLineEdit* _missionId = nullptr;
    QLineEdit* _obsNum = nullptr;
    QComboBox* _icao = nullptr;
    QComboBox* _environment = nullptr;
    QComboBox* _azimuth = nullptr;
    QLineEdit* _atcf = nullptr;
    QLineEdit* _retrans = nullptr;
    QCheckBox* _correctedReport = nullptr;
    QCheckBox* _lastReport = nullptr;
    QComboBox* _commPort = nullptr;
    QComboBox* _baudRate = nullptr;
    QPushButton* _sendMsg = nullptr;
    QLabel* _sendStatus = nullptr;
    QPushButton* _sendClear = nullptr;
};
