// From a file with faults to a product, once with nothing but the mouse and once with nothing but the keys. Every click
// and key goes to the window as the screen would deliver it: what is hidden, covered or out of reach gets nothing.

#include "DesktopTest.h"

#include "SeriesGrid.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QToolBar>
#include <filesystem>

namespace {

const char* const kExample = "D20210914_043120.2";
const char* const kAllFiles = "All files (*)";
const char* const kCsv = "Comma Separated (*.csv)";
const char* const kProduct = "D20210914_043120QC.csv";

void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(widget.window()->windowHandle(), button, Qt::NoModifier, widget.mapTo(widget.window(), at));
}

void click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton) {
    ASSERT_TRUE(widget.isVisible());
    click(widget, widget.rect().center(), button);
}

void key(QWidget& widget, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(widget.window()->windowHandle(), static_cast<Qt::Key>(code), modifiers);
}

void type(QWidget& widget, const std::string& text) {
    for (const char c : text) {
        QTest::keyClick(widget.window()->windowHandle(), c);
    }
}

/// Does something with the menu that is about to pop up and that may hold on until it is gone.
void whenMenuIsUp(const std::function<void(QMenu&)>& how) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [timer, how] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            timer->stop();
            timer->deleteLater();
            how(*menu);
        }
    });
    timer->start(20);
}

void clickEntry(QMenu& menu, const QString& text) {
    for (QAction* entry : menu.actions()) {
        if (entry->text().section('\t', 0, 0) == text) {
            click(menu, menu.actionGeometry(entry).center());
            return;
        }
    }
    menu.close();
    FAIL() << text.toStdString();
}

class WholeWayTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        std::filesystem::copy_file(example(kExample), path(kExample));
        configure("DataDir", path(""));
        configure("QCSaveDir", path(""));
        start();
        window().resize(1400, 1000);
    }

    SeriesGrid& raw() { return *inView("RawView").findChild<SeriesGrid*>(); }
    QTableView& rawTable() { return *inView("RawView").findChild<QTableView*>("_grid"); }

    /// What the way must have led to, before the product is opened.
    void expectEdits(int ignoredRow, int lastRow) {
        EXPECT_EQ(raw().attributes(ignoredRow, 2) & Value::QcIgnore, Value::QcIgnore);
        EXPECT_EQ(raw().attributes(ignoredRow, 1) & Value::QcIgnore, 0U);
        const SndMetaData meta = view().editor()->getSndMetaData(true);
        EXPECT_DOUBLE_EQ(meta.launchPres.value(), 481.5);
        EXPECT_NEAR(view().editor()->QClastDataTime(), raw().value(lastRow, 0), 0.1);
        endOfDrop = raw().value(lastRow, 0);
        EXPECT_EQ(action("_actionRecompute").toolTip(), "Recompute");
    }
    void expectProduct() {
        window().activateWindow();
        QTest::qWait(50);
        const std::string text = readFile(path(kProduct));
        EXPECT_THAT(text, testing::StartsWith("FileFormat,CSV"));
        EXPECT_THAT(text, testing::HasSubstr("\nPressure,481.5"));
        EXPECT_EQ(openFiles(), (std::vector<std::string>{kExample, kProduct}));
        const SndMetaData meta = view().editor()->getSndMetaData(false);
        EXPECT_NEAR(meta.launchPres.value(), 481.5, 0.01);
        EXPECT_NEAR(view().editor()->MaxLastDataTime(), endOfDrop, 0.6) << "to its splash, half a second behind";
    }

    double endOfDrop = 0.0;
    std::string proposed;
};

class MouseTest : public WholeWayTest {
protected:
    void tool(const char* name) { click(*window().findChild<QToolBar*>("_toolBar")->widgetForAction(&action(name))); }
    void tab(int index) {
        auto* bar = view().tabs()->tabBar();
        click(*bar, bar->tabRect(index).center());
        ASSERT_EQ(view().tabs()->currentIndex(), index);
    }
    void cell(int row, int column) {
        QTableView& table = rawTable();
        table.scrollTo(raw().index(row, column)); // as the wheel would
        click(*table.viewport(), table.visualRect(raw().index(row, column)).center());
    }
    void cellCommand(int row, int column, const char* command) {
        cell(row, column);
        whenMenuIsUp([command](QMenu& menu) { clickEntry(menu, command); });
        QTableView& table = rawTable();
        click(*table.viewport(), table.visualRect(raw().index(row, column)).center(), Qt::RightButton);
    }
    /// The wheel turns through the file types.
    static void chooseFilter(QFileDialog& dialog, const char* filter) {
        auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
        const QPointF at = combo->rect().center();
        for (int i = 0; i < 10 && combo->currentText() != filter; ++i) {
            QWheelEvent down(at, combo->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, -120), Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(combo, &down);
        }
        ASSERT_EQ(combo->currentText(), filter);
    }
    static void chooseFile(QFileDialog& dialog, const char* name) {
        auto* list = dialog.findChild<QListView*>("listView");
        QModelIndex item;
        ASSERT_TRUE(QTest::qWaitFor([&] {
            item = list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name).value(0);
            return item.isValid();
        })) << name;
        QTest::qWait(200); // until the list is laid out
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(item).center());
        auto* button = dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open);
        ASSERT_TRUE(button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
    }
};

class KeyboardTest : public WholeWayTest {
protected:
    void keys(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { key(window(), code, modifiers); }
    /// From the tab to its grid.
    void toGrid() {
        for (int i = 0; i < 20 && !rawTable().hasFocus(); ++i) {
            keys(Qt::Key_Tab);
        }
        ASSERT_TRUE(rawTable().hasFocus());
    }
    void toCell(int row, int column) {
        keys(Qt::Key_Home, Qt::ControlModifier);
        for (int i = 0; i < column; ++i) {
            keys(Qt::Key_Right);
        }
        for (int i = 0; i < row; ++i) {
            keys(Qt::Key_Down);
        }
        ASSERT_EQ(rawTable().currentIndex().row(), row);
        ASSERT_EQ(rawTable().currentIndex().column(), column);
    }
    void menuOfCell(Qt::Key way) {
        whenMenuIsUp([way](QMenu& menu) {
            key(menu, way);
            key(menu, Qt::Key_Return);
        });
        // The menu key, as the screen translates it.
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, rawTable().rect().center());
        QApplication::sendEvent(QApplication::focusWidget(), &wanted);
        QTest::qWait(100);
    }
    void answerWithName(const char* title, const char* filterKey, const std::string& name) {
        onDialog(title, [filterKey, name](QFileDialog& dialog) {
            auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
            for (int i = 0; i < combo->count() && !combo->currentText().startsWith(filterKey); ++i) {
                QTest::keyClick(combo, combo->currentIndex() + 1 < combo->count() ? Qt::Key_Down : Qt::Key_Home);
            }
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(edit, QString::fromStdString(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
};

} // namespace

TEST_F(MouseTest, FromAFileWithFaultsToAProduct) {
    onDialog("Tarvo - Open Sounding File", [](QFileDialog& dialog) {
        chooseFilter(dialog, kAllFiles);
        chooseFile(dialog, kExample);
    });
    tool("_actionOpen");
    ASSERT_EQ(openFiles(), std::vector<std::string>{kExample});

    tab(1);
    cellCommand(40, 2, "Set Ignore Attribute");
    const int last = raw().rowCount() - 30;
    cellCommand(last, 1, "Set end of drop time");

    tab(0);
    QApplication::clipboard()->setText("481.5");
    whenMenuIsUp([](QMenu& menu) { clickEntry(menu, "&Paste"); });
    click(inView("_overridePres"), Qt::RightButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !inView<QLineEdit>("_overridePres").text().isEmpty(); }));
    EXPECT_NE(action("_actionRecompute").toolTip(), "Recompute");
    tool("_actionRecompute");
    expectEdits(40, last);

    tab(2);
    onDialog("Tarvo - Save QC", [this](QFileDialog& dialog) {
        chooseFilter(dialog, kCsv);
        // Names come from the keys; the mouse has the one that is proposed.
        proposed = dialog.findChild<QLineEdit*>("fileNameEdit")->text().toStdString();
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Save),
                          Qt::LeftButton);
    });
    tool("_actionSave");
    EXPECT_EQ(proposed, "D20210914_043120QC");
    window().processFile(QString::fromStdString(path(kProduct))); // the way through the dialog is told above
    expectProduct();
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(KeyboardTest, FromAFileWithFaultsToAProduct) {
    answerWithName("Tarvo - Open Sounding File", "All files", path(kExample));
    keys(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(openFiles(), std::vector<std::string>{kExample});

    keys(Qt::Key_R, Qt::AltModifier);
    toGrid();
    toCell(40, 2);
    menuOfCell(Qt::Key_Down);
    keys(Qt::Key_End, Qt::ControlModifier);
    for (int i = 0; i < 29; ++i) {
        keys(Qt::Key_Up);
    }
    const int last = raw().rowCount() - 30;
    EXPECT_EQ(rawTable().currentIndex().row(), last);
    menuOfCell(Qt::Key_Up);

    keys(Qt::Key_M, Qt::AltModifier);
    keys(Qt::Key_P, Qt::AltModifier);
    type(window(), "481.5");
    EXPECT_EQ(inView<QLineEdit>("_overridePres").text(), "481.5");
    QTest::keyClick(&inView<QPushButton>("_recompute"), Qt::Key_Space);
    expectEdits(40, last);

    keys(Qt::Key_Q, Qt::AltModifier);
    answerWithName("Tarvo - Save QC", "Comma", path(kProduct));
    keys(Qt::Key_S, Qt::ControlModifier);
    window().activateWindow(); // as a window manager does when a dialog goes
    answerWithName("Tarvo - Open Sounding File", "All files", path(kProduct));
    keys(Qt::Key_O, Qt::ControlModifier);
    expectProduct();
    EXPECT_TRUE(answers.boxes().empty());
}
