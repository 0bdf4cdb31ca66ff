#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Answers the boxes and dialogs that a window puts up while a test waits in it, and remembers what they said.
class ModalAnswers {
public:
    struct Box {
        std::string title;
        std::string text;
        QMessageBox::Icon icon;
    };

    ModalAnswers() {
        QObject::connect(&_timer, &QTimer::timeout, [this] { answer(); });
        _timer.start(kPeriod);
    }
    ModalAnswers(const ModalAnswers&) = delete;
    ModalAnswers& operator=(const ModalAnswers&) = delete;

    /// The boxes so far, oldest first.
    const std::vector<Box>& boxes() const { return _boxes; }
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const Box& box : _boxes) {
            all.push_back(box.text);
        }
        return all;
    }
    /// The same with their titles: "title: text".
    std::vector<std::string> told() const {
        std::vector<std::string> all;
        for (const Box& box : _boxes) {
            all.push_back(box.title + ": " + box.text);
        }
        return all;
    }
    void forget() { _boxes.clear(); }
    /// Hears of each box, ahead of its answer.
    void onBox(std::function<void(const Box&)> listener) { _onBox = std::move(listener); }

    /// The button for boxes of a title; Ok otherwise.
    void press(const std::string& title, QMessageBox::StandardButton button) { _buttons[title] = button; }
    /// What to do with dialogs of a title that are no message boxes; they are given up otherwise.
    void operate(const std::string& title, std::function<void(QDialog&)> how) { _operations[title] = std::move(how); }

private:
    static constexpr int kPeriod = 10; // ms

    void answer() {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            const std::string title = box->windowTitle().toStdString();
            _boxes.push_back({title, box->text().toStdString(), box->icon()});
            if (_onBox) {
                _onBox(_boxes.back());
            }
            const auto button = _buttons.find(title);
            QAbstractButton* pressed = box->button(button == _buttons.end() ? QMessageBox::Ok : button->second);
            pressed != nullptr ? pressed->click() : box->reject();
        } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
            const auto operation = _operations.find(dialog->windowTitle().toStdString());
            operation == _operations.end() ? dialog->reject() : operation->second(*dialog);
        }
    }

    QTimer _timer;
    std::vector<Box> _boxes;
    std::function<void(const Box&)> _onBox;
    std::map<std::string, QMessageBox::StandardButton> _buttons;
    std::map<std::string, std::function<void(QDialog&)>> _operations;
};
