#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <vector>

struct SeenBox {
    QString title;
    QString text;
    QMessageBox::Icon icon;
};

/// Answers every modal message box with its default answer while the object lives, and keeps what the boxes said.
class MessageBoxes {
public:
    explicit MessageBoxes(std::function<void(const SeenBox&)> onBox = {}) : _onBox(std::move(onBox)) {
        QObject::connect(&_timer, &QTimer::timeout, [this] { answer(); });
        _timer.start(1);
    }

    const std::vector<SeenBox>& seen() const { return _seen; }

private:
    void answer() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        _seen.push_back({box->windowTitle(), box->text(), box->icon()});
        if (_onBox) {
            _onBox(_seen.back());
        }
        box->accept();
    }

    QTimer _timer;
    std::vector<SeenBox> _seen;
    std::function<void(const SeenBox&)> _onBox;
};
