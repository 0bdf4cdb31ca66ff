#pragma once

#include <QFont>
#include <QRgb>
#include <QSizeF>
#include <QTextDocument>

/// What the manual looks like.
namespace manual_style {

constexpr double kPageWidthMm = 210.0;
constexpr double kPageHeightMm = 297.0;
constexpr double kSideMm = 25.0;
constexpr double kTopMm = 28.0;
constexpr double kBottomMm = 25.0;
constexpr double kTextWidthMm = kPageWidthMm - 2 * kSideMm;
constexpr double kTextHeightMm = kPageHeightMm - kTopMm - kBottomMm;

/// Lengths of a document are those of a screen; the layout takes them to the resolution of the paper.
constexpr double kScreenDpi = 96.0;
constexpr double kPxPerPt = kScreenDpi / 72.0;

/// Behind code and the heads of tables.
constexpr QRgb kShade = 0xfff1f4f7;

constexpr double kBodyPt = 10.5;
/// Contents list and running head.
constexpr double kSmallPt = 9.0;

QFont bodyFont(double points = kBodyPt);
QFont headingFont(double points);

/// Gives a document that was made from Markdown its type, margins, tables and images. Throws std::runtime_error for an
/// image that can't be read.
void apply(QTextDocument& document);

} // namespace manual_style
