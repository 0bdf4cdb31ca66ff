#include "TarvoMainWindow.h"

#include "ModalAnswers.h"
#include "TarvoViewController.h"

#include <QStatusBar>
#include <QtTest/QtTest>
#include <gtest/gtest.h>

TEST(MainWindow, OpensAnExample) {
    ModalAnswers answers;
    TarvoMainWindow window;
    window.show();
    window.processFile(TARVO_SOURCE_DIR "/examples/data/D20210914_043120.2");
    ASSERT_NE(window.activeView(), nullptr);
    EXPECT_EQ(window.activeView()->windowTitle().toStdString(), "D20210914_043120.2");
    EXPECT_EQ(window.findChild<QLabel*>("_statusAgent")->text().toStdString(), "Ready");
}
