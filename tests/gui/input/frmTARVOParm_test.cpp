// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters dialog: its controls, what they load, the calculated fields, OK and Cancel.
#include "desktop/input/frmTARVOParm.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <set>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/titles.h"
#include "core/project/lifecycle.h"
#include "core/project/recovery_copy.h"
#include "core/report/results_state.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "qt/plan/plan_sheet.h"
#include "tests/gui/input/parameters_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const char* const Inputs[] = {"txtHeight",       "txtDepthCover",         "txtHoleWidth",
                              "txtWebThickness", "txtBarrierPillarWidth", "txtNumberHoles",
                              "txtCoalStrength", "txtUnitWeight",         "txtAbutmentAngleActiveGob",
                              "txtSFWeb",        "txtSFBarrier"};

struct Captioned {
    const char* name;
    const char* caption;
};

TEST_F(ParametersDialog, HasItsTabsFramesAndButtons) {
    frmTARVOParm& form = Open();
    EXPECT_EQ(form.windowTitle(), "Parameters");
    auto& tabs = Find<QTabWidget>(form, "SSTab1");
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0), "Standard");
    EXPECT_EQ(tabs.tabText(1), "Defaults");
    EXPECT_EQ(tabs.tabText(2), "Sizing");
    const Captioned frames[] = {{"Frame1", "Panel specification"},
                                {"Frame7", "Calculated data"},
                                {"Frame2", "Panel layout"},
                                {"Frame0", "Loading conditions"},
                                {"Frame3", "Sizing"}};
    for (const auto& [name, caption] : frames)
        EXPECT_EQ(Find<QGroupBox>(form, name).title(), caption) << name;
    const Captioned buttons[] = {{"cmdResults", "&Results"},
                                 {"cmdView", "&View"},
                                 {"cmdCancel", "Cancel"},
                                 {"cmdOK", "OK"},
                                 {"cmdHelp", "Help"},
                                 {"cmdSize", "Size pillars"},
                                 {"cmdHelpStability", "Help on stability factors"},
                                 {"cmdHelpDesign", "Help on design procedures"}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(Find<QPushButton>(form, name).text(), caption) << name;
    EXPECT_EQ(Find<QPushButton>(form, "cmdCopyClip").toolTip(), "Copy dialog image to clipboard");
    EXPECT_FALSE(Find<QPushButton>(form, "cmdCopyClip").icon().pixmap(16, 16).isNull());
    EXPECT_EQ(Find<PlanSheet>(form, "Picture1").size(), QSize(601, 121));
}

TEST_F(ParametersDialog, EveryInputHasAMnemonicOfItsOwn) {
    frmTARVOParm& form = Open();
    std::set<QString> letters{"Alt+R", "Alt+V"};
    for (const auto* label : form.findChildren<QLabel*>()) {
        auto* box = qobject_cast<QLineEdit*>(label->buddy());
        if (box == nullptr || box->isReadOnly()) continue;
        const QString letter = QKeySequence::mnemonic(label->text()).toString();
        EXPECT_FALSE(letter.isEmpty()) << FromQt(label->text());
        EXPECT_TRUE(letters.insert(letter).second) << FromQt(label->text());
    }
    EXPECT_EQ(letters.size(), 13u);
}

TEST_F(ParametersDialog, EveryControlStandsOnItsTab) {
    frmTARVOParm& form = Open();
    auto& tabs = Find<QTabWidget>(form, "SSTab1");
    const std::vector<std::vector<const char*>> pages = {
        {"txtHeight", "txtDepthCover", "txtHoleWidth", "txtWebThickness", "txtBarrierPillarWidth",
         "txtNumberHoles", "HScroll1", "txtPanelWidth", "txtExtractRatio", "Picture1"},
        {"txtCoalStrength", "txtUnitWeight", "txtAbutmentAngleActiveGob"},
        {"txtSFWeb", "txtSFBarrier", "cmdSize", "txtSugWeb", "txtSugBarrier", "cmdHelpStability",
         "cmdHelpDesign"}};
    for (int page = 0; page < 3; ++page)
        for (const char* name : pages[static_cast<std::size_t>(page)])
            EXPECT_NE(tabs.widget(page)->findChild<QWidget*>(name), nullptr) << name;
    for (const char* name : {"cmdResults", "cmdCopyClip", "cmdView", "cmdCancel", "cmdOK", "cmdHelp"})
        EXPECT_FALSE(tabs.isAncestorOf(&Find<QWidget>(form, name))) << name;
}

TEST_F(ParametersDialog, LabelsCarryTheUnitsOfAnEnglishProject) {
    frmTARVOParm& form = Open();
    const Captioned labels[] = {{"Label1", "Extraction height (ft)"},
                                {"Label2", "Depth of cover (ft)"},
                                {"Label4", "Hole width (ft)"},
                                {"Label3", "Web thickness (ft)"},
                                {"Label5", "Barrier pillar width (ft)"},
                                {"Label6", "Number of holes between barriers (2-20)"},
                                {"lblPanelWidth", "Panel width (excluding barriers) (ft)"},
                                {"lblExtractRatio", "Average extraction ratio (%)"},
                                {"lblInsituCoal", "In situ coal strength (psi)"},
                                {"lblUnitWeight", "Overburden unit weight (pcf)"},
                                {"lblAbutAngle", "Abutment angle (deg)"},
                                {"Label10", "Stability factor for webs"},
                                {"Label12", "Stability factor for barriers"},
                                {"Label14", "Suggested web thickness"},
                                {"Label13", "Suggested barrier thickness"}};
    for (const auto& [name, caption] : labels) EXPECT_EQ(TextOf(form, name), caption);
}

TEST_F(ParametersDialog, LabelsCarryTheUnitsOfAMetricProject) {
    UnitSystem = 1;
    frmTARVOParm& form = Open();
    const Captioned labels[] = {{"Label1", "Extraction height (m)"},
                                {"Label2", "Depth of cover (m)"},
                                {"Label4", "Hole width (m)"},
                                {"Label3", "Web thickness (m)"},
                                {"Label5", "Barrier pillar width (m)"},
                                {"Label6", "Number of holes between barriers (2-20)"},
                                {"lblPanelWidth", "Panel width (excluding barriers) (m)"},
                                {"lblExtractRatio", "Average extraction ratio (%)"},
                                {"lblInsituCoal", "In situ coal strength (MPa)"},
                                {"lblUnitWeight", "Overburden unit weight (kN/m3)"},
                                {"lblAbutAngle", "Abutment angle (deg)"},
                                {"Label14", "Suggested web thickness"},
                                {"Label13", "Suggested barrier thickness"}};
    for (const auto& [name, caption] : labels) EXPECT_EQ(TextOf(form, name), caption);
}

TEST_F(ParametersDialog, EveryInputHasALabelOfItsOwn) {
    frmTARVOParm& form = Open();
    for (const char* name : Inputs) {
        const QLineEdit& box = Box(form, name);
        EXPECT_FALSE(box.accessibleName().isEmpty()) << name;
        const auto labels = form.findChildren<QLabel*>();
        EXPECT_EQ(std::count_if(labels.begin(), labels.end(),
                                [&](const QLabel* label) { return label->buddy() == &box; }),
                  1)
            << name;
    }
}

TEST_F(ParametersDialog, LoadsTheProjectInItsFormats) {
    ProjectRecord.Height = 6.25;
    ProjectRecord.DepthCover = 149.5;
    ProjectRecord.HoleWidth = 9.5;
    ProjectRecord.WebThickness = 0.5;
    ProjectRecord.BarrierPillarWidth = 16;
    ProjectRecord.NumberHoles = 12;
    frmTARVOParm& form = Open();
    EXPECT_EQ(TextOf(form, "txtHeight"), "6.25");
    EXPECT_EQ(TextOf(form, "txtDepthCover"), "149.5");
    EXPECT_EQ(TextOf(form, "txtHoleWidth"), "9.5");
    EXPECT_EQ(TextOf(form, "txtWebThickness"), "0.5");
    EXPECT_EQ(TextOf(form, "txtBarrierPillarWidth"), "16");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "12");
    EXPECT_EQ(Find<QScrollBar>(form, "HScroll1").value(), 12);
    EXPECT_EQ(TextOf(form, "txtCoalStrength"), "900.");
    EXPECT_EQ(TextOf(form, "txtUnitWeight"), "162.");
    EXPECT_EQ(TextOf(form, "txtAbutmentAngleActiveGob"), "21");
    EXPECT_EQ(TextOf(form, "txtSFWeb"), "1.6");
    EXPECT_EQ(TextOf(form, "txtSFBarrier"), "2");
    EXPECT_EQ(TextOf(form, "txtSugWeb"), "");
    EXPECT_EQ(TextOf(form, "txtSugBarrier"), "");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "120.");    // 11 x 0.5 + 12 x 9.5 = 119.5
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "84.1");  // 114 / 135.5
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParametersDialog, ANewMetricProjectLoadsStrengthAndWeightWithTwoDecimals) {
    DefaultUnitSystem = 1;
    FileNew(true, true);
    frmTARVOParm& form = Open();
    EXPECT_EQ(TextOf(form, "txtCoalStrength"), "6.21");
    EXPECT_EQ(TextOf(form, "txtUnitWeight"), "25.45");
    EXPECT_EQ(TextOf(form, "txtHeight"), "0");
    EXPECT_EQ(TextOf(form, "txtNumberHoles"), "2");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "0.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "");
}

TEST_F(ParametersDialog, LoadingSetsTitlesAndFlagsAndLogs) {
    PlotFromResults = true;
    ResultsReturn = results_return::FromViewer;
    frmTARVOParm& form = Open();
    EXPECT_EQ(RangeErrorTitle, "Project Parameters: Range Error");
    EXPECT_EQ(ErrorTitle, "Project Parameters: Error");
    EXPECT_EQ(MessageTitle, "Message");
    EXPECT_FALSE(PlotFromResults);
    EXPECT_EQ(ResultsReturn, 1);
    EXPECT_EQ(History(), "1. Editing Project Parameters\r\n");
    EXPECT_EQ(Tab(form), 0);
    EXPECT_EQ(FocusName(form), "txtHeight");
    EXPECT_EQ(ProjectRecord.Height, 10);
}

TEST_F(ParametersDialog, BoxesSelectTheirTextWhenTheyGetTheFocus) {
    frmTARVOParm& form = Open();
    for (const char* name : Inputs) {
        for (int page = 0; page < 3; ++page) {
            ShowTab(form, page);
            if (Box(form, name).isVisible()) break;
        }
        Box(form, name).clearFocus();
        Box(form, name).deselect();
        Box(form, name).setFocus();
        EXPECT_EQ(Box(form, name).selectedText(), Box(form, name).text()) << name;
    }
}

TEST_F(ParametersDialog, TheTabKeyVisitsTheControlsOfTheTabThatShows) {
    frmTARVOParm& form = Open();
    const std::vector<std::string> standard = {
        "txtHeight",      "txtDepthCover", "txtHoleWidth",    "txtWebThickness", "txtBarrierPillarWidth",
        "txtNumberHoles", "txtPanelWidth", "txtExtractRatio", "cmdResults",      "cmdCopyClip",
        "cmdView",        "cmdCancel",     "cmdOK",           "cmdHelp"};
    for (const std::string& name : standard) {
        EXPECT_EQ(FocusName(form), name);
        GuiTest::Press(form, Qt::Key_Tab);
    }
    ShowTab(form, 2);
    for (const char* hidden : {"txtHeight", "txtNumberHoles", "txtCoalStrength", "txtPanelWidth"})
        EXPECT_FALSE(Box(form, hidden).focusPolicy() & Qt::TabFocus) << hidden;
    for (const char* shown : {"txtSFWeb", "txtSFBarrier", "cmdSize", "cmdHelpDesign", "cmdOK"})
        EXPECT_TRUE(Find<QWidget>(form, shown).focusPolicy() & Qt::TabFocus) << shown;
    ShowTab(form, 1);
    EXPECT_TRUE(Box(form, "txtCoalStrength").focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(Box(form, "txtSFWeb").focusPolicy() & Qt::TabFocus);
}

TEST_F(ParametersDialog, CalculatedFieldsFollowTheWidths) {
    frmTARVOParm& form = Open();
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "90.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "45.5");
    Enter(form, "txtNumberHoles", "3");
    Enter(form, "txtWebThickness", "5");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "40.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "50.0");
    Enter(form, "txtBarrierPillarWidth", "35");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "40.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "40.0");
    Enter(form, "txtHoleWidth", "15");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "55.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "50.0");
    for (const char* box : {"txtHoleWidth", "txtWebThickness", "txtBarrierPillarWidth"})
        Enter(form, box, "0");
    EXPECT_EQ(TextOf(form, "txtPanelWidth"), "0.");
    EXPECT_EQ(TextOf(form, "txtExtractRatio"), "");
}

TEST_F(ParametersDialog, ResultFieldsAreForReading) {
    frmTARVOParm& form = Open();
    for (const char* name : {"txtPanelWidth", "txtExtractRatio", "txtSugWeb", "txtSugBarrier"})
        EXPECT_TRUE(Box(form, name).isReadOnly()) << name;
}

// --- OK, Cancel, Help

TEST_F(ParametersDialog, OkStoresEveryField) {
    ProjectRecord.CrosscutSpacing = 250;
    ProjectRecord.CrosscutAngle = 60;
    ProjectRecord.SpareSingle = 7;
    frmTARVOParm& form = Open();
    const std::pair<const char*, const char*> typed[] = {{"txtHeight", "6.5"},
                                                         {"txtDepthCover", "2 00"},
                                                         {"txtHoleWidth", "9.5 ft"},
                                                         {"txtWebThickness", "4.25"},
                                                         {"txtBarrierPillarWidth", "1.6E1"},
                                                         {"txtNumberHoles", "7"},
                                                         {"txtCoalStrength", "950"},
                                                         {"txtUnitWeight", "160.5"},
                                                         {"txtAbutmentAngleActiveGob", "25"},
                                                         {"txtSFWeb", "1.3"},
                                                         {"txtSFBarrier", "2.1"}};
    for (const auto& [box, text] : typed) Enter(form, box, text);
    Press("cmdOK");
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.Height, 6.5);
    EXPECT_EQ(ProjectRecord.DepthCover, 200);
    EXPECT_EQ(ProjectRecord.HoleWidth, 9.5);
    EXPECT_EQ(ProjectRecord.WebThickness, 4.25);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 16);
    EXPECT_EQ(ProjectRecord.NumberHoles, 7);
    EXPECT_EQ(ProjectRecord.CoalStrength, 950);
    EXPECT_EQ(ProjectRecord.UnitWeight, 160.5);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 25);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.3f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.1f);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 250);
    EXPECT_EQ(ProjectRecord.CrosscutAngle, 60);
    EXPECT_EQ(ProjectRecord.SpareSingle, 7);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(History(), "1. Editing Project Parameters\r\n2. Project Parameters Modified\r\n");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParametersDialog, OkStoresTheTextsAndSoTheirDecimals) {
    ProjectRecord.CoalStrength = 6.2053;
    Open();
    Press("cmdOK");
    EXPECT_EQ(ProjectRecord.CoalStrength, 6.21);
}

TEST_F(ParametersDialog, OkKeepsACopyOfTheUnsavedProjectAndCancelDoesNot) {
    TempDataFolder = PathTo("");
    Open();
    Press("cmdCancel");
    EXPECT_EQ(RecoveryCopyPath(), "");
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "9.25");
    Press("cmdOK");
    EXPECT_THAT(ReadBytes(RecoveryCopyPath()), testing::HasSubstr("##EndDesc##\r\n9.25\r\n"));
    DropRecoveryCopy();
    TempDataFolder = "";
}

// As texts, so that a figure which is none yet comes back as it was typed.
TEST_F(ParametersDialog, WhatStandsTypedIsKeptASecondAfterTheLastKeyAndDroppedByCancel) {
    TempDataFolder = PathTo("");
    frmTARVOParm& form = Open();
    Enter(form, "txtAbutmentAngleActiveGob", "4,5");
    EXPECT_EQ(RecoveryCopyPath(), "");
    EXPECT_TRUE(WaitUntil([] { return !RecoveryCopyPath().empty(); }));
    const CopyNote note = NoteOf(ReadBytes(RecoveryCopyPath()));
    EXPECT_EQ(note.typed.dialog, "frmTARVOParm");
    EXPECT_THAT(note.typed.boxes, testing::Contains(testing::Pair("txtAbutmentAngleActiveGob", "4,5")));
    const std::string path = RecoveryCopyPath();
    Press("cmdCancel");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(RecoveryCopyPath(), "");
    TempDataFolder = "";
}

TEST_F(ParametersDialog, WhatStandsTypedIsStoredByOkAndNoLongerKeptAsTexts) {
    TempDataFolder = PathTo("");
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "9.25");
    KeepAllTypedTexts();
    EXPECT_THAT(NoteOf(ReadBytes(RecoveryCopyPath())).typed.boxes,
                testing::Contains(testing::Pair("txtHeight", "9.25")));
    Press("cmdOK");
    EXPECT_EQ(NoteOf(ReadBytes(RecoveryCopyPath())).typed.dialog, "");
    EXPECT_THAT(ReadBytes(RecoveryCopyPath()), testing::HasSubstr("##EndDesc##\r\n9.25\r\n"));
    DropRecoveryCopy();
    TempDataFolder = "";
}

TEST_F(ParametersDialog, ThatIsAsItWasLoadedIsNotKept) {
    TempDataFolder = PathTo("");
    Open();
    KeepAllTypedTexts();
    EXPECT_EQ(RecoveryCopyPath(), "");
    TempDataFolder = "";
}

TEST_F(ParametersDialog, CancelLeavesTheProject) {
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "99");
    Press("cmdCancel");
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.Height, 10);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(UnitsLocked, 0);
    EXPECT_EQ(History(), "1. Editing Project Parameters\r\n2. Project Parameters Not Modified\r\n");
}

TEST_F(ParametersDialog, EnterStoresAndEscapeCancels) {
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "11");
    GuiTest::Press(form, Qt::Key_Return);
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.Height, 11);
    frmTARVOParm& again = Open();
    EXPECT_EQ(TextOf(again, "txtHeight"), "11");
    Enter(again, "txtHeight", "12");
    GuiTest::Press(again, Qt::Key_Escape);
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.Height, 11);
}

TEST_F(ParametersDialog, ClosingTheWindowCancels) {
    frmTARVOParm& form = Open();
    Enter(form, "txtHeight", "12");
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(ProjectRecord.Height, 10);
}

TEST_F(ParametersDialog, HelpGivesTheHintAndTheTopicButtonsAreCrossed) {
    frmTARVOParm& form = Open();
    Press("cmdHelp");
    EXPECT_THAT(Messages(), ElementsAre("Position the cursor on any item on the form and press F1 for "
                                        "context-sensitive Help"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
    ShowTab(form, 2);
    Press("cmdHelpStability");
    Press("cmdHelpDesign");
    EXPECT_THAT(Host.Help.Calls,
                ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM DesignProceduresforTARVOKOL.htm",
                            "topic /opt/tarvokol/TARVOKOL.CHM Table1StabilityFactors.htm"));
}

TEST_F(ParametersDialog, FOneOpensTheTopicOfTheDialog) {
    frmTARVOParm& form = Open();
    GuiTest::Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmTARVOParm.htm"));
}

// --- with the main window

class ParametersOfTheMainWindow : public ParametersDialog {
  protected:
    ParametersOfTheMainWindow() {
        AppFolder = Folder.string() + "/";
        IniPath = PathTo("TARVOKOL.INI");
        TempDataFolder = Folder.string() + "/";
        HelpFileName = "TARVOKOL.CHM";
        ShowDisclaim = 0;
        RemindAnnualUpdates = 0;
        Platform.MainWindow = &binding_;
    }
    ~ParametersOfTheMainWindow() override {
        UnloadAllForms();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

  private:
    MainWindowBinding binding_;
};

TEST_F(ParametersOfTheMainWindow, TheMainWindowIsDisabledUntilTheDialogCloses) {
    frmMain& window = frmMain::Instance();
    ShowAndActivate(window);
    ASSERT_TRUE(Choose(window, "mnuEditItem_1"));
    ASSERT_TRUE(frmTARVOParm::IsLoaded());
    frmTARVOParm& form = frmTARVOParm::Instance();
    ASSERT_TRUE(WaitUntilActive(form));
    EXPECT_FALSE(window.isEnabled());
    EXPECT_FALSE(form.isModal());
    EXPECT_FALSE(window.close());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Press("cmdCancel");
    EXPECT_TRUE(window.isEnabled());
    EXPECT_TRUE(WaitUntil([&] { return window.isActiveWindow(); }));
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(ParametersOfTheMainWindow, TheCaptionShowsNoStarRightAfterOk) {
    frmMain& window = frmMain::Instance();
    ShowAndActivate(window);
    ShowInputScreenOnLoad = 1;
    ASSERT_TRUE(Choose(window, "mnuFileItem_0"));
    ASSERT_TRUE(frmTARVOParm::IsLoaded());
    frmTARVOParm& form = frmTARVOParm::Instance();
    const std::pair<const char*, const char*> typed[] = {{"txtHeight", "6"},
                                                         {"txtDepthCover", "100"},
                                                         {"txtHoleWidth", "9"},
                                                         {"txtWebThickness", "5"},
                                                         {"txtBarrierPillarWidth", "16"}};
    for (const auto& [box, text] : typed) Enter(form, box, text);
    Press("cmdOK");
    EXPECT_FALSE(frmTARVOParm::IsLoaded());
    EXPECT_EQ(window.windowTitle(), "TARVO-KOL: Untitled");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectRecord.NumberHoles, 2);
}

TEST_F(ParametersDialog, LongFiguresOfAProjectShowTheirFirstDigits) {
    ProjectRecord.Height = ProjectRecord.WebThickness = 9.84251968503937;
    frmTARVOParm& form = Open();
    for (const char* name : {"txtHeight", "txtWebThickness"}) {
        EXPECT_EQ(TextOf(form, name), "9.84251968503937");
        EXPECT_EQ(Box(form, name).cursorPosition(), 0) << name;
    }
}

TEST_F(ParametersDialog, AnotherValueThanTheTypedOneIsNotedAndNothingChanges) {
    frmTARVOParm& form = Open();
    Enter(form, "txtWebThickness", "1,5");
    EXPECT_EQ(TextOf(form, "txtWebThicknessUsed"), "used: 1");
    EXPECT_TRUE(Find(form, "txtWebThicknessUsed").isVisible());
    EXPECT_EQ(TextOf(form, "txtWebThickness"), "1,5");
    EXPECT_THAT(Messages(), IsEmpty());
    Enter(form, "txtWebThickness", "1.5");
    EXPECT_FALSE(Find(form, "txtWebThicknessUsed").isVisible());
}

TEST_F(ParametersDialog, SuggestedSizesOfAMetricProjectSayThatTheyAreInches) {
    frmTARVOParm& english = Open();
    ShowTab(english, 2);
    EXPECT_FALSE(Find<QLabel>(english, "lblSugUnit").isVisible());
    english.Unload();
    RunEvents();
    UnitSystem = 1;
    frmTARVOParm& form = Open();
    ShowTab(form, 2);
    const std::string note = "Suggested sizes are inches, not metres (1 in = 0.0254 m).";
    EXPECT_TRUE(Find<QLabel>(form, "lblSugUnit").isVisible());
    EXPECT_EQ(TextOf(form, "lblSugUnit"), note);
    for (const char* name : {"txtSugWeb", "txtSugBarrier"}) {
        EXPECT_EQ(FromQt(Box(form, name).toolTip()), note);
        EXPECT_EQ(FromQt(Box(form, name).accessibleDescription()), note);
    }
}

}  // namespace
}  // namespace tarvokol
