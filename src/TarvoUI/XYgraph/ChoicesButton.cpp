#include "ChoicesButton.h"

#include <QAction>
#include <QMenu>

ChoicesButton::ChoicesButton(const QString& text, QWidget* parent) : QPushButton(text, parent), _menu(new QMenu(this)) {
    setMenu(_menu);
}

void ChoicesButton::addChoices(const QVector<Choice_t>& choices) {
    for (const Choice_t& choice : choices) {
        QAction* action = _menu->addAction(choice.name);
        action->setCheckable(true);
        action->setChecked(choice.checked);
        connect(action, &QAction::toggled, this, &ChoicesButton::actionChanged);
        _actions.append(action);
    }
}

void ChoicesButton::setSeparator(int index) {
    if (index >= 0 && index < _actions.size()) {
        _menu->insertSeparator(_actions[index]);
    }
}

void ChoicesButton::setChecked(int index, bool checked) {
    if (index >= 0 && index < _actions.size()) {
        _actions[index]->setChecked(checked);
    }
}

void ChoicesButton::setAllChecked(bool checked) {
    for (QAction* action : _actions) {
        action->setChecked(checked);
    }
}

QVector<ChoicesButton::Choice_t> ChoicesButton::status() const {
    QVector<Choice_t> choices;
    for (const QAction* action : _actions) {
        choices.append({action->text(), action->isChecked()});
    }
    return choices;
}

void ChoicesButton::actionChanged() {
    emit choicesChanged();
}
