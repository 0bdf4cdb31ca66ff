#pragma once

#include "AttributeTexts.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>
#include <array>
#include <cstdint>
#include <vector>

class Series;

/// One column of a grid of series: heading, decimals, and how a listing prints it.
struct GridColumn {
    const char* heading;
    int decimals;
    const char* format; ///< of a listing
    int width;          ///< of a listing, characters
};

/// The icon of each attribute of a value, in the order of kAttributeTexts.
const std::array<const char*, kAttributeTexts.size()>& attributeIcons();

/// The rows of a sounding as a view wants them. It holds the numbers and makes each text when it is looked at: a
/// sounding may have tens of thousands of rows.
class SeriesGrid : public QAbstractTableModel {
    Q_OBJECT

public:
    /// With \p withAttributes a last column tells the attributes of the row, and cells carry icons and tips.
    SeriesGrid(std::vector<GridColumn> columns, bool withAttributes, QObject* parent);

    /// New rows, one pointer to n values for each column; the values are copied. The attributes of a column come from
    /// its series, sample by sample at the time of the row (column 0). As many rows as before leave selection and place
    /// as they are.
    void setRows(int n, const std::vector<const double*>& values, const std::vector<const Series*>& attributes = {});
    /// Sets or clears an order, QcIgnore or QcKeep, of a cell; either takes the place of the other. The cells that were
    /// marked show after showMarks().
    void markCell(int row, int column, std::uint32_t order, bool on);
    void showMarks();

    bool hasValue(int row, int column) const;
    double value(int row, int column) const { return _values[at(row, column)]; }
    std::uint32_t attributes(int row, int column) const { return _attributes[at(row, column)]; }
    /// "Ig We " of all columns of a row.
    QString attributeText(int row) const;
    /// One line of a listing.
    QString listingLine(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::size_t at(int row, int column) const {
        return static_cast<std::size_t>(row) * _columns.size() + static_cast<std::size_t>(column);
    }
    void setAttributes(int column, const Series& series);
    bool isAttributeColumn(int column) const { return column == static_cast<int>(_columns.size()); }
    std::uint32_t attributesOfRow(int row) const;
    QVariant tip(int row, int column) const;
    QVariant icon(int row, int column) const;

    std::vector<GridColumn> _columns;
    bool _withAttributes;
    int _rows = 0;
    std::vector<double> _values;
    std::vector<std::uint32_t> _attributes;
    std::vector<QIcon> _icons; // of attributeIcons()
};
