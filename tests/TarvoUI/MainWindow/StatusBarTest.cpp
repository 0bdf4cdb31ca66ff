// What the status bar tells, and the size of the text.

#include "DesktopTest.h"

#include <QStatusBar>

namespace {

class StatusBarTest : public DesktopTest {
protected:
    QImage mode() { return window().findChild<QLabel*>("_modeLabel")->pixmap(Qt::ReturnByValue).toImage(); }
    static QImage letter(const char* name) {
        return QPixmap(name).scaled(20, 20, Qt::KeepAspectRatio, Qt::SmoothTransformation).toImage();
    }
    std::string modeTip() { return window().findChild<QLabel*>("_modeLabel")->toolTip().toStdString(); }
    /// The type of the tabs, points.
    int size() {
        EXPECT_EQ(mdiArea().styleSheet(), window().statusBar()->styleSheet());
        return QRegularExpression("^\\* \\{font-size:(\\d+)pt; font-family:\"Arial\";\\}$")
            .match(mdiArea().styleSheet())
            .captured(1)
            .toInt();
    }
};

} // namespace

TEST_F(StatusBarTest, TellsConfigurationAndMode) {
    start();
    EXPECT_EQ(message(), "Ready");
    EXPECT_EQ(label("_configLabel"), "ACTIVE CONFIG: editsonde ");
    EXPECT_EQ(label("_configDirLabel"), "CONFIG DIR: " + QDir::homePath().toStdString() + "/.config/Tarvo ");
    EXPECT_EQ(mode(), letter(":/Images/LetterQ.png"));
    EXPECT_EQ(modeTip(), "Tarvo is in QC processing mode");
    configure("DoQC", 0.0);
    window().updateStatusBar("Changed");
    EXPECT_EQ(message(), "Changed");
    EXPECT_EQ(mode(), letter(":/Images/LetterV.png"));
    EXPECT_EQ(modeTip(), "Tarvo is in visualization mode (no QC is performed)");
}

TEST_F(StatusBarTest, KeysChangeTheTextSizeBetween4And60) {
    configure("TextSizePt", 58.0);
    start();
    EXPECT_EQ(size(), 58);
    EXPECT_EQ(message(), "Ready") << "no change was asked for";
    open(makeSounding("one.csv")); // whose tabs have the keys
    QTest::keyClick(&inView<QLineEdit>("_overridePres"), Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(size(), 59);
    EXPECT_EQ(inView("_overridePres").font().pointSize(), 59);
    EXPECT_EQ(message(), "                 Arial:59");
    QTest::keyClick(inView("RawView").findChild<QTableView*>(), Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&window(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(size(), 60);
    EXPECT_EQ(message(), "                 Arial:60");
    QTest::keyClick(&window(), Qt::Key_Minus);
    EXPECT_EQ(size(), 60) << "without Ctrl";
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Minus, Qt::ControlModifier, "-", true);
    QApplication::sendEvent(&window(), &repeated);
    EXPECT_EQ(size(), 60) << "held down";
    for (int i = 0; i < 60; ++i) {
        QTest::keyClick(&window(), Qt::Key_Minus, Qt::ControlModifier);
    }
    EXPECT_EQ(size(), 4);
    EXPECT_EQ(message(), "                 Arial:4");
    EXPECT_TRUE(QTest::qWaitFor([this] { return message().empty(); }, kPatience));
}

TEST_F(StatusBarTest, SizesAndFamilyComeFromTheConfiguration) {
    configure("OpenMaximized", 0.0);
    configure("FontFamily", "Liberation Mono");
    configure("TextSizePt", 2.0);
    start();
    EXPECT_FALSE(window().isMaximized());
    EXPECT_EQ(mdiArea().styleSheet(), "* {font-size:4pt; font-family:\"Liberation Mono\";}");
}
