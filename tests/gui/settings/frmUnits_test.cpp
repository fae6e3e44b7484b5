// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmUnits.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "core/messages/titles.h"
#include "tests/support/ink.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// A tab as it must look: controls by their names, options and boxes in their order.
struct ExpectedTab {
    const char* caption;
    const char* frame;
    const char* input;
    const char* group;
    std::vector<std::string> options;
    std::vector<std::string> boxes;
    std::vector<std::string> units;
};

const std::vector<ExpectedTab> kTabs{
    {"Length",
     "Length units",
     "txtLength",
     "Option2",
     {"in", "ft", "cm", "m"},
     {"Text7", "Text8", "Text9", "Text10"},
     {"in", "ft", "cm", "m"}},
    {"Load",
     "Load units",
     "txtLoad",
     "Option5",
     {"lbsF", "tonsF (short)", "kN", "MN", "kips"},
     {"Text21", "Text22", "Text23", "Text24", "Text25"},
     {"lbsF", "tonsF", "kN", "MN", "kips"}},
    {"Load Grad",
     "Load gradient units",
     "txtLoadGrad",
     "Option4",
     {"lbsF/in", "lbsF/ft", "kN/m", "MN/m"},
     {"Text17", "Text18", "Text19", "Text20"},
     {"lbsF/in", "lbsF/ft", "kN/m", "MN/m"}},
    {"Stress",
     "Pressure/stress units",
     "txtStress",
     "Option1",
     {"psi", "ksi", "psf", "Pa", "MPa"},
     {"Text2", "Text3", "Text4", "Text5", "Text6"},
     {"psi", "ksi", "psf", "Pa", "MPa"}},
    {"Stress Grad",
     "Pressure/stress gradient units",
     "txtStressGrad",
     "Option3",
     {"psi/in", "psi/ft", "Pa/m", "MPa/m"},
     {"Text12", "Text13", "Text14", "Text15"},
     {"psi/in", "psi/ft", "Pa/m", "MPa/m"}},
};

class Units : public MainWindowTest {
  protected:
    Units() { Platform.MainWindow = &Host.MainWindow; }

    frmUnits& Open() {
        frmUnits& form = frmUnits::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Closed() {
        RunEvents();
        return !frmUnits::IsLoaded();
    }

    static QTabWidget& Tabs(QWidget& form) { return Find<QTabWidget>(form, "SSTab1"); }
    static void ShowTab(QWidget& form, int index) {
        QTabBar& bar = *Tabs(form).tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(index).center());
    }
    static std::string FrameOf(QWidget& form, const std::string& name) {
        auto* frame = qobject_cast<QGroupBox*>(Find(form, name).parentWidget());
        return frame == nullptr ? "" : FromQt(frame->title());
    }
    static bool IsTabStop(QWidget& form, const std::string& name) {
        return (Find(form, name).focusPolicy() & Qt::TabFocus) != 0;
    }
    static std::string Option(const ExpectedTab& tab, int index) {
        return std::string(tab.group) + "_" + std::to_string(index);
    }
    static std::vector<std::string> BoxTexts(QWidget& form, const ExpectedTab& tab) {
        std::vector<std::string> texts;
        for (const std::string& box : tab.boxes) texts.push_back(TextOf(form, box));
        return texts;
    }

    // Types 7.3 on a tab and compares every unit's row.
    void ExpectRows(int index, const std::vector<std::vector<std::string>>& rows) {
        frmUnits& form = Open();
        const ExpectedTab& tab = kTabs.at(static_cast<std::size_t>(index));
        ShowTab(form, index);
        Type(form, tab.input, "7.3");
        for (int unit = 0; unit < static_cast<int>(rows.size()); ++unit) {
            Click(form, Option(tab, unit));
            EXPECT_THAT(BoxTexts(form, tab), ElementsAreArray(rows[static_cast<std::size_t>(unit)]))
                << tab.options[static_cast<std::size_t>(unit)];
        }
    }
};

TEST_F(Units, HasFiveTabsInTheirOrder) {
    frmUnits& form = Open();
    EXPECT_EQ(form.windowTitle(), "Unit Conversions");
    ASSERT_EQ(Tabs(form).count(), 5);
    for (int i = 0; i < 5; ++i) {
        const ExpectedTab& tab = kTabs[static_cast<std::size_t>(i)];
        EXPECT_EQ(FromQt(Tabs(form).tabText(i)), tab.caption);
        EXPECT_EQ(FrameOf(form, tab.input), tab.frame);
        EXPECT_TRUE(Tabs(form).widget(i)->isAncestorOf(&Find(form, tab.input)));
    }
}

TEST_F(Units, EveryUnitHasAnOptionAndAReadOnlyBox) {
    frmUnits& form = Open();
    for (const ExpectedTab& tab : kTabs) {
        for (std::size_t i = 0; i < tab.options.size(); ++i) {
            const std::string option = Option(tab, static_cast<int>(i));
            EXPECT_EQ(TextOf(form, option), tab.options[i]);
            EXPECT_EQ(FrameOf(form, option), tab.frame);
            EXPECT_EQ(TextOf(form, "lbl" + tab.boxes[i]), tab.units[i]);
            EXPECT_TRUE(Find<QLineEdit>(form, tab.boxes[i]).isReadOnly()) << tab.boxes[i];
            EXPECT_EQ(FrameOf(form, tab.boxes[i]), tab.frame);
        }
        EXPECT_EQ(form.findChild<QRadioButton*>(ToQt(Option(tab, static_cast<int>(tab.options.size())))),
                  nullptr);
        EXPECT_FALSE(Find<QLineEdit>(form, tab.input).isReadOnly());
    }
    EXPECT_EQ(TextOf(form, "Command3"), "Help");
}

TEST_F(Units, StartsWithTheFirstUnitOfEachGroup) {
    frmUnits& form = Open();
    for (const ExpectedTab& tab : kTabs) {
        for (std::size_t i = 0; i < tab.options.size(); ++i)
            EXPECT_EQ(Find<QRadioButton>(form, Option(tab, static_cast<int>(i))).isChecked(), i == 0);
        EXPECT_EQ(TextOf(form, tab.input), "");
        EXPECT_THAT(BoxTexts(form, tab), Each("0"));
    }
}

TEST_F(Units, SaysInTheHistoryThatItLoadsAndClearsTheTitles) {
    ErrorTitle = "Project Parameters: Error";
    frmUnits& form = Open();
    EXPECT_EQ(Host.MainWindow.History, "1. Loading Unit Conversion Form\r\n");
    EXPECT_EQ(ErrorTitle, "Error");
    EXPECT_EQ(RangeErrorTitle, "Range Error");
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(Host.MainWindow.History, "1. Loading Unit Conversion Form\r\n");
}

TEST_F(Units, ConvertsLengths) {
    ExpectRows(0, {{"7.3", "0.608333333333333", "18.542", "0.18542"},
                   {"87.6", "7.3", "222.504", "2.22504"},
                   {"2.8740157480315", "0.239501312335958", "7.3", "0.073"},
                   {"287.40157480315", "23.9501312335958", "730", "7.3"}});
}

TEST_F(Units, ConvertsLoads) {
    ExpectRows(1, {{"7.3", "0.00365", "0.0324720095725705", "3.24720095725705E-05", "0.0073"},
                   {"14600", "7.3", "64.944019145141", "0.064944019145141", "14.6"},
                   {"1641.1057", "0.82055285", "7.3", "0.0073", "1.6411057"},
                   {"1641105.7", "820.55285", "7300", "7.3", "1641.1057"},
                   {"7300", "3.65", "32.4720095725705", "0.0324720095725705", "7.3"}});
}

TEST_F(Units, ConvertsLoadGradients) {
    ExpectRows(2, {{"7.3", "87.6", "1.27842557372325", "0.00127842557372325"},
                   {"0.608333333333333", "7.3", "0.106535464476937", "0.000106535464476937"},
                   {"41.68408478", "500.20901736", "7.3", "0.0073"},
                   {"41684.08478", "500209.01736", "7300", "7.3"}});
}

TEST_F(Units, ConvertsStressesWithTheBoxesOfPsiAndKsiExchangedForPsf) {
    ExpectRows(
        3, {{"7.3", "0.0073", "1051.2", "50331.7282389", "0.0503317282389"},
            {"7300", "7.3", "1051200", "50331728.2389", "50.3317282389"},
            {"5.06944444444444E-05", "0.0506944444444444", "7.3", "349.525890547917", "0.000349525890547917"},
            {"0.00105877548545638", "1.05877548545638E-06", "0.152463669905719", "7.3", "7.3E-06"},
            {"1058.77548545638", "1.05877548545638", "152463.669905719", "7300000", "7.3"}});
}

TEST_F(Units, ConvertsStressGradients) {
    ExpectRows(4, {{"7.3", "87.6", "1981564.1038937", "1.9815641038937"},
                   {"0.608333333333333", "7.3", "165130.341991142", "0.165130341991142"},
                   {"2.68928973305921E-05", "0.000322714767967105", "7.3", "7.3E-06"},
                   {"26.8928973305921", "322.714767967105", "7300000", "7.3"}});
}

TEST_F(Units, ShowsAMetreInInchesAndFeet) {
    frmUnits& form = Open();
    Click(form, "Option2_3");
    Type(form, "txtLength", "1");
    EXPECT_THAT(BoxTexts(form, kTabs[0]), ElementsAre("39.3700787401575", "3.28083989501312", "100", "1"));
}

TEST_F(Units, Shows144PsfAsOnePsiInTheBoxOfKsi) {
    frmUnits& form = Open();
    ShowTab(form, 3);
    Click(form, "Option1_2");
    Type(form, "txtStress", "144");
    EXPECT_EQ(TextOf(form, "Text2"), "0.001");
    EXPECT_EQ(TextOf(form, "Text3"), "1");
    EXPECT_EQ(TextOf(form, "Text4"), "144");
}

TEST_F(Units, FollowsEveryKeyAndTakesTheLeadingNumber) {
    frmUnits& form = Open();
    Type(form, "txtLength", "24 ft");
    EXPECT_THAT(BoxTexts(form, kTabs[0]), ElementsAre("24", "2", "60.96", "0.6096"));
    Press(form, Qt::Key_Home);
    QTest::keyClicks(form.focusWidget(), "x");
    EXPECT_EQ(TextOf(form, "txtLength"), "x24 ft");
    EXPECT_THAT(BoxTexts(form, kTabs[0]), Each("0"));
    Type(form, "txtLength", "-1.2E1");
    EXPECT_THAT(BoxTexts(form, kTabs[0]), ElementsAre("-12", "-1", "-30.48", "-0.3048"));
    Type(form, "txtLength", "0");
    EXPECT_THAT(BoxTexts(form, kTabs[0]), Each("0"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(Units, OnlyTheTabOfTheInputChanges) {
    frmUnits& form = Open();
    Type(form, "txtLength", "12");
    for (std::size_t i = 1; i < kTabs.size(); ++i) EXPECT_THAT(BoxTexts(form, kTabs[i]), Each("0"));
}

TEST_F(Units, ABoxWithoutAValueIsEmpty) {
    frmUnits& form = Open();
    auto& input = Find<QLineEdit>(form, "txtLength");
    Click(form, "Option2_1");
    QApplication::clipboard()->setText("1E308");
    input.setFocus();
    QTest::keyClick(&input, Qt::Key_V, Qt::ControlModifier);
    // 1.2E309 in are beyond a double, and so are the centimetres on the way to the metres.
    EXPECT_EQ(TextOf(form, "Text7"), "");
    EXPECT_EQ(TextOf(form, "Text8"), "1E+308");
    EXPECT_EQ(TextOf(form, "Text9"), "");
    EXPECT_EQ(TextOf(form, "Text10"), "");
    Type(form, "txtLength", "1");
    EXPECT_EQ(TextOf(form, "Text7"), "12");
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Units, ATabChangeGivesTheFocusToTheInputAndSelectsItsText) {
    frmUnits& form = Open();
    Type(form, "txtLength", "55");
    for (int i : {1, 2, 3, 4, 0}) {
        const ExpectedTab& tab = kTabs[static_cast<std::size_t>(i)];
        Find<QLineEdit>(form, tab.input).setText("55");
        ShowTab(form, i);
        EXPECT_EQ(form.focusWidget(), &Find(form, tab.input));
        EXPECT_EQ(Find<QLineEdit>(form, tab.input).selectedText(), "55");
    }
}

TEST_F(Units, OnlyTheShownTabIsReachedWithTheTabKey) {
    frmUnits& form = Open();
    for (int shown : {0, 3, 1, 4, 2}) {
        ShowTab(form, shown);
        for (int i = 0; i < 5; ++i) {
            const ExpectedTab& tab = kTabs[static_cast<std::size_t>(i)];
            EXPECT_EQ(IsTabStop(form, tab.input), i == shown);
            for (std::size_t unit = 0; unit < tab.boxes.size(); ++unit) {
                EXPECT_EQ(IsTabStop(form, tab.boxes[unit]), i == shown);
                EXPECT_EQ(IsTabStop(form, Option(tab, static_cast<int>(unit))), i == shown);
            }
        }
        EXPECT_TRUE(IsTabStop(form, "Command1"));
    }
}

TEST_F(Units, TheTabStopsAreRightFromTheFirstActivation) {
    frmUnits& form = Open();
    EXPECT_TRUE(IsTabStop(form, "Text7"));
    EXPECT_FALSE(IsTabStop(form, "Text2"));
    EXPECT_EQ(form.focusWidget(), &Find(form, "txtLength"));
}

TEST_F(Units, AClickIntoAnInputSelectsItsText) {
    frmUnits& form = Open();
    Type(form, "txtLength", "123");
    auto& input = Find<QLineEdit>(form, "txtLength");
    EXPECT_EQ(input.selectedText(), "");
    Click(form, "txtLength");
    EXPECT_EQ(input.selectedText(), "123");
    Click(form, "txtLength");
    EXPECT_EQ(input.selectedText(), "123");
}

TEST_F(Units, AlwaysOpensOnTheFirstTab) {
    ShowTab(Open(), 3);
    Click(frmUnits::Instance(), "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(Tabs(Open()).currentIndex(), 0);
}

TEST_F(Units, HelpShowsTheHint) {
    Click(Open(), "Command3");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
}

TEST_F(Units, EnterAndEscapeCloseIt) {
    Press(Open(), Qt::Key_Escape);
    EXPECT_TRUE(Closed());
    Press(Open(), Qt::Key_Return);
    EXPECT_TRUE(Closed());
}

TEST_F(Units, TheMenuOpensItAndNoDataChanges) {
    frmMain& main_window = Start();
    EnterProject();
    const PanelInputs before = ProjectRecord;
    WhenShown("frmUnits", [](FormBase& form) {
        Type(form, "txtLength", "5");
        Click(form, "Command1");
    });
    EXPECT_TRUE(Choose(main_window, "mnuUtilItem_2"));
    EXPECT_EQ(ProjectRecord.DepthCover, before.DepthCover);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_FALSE(std::filesystem::exists(IniPath));
}

TEST_F(Units, OpensItsTopicWithF1) {
    frmUnits& form = Open();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmUnits.htm"));
}

TEST_F(Units, CtrlTabLandsInThePagesFirstBox) {
    frmUnits& form = Open();
    for (const int page : {1, 2, 3, 4, 0}) {
        Press(form, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Tabs(form).currentIndex(), page);
        ASSERT_NE(form.focusWidget(), nullptr);
        EXPECT_EQ(FromQt(form.focusWidget()->objectName()), kTabs[static_cast<std::size_t>(page)].input);
    }
}

TEST_F(Units, BoxesForReadingAreGrey) {
    frmUnits& form = Open();
    const auto paper = [&form](const std::string& name) {
        QWidget& box = Find(form, name);
        return PictureOf(box).pixelColor(box.width() - 12, box.height() / 2);
    };
    EXPECT_EQ(paper("txtLength"), form.palette().color(QPalette::Base));
    for (const std::string& box : kTabs[0].boxes)
        EXPECT_EQ(paper(box), form.palette().color(QPalette::Window)) << box;
}

TEST_F(Units, AnotherValueThanTheTypedOneIsNoted) {
    frmUnits& form = Open();
    Type(form, "txtLength", "1,5");
    EXPECT_EQ(TextOf(form, "txtLengthUsed"), "used: 1");
    EXPECT_EQ(TextOf(form, "txtLength"), "1,5");
}

}  // namespace
}  // namespace tarvokol
