// SPDX-License-Identifier: GPL-3.0-or-later
// The options dialog of the stability graphs.
#include "desktop/graphs/frmGraphOpt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QScrollBar>

#include "tests/support/graph_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class GraphOptions : public GraphTest {
  protected:
    // The dialog over the drawn graph of a kind, with the last used or the default format.
    frmGraphOpt& ShowDialog(int kind, int16_t set_params = 1) {
        Graph = &ShowStability(kind);
        GraphSetParams = set_params;
        frmGraphOpt& dialog = frmGraphOpt::Instance();
        SwitchTo(dialog);
        return dialog;
    }

    static bool Enabled(QWidget& form, const std::string& name) {
        return Find<QWidget>(form, name).isEnabled();
    }

    static void Pick(QWidget& form, const std::string& combo, int index) {
        Find<QComboBox>(form, combo).setCurrentIndex(index);
    }

    frmGraph* Graph = nullptr;
};

TEST_F(GraphOptions, CarriesItsCaptions) {
    frmGraphOpt& dialog = ShowDialog(0);
    EXPECT_EQ(dialog.windowTitle(), "Graph Parameters and Options");
    EXPECT_EQ(Find<QGroupBox>(dialog, "Frame1").title(), "Options");
    EXPECT_EQ(Find<QGroupBox>(dialog, "Frame2").title(), "Basic formatting parameters");
    EXPECT_EQ(TextOf(dialog, "Option1_1"), "Set format parameters to last used");
    EXPECT_EQ(TextOf(dialog, "Option1_0"), "Set default format parameters");
    EXPECT_EQ(TextOf(dialog, "Command3"), "Help");
    EXPECT_EQ(TextOf(dialog, "Command2"), "OK");
    EXPECT_EQ(TextOf(dialog, "Command1"), "Cancel");
    EXPECT_EQ(TextOf(dialog, "Check1"), "Curve legend");
    EXPECT_EQ(TextOf(dialog, "Label1"), "Symbol size");
    std::vector<std::string> labels;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) labels.push_back(FromQt(label->text()));
    EXPECT_THAT(labels, ::testing::IsSupersetOf(
                            {"Graph title", "X-axis title", "Y-axis title", "Grid style", "Graph Style"}));
}

TEST_F(GraphOptions, ListsHoldTheirItems) {
    frmGraphOpt& dialog = ShowDialog(0);
    const auto items = [&](const std::string& name) {
        std::vector<std::string> texts;
        const auto& combo = Find<QComboBox>(dialog, name);
        for (int i = 0; i < combo.count(); ++i) texts.push_back(FromQt(combo.itemText(i)));
        return texts;
    };
    EXPECT_THAT(items("Combo1"), ElementsAre("None", "Horizontal", "Vertical", "Horizontal & Vertical"));
    EXPECT_THAT(items("Combo2"), ElementsAre("Lines Only", "Symbols Only", "Lines & Symbols"));
    EXPECT_EQ(Find<QScrollBar>(dialog, "HScroll1").minimum(), 3);
    EXPECT_EQ(Find<QScrollBar>(dialog, "HScroll1").maximum(), 20);
    EXPECT_TRUE(Find<QLineEdit>(dialog, "txtSS").isReadOnly());
}

TEST_F(GraphOptions, OpensWithTheLastUsedFormat) {
    ResetGraphDefaults();
    GridStyle = 3;
    GraphStyle = 2;
    CurveLegend = 0;
    SymbolSize = 11;
    GraphTitle = "My panel";
    frmGraphOpt& dialog = ShowDialog(1);
    EXPECT_TRUE(Find<QRadioButton>(dialog, "Option1_1").isChecked());
    EXPECT_EQ(TextOf(dialog, "Text1"), "My panel");
    EXPECT_EQ(TextOf(dialog, "Text2_1"), "Depth of Cover (ft)");
    EXPECT_EQ(TextOf(dialog, "Text3_1"), "Stability Factor");
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo1").currentIndex(), 3);
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo2").currentIndex(), 1);
    EXPECT_FALSE(Find<QCheckBox>(dialog, "Check1").isChecked());
    EXPECT_EQ(Find<QScrollBar>(dialog, "HScroll1").value(), 11);
    EXPECT_EQ(TextOf(dialog, "txtSS"), "11");
    for (const char* name :
         {"Text1", "Combo1", "Combo2", "Check1", "txtSS", "Label1", "HScroll1", "Text2_1", "Text3_1"})
        EXPECT_TRUE(Enabled(dialog, name)) << name;
    for (const char* name : {"Text2_0", "Text2_2", "Text3_0", "Text3_2"})
        EXPECT_FALSE(Enabled(dialog, name)) << name;
}

// The form is filled once more after the option's handler, so the closed boxes show their titles until a
// click.
TEST_F(GraphOptions, ClosedTitleBoxesAreBlankAfterAClickOnAnOption) {
    frmGraphOpt& dialog = ShowDialog(1);
    EXPECT_EQ(TextOf(dialog, "Text2_0"), "Extraction Height (ft)");
    Click(dialog, "Option1_0");
    EXPECT_EQ(TextOf(dialog, "Text2_0"), "");
    EXPECT_EQ(TextOf(dialog, "Text2_2"), "");
    EXPECT_EQ(TextOf(dialog, "Text3_0"), "");
    EXPECT_EQ(TextOf(dialog, "Text2_1"), "Depth of Cover (ft)");
    EXPECT_EQ(TextOf(dialog, "Text3_1"), "Stability Factor");
}

TEST_F(GraphOptions, DefaultsGreyEverythingButTheTitlesOnShowAndKeepTheGrid) {
    ResetGraphDefaults();
    frmGraphOpt& dialog = ShowDialog(2);
    GridStyle = 2;
    GraphTitle = "My panel";
    XAxisTitle[0] = "Mine";
    GraphStyle = 1;
    CurveLegend = 0;
    SymbolSize = 14;
    Click(dialog, "Option1_0");
    EXPECT_EQ(GraphSetParams, 0);
    EXPECT_EQ(TextOf(dialog, "Text1"), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (ft)");
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo1").currentIndex(), 2);
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo2").currentIndex(), 2);
    EXPECT_TRUE(Find<QCheckBox>(dialog, "Check1").isChecked());
    EXPECT_EQ(TextOf(dialog, "txtSS"), "5");
    for (const char* name : {"Text1", "Combo1", "Combo2", "Check1", "txtSS", "Label1", "HScroll1", "Text2_0",
                             "Text2_1", "Text3_0", "Text3_1"})
        EXPECT_FALSE(Enabled(dialog, name)) << name;
    EXPECT_TRUE(Enabled(dialog, "Text2_2"));
    EXPECT_TRUE(Enabled(dialog, "Text3_2"));
}

TEST_F(GraphOptions, OkWithDefaultsStoresThemAndTheChoice) {
    frmGraphOpt& dialog = ShowDialog(0);
    Click(dialog, "Option1_0");
    Click(dialog, "Command2");
    EXPECT_EQ(GraphSetParams, 0);
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(SymbolSize, 5);
    EXPECT_EQ(GraphStyle, 3);
    EXPECT_FALSE(frmGraphOpt::IsLoaded());
    EXPECT_TRUE(Find<QRadioButton>(frmGraphOpt::Instance(), "Option1_0").isChecked());
}

TEST_F(GraphOptions, OkStoresTheFormatAndWritesTheGraphSection) {
    frmGraphOpt& dialog = ShowDialog(0);
    Type(dialog, "Text1", "Panel 7");
    Type(dialog, "Text2_0", "Height of seam");
    Type(dialog, "Text3_0", "SF");
    Pick(dialog, "Combo1", 1);
    Pick(dialog, "Combo2", 1);
    Click(dialog, "Check1");
    Find<QScrollBar>(dialog, "HScroll1").setValue(9);
    Click(dialog, "Command2");
    EXPECT_EQ(GraphTitle, "Panel 7");
    EXPECT_EQ(XAxisTitle[0], "Height of seam");
    EXPECT_EQ(YAxisTitle[0], "SF");
    EXPECT_EQ(GridStyle, 1);
    EXPECT_EQ(GraphStyle, 2);
    EXPECT_EQ(CurveLegend, 0);
    EXPECT_EQ(SymbolSize, 9);
    EXPECT_EQ(GraphSetParams, 1);
    const std::string ini = ReadBytes(PathTo("TARVOKOL.INI"));
    EXPECT_THAT(ini, HasSubstr("[Graph]"));
    EXPECT_THAT(ini, HasSubstr("GraphTitle=Panel 7"));
    EXPECT_THAT(ini, Not(HasSubstr("[Settings]")));
    const ChartControl& chart = Graph->Graph1();
    EXPECT_EQ(chart.HeaderText(), "Panel 7");
    EXPECT_EQ(chart.AxisTitle(ChartAxis::X), "Height of seam");
    EXPECT_EQ(chart.AxisTitle(ChartAxis::Y), "SF");
    EXPECT_TRUE(chart.MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_FALSE(chart.MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_EQ(chart.SeriesLabelCount(), 0);
    EXPECT_EQ(chart.Style(1).symbol_size, 9);
    EXPECT_EQ(chart.Style(2).symbol_size, 5);
    EXPECT_EQ(chart.Style(1).line_pattern, 2);  // the style waits for the next draw
}

TEST_F(GraphOptions, TitlesTypedForTheOtherGraphsAreNotStored) {
    frmGraphOpt& dialog = ShowDialog(2);
    Type(dialog, "Text2_2", "My width");
    Click(dialog, "Command2");
    EXPECT_EQ(XAxisTitle[2], "Hole Width (ft)");
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (ft)");
    EXPECT_EQ(Graph->Graph1().AxisTitle(ChartAxis::X), "Hole Width (ft)");
}

TEST_F(GraphOptions, ABlankedFirstTitleIsStoredBlank) {
    frmGraphOpt& dialog = ShowDialog(2);
    Click(dialog, "Option1_0");
    Click(dialog, "Command2");
    EXPECT_EQ(XAxisTitle[0], "");
    EXPECT_EQ(YAxisTitle[0], "");
}

TEST_F(GraphOptions, CancelStoresNothingButTheChartTakesTheSettings) {
    frmGraphOpt& dialog = ShowDialog(0);
    Type(dialog, "Text1", "Panel 7");
    Pick(dialog, "Combo1", 3);
    SymbolSize = 8;
    GridStyle = 2;
    GraphTitle = "As it stands";
    Click(dialog, "Command1");
    EXPECT_EQ(GraphTitle, "As it stands");
    EXPECT_EQ(GridStyle, 2);
    EXPECT_TRUE(Graph->Graph1().MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_FALSE(Graph->Graph1().MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_EQ(Graph->Graph1().Style(1).symbol_size, 8);
    EXPECT_EQ(Graph->Graph1().HeaderText(), "As it stands");
    EXPECT_EQ(ReadBytes(PathTo("TARVOKOL.INI")), "");
}

TEST_F(GraphOptions, EscapeAndTheCloseBoxCancel) {
    Type(ShowDialog(0), "Text1", "Panel 7");
    Press(frmGraphOpt::Instance(), Qt::Key_Escape);
    EXPECT_FALSE(frmGraphOpt::IsLoaded());
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    frmGraphOpt::Instance().close();
    EXPECT_FALSE(frmGraphOpt::IsLoaded());
}

TEST_F(GraphOptions, SymbolSizeShowsWithSymbolsOnly) {
    frmGraphOpt& dialog = ShowDialog(0);
    Pick(dialog, "Combo2", 0);
    EXPECT_FALSE(Find<QWidget>(dialog, "Label1").isVisible());
    EXPECT_FALSE(Find<QWidget>(dialog, "HScroll1").isVisible());
    EXPECT_TRUE(Find<QWidget>(dialog, "txtSS").isVisible());
    Pick(dialog, "Combo2", 1);
    EXPECT_TRUE(Find<QWidget>(dialog, "Label1").isVisible());
    EXPECT_TRUE(Find<QWidget>(dialog, "HScroll1").isVisible());
    Pick(dialog, "Combo2", 2);
    EXPECT_TRUE(Find<QWidget>(dialog, "HScroll1").isVisible());
}

TEST_F(GraphOptions, LinesOnlyOpensWithoutTheSymbolSize) {
    ResetGraphDefaults();
    GraphStyle = 1;
    frmGraphOpt& dialog = ShowDialog(0);
    EXPECT_FALSE(Find<QWidget>(dialog, "HScroll1").isVisible());
}

TEST_F(GraphOptions, TheScrollBarIsMirrored) {
    frmGraphOpt& dialog = ShowDialog(0);
    Find<QScrollBar>(dialog, "HScroll1").setValue(20);
    EXPECT_EQ(TextOf(dialog, "txtSS"), "20");
    Find<QScrollBar>(dialog, "HScroll1").setValue(3);
    EXPECT_EQ(TextOf(dialog, "txtSS"), "3");
}

TEST_F(GraphOptions, ATextThatIsNoItemIsRefused) {
    frmGraphOpt& dialog = ShowDialog(0);
    for (const char* name : {"Combo1", "Combo2"}) {
        Host.Messages.Shown.clear();
        QComboBox& combo = Find<QComboBox>(dialog, name);
        combo.setCurrentIndex(1);
        combo.lineEdit()->setFocus();
        combo.lineEdit()->end(false);
        QTest::keyClick(combo.lineEdit(), Qt::Key_X);
        EXPECT_THAT(Messages(), ElementsAre("Please select a valid entry")) << name;
        EXPECT_EQ(combo.currentIndex(), 0);
        EXPECT_EQ(combo.currentText(), combo.itemText(0));
        QTest::keyClick(combo.lineEdit(), Qt::Key_Backspace);
        EXPECT_EQ(Messages().size(), 2u);
        EXPECT_EQ(combo.currentText(), combo.itemText(0));
    }
}

TEST_F(GraphOptions, ATypedItemIsTaken) {
    frmGraphOpt& dialog = ShowDialog(0);
    QComboBox& combo = Find<QComboBox>(dialog, "Combo1");
    combo.setEditText("Vertical");
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(GraphOptions, HelpClearsTheCurves) {
    frmGraphOpt& dialog = ShowDialog(0);
    GraphRestyleCount = 1;
    Click(dialog, "Command3");
    EXPECT_EQ(Graph->Graph1().NumSeries(), 0);
    EXPECT_EQ(GraphRestyleCount, 0);
    EXPECT_TRUE(Host.Help.Calls.empty());
    EXPECT_TRUE(frmGraphOpt::IsLoaded());
}

TEST_F(GraphOptions, TitleBoxesSelectTheirTextOnFocus) {
    frmGraphOpt& dialog = ShowDialog(0);
    for (const char* name : {"Text1", "Text2_0", "Text3_0"}) {
        QLineEdit& box = Find<QLineEdit>(dialog, name);
        box.deselect();
        dialog.setFocus();
        box.setFocus();
        EXPECT_EQ(box.selectedText(), box.text()) << name;
    }
}

// The dialog shows the defaults; cancelled, it leaves the settings and the chart as they were.
TEST_F(GraphOptions, OpeningWithDefaultsAndCancellingChangesNothing) {
    ResetGraphDefaults();
    GraphTitle = "My panel";
    GridStyle = 3;
    frmGraph& form = ShowStability(0);
    GraphSetParams = 0;
    WhenShown("frmGraphOpt", [](FormBase& dialog) {
        EXPECT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &dialog; }));
        EXPECT_EQ(TextOf(dialog, "Text1"), "Tarvo Panel Stability Evaluation - KOL");
        Click(dialog, "Command1");
    });
    Choose(form, "GraphOptionsItem_1");
    EXPECT_EQ(GraphTitle, "My panel");
    EXPECT_EQ(form.Graph1().HeaderText(), "My panel");
    EXPECT_EQ(GraphSetParams, 0);
    EXPECT_EQ(GridStyle, 3);
}

// The settings before the first look at the defaults are the ones to go back to.
TEST_F(GraphOptions, CancelAfterTwoLooksAtTheDefaultsChangesNothing) {
    frmGraphOpt& dialog = ShowDialog(0);
    GraphTitle = "My panel";
    SymbolSize = 8;
    Click(dialog, "Option1_0");
    Click(dialog, "Option1_1");
    Click(dialog, "Option1_0");
    Click(dialog, "Command1");
    EXPECT_EQ(GraphTitle, "My panel");
    EXPECT_EQ(SymbolSize, 8);
    EXPECT_EQ(GraphSetParams, 1);
}

// A chart that was cleared between the defaults and the cancelled end stays a cleared one.
TEST_F(GraphOptions, CancelBringsNoClearedChartBack) {
    frmGraphOpt& dialog = ShowDialog(0);
    GraphRestyleCount = 1;
    Click(dialog, "Option1_0");
    Click(dialog, "Command3");
    Click(dialog, "Command1");
    EXPECT_EQ(GraphRestyleCount, 0);
    EXPECT_EQ(Graph->Graph1().NumSeries(), 0);
}

TEST_F(GraphOptions, ATitleStoredWithDefaultsOutlivesACancelledOpening) {
    ResetGraphDefaults();
    frmGraph& form = ShowStability(0);
    GraphSetParams = 0;
    WhenShown("frmGraphOpt", [](FormBase& dialog) {
        Find<QLineEdit>(dialog, "Text2_0").setText("Seam height");
        Find<QPushButton>(dialog, "Command2").click();
    });
    Choose(form, "GraphOptionsItem_1");
    EXPECT_EQ(XAxisTitle[0], "Seam height");
    WhenShown("frmGraphOpt", [](FormBase& dialog) { Find<QPushButton>(dialog, "Command1").click(); });
    Choose(form, "GraphOptionsItem_1");
    EXPECT_EQ(XAxisTitle[0], "Seam height");
    EXPECT_EQ(form.Graph1().AxisTitle(ChartAxis::X), "Seam height");
}

TEST_F(GraphOptions, TheOpeningFocusStandsOnTheChosenOption) {
    for (const int16_t chosen : {0, 1}) {
        frmGraphOpt& dialog = ShowDialog(0, chosen);
        ASSERT_NE(dialog.focusWidget(), nullptr);
        EXPECT_EQ(FromQt(dialog.focusWidget()->objectName()), "Option1_" + std::to_string(chosen));
        Press(dialog, Qt::Key_Space);
        EXPECT_TRUE(Find<QRadioButton>(dialog, "Option1_" + std::to_string(chosen)).isChecked());
        dialog.Abandon();
        RunEvents();
    }
}

TEST_F(GraphOptions, KeysMoveTheSymbolSizeTheWayTheyPoint) {
    frmGraphOpt& dialog = ShowDialog(0);
    auto& bar = Find<QScrollBar>(dialog, "HScroll1");
    bar.setValue(10);
    bar.setFocus();
    Press(dialog, Qt::Key_Right);
    EXPECT_EQ(TextOf(dialog, "txtSS"), "11");
    Press(dialog, Qt::Key_Left);
    Press(dialog, Qt::Key_Left);
    EXPECT_EQ(TextOf(dialog, "txtSS"), "9");
    EXPECT_EQ(bar.pageStep(), 3);
}

TEST_F(GraphOptions, TheBoxesInsideTheListsHaveNames) {
    frmGraphOpt& dialog = ShowDialog(0);
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo1").lineEdit()->accessibleName(), "Grid style");
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo2").lineEdit()->accessibleName(), "Graph Style");
}

}  // namespace
}  // namespace tarvokol
