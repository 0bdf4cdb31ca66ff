#pragma once

#include <QTextBlock>
#include <QTextDocument>

/// What Qt's import of Markdown leaves to be done.
namespace manual_import {

/// Whether \p block is code that stands for itself, outside of tables.
bool isCode(const QTextBlock& block);

/// Whether \p block is a rule across the page, which has no text.
bool isRule(const QTextBlock& block);

/// Takes out the empty lines that the import leaves, and makes each piece of code one block in a shaded frame.
void repair(QTextDocument& document);

} // namespace manual_import
