#pragma once

#include <QFont>
#include <QSizeF>
#include <QTextBlock>
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

constexpr double kBodyPt = 10.5;
/// Contents list and running head.
constexpr double kSmallPt = 9.0;

QFont bodyFont(double points = kBodyPt);
QFont headingFont(double points);

/// Gives a document that was made from Markdown its type, margins, tables and images. Throws std::runtime_error for an
/// image that can't be read.
void apply(QTextDocument& document);

/// Whether \p block is a line of code that stands for itself.
bool isLineOfCode(const QTextBlock& block);

} // namespace manual_style
