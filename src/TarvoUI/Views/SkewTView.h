#pragma once

#include "SkewTAdapterQt.h"
#include "SkewTPicture.h"
#include "TarvoView.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

/// The Skew-T diagram of the sounding.
class SkewTView : public TarvoView {
    Q_OBJECT

public:
    SkewTView(DocumentController* doc, QPrinter* printer, QWidget* parent);
    ~SkewTView() override;

    void update() override;
    int printPreview() override;
    int print() override;
    int save() override;
    int autoSave() override;

    skewt::SkewTAdapterQt* diagram() const { return _adapter; }

protected:
    /// A tab gets its size when it is first shown: the diagram takes it at once, and not after the pause of a resize.
    void showEvent(QShowEvent* event) override;

private slots:
    void setData();
    void unzoom();
    void skewTPreview(QPrinter* printer);

private:
    void setUpPage();
    QRadioButton* makeSource(const char* name, const char* text);
    SkewTSource choice() const;
    /// The version of the data of a source; it moves when they change.
    int versionOf(SkewTSource source) const;
    bool savePicture(const QString& path) const;

    QRadioButton* _rawData;
    QRadioButton* _qcData;
    QRadioButton* _levelsData;
    QCheckBox* _markPoints;
    QCheckBox* _drawLines;
    QPushButton* _unzoom;
    QFrame* _skewtFrame;
    skewt::SkewTAdapterQt* _adapter;
    std::unique_ptr<skewt::SkewT> _skewT;
    SkewTData _data;
    SkewTSetup _setup;
    SkewTSource _shown = SkewTSource::Raw;
    int _version = -1;
};
