// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmConvert.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "core/messages/titles.h"
#include "core/project/file_conversion.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Convert : public MainWindowTest {
  protected:
    frmConvert& Open() {
        frmConvert& form = frmConvert::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Closed() {
        RunEvents();
        return !frmConvert::IsLoaded();
    }

    static bool IsOn(QWidget& form, const std::string& name) {
        return Find<QAbstractButton>(form, name).isChecked();
    }
    static bool IsEnabled(QWidget& form, const std::string& name) { return Find(form, name).isEnabled(); }

    std::string History() const { return Platform.MainWindow->HistoryText(); }
};

TEST_F(Convert, NamesEveryControl) {
    frmConvert& form = Open();
    EXPECT_EQ(form.windowTitle(), "File Conversion Utility");
    EXPECT_EQ(TextOf(form, "Option1_0"), "feet, psi, pcf");
    EXPECT_EQ(TextOf(form, "Option1_1"), "meters, MPa, kN/m3");
    EXPECT_EQ(TextOf(form, "Option2_0"), "Load converted project ");
    EXPECT_EQ(TextOf(form, "Option2_1"), "Keep original project");
    EXPECT_EQ(TextOf(form, "Command2"), "Convert");
    EXPECT_EQ(TextOf(form, "Command1"), "Cancel");
    EXPECT_EQ(TextOf(form, "Command3"), "Help");
}

TEST_F(Convert, AnEnglishProjectOffersOnlyMetric) {
    UnitSystem = 0;
    frmConvert& form = Open();
    EXPECT_FALSE(IsOn(form, "Option1_0"));
    EXPECT_FALSE(IsEnabled(form, "Option1_0"));
    EXPECT_TRUE(IsOn(form, "Option1_1"));
    EXPECT_TRUE(IsEnabled(form, "Option1_1"));
}

TEST_F(Convert, AMetricProjectOffersOnlyEnglish) {
    UnitSystem = 1;
    frmConvert& form = Open();
    EXPECT_TRUE(IsOn(form, "Option1_0"));
    EXPECT_TRUE(IsEnabled(form, "Option1_0"));
    EXPECT_FALSE(IsOn(form, "Option1_1"));
    EXPECT_FALSE(IsEnabled(form, "Option1_1"));
}

TEST_F(Convert, KeepingTheOriginalCannotBeChosen) {
    EXPECT_EQ(ConvertKeepChoice, 0);
    frmConvert& form = Open();
    EXPECT_TRUE(IsOn(form, "Option2_0"));
    EXPECT_FALSE(IsOn(form, "Option2_1"));
    EXPECT_TRUE(IsEnabled(form, "Option2_0"));
    EXPECT_FALSE(IsEnabled(form, "Option2_1"));
    Click(form, "Option2_1");
    EXPECT_FALSE(IsOn(form, "Option2_1"));
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ConvertKeepChoice, 0);
}

TEST_F(Convert, ShowsTheRememberedChoiceAndSavesItAtTheUnload) {
    ConvertKeepChoice = 1;
    frmConvert& form = Open();
    EXPECT_TRUE(IsOn(form, "Option2_1"));
    EXPECT_FALSE(IsEnabled(form, "Option2_1"));
    Press(form, Qt::Key_Escape);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ConvertKeepChoice, 1);
    frmConvert& again = Open();
    Click(again, "Option2_0");
    again.close();
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ConvertKeepChoice, 0);
}

TEST_F(Convert, SaysWhatItDoesInTheHistoryAndClearsTheTitles) {
    Start();
    Choose(frmMain::Instance(), "mnuUtilItem_5");
    const std::string number = std::to_string(HistorySequence + 1);
    ErrorTitle = "Project Parameters: Error";
    frmConvert& form = Open();
    EXPECT_EQ(History(), number + ". Loading File Conversion Form\r\n");
    EXPECT_EQ(ErrorTitle, "Error");
    EXPECT_EQ(RangeErrorTitle, "Range Error");
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(History(), number + ". Loading File Conversion Form\r\n");
}

TEST_F(Convert, CancelChangesNothing) {
    EnterProject();
    ProjectFileName = PathTo("Panel.TKL");
    frmConvert& form = Open();
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectRecord.DepthCover, 100);
    EXPECT_EQ(ProjectFileName, PathTo("Panel.TKL"));
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Convert, TheHelpButtonDoesNothing) {
    frmConvert& form = Open();
    Click(form, "Command3");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Host.Help.Calls, IsEmpty());
    EXPECT_TRUE(frmConvert::IsLoaded());
}

// 6 ft / 3.280839895013123 = 1.8288, 100 ft = 30.48 m, 9 ft = 2.7432 m, 5 ft = 1.524 m, 20 ft = 6.096 m;
// 900 psi / 145.0377 = 6.20528..., 160 pcf / 6.3663022639200495 = 25.1323...
TEST_F(Convert, ConvertsTheOpenProjectTellsItAndCloses) {
    frmMain& main_window = Start();
    EnterProject();
    ProjectRecord.CoalStrength = 900;
    ProjectRecord.UnitWeight = 160;
    ProjectRecord.AbutmentAngle = 21;
    ProjectFileName = PathTo("Panel.TKL");
    frmConvert& form = Open();
    Click(form, "Command2");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ConvertTargetUnits, 1);
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectRecord.Height, 1.83);
    EXPECT_EQ(ProjectRecord.DepthCover, 30.48);
    EXPECT_EQ(ProjectRecord.HoleWidth, 2.74);
    EXPECT_EQ(ProjectRecord.WebThickness, 1.52);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 6.1);
    EXPECT_EQ(ProjectRecord.CoalStrength, 6.21);
    EXPECT_EQ(ProjectRecord.UnitWeight, 25.13);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 21);
    EXPECT_EQ(ProjectFileName, "Metric_Panel.TKL");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(main_window.windowTitle(), "TARVO-KOL: Metric_Panel.TKL*");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message, "Conversion Completed: The conversion form will be closed");
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_THAT(History(), EndsWith("Message: Conversion Completed: The conversion form will be closed\r\n"));
    // Nothing is saved; what is kept of the unsaved project bears a name of its own.
    for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
        const bool kept = entry.path().filename().string().starts_with("~unsaved ");
        EXPECT_TRUE(kept || entry.path().extension() != ".TKL") << entry.path();
    }
}

TEST_F(Convert, EnterConverts) {
    EnterProject();
    UnitSystem = 1;
    ProjectFileName = "Panel.TKL";
    frmConvert& form = Open();
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ConvertTargetUnits, 0);
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectRecord.DepthCover, 328.08);
    EXPECT_EQ(ProjectFileName, "English_Panel.TKL");
}

TEST_F(Convert, TheChoiceHasNoEffectOnTheConversion) {
    EnterProject();
    ConvertKeepChoice = 1;
    ProjectFileName = "Panel.TKL";
    Click(Open(), "Command2");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ConvertKeepChoice, 1);
}

TEST_F(Convert, AFigureThatCannotBeConvertedIsNamedAndNothingChanges) {
    EnterProject();
    UnitSystem = 1;
    ProjectRecord.Height = 1e308;
    Click(Open(), "Command2");
    RunEvents();
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre("Invalid entry height"));
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectRecord.Height, 1e308);
}

TEST_F(Convert, TheMenuOpensItForASavedProjectOnly) {
    frmMain& main_window = Start();
    Choose(main_window, "mnuUtilItem_3");
    EnterProject();
    ProjectSaved = 0;
    Choose(main_window, "mnuUtilItem_3");
    EXPECT_THAT(Messages(),
                ElementsAre("Current file is empty", "Save Current File before accessing this option"));
    ProjectSaved = 255;
    bool opened = false;
    WhenShown("frmConvert", [&](FormBase& form) {
        opened = true;
        Press(form, Qt::Key_Escape);
    });
    Choose(main_window, "mnuUtilItem_3");
    EXPECT_TRUE(opened);
}

TEST_F(Convert, OpensItsTopicWithF1) {
    frmConvert& form = Open();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmConvert.htm"));
}

}  // namespace
}  // namespace tarvokol
