#include "SeriesGrid.h"

#include "Missing.h"
#include "Series.h"
#include "UiText.h"

namespace {

constexpr int kAttributeWidth = 12; // characters, that the text of a listing is padded to

const char* const kIgnoredTip = "Ignored in QC";
const char* const kKeptTip = "Kept in QC";
constexpr std::uint32_t kOrders = Value::QcIgnore | Value::QcKeep;

} // namespace

const std::array<const char*, kAttributeTexts.size()>& attributeIcons() {
    static constexpr std::array<const char*, kAttributeTexts.size()> kIcons{
        {":/Images/FlagF.png", ":/Images/FlagS.png", ":/Images/FlagP.png", ":/Images/FlagG.png", ":/Images/FlagIg.png",
         ":/Images/FlagKp.png", ":/Images/FlagAe.png", ":/Images/FlagLc.png", ":/Images/FlagSc.png",
         ":/Images/FlagBc.png", ":/Images/FlagOc.png", ":/Images/FlagFc.png", ":/Images/FlagPc.png",
         ":/Images/FlagVc.png", ":/Images/FlagRh.png", ":/Images/FlagDb.png", ":/Images/FlagWe.png",
         ":/Images/FlagNone.png"}};
    return kIcons;
}

SeriesGrid::SeriesGrid(std::vector<GridColumn> columns, bool withAttributes, QObject* parent)
    : QAbstractTableModel(parent), _columns(std::move(columns)), _withAttributes(withAttributes) {
    if (withAttributes) {
        for (const char* icon : attributeIcons()) {
            _icons.emplace_back(icon);
        }
    }
}

bool SeriesGrid::hasValue(int row, int column) const {
    return value(row, column) != kMissing;
}

void SeriesGrid::setRows(int n, const std::vector<const double*>& values,
                         const std::vector<const Series*>& attributes) {
    const bool resize = n != _rows;
    if (resize) {
        beginResetModel();
    }
    _rows = n;
    _values.assign(static_cast<std::size_t>(n) * _columns.size(), kMissing);
    _attributes.assign(_withAttributes ? _values.size() : 0, 0);
    for (std::size_t column = 0; column < values.size() && column < _columns.size(); ++column) {
        for (int row = 0; row < n && values[column] != nullptr; ++row) {
            _values[at(row, static_cast<int>(column))] = values[column][row];
        }
    }
    for (std::size_t column = 0; column < attributes.size(); ++column) {
        setAttributes(static_cast<int>(column), *attributes[column]);
    }
    if (resize) {
        endResetModel();
    } else {
        showMarks();
    }
}

void SeriesGrid::setAttributes(int column, const Series& series) {
    int row = 0;
    for (const Value& sample : series) {
        while (row < _rows && value(row, 0) < sample.time()) {
            ++row;
        }
        if (row < _rows && value(row, 0) == sample.time()) {
            _attributes[at(row, column)] |= sample.attributes();
        }
    }
}

void SeriesGrid::markCell(int row, int column, std::uint32_t order, bool on) {
    std::uint32_t& word = _attributes[at(row, column)];
    word = on ? (word & ~kOrders) | order : word & ~order;
}

/// One signal for all: tens of thousands of cells may be marked at once.
void SeriesGrid::showMarks() {
    if (_rows > 0) {
        emit dataChanged(index(0, 0), index(_rows - 1, columnCount() - 1));
    }
}

QString SeriesGrid::attributeText(int row) const {
    QString text;
    std::uint32_t told = 0;
    for (int column = 0; column < static_cast<int>(_columns.size()); ++column) {
        const std::uint32_t news = attributes(row, column) & ~told;
        for (const AttributeText& mark : kAttributeTexts) {
            if ((news & mark.attribute) != 0) {
                text += QString(mark.abbreviation) + " ";
            }
        }
        told |= news;
    }
    return text;
}

QString SeriesGrid::listingLine(int row) const {
    std::string line;
    for (std::size_t column = 0; column < _columns.size(); ++column) {
        const GridColumn& c = _columns[column];
        line += convertData(value(row, static_cast<int>(column)), c.width, c.format);
    }
    return toQString(line) + (_withAttributes ? attributeText(row).leftJustified(kAttributeWidth) : QString());
}

int SeriesGrid::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : _rows;
}

int SeriesGrid::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_columns.size()) + (_withAttributes ? 1 : 0);
}

std::uint32_t SeriesGrid::attributesOfRow(int row) const {
    std::uint32_t all = 0;
    for (int column = 0; column < static_cast<int>(_columns.size()); ++column) {
        all |= attributes(row, column);
    }
    return all;
}

QVariant SeriesGrid::tip(int row, int column) const {
    if (isAttributeColumn(column)) {
        QString text;
        const std::uint32_t all = attributesOfRow(row);
        for (const AttributeText& mark : kAttributeTexts) {
            if ((all & mark.attribute) != 0) {
                text += QString(mark.tip) + "\n";
            }
        }
        text.chop(1);
        return text;
    }
    const std::uint32_t word = attributes(row, column);
    if ((word & Value::QcIgnore) != 0) {
        return kIgnoredTip;
    }
    return (word & Value::QcKeep) != 0 ? QVariant(kKeptTip) : QVariant();
}

/// Of several attributes the highest one shows.
QVariant SeriesGrid::icon(int row, int column) const {
    const std::uint32_t word = attributes(row, column);
    for (std::size_t i = _icons.size(); i-- > 0;) {
        if ((word & kAttributeTexts[i].attribute) != 0) {
            return _icons[i];
        }
    }
    return {};
}

QVariant SeriesGrid::data(const QModelIndex& index, int role) const {
    const int row = index.row();
    const int column = index.column();
    if (!index.isValid() || row >= _rows || column >= columnCount()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role == Qt::DisplayRole) {
        return isAttributeColumn(column)
                   ? attributeText(row)
                   : numberText(value(row, column), _columns[static_cast<std::size_t>(column)].decimals);
    }
    if (!_withAttributes) {
        return {};
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
        return tip(row, column);
    }
    if (isAttributeColumn(column)) {
        return {};
    }
    const bool ordered = (attributes(row, column) & kOrders) != 0;
    switch (role) {
    case Qt::DecorationRole:
        return icon(row, column);
    case Qt::BackgroundRole:
        return ordered ? QColor("aqua") : QVariant();
    case Qt::ForegroundRole:
        return ordered ? QColor(Qt::black) : QVariant(); // readable on a dark theme too
    default:
        return {};
    }
}

QVariant SeriesGrid::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return isAttributeColumn(section) ? QString("Attributes")
                                      : QString(_columns[static_cast<std::size_t>(section)].heading);
}
