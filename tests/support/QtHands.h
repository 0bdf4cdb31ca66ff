#pragma once

#include "ModalAnswers.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QtTest/QtTest>

/// Types over what stands in a field, and leaves it.
inline void typeOver(QLineEdit& edit, const QString& text) {
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClick(&edit, Qt::Key_Home);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

/// What a dialog that saves offered.
struct SaveOffer {
    std::string filters;
    std::string selected;
    std::string folder;
    std::string name;
};

/// Answers the dialogs of a title by a path, and a filter unless that stays as it is; without a path gives them up.
inline void answerSave(ModalAnswers& answers, const std::string& title, const QString& path, const QString& filter = {},
                       SaveOffer* offer = nullptr) {
    answers.operate(title, [=](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        auto* edit = files.findChild<QLineEdit*>("fileNameEdit");
        if (offer != nullptr) {
            *offer = {files.nameFilters().join("|").toStdString(), files.selectedNameFilter().toStdString(),
                      files.directory().path().toStdString(), edit->text().toStdString()};
        }
        if (path.isEmpty()) {
            dialog.reject();
            return;
        }
        if (!filter.isEmpty()) {
            files.selectNameFilter(filter);
            emit files.filterSelected(filter);
        }
        edit->setText(path);
        dialog.accept();
    });
}
