// SPDX-License-Identifier: GPL-3.0-or-later
// Which form a command of the main window opens, and how.
#include <QMenu>
#include <QRegularExpression>
#include <map>
#include <set>

#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "desktop/base/form_registry.h"
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

constexpr Route kModalRoutes[] = {
    {"mnuFileItem_7", "frmPreview"},    {"mnuFileItem_9", "frmTextBrow"},  {"mnuEditItem_0", "frmTARVODesc"},
    {"Toolbar1_4", "frmTARVODesc"},     {"mnuUtilItem_0", "frmSet"},       {"mnuUtilItem_1", "frmTARVOOpts"},
    {"mnuUtilItem_2", "frmUnits"},      {"mnuUtilItem_3", "frmConvert"},   {"mnuHelpItem_4", "frmResource"},
    {"mnuHelpItem_6", "frmDisclaimer"}, {"mnuHelpItem_8", "frmUpdate"},    {"mnuCalcGrafItem_0", "frmGraph"},
    {"mnuCalcGrafItem_1", "frmGraph"},  {"mnuCalcGrafItem_2", "frmGraph"}, {"mnuSizGrafItem_0", "frmGraphS"},
    {"mnuSizGrafItem_1", "frmGraphS"}};

INSTANTIATE_TEST_SUITE_P(MainWindow, ModalCommand, ::testing::ValuesIn(kModalRoutes));

class ModelessCommand : public MainWindowTest, public ::testing::WithParamInterface<Route> {};

TEST_P(ModelessCommand, DisablesTheMainWindowUntilItsFormCloses) {
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

constexpr Route kModelessRoutes[] = {
    {"mnuEditItem_1", "frmTARVOParm"}, {"Toolbar1_5", "frmTARVOParm"}, {"mnuCalcItem_0", "frmResTxtPlt"}};

INSTANTIATE_TEST_SUITE_P(MainWindow, ModelessCommand, ::testing::ValuesIn(kModelessRoutes));

class EveryEntry : public MainWindowTest {
  protected:
    // Entries and buttons that open no form of the program, each with what it leaves behind.
    std::map<std::string, std::function<bool()>> Works() {
        const auto file_dialogs = [this](size_t count) {
            return [this, count] { return Host.Dialogs.FileRequests.size() == count; };
        };
        const auto box_says = [this](const std::string& text) {
            return [this, text] { return !Messages().empty() && Messages().back().starts_with(text); };
        };
        const auto printed = [this] { return !Printer.Calls.empty() && Printer.Calls.back() == "end"; };
        return {
            {"mnuFileItem_0", [] { return ProjectTitle.empty(); }},
            {"mnuFileItem_1", file_dialogs(1)},
            {"mnuFileItem_2", file_dialogs(1)},
            {"mnuFileItem_3", file_dialogs(1)},
            {"mnuFileItem_5", [] { return DialogCancelled; }},
            {"mnuFileItem_6", printed},
            {"mnuFileItem_11", [] { return !frmMain::IsLoaded(); }},
            {"mnuUtilItem_5", [] { return Platform.MainWindow->HistoryText().empty(); }},
            {"mnuUtilItem_6", [] { return frmMain::Instance().findChild<QWidget*>("txtMain")->isHidden(); }},
            {"mnuUtilItem_7",
             [this] { return Host.TheClipboard.Text.find("File initialized.") != std::string::npos; }},
            {"mnuHelpItem_0", [this] { return Host.Help.Calls.back().starts_with("contents "); }},
            {"mnuHelpItem_1", [this] { return Host.Help.Calls.back().starts_with("index "); }},
            {"mnuHelpItem_2", box_says("Help file (TARVOKOL.PDF)")},
            {"mnuHelpItem_10", box_says("Version: 1.3.02")},
            {"Toolbar1_1", file_dialogs(1)},
            {"Toolbar1_2", file_dialogs(1)},
            {"Toolbar1_3", printed}};
    }
};

TEST_F(EveryEntry, WithoutAFormDoesItsWork) {
    for (const auto& [item, is_done] : Works()) {
        frmMain& form = Start();
        EnterProject();
        ProjectTitle = "North ridge";
        ProjectSaved = 255;
        DialogCancelled = false;
        Host.Dialogs.FileRequests.clear();
        Host.Help.Calls = {""};
        Host.Messages.Shown.clear();
        Printer.Calls.clear();
        EXPECT_FALSE(is_done()) << item;
        EXPECT_TRUE(Choose(form, item)) << item;
        EXPECT_TRUE(is_done()) << item;
        UnloadAllForms();
        RunEvents();
    }
    EXPECT_TRUE(UnhandledErrors().empty());
}

TEST_F(EveryEntry, IsEitherAFormOrAWork) {
    std::set<std::string> proven;
    for (const Route& route : kModalRoutes) proven.insert(route.item);
    for (const Route& route : kModelessRoutes) proven.insert(route.item);
    for (const auto& [item, is_done] : Works()) proven.insert(item);

    static const QRegularExpression command("^(mnu\\w+Item|Toolbar1)_\\d+$");
    std::set<std::string> present;
    for (const QAction* action : Start().findChildren<QAction*>(command))
        if (!action->isSeparator() && action->menu() == nullptr) present.insert(FromQt(action->objectName()));
    EXPECT_EQ(present, proven);
}

class Calculation : public MainWindowTest {};

// Results are no part of the project.
TEST_F(Calculation, MarksNothing) {
    frmMain& form = Start();
    EnterProject();
    for (const uint8_t saved : {255, 0}) {
        ProjectSaved = saved;
        UnitsLocked = saved;
        ASSERT_TRUE(Choose(form, "mnuCalcItem_0"));
        ASSERT_NE(FindForm("frmResTxtPlt"), nullptr);
        EXPECT_TRUE(FindForm("frmResTxtPlt")->Unload());
        EXPECT_EQ(ProjectSaved, saved);
        EXPECT_EQ(ProjectEmpty, 0);
        EXPECT_EQ(UnitsLocked, saved);
        EXPECT_EQ(form.windowTitle(), "TARVO-KOL");
    }
    EXPECT_TRUE(Messages().empty());
    ProjectSaved = 255;
}

class StartForms : public MainWindowTest {};

TEST_F(StartForms, TheDisclaimerComesWhileTheWindowLoads) {
    ShowDisclaim = 1;
    WhenShown("frmDisclaimer", [](FormBase& opened) {
        EXPECT_FALSE(frmMain::Instance().isVisible());
        opened.Unload();
    });
    frmMain::Instance();
    EXPECT_EQ(FindForm("frmDisclaimer"), nullptr);
}

TEST_F(StartForms, TheReminderComesWhileTheWindowLoadsAYearAfterTheRelease) {
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
