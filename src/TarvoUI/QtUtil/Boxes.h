#pragma once

#include <QMessageBox>

/// The boxes of the program: modal, with an Ok button unless said otherwise.
namespace Boxes {

/// Critical when \p fatal, else a warning; without a parent.
void displayErrorMessage(const QString& text, bool fatal, const QString& title);

} // namespace Boxes
