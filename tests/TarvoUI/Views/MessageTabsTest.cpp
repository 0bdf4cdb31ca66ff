#include "Levels.h"
#include "LevelsView.h"
#include "OpenSounding.h"
#include "QtHands.h"
#include "QtText.h"
#include "SummaryView.h"
#include "TemporaryFolder.h"
#include "WMO.h"
#include "WMOView.h"

#include <QDesktopServices>
#include <QTextEdit>
#include <QUrl>
#include <QUrlQuery>
#include <QtTest/QtTest>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const char* const kExample = "D20210801_120003.1";

QString textAt(const QTableWidget& grid, int row, int column) {
    return grid.item(row, column)->text();
}

QString colorAt(const QTableWidget& grid, int row, int column) {
    return grid.item(row, column)->background().color().name();
}

QString pathIn(const fs::path& path) {
    return QString::fromStdString(path.string());
}

void press(QTableWidget& grid, int row, int column) {
    grid.scrollToItem(grid.item(row, column));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(grid.item(row, column)).center());
}

const QString kRed = QColor("red").name();
const QString kWhite = QColor("white").name();
const QString kLightBlue = QColor("lightblue").name();
const QString kPink = QColor("pink").name();

/// Stands in for the program that writes mail.
class MailProgram : public QObject {
    Q_OBJECT
public slots:
    void compose(const QUrl& mail) { mails.push_back(mail); }

public:
    std::vector<QUrl> mails;
};

class LevelsTab : public testing::Test {
protected:
    LevelsTab() : view(&sounding.doc, &sounding.printer, nullptr), grid(*view.findChild<QTableWidget*>("_levelsGrid")) {
        view.resize(1280, 800);
        view.update();
        view.show();
    }
    Level& level(int index) { return sounding.editor().levels()->levels()[static_cast<std::size_t>(index)]; }
    int rowOf(LevelType type) {
        const auto& all = sounding.editor().levels()->levels();
        const auto found =
            std::find_if(all.begin(), all.end(), [type](const Level& l) { return l.levelType() == type; });
        return static_cast<int>(found - all.begin());
    }

    OpenedSounding sounding{kExample};
    ModalAnswers answers;
    LevelsView view;
    QTableWidget& grid;
};

class WMOTab : public testing::Test {
protected:
    WMOTab() : view(&sounding.doc, &sounding.printer, nullptr), grid(*view.findChild<QTableWidget*>("_table")) {
        view.resize(1280, 800);
        view.update();
        view.show();
    }
    void click(const char* button) { QTest::mouseClick(view.findChild<QPushButton*>(button), Qt::LeftButton); }
    /// Types into the next prompt of a title and closes it.
    void answerPrompt(const std::string& title, const QString& text) {
        answers.operate(title, [text](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>();
            EXPECT_GE(edit->width(), edit->fontMetrics().horizontalAdvance(QString(10, '0')));
            QTest::keyClicks(edit, text); // in place of the old group
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    QString counts() {
        return view.findChild<QLabel*>("_modifiedGroups")->text() + ", " +
               view.findChild<QLabel*>("_originalGroups")->text();
    }
    /// The row that begins with a text.
    int rowOf(const QString& text, int from = 0) {
        int row = from;
        while (row < grid.rowCount() && textAt(grid, row, 0).trimmed() != text) {
            ++row;
        }
        return row;
    }
    QStringList row(int n) {
        QStringList texts;
        for (int column = 0; column < grid.columnCount(); ++column) {
            texts << textAt(grid, n, column).trimmed();
        }
        return texts;
    }

    OpenedSounding sounding{kExample};
    ModalAnswers answers;
    WMOView view;
    QTableWidget& grid;
};

/// The two in view.
class MessageTabs : public testing::Test {
protected:
    MessageTabs() {
        for (TarvoView* view : views) {
            view->update();
            view->show();
        }
    }

    OpenedSounding sounding{kExample};
    LevelsView levels{&sounding.doc, &sounding.printer, nullptr};
    WMOView message{&sounding.doc, &sounding.printer, nullptr};
    const std::vector<TarvoView*> views{&levels, &message};
};

} // namespace

TEST_F(LevelsTab, ShowsTheSetAsItIs) {
    ASSERT_EQ(grid.rowCount(), static_cast<int>(sounding.editor().levels()->levels().size()));
    const int row = rowOf(LevelType::Standard);
    EXPECT_EQ(textAt(grid, row, 1), "Standard");
    EXPECT_EQ(textAt(grid, row, 3), "400.0");
    EXPECT_EQ(textAt(grid, row, 4), "-18.2");
    EXPECT_EQ(textAt(grid, row, 9), "19.0") << "9.8 m/s are 19.0 knots";
    EXPECT_EQ(textAt(grid, row, 10), "7594") << "no decimal";
    EXPECT_EQ(colorAt(grid, row, 0), kLightBlue);
    const int wind = rowOf(LevelType::HighestWind);
    EXPECT_EQ(textAt(grid, wind, 4), "") << "a field that it doesn't have";
    EXPECT_EQ(colorAt(grid, wind, 0), kWhite);
    EXPECT_EQ(grid.horizontalHeaderItem(5)->text(), "DPdep (C)");
}

TEST_F(LevelsTab, APressWithdrawsALevelOrAField) {
    const int row = rowOf(LevelType::GDLTdry);
    QSignalSpy changed(&view, &LevelsView::levelsChanged);
    press(grid, row, 8);
    EXPECT_EQ(colorAt(grid, row, 8), kWhite) << "there is no wind to withdraw";
    view.leavingView();
    EXPECT_EQ(changed.count(), 0);
    press(grid, row, 3);
    EXPECT_TRUE(level(row).tag());
    EXPECT_EQ(colorAt(grid, row, 8), kRed) << "throughout";
    press(grid, row, 1);
    EXPECT_FALSE(level(row).tag());
    EXPECT_EQ(colorAt(grid, row, 8), kWhite);

    press(grid, row, 5);
    EXPECT_TRUE(level(row).getField(LFrh)->tag()) << "the depression is of the RH";
    EXPECT_EQ(colorAt(grid, row, 5), kRed);
    EXPECT_EQ(colorAt(grid, row, 6), kRed);
    EXPECT_EQ(colorAt(grid, row, 4), kWhite);
    press(grid, row, 6);
    EXPECT_FALSE(level(row).getField(LFrh)->tag());
    view.leavingView();
    view.leavingView();
    EXPECT_EQ(changed.count(), 1) << "coded anew once";
}

TEST_F(LevelsTab, WithoutLevelsItIsEmptyAndSavesNothing) {
    const TemporaryFolder folder;
    sounding.config.set("QCAutoSaveDir", folder.path().string());
    sounding.config.set("WmoAutoSaveFmtCsv", 1.0);
    press(grid, rowOf(LevelType::GDLTdry), 0);
    sounding.config.set("DoLevels", 0.0);
    sounding.doc.process();
    view.update();
    EXPECT_EQ(grid.rowCount(), 0);
    QSignalSpy changed(&view, &LevelsView::levelsChanged);
    view.leavingView();
    EXPECT_EQ(changed.count(), 0);
    view.autoSave();
    EXPECT_TRUE(answers.boxes().empty());
    EXPECT_TRUE(fs::is_empty(folder.path()));
    sounding.config.set("DoLevels", 1.0);
    sounding.doc.process();
    view.update();
    EXPECT_EQ(grid.rowCount(), static_cast<int>(sounding.editor().levels()->levels().size()));
}

TEST_F(LevelsTab, SortingKeepsRowAndLevelTogether) {
    grid.sortByColumn(3, Qt::DescendingOrder);
    EXPECT_EQ(textAt(grid, 0, 3), "1012.6") << "by number: 1012.6 is more than 957";
    const int index = textAt(grid, 4, 0).toInt();
    press(grid, 4, 0);
    EXPECT_TRUE(level(index).tag());
    EXPECT_EQ(colorAt(grid, 4, 0), kRed);
}

TEST_F(LevelsTab, SavesTheRowsInTheirOrder) {
    const TemporaryFolder folder;
    grid.sortByColumn(3, Qt::DescendingOrder);
    answerSave(answers, "Tarvo - Save Levels", pathIn(folder / "mine"), "All files(*.*)");
    view.save();
    const std::string text = readFile(folder / "mine.csv");
    EXPECT_THAT(text, testing::StartsWith("Fields,Index,Type,Time,Pres,Tdry,DPdep,RH,Wdir,Wspd,Wspd(kt),Alt\n"
                                          "Units,n,text,sec,mb,deg C,deg C,%,deg,m/s,kt,m\nData,"));
    EXPECT_LT(text.find("Surface Thermodynamic"), text.find("Uppermost Winds"));
    const auto before = readFile(folder / "mine.csv");
    answers.press("Tarvo - Save Levels", QMessageBox::No);
    answerSave(answers, "Tarvo - Save Levels", pathIn(folder / "mine"), "All files(*.*)");
    grid.sortByColumn(3, Qt::AscendingOrder);
    view.save();
    EXPECT_EQ(readFile(folder / "mine.csv"), before) << "not the file that the dialog asked about";
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Question);
    answers.forget();
    answerSave(answers, "Tarvo - Save Levels", pathIn(folder / "nowhere/mine"));
    view.save();
    ASSERT_THAT(answers.texts(), ElementsAre("Tarvo can't save the file."));
}

TEST_F(LevelsTab, SavesByItself) {
    const TemporaryFolder folder;
    sounding.config.set("QCAutoSaveDir", folder.path().string());
    sounding.config.set("WmoAutoSaveFmtCsv", 0.0);
    view.autoSave();
    EXPECT_TRUE(fs::is_empty(folder.path()));
    sounding.config.set("WmoAutoSaveFmtCsv", 1.0);
    view.autoSave();
    EXPECT_THAT(readFile(folder / "D20210801_120003Levels.csv"), HasSubstr("\nData,0,Standard,-1.0,400.0,"));
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(WMOTab, LaysTheGroupsOutAsTheLinesHaveThem) {
    const int partA = rowOf("XXAA");
    EXPECT_EQ(textAt(grid, partA - 1, 0), "UZNT13 UZxx13 000000");
    EXPECT_EQ(grid.columnSpan(partA - 1, 0), 10);
    EXPECT_EQ(row(partA), (QStringList{"XXAA", "51124", "99143", "70526", "04242", "99013", "27434", "09013", "00111",
                                       "26630", "09014"}));
    const int system = rowOf("31313");
    EXPECT_EQ(row(system), (QStringList{"31313", "09608", "81200", "61616", "", "", "", "", "", "", "="}));
    EXPECT_EQ(textAt(grid, system + 1, 0).trimmed(), "XXBB") << "the part ends with its trailer";
    EXPECT_EQ(counts(), "Modified groups: 0, Original groups: 79");
}

TEST_F(WMOTab, GroupsAreChangedAndRestored) {
    view.setStyleSheet("* {font-size:20pt}"); // the prompt is as large
    const int system = rowOf("31313");
    grid.setCurrentCell(system, 1);
    answerPrompt("Modify Code Group", "09999");
    click("_modify");
    EXPECT_EQ(textAt(grid, system, 1), "09999");
    EXPECT_EQ(colorAt(grid, system, 1), kPink);
    EXPECT_THAT(counts().toStdString(), HasSubstr("Modified groups: 1,"));
    EXPECT_EQ(grid.currentColumn(), 1) << "the place is kept";
    click("_restore");
    EXPECT_EQ(textAt(grid, system, 1), "09608");
    EXPECT_EQ(colorAt(grid, system, 1), kWhite);
    EXPECT_THAT(counts().toStdString(), HasSubstr("Modified groups: 0,"));
}

TEST_F(WMOTab, GroupsArePutInAndTakenOut) {
    const int system = rowOf("31313");
    grid.setCurrentCell(system, 1);
    answerPrompt("Insert Code Group", "NEW");
    click("_before");
    EXPECT_EQ(row(system).mid(0, 4), (QStringList{"31313", "NEW", "09608", "81200"}));
    EXPECT_EQ(colorAt(grid, system, 1), kLightBlue);
    EXPECT_THAT(counts().toStdString(), HasSubstr("Modified groups: 1,"));
    click("_delete");
    EXPECT_THAT(counts().toStdString(), HasSubstr("Modified groups: 0,")) << "what was put in doesn't count";
    click("_delete");
    EXPECT_EQ(row(system).mid(0, 3), (QStringList{"31313", "81200", "61616"}));
    EXPECT_THAT(counts().toStdString(), HasSubstr("Modified groups: 1,"));
    grid.setCurrentCell(system, 1);
    click("_after");
    EXPECT_EQ(row(system).mid(0, 4), (QStringList{"31313", "81200", "NEW", "61616"}));

    const int tropopause = system - 1;
    const auto last = row(tropopause).indexOf("77999");
    grid.setCurrentCell(tropopause, static_cast<int>(last) + 2);
    click("_before");
    EXPECT_EQ(row(tropopause)[last + 1], "NEW") << "right of the last group it comes behind it";
    sounding.editor().doWMO();
    view.update();
    EXPECT_EQ(counts(), "Modified groups: 0, Original groups: 79") << "coding anew forgets all that";
}

TEST_F(WMOTab, ALongGroupTakesSeveralRows) {
    const int system = rowOf("31313");
    grid.setCurrentCell(system, 2);
    const QString text = QString(65, 'a') + QString(65, 'b') + QString(10, 'c');
    answerPrompt("Modify Code Group", text);
    click("_modify");
    EXPECT_EQ(textAt(grid, system, 2), text.mid(0, 65));
    EXPECT_EQ(textAt(grid, system + 1, 0), text.mid(65, 65));
    EXPECT_EQ(textAt(grid, system + 2, 0), text.mid(130));
    EXPECT_EQ(textAt(grid, system + 3, 0), "61616") << "the next group has a row of its own";
    grid.setCurrentCell(system + 2, 0);
    click("_restore");
    EXPECT_EQ(textAt(grid, system, 2), "81200");
}

TEST_F(WMOTab, MailAndFileCarryTheMessage) {
    const QUrl url = WMOView::mailUrl("ops@example.org", "TTAA 100% & a+b?=#");
    EXPECT_TRUE(url.isValid());
    EXPECT_EQ(url.scheme(), "mailto");
    EXPECT_EQ(url.path(), "ops@example.org");
    EXPECT_EQ(QUrlQuery(url).queryItemValue("subject", QUrl::FullyDecoded), "TARVO generated WMO message ");
    EXPECT_EQ(QUrlQuery(url).queryItemValue("body", QUrl::FullyDecoded), "TTAA 100% & a+b?=#");

    const QUrl named = WMOView::mailUrl(" The desk <ops@example.org>,b@example.org", "TTAA");
    EXPECT_TRUE(named.isValid());
    EXPECT_EQ(named.path(QUrl::FullyDecoded), "The desk <ops@example.org>,b@example.org");
    EXPECT_EQ(QUrlQuery(named).queryItemValue("body"), "TTAA");

    const TemporaryFolder folder;
    sounding.config.set("TempAppendNNNN", 1.0);
    answerSave(answers, "Tarvo - Save WMO", pathIn(folder / "message"));
    view.save();
    EXPECT_THAT(readFile(folder / "message.txt"), testing::EndsWith("31313 09608 81200 61616 =\nNNNN"));
    writeFile(folder / "kept.txt", "precious");
    answers.press("Tarvo - Save WMO", QMessageBox::No);
    answerSave(answers, "Tarvo - Save WMO", pathIn(folder / "kept"), "All files(*.*)");
    view.save();
    EXPECT_EQ(readFile(folder / "kept.txt"), "precious");
    answers.forget();
    std::string directory;
    sounding.config.text("WmoSaveDir", directory);
    EXPECT_EQ(directory, folder.path().string());
    sounding.config.set("QCAutoSaveDir", (folder / "gone").string());
    sounding.config.set("WmoAutoSaveFmtTxt", 0.0);
    view.autoSave();
    view.autoSave();
    ASSERT_EQ(answers.boxes().size(), 1u) << "the first one moves the item";
    EXPECT_EQ(answers.boxes()[0].title, "Invalid Autosave Directory");
}

TEST_F(WMOTab, TheMailProgramGetsTheMessage) {
    MailProgram program;
    QDesktopServices::setUrlHandler("mailto", &program, "compose");
    sounding.config.set("TempEmailAddress", std::string("ops@example.org"));
    std::string text;
    for (const std::string& line : sounding.editor().wmo()->textLines()) {
        text += line;
    }
    for (const auto& [append, end] : {std::pair(0.0, ""), std::pair(1.0, "NNNN")}) {
        sounding.config.set("TempAppendNNNN", append);
        click("_email");
        ASSERT_FALSE(program.mails.empty());
        EXPECT_EQ(program.mails.back().path(), "ops@example.org");
        EXPECT_EQ(QUrlQuery(program.mails.back()).queryItemValue("body", QUrl::FullyDecoded).toStdString(), text + end);
    }
    EXPECT_TRUE(answers.boxes().empty());
    QDesktopServices::setUrlHandler("mailto", &view, "noSuchSlot");
    click("_email");
    ASSERT_THAT(answers.texts(), ElementsAre("Unable to open the email program!"));
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
    sounding.config.set("DoWMO", 0.0);
    sounding.doc.process();
    click("_email");
    QDesktopServices::unsetUrlHandler("mailto");
    EXPECT_EQ(answers.boxes().size(), 1U) << "no mail without a message";
}

TEST_F(WMOTab, WithoutAMessageNothingIsCounted) {
    grid.setCurrentCell(rowOf("31313"), 1);
    click("_delete");
    EXPECT_EQ(counts(), "Modified groups: 1, Original groups: 79");
    sounding.config.set("DoWMO", 0.0);
    sounding.doc.process();
    view.update();
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(counts(), "Modified groups: 0, Original groups: 0");
}

TEST_F(MessageTabs, HaveRoomForLargeTypeAndTheTabKeyLeavesThem) {
    for (TarvoView* view : views) {
        auto* grid = view->findChild<QTableWidget*>();
        for (const int points : {8, 20}) {
            view->setStyleSheet(QString("* {font-size:%1pt}").arg(points));
            view->resize(300, 400);
            QApplication::processEvents();
            const int type = QFontMetrics(grid->font()).height();
            EXPECT_GE(grid->rowHeight(0), type) << points;
            EXPECT_LT(grid->rowHeight(0), 2 * type) << points;
            EXPECT_GE(grid->columnWidth(1), grid->sizeHintForIndex(grid->model()->index(1, 1)).width()) << points;
            EXPECT_LE(view->minimumSizeHint().width(), 1200) << points;
        }
        grid->setCurrentCell(1, 1);
        QTest::keyClick(grid, Qt::Key_Tab);
        EXPECT_EQ(grid->currentColumn(), 1) << view->objectName().toStdString();
    }
}

TEST_F(MessageTabs, StandWhenQcIsSwitchedOff) {
    SummaryView summary(&sounding.doc, &sounding.printer, nullptr);
    ASSERT_GT(message.findChild<QTableWidget*>()->rowCount(), 0);
    const TemporaryFolder folder;
    sounding.config.set("QCAutoSaveDir", folder.path().string());
    sounding.config.set("WmoAutoSaveFmtTxt", 1.0);
    sounding.config.set("DoQC", 0.0);
    sounding.doc.process();
    for (TarvoView* view : std::initializer_list<TarvoView*>{&levels, &message, &summary}) {
        view->update();
        view->autoSave();
    }
    EXPECT_EQ(message.findChild<QTableWidget*>()->rowCount(), 0);
    EXPECT_FALSE(fs::exists(folder / "D20210801_120003WMO.txt"));
}

TEST(SummaryTab, ListsTopicsWithTheirItems) {
    OpenedSounding sounding(kExample);
    SummaryView view(&sounding.doc, &sounding.printer, nullptr);
    sounding.editor().summaryAddItem("Odd <topic>", "1 < 2 & 3");
    view.update();
    const QString text = view.findChild<QTextEdit*>()->toPlainText();
    EXPECT_THAT(text.toStdString(), HasSubstr("\nOdd <topic>\n1 < 2 & 3\n"));
    EXPECT_THAT(text.toStdString(), HasSubstr("Surface wind coded for an adjusted altitude of 10.0m"));
    EXPECT_TRUE(view.findChild<QTextEdit*>()->isReadOnly());

    ModalAnswers answers;
    const TemporaryFolder folder;
    sounding.config.set("QCAutoSaveDir", folder.path().string());
    sounding.config.set("SumAutoSaveFmtTxt", 1.0);
    view.autoSave();
    EXPECT_EQ(readFile(folder / "D20210801_120003Summary.txt"), text.toStdString() + "\n");
    answerSave(answers, "Tarvo - Save Summary", pathIn(folder / "summary.pdf"));
    sounding.printer.setPageOrientation(QPageLayout::Landscape); // as the Main tab leaves it
    view.save();
    EXPECT_THAT(readFile(folder / "summary.pdf"), testing::StartsWith("%PDF"));
    EXPECT_EQ(sounding.printer.pageLayout().orientation(), QPageLayout::Portrait);
    answerSave(answers, "Tarvo - Save Summary", pathIn(folder / "nowhere/summary.pdf"));
    view.save();
    ASSERT_THAT(answers.texts(), ElementsAre("Tarvo can't save the file."));
}

#include "MessageTabsTest.moc"
