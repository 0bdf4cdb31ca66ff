#pragma once

#include <QFont>
#include <QString>
#include <QTextDocument>
#include <functional>
#include <memory>

class QPaintDevice;

/// Listings: documents of lines in a fixed pitch, one under the other, which are never wrapped.
namespace Listing {

/// The face of all that is printed as text.
QFont font(double points, int weight = QFont::Normal);

/// A listing of \p rows lines, whose backgrounds alternate.
std::unique_ptr<QTextDocument> make(int rows, const std::function<QString(int row)>& line);

/// Sets \p doc, when it is a listing, in type so small that its longest line and its head fit \p width on \p device;
/// 9 points where there is room. The size of the type for the head of the columns, in points.
double fit(QTextDocument& doc, const QString& head, QPaintDevice* device, double width);

} // namespace Listing
