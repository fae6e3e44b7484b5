// Which form a command of the main window opens, and how.
#include "engine/project_record.h"
#include "project/lifecycle.h"
#include "project/project_file.h"
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
    ASSERT_TRUE(IsFormKnown(GetParam().form));
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
    ASSERT_TRUE(IsFormKnown(GetParam().form));
    frmMain& form = Start();
    EnterProject();
    EXPECT_TRUE(Choose(form, GetParam().item));
    FormBase* opened = FindForm(GetParam().form);
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->isVisible());
    EXPECT_FALSE(opened->isModal());
    EXPECT_EQ(opened->windowType(), Qt::Dialog);
    EXPECT_EQ(opened->windowHandle()->transientParent(), form.windowHandle());
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
    ASSERT_TRUE(IsFormKnown("frmDisclaimer"));
    ShowDisclaim = 1;
    WhenShown("frmDisclaimer", [](FormBase& opened) {
        EXPECT_FALSE(frmMain::Instance().isVisible());
        opened.Unload();
    });
    frmMain::Instance();
    EXPECT_EQ(FindForm("frmDisclaimer"), nullptr);
}

TEST_F(StartForms, TheReminderComesWhileTheWindowLoadsAYearAfterTheRelease) {
    ASSERT_TRUE(IsFormKnown("frmUpdate"));
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
    ASSERT_TRUE(IsFormKnown("frmTARVOParm"));
    frmMain& form = Start();
    ShowInputScreenOnLoad = 1;
    Choose(form, "mnuFileItem_0");
    ASSERT_NE(FindForm("frmTARVOParm"), nullptr);
    EXPECT_FALSE(form.isEnabled());
    FindForm("frmTARVOParm")->Unload();
    EXPECT_TRUE(form.isEnabled());
}

// The dialog of the last file must not stand over the file of the command line.
TEST_F(StartForms, TheParametersAreThoseOfTheCommandLinesFile) {
    Host.Folders.Program = PathTo("tarvokol");
    Host.Folders.DocumentsFolder = Folder.string();
    std::filesystem::create_directory(Folder / "MyOLTEK");
    EnterProject();
    ProjectFileName = PathTo("last.TKL");
    ASSERT_TRUE(FileSave());
    ProjectRecord.Height = 7.5;
    ProjectRecord.NumberHoles = 12;
    ProjectFileName = PathTo("named.TKL");
    ASSERT_TRUE(FileSave());
    UnloadAllForms();
    WriteBytes(
        PathTo("MyOLTEK/TARVOKOL.INI"),
        "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nShowDisclaim=0\r\nDisplayHistoryWin=1\r\n"
        "RemindAnnualUpdates=0\r\nLoadLastInputFile=1\r\nKeepFileNames=1\r\nCopyExampleFiles=0\r\n"
        "[FileMenu]\r\nMaxLastFiles=1\r\nLastFile1=last.TKL\r\nLastFileMode1=1\r\nLastFileLong1=" +
            PathTo("last.TKL") +
            "\r\n[TARVOKOLOptions]\r\nShowInputScreenOnLoad=1\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\n");
    Main(PathTo("named.TKL"), StepsOfMainWindow());
    FormBase* dialog = FindForm("frmTARVOParm");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(TextOf(*dialog, "txtHeight"), "7.5");
    EXPECT_EQ(TextOf(*dialog, "txtNumberHoles"), "12");
    EXPECT_FALSE(frmMain::Instance().isEnabled());
    EXPECT_THAT(Platform.MainWindow->HistoryText(),
                ::testing::HasSubstr("Opening: " + PathTo("named.TKL") + "\r\n"));
    dialog->Unload();
    EXPECT_EQ(ProjectRecord.Height, 7.5);
    EXPECT_TRUE(frmMain::Instance().isEnabled());
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
