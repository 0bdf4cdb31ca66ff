// The grids of the Raw and the QC tab, as a person sees and operates them.

#include "CsvText.h"
#include "ModalAnswers.h"
#include "OpenSounding.h"
#include "QCView.h"
#include "RawView.h"
#include "TimeLimit.h"

#include <QAction>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QSignalSpy>
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

enum Column { Time, Pres, Tdry, RH, Wspd, Wdir, Alt, GpsAlt, DzDt, Lat, Lon, Sats, WindErr, Attributes };

template <typename View>
class GridTab : public OpenSounding {
public:
    explicit GridTab(const std::string& path = example(kFaulty), double doQC = 1.0) : OpenSounding(path) {
        config.set("DoQC", doQC);
        view = std::make_unique<View>(&doc, &printer, nullptr);
        view->show();
        view->update(); // there is nothing of QC ahead of the first run
        run();
        requests = std::make_unique<QSignalSpy>(view.get(), &TarvoView::processRequest);
    }

    void run() {
        doc.process();
        view->update();
    }
    QModelIndex cell(int row, int column) const { return view->table()->model()->index(row, column); }
    QVariant look(int row, int column, int role = Qt::DisplayRole) const { return cell(row, column).data(role); }
    std::string text(int row, int column) const { return look(row, column).toString().toStdString(); }
    std::string tip(int row, int column) const { return look(row, column, Qt::ToolTipRole).toString().toStdString(); }
    bool isAqua(int row, int column) const {
        return qvariant_cast<QColor>(look(row, column, Qt::BackgroundRole)) == QColor("aqua");
    }
    std::string headings() const {
        std::string all;
        for (int c = 0; c < view->table()->model()->columnCount(); ++c) {
            all += view->table()->model()->headerData(c, Qt::Horizontal).toString().toStdString() + "|";
        }
        return all;
    }
    int rowOf(const char* time) const {
        for (int row = 0; row < view->grid()->rowCount(); ++row) {
            if (text(row, 0) == time) {
                return row;
            }
        }
        ADD_FAILURE() << "no row at " << time;
        return 0;
    }

    ModalAnswers answers; // to whatever comes up
    std::unique_ptr<View> view;
    std::unique_ptr<QSignalSpy> requests;
};

class RawTab : public GridTab<RawView> {
public:
    using GridTab::GridTab;

    void select(const std::vector<std::pair<int, int>>& cells) {
        QItemSelection selection;
        for (const auto& [row, column] : cells) {
            selection.select(cell(row, column), cell(row, column));
        }
        view->table()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }
    /// Chooses from the context menu.
    void choose(const QString& text) {
        for (QAction* action : view->table()->actions()) {
            if (action->text() == text) {
                action->trigger();
                return;
            }
        }
        ADD_FAILURE() << text.toStdString();
    }
    std::vector<std::string> menu() const {
        std::vector<std::string> texts;
        for (const QAction* action : view->table()->actions()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return texts;
    }
    int marked() const {
        int n = 0;
        for (int row = 0; row < view->grid()->rowCount(); ++row) {
            for (int column = 0; column < Attributes; ++column) {
                n += isAqua(row, column) ? 1 : 0;
            }
        }
        return n;
    }
};

using QcTab = GridTab<QCView>;

constexpr int kRow = 100; // a row with a sample in every column

} // namespace

TEST(RawView, ShowsTheSamplesWithTheirDecimals) {
    RawTab tab;
    EXPECT_EQ(tab.headings(), "Time (s)|Pres (mb)|Tdry (C)|RH (%)|Spd (m/s)|Dir (deg)|Alt (m)|GPS Alt (m)|Dz/Dt "
                              "(m/s)|Lat (deg)|Lon (deg)|Sats (n)|Wind err (m/s)|Attributes|");
    // The record of 04:40:16.50, 536.5 s after the launch at 04:31:20.
    std::string row;
    for (int column = 0; column < Attributes; ++column) {
        row += tab.text(tab.rowOf("536.50"), column) + "|";
    }
    EXPECT_EQ(row, "536.50|1006.6|28.3|84.3|9.5|216.4|10.8|10.6|-9.9|17.9437|118.4064|9|0.3|");
    EXPECT_EQ(tab.text(1, Wspd), ""); // no wind yet
    EXPECT_EQ(tab.text(0, Attributes), "F ");
    EXPECT_EQ(tab.tip(0, Attributes), "F: Obs-Flight");
    EXPECT_FALSE(tab.look(0, Pres, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(tab.look(5, Pres, Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
    for (const auto& [channel, rh] : {std::pair(1, "84.7"), std::pair(2, "84.1")}) { // 84.74 and 84.06
        tab.editor().selectRH(channel);
        tab.run();
        EXPECT_EQ(tab.text(tab.rowOf("536.50"), RH), rh);
        tab.select({{kRow, RH}});
        tab.choose("Set Keep Attribute");
        const Series& shown = *tab.editor().getSeries("RawRH" + std::to_string(channel));
        EXPECT_TRUE(shown.testAttribute(kRow, Value::QcKeep)) << channel;
    }
    RawTab without(OpenSounding::example(kFaulty), 0.0);
    EXPECT_THAT(without.menu(), ElementsAre()) << "nothing to mark without QC";
    EXPECT_NE(without.view->table()->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_GT(without.view->grid()->rowCount(), 1000);
}

TEST(RawView, MarksACellAtOnceAndKeepsItThroughARun) {
    RawTab tab;
    EXPECT_THAT(tab.menu(), ElementsAre("Set Ignore Attribute", "Clear Ignore Attribute", "-", "Set Keep Attribute",
                                        "Clear Keep Attribute", "-", "Set end of drop time"));
    tab.select({{kRow, Pres}});
    tab.choose("Set Keep Attribute");
    EXPECT_EQ(tab.text(kRow, Attributes), "Kp ");
    tab.requests->clear();
    tab.choose("Set Ignore Attribute"); // takes the place of the other
    EXPECT_EQ(tab.text(kRow, Attributes), "Ig ");
    EXPECT_EQ(tab.tip(kRow, Pres), "Ignored in QC");
    EXPECT_TRUE(tab.isAqua(kRow, Pres));
    EXPECT_EQ(tab.look(kRow, Pres, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
    EXPECT_EQ(tab.marked(), 1);
    ASSERT_EQ(tab.requests->count(), 1);
    EXPECT_TRUE(tab.requests->front().front().toBool());
    EXPECT_EQ(tab.editor().getSeries("RawPres")->attributes(kRow), Value::QcIgnore);

    tab.run();
    EXPECT_TRUE(tab.isAqua(kRow, Pres));
    EXPECT_EQ(tab.view->table()->selectionModel()->selectedIndexes().size(), 1); // the run doesn't disturb
    EXPECT_EQ(tab.editor().getSeries("QCPres")->indexFromTime(tab.view->grid()->value(kRow, Time)), -1);

    tab.choose("Clear Ignore Attribute");
    EXPECT_EQ(tab.marked(), 0);
    EXPECT_EQ(tab.tip(kRow, Pres), "");
    EXPECT_EQ(tab.text(kRow, Attributes), "");
}

TEST(RawView, PartnersAreMarkedTogether) {
    for (const auto& [chosen, partner] :
         {std::pair(Wspd, Wdir), std::pair(Wdir, Wspd), std::pair(Lat, Lon), std::pair(Lon, Lat)}) {
        RawTab tab;
        tab.select({{kRow, chosen}});
        tab.choose("Set Keep Attribute");
        EXPECT_TRUE(tab.isAqua(kRow, chosen) && tab.isAqua(kRow, partner));
        EXPECT_EQ(tab.tip(kRow, partner), "Kept in QC");
        EXPECT_EQ(tab.marked(), 2);
        tab.choose("Clear Keep Attribute");
        EXPECT_EQ(tab.marked(), 0);
    }
}

TEST(RawView, WhatCanBeMarked) {
    const std::string only = "Only Pres/Tdry/RH/Wspd/Wdir/GPSAlt/Lat/Lon field(s) can be selected";
    for (int column = Time; column <= Attributes; ++column) {
        const bool may = column != Time && column != Alt && column != DzDt && column < Sats;
        RawTab tab;
        tab.select({{kRow, column}});
        tab.choose("Set Ignore Attribute");
        EXPECT_EQ(tab.marked() > 0, may) << column;
        EXPECT_EQ(tab.requests->count(), may ? 1 : 0) << column;
        EXPECT_EQ(tab.answers.boxes().size(), may ? 0U : 1U) << column;
    }
    RawTab tab;
    tab.select({{0, Pres}});
    tab.choose("Set Ignore Attribute");
    tab.select({{0, RH}, {kRow, RH}});
    tab.choose("Set Keep Attribute");
    EXPECT_THAT(
        tab.answers.told(),
        ElementsAre("Selection Error: No launch param(s) or time field(s) can be selected;\n" + only,
                    "Selection Error: No launch param(s) can be selected;\nNo time field(s) can be selected;\n" +
                        only));
    EXPECT_EQ(tab.answers.boxes().front().icon, QMessageBox::Warning);
    EXPECT_EQ(tab.marked(), 1);
    EXPECT_EQ(tab.requests->count(), 1);
}

TEST(RawView, AnEmptyCellMarksNoOtherSample) {
    const TemporaryFolder folder;
    CsvText csv(true);
    csv.fields("Time,Pressure,Temperature,RH").line("Units,sec,mb,deg C,%");
    csv.data("0,1000,20,50").data("1,999,,50").data("2,998,19,50").data("3,997,18,50");
    writeFile(folder / "gap.csv", csv.text());
    RawTab tab((folder / "gap.csv").string(), 2.0);
    const int row = tab.rowOf("1.00");
    ASSERT_EQ(tab.text(row, Tdry), "");
    tab.select({{row, Tdry}});
    tab.choose("Set Ignore Attribute");
    EXPECT_EQ(tab.marked(), 0);
    EXPECT_EQ(tab.requests->count(), 0);
    for (const Value& sample : *tab.editor().getSeries("RawTdry")) {
        EXPECT_FALSE(sample.testAttribute(Value::QcIgnore)) << sample.time();
    }
}

// Temperature and RH of the first seconds are taken by the equilibration; nothing brings them back.
TEST(RawView, ARefusedOrderDoesNotShow) {
    RawTab tab;
    ASSERT_EQ(tab.text(4, Attributes), "Ae ");
    tab.select({{4, Tdry}});
    tab.choose("Set Keep Attribute");
    EXPECT_EQ(tab.marked(), 0);
    EXPECT_EQ(tab.requests->count(), 0);
}

TEST(RawView, NothingSelected) {
    RawTab tab;
    for (const char* command : {"Set Ignore Attribute", "Clear Ignore Attribute", "Set Keep Attribute",
                                "Clear Keep Attribute", "Set end of drop time"}) {
        tab.choose(command);
    }
    EXPECT_THAT(tab.answers.texts(), testing::AllOf(testing::SizeIs(5), testing::Each("No data field(s) selected")));
    EXPECT_EQ(tab.requests->count(), 0);
}

TEST(RawView, TheEndOfTheDropIsOneRow) {
    RawTab tab;
    tab.select({{kRow, Pres}, {kRow + 1, Pres}});
    tab.choose("Set end of drop time");
    EXPECT_THAT(tab.answers.texts(), ElementsAre("A single row must be selected to set end of drop time"));
    EXPECT_FALSE(tab.config.exists("LastDataTimeOverride"));

    const int row = tab.rowOf("500.50");
    tab.select({{row, Pres}, {row, Attributes}});
    tab.choose("Set end of drop time");
    EXPECT_EQ(tab.number("LastDataTimeOverride"), 500.5);
    EXPECT_EQ(tab.requests->count(), 1);
    tab.run();
    EXPECT_EQ(tab.text(row, Attributes) + tab.text(row + 1, Attributes), "EoD ");
}

// Eight columns of 40,000 rows at once. A search for each cell from the start would take many seconds.
TEST(RawView, LongSoundingsStayQuick) {
    constexpr int kRows = 40000;
    CsvText csv(true);
    csv.fields("Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude");
    std::string text = csv.text() + "Units,sec,mb,deg C,%,m/s,deg,deg,deg,m\n";
    for (int i = 0; i < kRows; ++i) {
        text += QString::asprintf("Data,%d,%.2f,%.2f,50,5,90,%.5f,8,%.1f\n", i, 1000.0 - i * 0.02, 20.0 - i * 0.002,
                                  50.0 + i * 1e-5, i * 0.25)
                    .toStdString();
    }
    const TemporaryFolder folder;
    writeFile(folder / "long.csv", text);
    RawTab tab((folder / "long.csv").string(), 2.0);
    ASSERT_GE(tab.view->grid()->rowCount(), kRows);
    QElapsedTimer timer;
    timer.start();
    tab.view->table()->selectAll();
    tab.choose("Set Ignore Attribute");
    EXPECT_EQ(tab.answers.boxes().size(), 1U);
    EXPECT_GE(tab.marked(), 5 * (kRows - 1));
    EXPECT_LT(timer.elapsed(), timeLimit(3000));
}

TEST(SeriesGrid, TheHighestAttributeIsTheIcon) {
    SeriesGrid grid({{"Time", 2, "%7.2f", 7}, {"A", 1, "%6.1f", 6}, {"B", 1, "%6.1f", 6}}, true, nullptr);
    const std::vector<double> time{0.0, 1.0, 2.0};
    const std::vector<double> a{1.0, -999.0, 3.0};
    Series times("t"), as("a"), bs("b");
    for (const double t : time) {
        times.appendValue(t, t);
        bs.appendValue(t, t);
    }
    as.appendValue(1.0, 0.0);
    as.appendValue(3.0, 2.0);
    as.setAttribute(1, static_cast<Value::AttributeType>(Value::QcIgnore | Value::QcWindErrorCheck));
    bs.setAttribute(2, static_cast<Value::AttributeType>(Value::ObsFlight | Value::QcIgnore | Value::QcLimitCheck));
    times.setAttribute(2, Value::AfterEndOfDrop);
    grid.setRows(3, {time.data(), a.data(), time.data()}, {&times, &as, &bs});

    const auto look = [&](int row, int column, int role) { return grid.data(grid.index(row, column), role); };
    EXPECT_EQ(look(2, 1, Qt::BackgroundRole).value<QColor>(), QColor("aqua"));
    const QIcon wind(":/Images/FlagWe.png");
    EXPECT_EQ(look(2, 1, Qt::DecorationRole).value<QIcon>().pixmap(32).toImage(), wind.pixmap(32).toImage());
    EXPECT_FALSE(wind.isNull());
    // Column by column, each once, and by the bits in the tip.
    EXPECT_EQ(grid.attributeText(2).toStdString(), "EoD Ig We F Lc ");
    EXPECT_EQ(look(2, 3, Qt::ToolTipRole).toString().toStdString(),
              "F: Obs-Flight\nIg: QC-Ignore\nLc: QC-LimitCheck\nWe: QC-WindErrorCheck\nEoD: After end-of-drop time");
    EXPECT_EQ(look(1, 1, Qt::DisplayRole).toString().toStdString(), "");
    EXPECT_EQ(grid.attributeText(1).toStdString(), "");
    EXPECT_EQ(grid.listingLine(1).trimmed().toStdString(), "1.00           1.0");
    EXPECT_EQ(grid.listingLine(1).left(22).toStdString(), "   1.00           1.0 ");
}

TEST(SeriesGrid, EveryAttributeHasItsPicture) {
    for (std::size_t i = 0; i < attributeIcons().size(); ++i) {
        const std::string text = kAttributeTexts[i].abbreviation;
        const std::string name = text == "Bias" ? "Db" : text == "EoD" ? "None" : text;
        EXPECT_EQ(attributeIcons()[i], ":/Images/Flag" + name + ".png");
        EXPECT_FALSE(QPixmap(attributeIcons()[i]).isNull()) << name;
    }
}

TEST(QCView, ColumnsFollowTheDirection) {
    const QcTab drop;
    EXPECT_EQ(drop.headings(), "Time (s)|Pres (mb)|Tdry (C)|RH (%)|Spd (m/s)|Dir (deg)|Alt (m)|Dz/dt (m/s)|W Wind "
                               "(m/s)|Lat (deg)|Lon (deg)|");
    EXPECT_EQ(drop.text(0, 0) + drop.text(0, 1) + drop.text(0, 9), "-1.00480.017.9000");
    EXPECT_FALSE(drop.view->table()->horizontalHeader()->sectionsClickable());
    const QcTab up(OpenSounding::example("polar_up_20230117.csv"));
    EXPECT_EQ(up.headings(),
              "Time (s)|Pres (mb)|Tdry (C)|RH (%)|Spd (m/s)|Dir (deg)|Alt (m)|Dz/dt (m/s)|Lat (deg)|Lon (deg)|");
    EXPECT_EQ(up.text(0, 8), "78.9000");
}

TEST(QCView, ShowsANewRunAndTheReportedPositionOnRequest) {
    QcTab tab;
    tab.config.set("ReportObservedPos", 0.0);
    tab.run();
    const auto position = [&tab](const char* time) {
        return tab.text(tab.rowOf(time), 9) + " " + tab.text(tab.rowOf(time), 10);
    };
    const std::string own = position("353.50");
    tab.config.set("ReportObservedPos", 1.0);
    tab.view->update();
    EXPECT_EQ(position("353.50"), own) << "not before the next run";
    tab.run();
    EXPECT_NE(position("353.50"), own);
    EXPECT_EQ(position("536.50"), "17.9437 118.4064");
}

TEST(Grids, RowsAreAsHighAsTheType) {
    RawTab raw;
    QcTab qc;
    for (const int points : {8, 12, 20}) {
        const auto heightIn = [points](GridView& view) {
            view.setStyleSheet(QString("* {font-size:%1pt}").arg(points));
            QApplication::processEvents();
            const int type = QFontMetrics(view.table()->font()).height();
            EXPECT_GE(type, points);
            for (int column = 0; column < view.grid()->columnCount(); ++column) {
                EXPECT_GE(view.table()->columnWidth(column), view.table()->horizontalHeader()->sectionSizeHint(column));
            }
            return view.table()->rowHeight(kRow) - type;
        };
        EXPECT_EQ(heightIn(*raw.view), 0) << points;
        EXPECT_EQ(heightIn(*qc.view), 4) << points;
    }
}
