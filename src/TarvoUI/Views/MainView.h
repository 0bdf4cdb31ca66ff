#pragma once

#include "MainViewRows.h"
#include "TarvoView.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

/// The first tab: what the file reports of the launch, what of it the user ignores or overrides, and what the height
/// integration came to. Every change goes into the configuration of the window and asks for a recompute.
class MainView : public TarvoView {
    Q_OBJECT

public:
    MainView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    void update() override;
    int printPreview() override;
    int print() override;

protected:
    QPixmap picture() override;

private slots:
    void misc();
    void recompute();
    void rh0() { selectRH(0); }
    void rh1() { selectRH(1); }
    void rh2() { selectRH(2); }

private:
    /// One quantity of the launch: what was reported, and what the user makes of it.
    struct Row {
        const char* overrideItem;
        const char* ignoreItem; ///< null without a box
        QLineEdit* reported;
        QCheckBox* ignoreBox;
        QLineEdit* overrideEdit;
        QPushButton* clearButton;
    };

    // The form.
    QGroupBox* makeLaunchParameters();
    QGroupBox* makeDropSurface();
    QGroupBox* makeComputations();
    QGroupBox* makeLaunchTime();
    QGroupBox* makeHeightOverrides();
    QGroupBox* makeRhChannels();
    QGroupBox* makeHeightResults();
    QLineEdit* makeReadOnly(const char* name);
    QCheckBox* makeFlag(const char* name, const char* text);
    void addRow(const MainViewRow& plan, QLineEdit* reported);
    void connectRow(std::size_t index);

    void setTabOrder();

    void initForm();
    void setUpPage();
    void showReported();
    void setFormFromConfig();
    void setConfigFromForm();
    void updateLaunchTime();
    void updateRHSelection();
    void selectRH(int channel);

    void ignore(std::size_t index);
    void clear(std::size_t index);
    void overrideEdited(std::size_t index, const QString& text);
    /// The row of an override or ignore item; it must exist.
    Row& row(const char* item);

    std::vector<Row> _rows;
    QLabel* _topLabel;
    QWidget* _form;
    QLineEdit* _estTermAlt;
    QLineEdit* _estLaunchAlt;
    QLabel* _date;
    QLabel* _time;
    QCheckBox* _hitSurface;
    QCheckBox* _heightsMissing;
    QCheckBox* _sfcAltUnknown;
    QPushButton* _recompute;
    QGroupBox* _rhChannels;
    QRadioButton* _rhOmbraSelected;
    QRadioButton* _rhChannel1;
    QRadioButton* _rhChannel2;
};
