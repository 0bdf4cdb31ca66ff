#pragma once

#include <QMessageBox>

/// The boxes of the program: modal, with an Ok button unless said otherwise.
namespace Boxes {

/// Critical when \p fatal, else a warning; without a parent.
void displayErrorMessage(const QString& text, bool fatal, const QString& title);

/// A file name with the extension of a filter like "netCDF (*.nc)", unless it has it. A file that isn't the one that a
/// dialog of \p title asked about isn't replaced without a question: empty when the user keeps it, or for no name.
QString withExtension(QWidget* parent, const QString& name, const QString& filter, const QString& title);

} // namespace Boxes
