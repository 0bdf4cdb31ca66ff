#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include <QStatusBar>
#include <QTimer>
#include <QMessageBox>
#include <QDialog>
#include <QtTest>
#include <gtest/gtest.h>
#include <iostream>

TEST(Probe, Status) {
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) { std::cerr << box->text().toStdString() << "\n"; box->accept(); } else if (auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget())) d->reject();
    });
    closer.start(20);
    TarvoMainWindow w;
    w.show();
    w.processFile(TARVO_SOURCE_DIR "/examples/data/D20210914_043120.2");
    QTest::qWait(600);
    auto* l = w.findChild<QLabel*>("_statusAgent");
    for (int i=0;i<8;++i){ QTest::qWait(500); std::cerr << l->text().toStdString() << " vis " << l->isVisible() << " geo " << l->width() << "x" << l->height() << " msg '" << w.statusBar()->currentMessage().toStdString() << "'\n";}
}
