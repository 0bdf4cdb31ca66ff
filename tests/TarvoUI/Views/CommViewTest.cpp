// The entries of the Comm tab, and what becomes of them in the message.

#include "CommView.h"
#include "Levels.h"
#include "OpenSounding.h"
#include "QtHands.h"
#include "QtText.h"
#include "WMO.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QtTest/QtTest>
#include <gmock/gmock.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class CommTab : public testing::Test {
protected:
    CommTab() : view(&sounding.doc, &sounding.printer, nullptr) {
        view.resize(1000, 700);
        view.show();
        view.update();
    }

    /// A new message, into which the tab writes its entries.
    void process() {
        sounding.doc.process();
        view.update();
    }

    std::string message() {
        std::string text;
        for (std::string line : sounding.editor().wmo()->textLines()) {
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + "\n";
        }
        return text;
    }
    /// The remarks of part A, which go on over the ends of lines.
    std::string remarks() {
        std::string text;
        for (const std::string& line : sounding.editor().wmo()->textLines()) {
            text += line;
        }
        const auto begin = text.find("62626");
        return begin == std::string::npos ? "" : text.substr(begin, text.find('=', begin) - begin);
    }
    /// The rest of the line that begins with the group.
    std::string line(const std::string& group) {
        std::string text = message();
        const auto at = text.find(group);
        return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
    }
    template <typename Widget = QLineEdit>
    Widget& child(const char* name) {
        return *view.findChild<Widget*>(name);
    }
    void type(const char* name, const char* text) { typeOver(child(name), text); }
    void choose(const char* name, const char* text) {
        auto& combo = child<QComboBox>(name);
        const int wanted = combo.findText(text);
        ASSERT_GE(wanted, 0) << text;
        combo.setFocus();
        while (combo.currentIndex() != wanted) {
            QTest::keyClick(&combo, combo.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    void tick(const char* name) {
        auto& box = child<QCheckBox>(name);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }
    std::string item(const char* key) {
        std::string text;
        sounding.config.text(key, text);
        return text;
    }

    OpenedSounding sounding{"D20210801_120003.1"};
    CommView view;
};

} // namespace

TEST_F(CommTab, MissionAndObservation) {
    type("_agencyAC", "af30999"); // seven: the mask takes five
    type("_missionStorm", "03a");
    type("_missionId", "cyclone");
    type("_obsNum", "7");
    EXPECT_EQ(line("61616"), "61616 AF309 03A   CYCLONE      OB 07");
    EXPECT_EQ(item("ACagency") + item("MissionStorm") + item("MissionId"), "AF30903ACYCLONE");
    process();
    EXPECT_EQ(line("61616"), "61616 AF309 03A   CYCLONE      OB 07");
    type("_obsNum", "");
    EXPECT_THAT(line("61616"), EndsWith("OB 99"));
    type("_obsNum", "00");
    EXPECT_THAT(line("61616"), EndsWith("OB 99"));
    double stored = 0.0;
    sounding.config.value("ObsNum", stored);
    EXPECT_EQ(stored, 0.0);
}

TEST_F(CommTab, Remarks) {
    EXPECT_FALSE(child<QComboBox>("_azimuth").isEnabled());
    choose("_environment", "EYEWALL");
    ASSERT_TRUE(child<QComboBox>("_azimuth").isEnabled());
    choose("_azimuth", "45 (NE)");
    EXPECT_THAT(remarks(), HasSubstr("EYEWALL 045"));
    for (const auto& [typed, coded] : {std::pair("04", "04"), std::pair("4", "04"), std::pair("12", "12")}) {
        type("_retrans", typed);
        EXPECT_THAT(remarks(), HasSubstr(std::string("REXMT OF OB ") + coded + " ")) << typed;
    }
    type("_retrans", "");
    EXPECT_THAT(remarks(), Not(HasSubstr("REXMT")));
    type("_atcf", "al092021");
    EXPECT_THAT(remarks(), HasSubstr("ATCF AL092021 "));
    tick("_lastReport");
    EXPECT_THAT(remarks(), HasSubstr("LAST REPORT"));
    tick("_lastReport");
    EXPECT_THAT(remarks(), Not(HasSubstr("LAST REPORT")));
    choose("_environment", "CENTER");
    EXPECT_FALSE(child<QComboBox>("_azimuth").isEnabled());
    EXPECT_EQ(child<QComboBox>("_azimuth").currentText(), "0 (N)");
    EXPECT_THAT(remarks(), HasSubstr("CENTER"));
    EXPECT_THAT(remarks(), Not(HasSubstr("EYEWALL")));
}

TEST_F(CommTab, Header) {
    choose("_icao", "KNHC");
    const std::time_t nominal = sounding.doc.nominalTime();
    char clock[16];
    std::strftime(clock, sizeof clock, "%d%H%M", std::gmtime(&nominal));
    EXPECT_THAT(message(), StartsWith("UZ"));
    EXPECT_THAT(message(), HasSubstr(std::string("13 KNHC ") + clock + "\n"));
    process();
    EXPECT_THAT(message(), HasSubstr(std::string("13 KNHC ") + clock + "\n"));
    type("_correctionNum", "3");
    EXPECT_THAT(message(), HasSubstr(std::string("KNHC ") + clock + " COR 03\n"));
    type("_correctionNum", "00");
    EXPECT_THAT(message(), Not(HasSubstr("COR")));
    type("_abrHdrOvr", "uzpn13");
    EXPECT_THAT(message(), StartsWith("UZPN13 KNHC "));
    EXPECT_EQ(item("AbrHdrOvr"), "UZPN13");
    QTest::mouseClick(&child<QPushButton>("_abrHdrOvrClear"), Qt::LeftButton);
    EXPECT_THAT(message(), Not(StartsWith("UZPN13")));
    EXPECT_EQ(item("AbrHdrOvr"), "");
    EXPECT_EQ(child("_abrHdrOvr").text().trimmed(), "");
}

TEST_F(CommTab, WhatWasWrittenByHandStays) {
    choose("_environment", "CENTER");
    for (const char* name : {"_obsNum", "_retrans"}) {
        type(name, "4");
        type(name, "");
    }
    const auto modifyRemarks = [this] {
        std::vector<WMOsection*> found;
        sounding.editor().wmo()->findSection(10, found);
        auto& groups = found.at(0)->groups();
        ASSERT_THAT(groups.back().text(), StartsWith("62626"));
        groups.back().modify("62626 BY HAND");
    };
    modifyRemarks();
    EXPECT_THAT(remarks(), HasSubstr("BY HAND"));
    view.update();
    for (const char* name : {"_correctionNum", "_obsNum", "_retrans", "_atcf"}) {
        child(name).setFocus();
        QTest::keyClick(&child(name), Qt::Key_Return);
        QTest::keyClick(&child(name), Qt::Key_Tab);
    }
    EXPECT_THAT(remarks(), HasSubstr("BY HAND"));
    process();
    EXPECT_THAT(remarks(), HasSubstr("CENTER"));
    EXPECT_THAT(remarks(), Not(HasSubstr("BY HAND"))) << "a new message has the entries";
    modifyRemarks();
    type("_obsNum", "5");
    EXPECT_THAT(remarks(), Not(HasSubstr("BY HAND"))) << "an entry is written at once";
}

TEST_F(CommTab, IsPrintedAcrossThePaperWhoeverPrintedBefore) {
    sounding.printer.setPageOrientation(QPageLayout::Portrait);
    ModalAnswers answers; // which give the dialog up
    view.print();
    EXPECT_EQ(sounding.printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST_F(CommTab, DoubtfulHeightsOfTheStandardLevels) {
    const std::string without = message();
    EXPECT_THAT(without, Not(HasSubstr("51515")));
    tick("_doubtfulHeights");
    // 10166, doubtful geopotential between two standard levels, and tens of mb of the two: here of 400 and 1000 mb.
    EXPECT_EQ(line("51515"), "51515 10166 04000");
    process();
    view.update();
    EXPECT_EQ(line("51515"), "51515 10166 04000") << "not twice";
    tick("_doubtfulHeights");
    EXPECT_EQ(message(), without);
}

TEST_F(CommTab, SendNeedsKermitAndAMessage) {
    const auto hindrance = [this](const std::string& path, bool disabled) {
        sounding.config.set("KermitPath", path);
        sounding.config.set("DisableKermit", disabled ? 1.0 : 0.0);
        view.update(); // it is where the options say now
        const auto& send = child<QPushButton>("_sendMsg");
        EXPECT_EQ(send.isEnabled(), send.toolTip().isEmpty());
        return send.toolTip().toStdString();
    };
    EXPECT_EQ(hindrance("/bin/true", false), "");
    EXPECT_EQ(hindrance("/bin/true", true), "The transfer is switched off in the configuration");
    for (const std::string path : {"/bin/no such program", "/etc/passwd", "/tmp"}) {
        EXPECT_EQ(hindrance(path, false), "There is no program at " + path);
    }
    sounding.config.set("DoWMO", 0.0);
    sounding.doc.process();
    EXPECT_EQ(hindrance("/bin/true", false), "There is no message to send");
}

TEST_F(CommTab, PortsKeepTheMeaningOfTheirIndex) {
    auto& ports = child<QComboBox>("_commPort");
    EXPECT_TRUE(ports.isEditable());
    EXPECT_EQ(ports.itemText(0), "com1");
    EXPECT_EQ(ports.itemText(7), "com8");
    for (int i = 8; i < ports.count(); ++i) {
        EXPECT_THAT(ports.itemText(i).toStdString(), StartsWith("/dev/tty"));
    }
    choose("_baudRate", "38400");
    double stored = 0.0;
    sounding.config.value("BaudRateIndex", stored);
    EXPECT_EQ(stored, 5.0);
    ports.setFocus();
    QTest::keyClick(&ports, Qt::Key_Down);
    QTest::keyClick(&ports, Qt::Key_Down);
    sounding.config.value("CommPortIndex", stored);
    EXPECT_EQ(stored, 2.0);
    EXPECT_EQ(ports.currentText(), "com3");
}
