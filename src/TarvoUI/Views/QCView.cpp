#include "QCView.h"

#include "AutoSaveDirectory.h"
#include "DataArray.h"
#include "FileSaver.h"
#include "ProductColumns.h"
#include "RevisionInfo.h"
#include "TarvoSettings.h"

#include <QHeaderView>
#include <QMessageBox>
#include <array>

namespace {

constexpr int kRowMargin = 4; // pixels

std::vector<GridColumn> columnsOf(bool ascending) {
    std::vector<GridColumn> columns{
        {"Time (s)", 2, "%10.2f", 10}, {"Pres (mb)", 1, "%7.1f", 7},   {"Tdry (C)", 1, "%7.1f", 7},
        {"RH (%)", 1, "%7.1f", 7},     {"Spd (m/s)", 1, "%7.1f", 7},   {"Dir (deg)", 1, "%7.1f", 7},
        {"Alt (m)", 1, "%7.1f", 7},    {"Dz/dt (m/s)", 1, "%7.1f", 7},
    };
    if (!ascending) {
        columns.push_back({"W Wind (m/s)", 1, "%7.1f", 7});
    }
    columns.push_back({"Lat (deg)", 4, "%9.4f", 9});
    columns.push_back({"Lon (deg)", 4, "%9.4f", 9});
    return columns;
}

struct AutoFormat {
    const char* item;
    const char* extension;
};

constexpr std::array<AutoFormat, 6> kAutoFormats{{
    {"QCAutoSaveFmtZor", ".zor"},
    {"QCAutoSaveFmtFrd", ".frd"},
    {"QCAutoSaveFmtTrv", ".trv"},
    {"QCAutoSaveFmtNc", ".nc"},
    {"QCAutoSaveFmtCsv", ".csv"},
    {"QCAutoSaveFmtBufr", ".bfr"},
}};

} // namespace

QCView::QCView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : GridView(columnsOf(doc->editor()->ascending()), false, kRowMargin, doc, printer, parent) {
    setObjectName("QCView");
    _table->setAccessibleName("QC data");
    _table->horizontalHeader()->setSectionsClickable(false);
    _table->verticalHeader()->setSectionsClickable(false);
}

void QCView::update() {
    setUpPage();
    showDescription();
    if (_editor->QCversion() == _version) {
        return;
    }
    _version = _editor->QCversion();
    const ProductColumns all = ProductColumns::qc(*_editor, *_configSet);
    using C = ProductColumns;
    std::vector<const double*> columns;
    for (const C::Column column : {C::Time, C::Pres, C::Tdry, C::RH, C::Wspd, C::Wdir, C::Alt, C::Dz}) {
        columns.push_back(all[column]);
    }
    if (!_editor->ascending()) {
        columns.push_back(all[C::W]);
    }
    columns.push_back(all[C::Lat]);
    columns.push_back(all[C::Lon]);
    _grid->setRows(all.nRows(), columns);
    widenColumns();
}

int QCView::autoSave() {
    const QString directory = autoSaveDirectory(*_configSet, this);
    for (const AutoFormat& format : kAutoFormats) {
        if (isOn(format.item) && !saveTo(directory + getRootFilename() + "QC" + format.extension, format.extension)) {
            QMessageBox::warning(this, "File Save Error",
                                 QString("Tarvo can't save the file to format ") + format.extension);
        }
    }
    return 0;
}

GridView::Words QCView::words() const {
    return {"QC",
            "TROVE (*.trv);;netCDF (*.nc);;NOAA FRD (*.frd);;Comma Separated (*.csv);;KIVU ZOR (*.zor);;"
            "WMO BUFR (*.bfr)",
            "QCSaveDir",
            "QC",
            "QC Data " + _description,
            _editor->ascending()
                ? "      Time    Pres    TDry      RH    Wspd    Wdir     Alt      DZ       Lat       Lon"
                : "      Time    Pres    TDry      RH    Wspd    Wdir     Alt      DZ  W Wind       Lat       Lon"};
}

bool QCView::saveTo(const QString& path, const QString& filter) const {
    if (_editor->levels() == nullptr) {
        _editor->doLevels();
    }
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path.toStdString(), filter.toStdString(),
                               _editor->getSndMetaData(true), *_editor, ProductColumns::qc(*_editor, *_configSet),
                               _editor->levels(),
                               TarvoSettings().value(TarvoSettings::kXmlDir).toString().toStdString());
}
