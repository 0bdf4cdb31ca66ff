#pragma once

#include <QPushButton>
#include <QString>
#include <QVector>

class QAction;
class QMenu;

/// A button with a menu of choices that can be checked, each by itself.
class ChoicesButton : public QPushButton {
    Q_OBJECT

public:
    struct Choice_t {
        QString name;
        bool checked;
    };

    explicit ChoicesButton(const QString& text, QWidget* parent = nullptr);

    void addChoices(const QVector<Choice_t>& choices);
    /// A line ahead of the choice \p index.
    void setSeparator(int index);
    void setChecked(int index, bool checked);
    void setAllChecked(bool checked);
    /// The choices as they are now.
    QVector<Choice_t> status() const;

signals:
    /// The user checked or unchecked one, or the program did.
    void choicesChanged();

private slots:
    void actionChanged();

private:
    QMenu* _menu;
    QVector<QAction*> _actions;
};
