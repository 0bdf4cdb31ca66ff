#pragma once

class QFileDialog;

/// Lets Alt+T go to the file types of a dialog of Qt, to which it gives no key of their own.
void reachFileTypesByKeys(QFileDialog& dialog);
