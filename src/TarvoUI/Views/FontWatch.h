#pragma once

#include <QEvent>
#include <QWidget>
#include <functional>
#include <utility>

/// Tells of every new font of a widget: the size of the text is changed while a window is open. It belongs to the
/// widget.
class FontWatch : public QObject {
public:
    FontWatch(QWidget* watched, std::function<void()> changed) : QObject(watched), _changed(std::move(changed)) {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FontChange) {
            _changed();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> _changed;
};
