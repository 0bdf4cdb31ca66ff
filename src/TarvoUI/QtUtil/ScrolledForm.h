#pragma once

#include <QScrollArea>

/// Scrolls \p form, which large type on a small screen has no room for, on the ground of what is around it.
QScrollArea* scrolled(QWidget* form, QWidget* parent);
