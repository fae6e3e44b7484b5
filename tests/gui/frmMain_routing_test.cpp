// Which form a command of the main window opens, and how.
#include "engine/project_record.h"
#include "project/lifecycle.h"
#include "project/project_state.h"
#include "shell/forms/form_registry.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

struct Route {
    const char* item;
    const char* form;
};

void PrintTo(const Route& route, std::ostream* out) {
    *out << route.item << " -> " << route.form;
}

class ModalCommand : public MainWindowTest, public ::testing::WithParamInterface<Route> {};

TEST_P(ModalCommand, OpensItsFormAndComesBackWhenItCloses) {
    if (!IsFormKnown(GetParam().form)) GTEST_SKIP() << "not built in: " << GetParam().form;
    frmMain& form = Start();
    EnterProject();
    ProjectSaved = 255;
    bool shown = false;
    WhenShown(GetParam().form, [&](FormBase& opened) {
        shown = true;
        EXPECT_EQ(QApplication::activeModalWidget(), &opened);
        EXPECT_TRUE(opened.Unload());
    });
    EXPECT_TRUE(Choose(form, GetParam().item));
    EXPECT_TRUE(shown);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(FindForm(GetParam().form), nullptr);
    EXPECT_TRUE(UnhandledErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(
    MainWindow, ModalCommand,
    ::testing::Values(Route{"mnuFileItem_7", "frmPreview"}, Route{"mnuFileItem_9", "frmTextBrow"},
                      Route{"mnuEditItem_0", "frmTARVODesc"}, Route{"Toolbar1_4", "frmTARVODesc"},
                      Route{"mnuUtilItem_0", "frmSet"}, Route{"mnuUtilItem_1", "frmTARVOOpts"},
                      Route{"mnuUtilItem_2", "frmUnits"}, Route{"mnuUtilItem_3", "frmConvert"},
                      Route{"mnuHelpItem_4", "frmResource"}, Route{"mnuHelpItem_6", "frmDisclaimer"},
                      Route{"mnuHelpItem_8", "frmUpdate"}, Route{"mnuCalcGrafItem_0", "frmGraph"},
                      Route{"mnuCalcGrafItem_1", "frmGraph"}, Route{"mnuCalcGrafItem_2", "frmGraph"},
                      Route{"mnuSizGrafItem_0", "frmGraphS"}, Route{"mnuSizGrafItem_1", "frmGraphS"}));

class ModelessCommand : public MainWindowTest, public ::testing::WithParamInterface<Route> {};

TEST_P(ModelessCommand, DisablesTheMainWindowUntilItsFormCloses) {
    if (!IsFormKnown(GetParam().form)) GTEST_SKIP() << "not built in: " << GetParam().form;
    frmMain& form = Start();
    EnterProject();
    EXPECT_TRUE(Choose(form, GetParam().item));
    FormBase* opened = FindForm(GetParam().form);
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->isVisible());
    EXPECT_FALSE(opened->isModal());
    EXPECT_FALSE(form.isEnabled());
    EXPECT_FALSE(form.close());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(opened->Unload());
    EXPECT_TRUE(form.isEnabled());
    EXPECT_TRUE(UnhandledErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(MainWindow, ModelessCommand,
                         ::testing::Values(Route{"mnuEditItem_1", "frmTARVOParm"},
                                           Route{"Toolbar1_5", "frmTARVOParm"},
                                           Route{"mnuCalcItem_0", "frmResTxtPlt"}));

class StartForms : public MainWindowTest {};

TEST_F(StartForms, TheDisclaimerComesWhileTheWindowLoads) {
    if (!IsFormKnown("frmDisclaimer")) GTEST_SKIP() << "not built in: frmDisclaimer";
    ShowDisclaim = 1;
    WhenShown("frmDisclaimer", [](FormBase& opened) {
        EXPECT_FALSE(frmMain::Instance().isVisible());
        opened.Unload();
    });
    frmMain::Instance();
    EXPECT_EQ(FindForm("frmDisclaimer"), nullptr);
}

TEST_F(StartForms, TheReminderComesWhileTheWindowLoadsAYearAfterTheRelease) {
    if (!IsFormKnown("frmUpdate")) GTEST_SKIP() << "not built in: frmUpdate";
    RemindAnnualUpdates = 1;
    Host.TheClock.Date = CalendarDate{2014, 8, 16};
    WhenShown("frmUpdate", [](FormBase& opened) { opened.Unload(); });
    frmMain::Instance();
    EXPECT_EQ(FindForm("frmUpdate"), nullptr);
}

TEST_F(StartForms, NoReminderOnTheThreeHundredAndSixtiethDay) {
    RemindAnnualUpdates = 1;
    Host.TheClock.Date = CalendarDate{2014, 8, 15};
    frmMain::Instance();
    EXPECT_EQ(LoadedForms().size(), 1u);
}

TEST_F(StartForms, NewOpensTheParametersIfTheSettingWantsIt) {
    if (!IsFormKnown("frmTARVOParm")) GTEST_SKIP() << "not built in: frmTARVOParm";
    frmMain& form = Start();
    ShowInputScreenOnLoad = 1;
    Choose(form, "mnuFileItem_0");
    ASSERT_NE(FindForm("frmTARVOParm"), nullptr);
    EXPECT_FALSE(form.isEnabled());
    FindForm("frmTARVOParm")->Unload();
    EXPECT_TRUE(form.isEnabled());
}

TEST_F(StartForms, ARefusedInputCheckOpensNoGraph) {
    frmMain& form = Start();
    ProjectRecord.Height = 0;
    ProjectRecord.DepthCover = 0;
    Choose(form, "mnuCalcGrafItem_0");
    Choose(form, "mnuSizGrafItem_0");
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_EQ(LoadedForms().size(), 1u);
}

}  // namespace
}  // namespace tarvokol
