#pragma once

#include <QString>
#include <QTabWidget>
#include <vector>

class TarvoAdvConfig;

/// Narrows forms in tabs, in their order, to the options that match all words of \p text; tabs without one are greyed,
/// and the first with one comes to the front unless the current one has some. False when none has one.
bool searchOptions(const QString& text, QTabWidget* tabs, const std::vector<TarvoAdvConfig*>& forms);
