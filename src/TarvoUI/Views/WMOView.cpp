#include "WMOView.h"

#include "AtomicFile.h"
#include "AutoSaveDirectory.h"
#include "Boxes.h"
#include "FontWatch.h"
#include "Listing.h"
#include "RowHeight.h"
#include "Trailer.h"
#include "UiText.h"
#include "WMO.h"

#include <QDesktopServices>
#include <QDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int kRowMargin = 8; // pixels
constexpr int kColumns = 11;
constexpr int kCountsApart = 24; // pixels
constexpr int kPiece = 65;       // characters, that one cell shows of a group
constexpr int kFitsInCell = 6;   // characters
constexpr int kInserted = 1;     // the mark of a group that was put in here
const char* const kTitle = "WMO";

QColor colorOf(const WMOcodeGroup& group) {
    if (group.special() != 0) {
        return "lightblue";
    }
    return group.modified() ? "pink" : "white";
}

} // namespace

WMOView::WMOView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : TarvoView(doc, printer, parent), _topLabel(makeTopLabel("_wmo_topLabel")),
      _originalGroups(new QLabel("Original Groups", this)), _modifiedGroups(new QLabel("Modified Groups", this)),
      _table(new QTableWidget(this)) {
    setObjectName("WMOView");
    _originalGroups->setObjectName("_originalGroups");
    _modifiedGroups->setObjectName("_modifiedGroups");
    _table->setObjectName("_table");
    _table->setAccessibleName("WMO message");
    _table->setTabKeyNavigation(false);
    QPalette white = _table->palette();
    white.setColor(QPalette::Base, Qt::white); // as the groups are, also on a dark desktop
    _table->setPalette(white);
    _table->setColumnCount(kColumns);
    _table->setShowGrid(false);
    _table->horizontalHeader()->hide();
    _table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const auto fitToFont = [this] {
        const QString group(kFitsInCell + 1, '0'); // and the margins of its cell
        _table->horizontalHeader()->setMinimumSectionSize(QFontMetrics(_table->font()).horizontalAdvance(group));
    };
    new FontWatch(_table, fitToFont);
    fitToFont();
    _table->verticalHeader()->hide();
    fitRowsToFont(_table, kRowMargin);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->setEditTriggers(QAbstractItemView::NoEditTriggers);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(makeButton("_modify", "Modify", &WMOView::modify));
    buttons->addWidget(makeButton("_restore", "Restore", &WMOView::restore));
    buttons->addWidget(makeButton("_before", "Insert Before", &WMOView::before));
    buttons->addWidget(makeButton("_after", "Insert after", &WMOView::after));
    buttons->addWidget(makeButton("_delete", "Delete", &WMOView::deleteGroup));
    buttons->addWidget(makeButton("_email", "Email", &WMOView::email));
    buttons->addStretch();
    auto* counts = new QHBoxLayout; // beside the buttons large type has no room for them
    counts->addWidget(_originalGroups);
    counts->addSpacing(kCountsApart);
    counts->addWidget(_modifiedGroups);
    counts->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addLayout(buttons);
    layout->addWidget(_table);
    layout->addLayout(counts);
}

QPushButton* WMOView::makeButton(const char* name, const char* text, void (WMOView::*slot)()) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void WMOView::update() {
    _topLabel->setText(_description);
    updateGrid();
}

/// Lays the groups out in rows of eleven, as the lines of the text have them. The trailer stands in the last column.
void WMOView::layOut(const WMO& wmo) {
    _cells.clear();
    int row = 0;
    int column = 0;
    for (const WMOpart& part : wmo.parts()) {
        for (const auto& section : part.sections()) {
            placeSection(*section, row, column);
        }
        if (column != 0) {
            ++row;
            column = 0;
        }
    }
    _rows = row;
}

void WMOView::placeSection(WMOsection& section, int& row, int& column) {
    int index = 0;
    for (const WMOcodeGroup& group : section.groups()) {
        if (section.sectionNumber() >= Trailer::kNumber) {
            column = kColumns - 1;
        } else if (group.newLine() && column != 0) {
            ++row;
            column = 0;
        }
        const QString text = toQString(group.text());
        const QColor color = colorOf(group);
        _cells.push_back({row, column, &section, index, text.left(kPiece), color});
        if (++column == kColumns) {
            ++row;
            column = 0;
        }
        if (text.size() > kPiece && column != 0) {
            ++row;
            column = 0;
        }
        for (int start = kPiece; start < text.size(); start += kPiece) {
            _cells.push_back({row++, 0, &section, index, text.mid(start, kPiece), color});
        }
        ++index;
    }
}

void WMOView::updateGrid() {
    const WMO* wmo = _editor->wmo();
    if (wmo == nullptr) {
        _cells.clear();
        _table->setRowCount(0);
        _deleted = 0;
        showCounts();
        return;
    }
    if (_editor->WMOversion() != _wmoVersion) {
        _deleted = 0;
        _wmoVersion = _editor->WMOversion();
    }
    layOut(*wmo);
    _table->clearContents();
    _table->clearSpans();
    _table->setRowCount(_rows);
    for (int row = 0; row < _rows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            createCell(_table, row, column, false);
        }
    }
    for (const Cell& cell : _cells) {
        QTableWidgetItem* item = _table->item(cell.row, cell.column);
        item->setText(cell.text);
        item->setBackground(cell.color);
        item->setForeground(Qt::black);
        if (cell.text.size() > kFitsInCell && cell.column < kColumns - 2) {
            const auto next = std::find_if(_cells.begin(), _cells.end(), [&cell](const Cell& other) {
                return other.row == cell.row && other.column > cell.column;
            });
            const int end = next == _cells.end() ? kColumns - 1 : std::min(next->column, kColumns - 1);
            if (end - cell.column > 1) {
                _table->setSpan(cell.row, cell.column, 1, end - cell.column);
            }
        }
    }
    if (_savedRow >= 0) {
        _table->setCurrentCell(std::min(_savedRow, _rows - 1), _savedColumn);
    }
    showCounts();
}

void WMOView::showCounts() {
    const bool coded = _editor->wmo() != nullptr;
    _modifiedGroups->setText(QString("Modified groups: %1").arg(coded ? countModifiedGroups() : 0));
    _originalGroups->setText(QString("Original groups: %1").arg(coded ? _editor->origWMOgroupCount() : 0));
}

int WMOView::countModifiedGroups() const {
    int count = _deleted;
    for (const WMOpart& part : _editor->wmo()->parts()) {
        for (const auto& section : part.sections()) {
            count += static_cast<int>(
                std::count_if(section->groups().begin(), section->groups().end(),
                              [](const WMOcodeGroup& group) { return group.modified() || group.special() != 0; }));
        }
    }
    return count;
}

WMOView::Target WMOView::current() const {
    const int row = _table->currentRow();
    const int column = _table->currentColumn();
    const auto found = std::find_if(_cells.begin(), _cells.end(), [row, column](const Cell& cell) {
        return cell.row == row && cell.column == column;
    });
    return found == _cells.end() ? Target{} : Target{found->section, found->group};
}

/// The group under the current cell, or the next one to its left; \p walked tells which.
WMOView::Target WMOView::nearest(bool& walked) const {
    const Target target = current();
    walked = target.section == nullptr;
    if (!walked) {
        return target;
    }
    const int row = _table->currentRow();
    const int column = _table->currentColumn();
    const auto found = std::find_if(_cells.rbegin(), _cells.rend(), [row, column](const Cell& cell) {
        return cell.row == row && cell.column < column;
    });
    return found == _cells.rend() ? Target{} : Target{found->section, found->group};
}

WMOcodeGroup& WMOView::groupOf(const Target& target) const {
    return target.section->groups()[static_cast<std::size_t>(target.group)];
}

void WMOView::saveCell() {
    _savedRow = _table->currentRow();
    _savedColumn = _table->currentColumn();
}

void WMOView::deleteGroup() {
    const Target target = current();
    if (target.section == nullptr) {
        return;
    }
    if (groupOf(target).special() == 0) {
        ++_deleted;
    }
    target.section->deleteGroup(target.group);
    saveCell();
    updateGrid();
}

void WMOView::restore() {
    const Target target = current();
    if (target.section == nullptr) {
        return;
    }
    groupOf(target).revert();
    saveCell();
    updateGrid();
}

void WMOView::before() {
    insert(0);
}

void WMOView::after() {
    insert(1);
}

/// Right of the last group of a row both come behind that group.
void WMOView::insert(int offset) {
    bool walked = false;
    const Target target = nearest(walked);
    QString text;
    if (target.section == nullptr ||
        !promptLine("Insert Code Group", "Enter the new value for the code group", QString(), text)) {
        return;
    }
    const int index =
        std::min(target.group + offset + (walked ? 1 : 0), static_cast<int>(target.section->groups().size()));
    target.section->insertGroup(text.toStdString(), index);
    target.section->groups()[static_cast<std::size_t>(index)].special(kInserted);
    saveCell();
    updateGrid();
}

void WMOView::modify() {
    bool walked = false;
    const Target target = nearest(walked);
    if (target.section == nullptr) {
        return;
    }
    QString text;
    if (promptLine("Modify Code Group", "Enter the new value for the code group", toQString(groupOf(target).text()),
                   text)) {
        groupOf(target).modify(text.toStdString());
        saveCell();
        updateGrid();
    }
}

/// The text counts however the dialog is closed.
bool WMOView::promptLine(const QString& title, const QString& label, const QString& value, QString& out) {
    constexpr int kEmptyWidth = 10; // characters
    constexpr int kMoreWidth = 5;
    QDialog dialog(this);
    dialog.setWindowTitle(title);
    auto* edit = new QLineEdit(value, &dialog);
    edit->selectAll();      // what is typed takes its place
    edit->ensurePolished(); // the size of the text is that of the window
    const int characters = value.isEmpty() ? kEmptyWidth : static_cast<int>(value.size()) + kMoreWidth;
    edit->setFixedWidth(characters * edit->fontMetrics().horizontalAdvance('0'));
    auto* layout = new QHBoxLayout(&dialog);
    layout->addWidget(new QLabel(label, &dialog));
    layout->addWidget(edit);
    connect(edit, &QLineEdit::returnPressed, &dialog, &QDialog::accept);
    dialog.exec();
    out = edit->text();
    return true;
}

std::unique_ptr<QTextDocument> WMOView::datalist() const {
    std::vector<std::string> lines;
    if (const WMO* wmo = _editor->wmo()) {
        lines = wmo->textLines();
        if (isOn("TempAppendNNNN")) {
            lines.emplace_back("NNNN");
        }
    }
    return Listing::make(static_cast<int>(lines.size()),
                         [&lines](int row) { return toQString(lines[static_cast<std::size_t>(row)]); });
}

int WMOView::printPreview() {
    return previewText(datalist().get(), kTitle, QString(), "Tarvo - Print Preview WMO");
}

int WMOView::print() {
    return printDoc(datalist().get(), kTitle, QString());
}

bool WMOView::saveTextFile(const QString& name) const {
    AtomicFile file(name.toStdString());
    if (!file.isOpen()) {
        return false;
    }
    _editor->wmo()->saveTextFile(file.stream(), isOn("TempAppendNNNN"));
    return file.commit();
}

int WMOView::save() {
    if (_editor->wmo() == nullptr) {
        return 0;
    }
    QString filter = "Text (*.txt)";
    const QString title = "Tarvo - Save WMO";
    const QString chosen =
        getSaveFilename(title, filter + ";;All files(*.*)", configText("WmoSaveDir"), "WMO", &filter);
    const QString name = Boxes::withExtension(this, chosen, "(*.txt)", title);
    if (name.isEmpty()) {
        return 0;
    }
    _configSet->set("WmoSaveDir", QFileInfo(name).path().toStdString());
    saveConfig();
    if (!saveTextFile(name)) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    return 0;
}

int WMOView::autoSave() {
    const QString directory = autoSaveDirectory(*_configSet, this);
    if (isOn("WmoAutoSaveFmtTxt") && _editor->wmo() != nullptr &&
        !saveTextFile(directory + getRootFilename() + "WMO.txt")) {
        QMessageBox::warning(this, "File Save Error", "Tarvo can't save the file to format .txt");
    }
    return 0;
}

QUrl WMOView::mailUrl(const QString& address, const QString& text) {
    const auto encoded = [](const QString& part) { return QString::fromLatin1(QUrl::toPercentEncoding(part)); };
    const QString to = QString::fromLatin1(QUrl::toPercentEncoding(address.trimmed(), "@,")); // of several too
    return QUrl("mailto:" + to + "?subject=" + encoded("TARVO generated WMO message ") + "&body=" + encoded(text),
                QUrl::StrictMode);
}

void WMOView::email() {
    const WMO* wmo = _editor->wmo();
    if (wmo == nullptr) {
        return;
    }
    QString text;
    for (const std::string& line : wmo->textLines()) {
        text += toQString(line);
    }
    if (isOn("TempAppendNNNN")) {
        text += "NNNN";
    }
    if (!QDesktopServices::openUrl(mailUrl(configText("TempEmailAddress"), text))) {
        QMessageBox::warning(this, "ERROR", "Unable to open the email program!");
    }
}
