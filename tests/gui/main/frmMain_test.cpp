// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/frmMain.h"

#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSvgWidget>
#include <QToolBar>

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/report/report_builder.h"
#include "core/settings/recent_file_settings.h"
#include "desktop/base/results_caller.h"
#include "tests/support/ink.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class MainWindow : public MainWindowTest {
  protected:
    void ExpectItem(const std::string& name, const char* caption, const char* key, int context) {
        SCOPED_TRACE(name);
        QAction& item = Item(name);
        EXPECT_EQ(item.text(), caption);
        EXPECT_EQ(item.shortcut(), QKeySequence(key));
        EXPECT_EQ(item.property("helpContextID").toInt(), context);
        EXPECT_TRUE(item.isEnabled());
        EXPECT_FALSE(item.isSeparator());
    }
};

TEST_F(MainWindow, HasTheWholeFileMenu) {
    frmMain& form = Start();
    EXPECT_EQ(Find<QMenu>(form, "mnuFile").title(), "&File");
    ExpectItem("mnuFileItem_0", "&New", "Ctrl+N", 1100);
    ExpectItem("mnuFileItem_1", "&Open...", "Ctrl+O", 1200);
    ExpectItem("mnuFileItem_2", "&Save", "Ctrl+S", 1300);
    ExpectItem("mnuFileItem_3", "Save &As...", "", 1400);
    ExpectItem("mnuFileItem_5", "Printer Set&up...", "", 1500);
    ExpectItem("mnuFileItem_6", "&Print", "Ctrl+P", 1550);
    ExpectItem("mnuFileItem_7", "Print Pre&view...", "", 1600);
    ExpectItem("mnuFileItem_9", "&View Source Files...", "Ctrl+B", 1700);
    ExpectItem("mnuFileItem_11", "E&xit", "", 1800);
    for (const char* separator : {"mnuFileItem_4", "mnuFileItem_8", "mnuFileItem_10", "mnuFileArray_0"})
        EXPECT_TRUE(Item(separator).isSeparator()) << separator;
    EXPECT_FALSE(Item("mnuFileArray_0").isVisible());
}

// The icon of the program, which is that of the forms and boxes without one of their own, too: in one size with the
// window, and as a drawing for all sizes once that is painted.
TEST_F(MainWindow, ShowsTheIconOfTheProgram) {
    const auto looks = [](const QIcon& icon, int size) { return icon.pixmap(size, size).toImage(); };
    QApplication::setWindowIcon(QIcon());
    frmMain& form = Start();
    const QIcon drawing(":/artwork/tarvokol.svg");
    EXPECT_EQ(looks(form.windowIcon(), 32), looks(drawing, 32));
    EXPECT_EQ(form.windowIcon().availableSizes(), QList{QSize(32, 32) * form.devicePixelRatioF()});
    form.show();
    ASSERT_TRUE(WaitUntil([&] { return form.windowIcon().availableSizes().isEmpty(); }));
    EXPECT_EQ(looks(QApplication::windowIcon(), 128), looks(drawing, 128));
}

TEST_F(MainWindow, HasTheInputAndOutputMenus) {
    frmMain& form = Start();
    EXPECT_EQ(Find<QMenu>(form, "mnuEdit").title(), "&Input");
    ExpectItem("mnuEditItem_0", "Project &Description...", "", 2000);
    ExpectItem("mnuEditItem_1", "Project &Parameters...", "Ctrl+E", 2000);
    EXPECT_EQ(Find<QMenu>(form, "mnuCalc").title(), "&Output");
    ExpectItem("mnuCalcItem_0", "Stability Factors...", "", 3100);
    EXPECT_EQ(Item("mnuCalcItem_2").text(), "Graph");
    ExpectItem("mnuCalcGrafItem_0", "SF vs Entry Height", "", 0);
    ExpectItem("mnuCalcGrafItem_1", "SF vs Depth of Cover", "", 0);
    ExpectItem("mnuCalcGrafItem_2", "SF vs Hole Width", "", 0);
    EXPECT_EQ(Item("mnuCalcItem_4").text(), "Graph (Sizing)");
    ExpectItem("mnuSizGrafItem_0", "Depth of Cover vs Web Thickness", "", 0);
    ExpectItem("mnuSizGrafItem_1", "Depth of Cover vs Barrier Width", "", 0);
    EXPECT_EQ(Item("mnuCalcItem_2").property("helpContextID").toInt(), 3500);
    for (const char* separator : {"mnuCalcItem_1", "mnuCalcItem_3"})
        EXPECT_TRUE(Item(separator).isSeparator()) << separator;
}

TEST_F(MainWindow, HasTheUtilitiesMenu) {
    frmMain& form = Start();
    EXPECT_EQ(Find<QMenu>(form, "mnuUtil").title(), "&Utilities");
    ExpectItem("mnuUtilItem_0", "&Settings...", "", 4100);
    ExpectItem("mnuUtilItem_1", "&Options...", "", 4200);
    ExpectItem("mnuUtilItem_2", "&Unit Conversion...", "", 4300);
    ExpectItem("mnuUtilItem_3", "&File Conversion...", "", 4400);
    EXPECT_TRUE(Item("mnuUtilItem_4").isSeparator());
    ExpectItem("mnuUtilItem_5", "&Clear History Window", "", 4000);
    ExpectItem("mnuUtilItem_6", "Close History &Window", "", 4000);
    ExpectItem("mnuUtilItem_7", "Co&py History &Window", "", 4000);
}

TEST_F(MainWindow, HasTheHelpMenu) {
    frmMain& form = Start();
    EXPECT_EQ(Find<QMenu>(form, "mnuHelp").title(), "&Help");
    ExpectItem("mnuHelpItem_0", "Help &Contents...", "F1", 5000);
    ExpectItem("mnuHelpItem_1", "Help &Index...", "", 5000);
    ExpectItem("mnuHelpItem_2", "Help in &PDF format...", "", 0);
    ExpectItem("mnuHelpItem_4", "&Resource Files...", "", 0);
    ExpectItem("mnuHelpItem_6", "&Disclaimer...", "", 5000);
    ExpectItem("mnuHelpItem_8", "Program Updates...", "", 5000);
    ExpectItem("mnuHelpItem_10", "&About the Program...", "", 5000);
    for (const char* separator : {"mnuHelpItem_3", "mnuHelpItem_5", "mnuHelpItem_7", "mnuHelpItem_9"})
        EXPECT_TRUE(Item(separator).isSeparator()) << separator;
}

TEST_F(MainWindow, TheToolbarHasFiveButtonsWithToolTips) {
    frmMain& form = Start();
    auto& toolbar = Find<QToolBar>(form, "Toolbar1");
    ASSERT_EQ(toolbar.actions().size(), 5);
    const char* tips[] = {"Open Data File", "Save Data File", "Print Data File", "Edit Description",
                          "Edit Pillar Data"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(toolbar.actions()[i]->toolTip(), tips[i]);
        EXPECT_EQ(toolbar.actions()[i]->text(), tips[i]);
        EXPECT_FALSE(toolbar.actions()[i]->icon().isNull());
        EXPECT_FALSE(toolbar.actions()[i]->icon().pixmap(24, 24).isNull());
    }
}

TEST_F(MainWindow, StartsWithTheFormsOwnCaptionAndLogsTheNewProject) {
    frmMain& form = Start();
    EXPECT_EQ(form.windowTitle(), "TARVO-KOL");
    EXPECT_EQ(TextOf(form, "txtMain"), "1. File initialized. Use Edit-Project Parameters to enter data\n");
    EXPECT_EQ(Platform.MainWindow->HistoryText(),
              "1. File initialized. Use Edit-Project Parameters to enter data\r\n");
    EXPECT_EQ(Platform.MainWindow->HistoryLength(), 64);
}

TEST_F(MainWindow, NewShowsTheCaptionOfAnUntitledProject) {
    frmMain& form = Start();
    Choose(form, "mnuFileItem_0");
    EXPECT_EQ(form.windowTitle(), "TARVO-KOL: Untitled");
}

TEST_F(MainWindow, CtrlPOnANewProjectAsksAndNoPrintsNothing) {
    frmMain& form = Start();
    Host.Messages.Answers = {7};
    Press(form, Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(Messages(), ElementsAre("Current file is empty. Continue?"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 292);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_TRUE(Printer.Calls.empty());
}

TEST_F(MainWindow, PrintingAnEmptyProjectPrintsItsZerosIfWanted) {
    frmMain& form = Start();
    Host.Messages.Answers = {6};
    Choose(form, "mnuFileItem_6");
    ASSERT_FALSE(Printer.Lines.empty());
    EXPECT_EQ(Printer.Calls.back(), "end");
}

TEST_F(MainWindow, AProjectWithDataIsPrintedWithoutAQuestion) {
    frmMain& form = Start();
    EnterProject();
    ProjectTitle = "North ridge";
    Choose(form, "Toolbar1_3");
    EXPECT_TRUE(Messages().empty());
    EXPECT_THAT(Printer.TextsOfPage(1), Contains(HasSubstr("North ridge")));
    EXPECT_EQ(std::count(Printer.Calls.begin(), Printer.Calls.end(), "end"), 1);
}

TEST_F(MainWindow, APrinterErrorOffersRetryAndCancel) {
    frmMain& form = Start();
    EnterProject();
    Printer.FailingPrints = 1;
    Host.Messages.Answers = {4};
    Choose(form, "mnuFileItem_6");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Printer error (482)"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 5);
    EXPECT_FALSE(Printer.Lines.empty());
    EXPECT_EQ(Printer.Calls.back(), "end");
}

TEST_F(MainWindow, ACancelledPrinterSetupIsSilent) {
    frmMain& form = Start();
    Choose(form, "mnuFileItem_5");
    EXPECT_TRUE(Messages().empty());
    EXPECT_TRUE(DialogCancelled);
    Host.Dialogs.PrinterAnswers = {true};
    Choose(form, "mnuFileItem_5");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(MainWindow, StabilityFactorsRefuseAnEmptyProject) {
    frmMain& form = Start();
    for (const char* item : {"mnuCalcItem_0", "mnuCalcItem_2", "mnuCalcItem_4"}) {
        Host.Messages.Shown.clear();
        Item(item).trigger();
        EXPECT_THAT(Messages(), ElementsAre("Current file is empty")) << item;
        EXPECT_EQ(Host.Messages.Shown[0].style, 256);
        EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    }
    EXPECT_TRUE(form.isEnabled());
}

TEST_F(MainWindow, WithDataTheItemsThatOpenSubmenusDoNothing) {
    frmMain& form = Start();
    EnterProject();
    for (const char* item : {"mnuCalcItem_2", "mnuCalcItem_4"}) Item(item).trigger();
    EXPECT_TRUE(Messages().empty());
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(FindForm("frmResTxtPlt"), nullptr);
}

TEST_F(MainWindow, FileConversionIsGatedOnAnEmptyAndOnAnUnsavedProject) {
    frmMain& form = Start();
    Choose(form, "mnuUtilItem_3");
    EXPECT_THAT(Messages(), ElementsAre("Current file is empty"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 256);
    EnterProject();
    ProjectSaved = 0;
    Choose(form, "mnuUtilItem_3");
    ASSERT_EQ(Messages().size(), 2u);
    EXPECT_EQ(Messages()[1], "Save Current File before accessing this option");
    EXPECT_EQ(Host.Messages.Shown[1].style, 0);
}

TEST_F(MainWindow, SettingsDecideOnToolbarAndWindowState) {
    EnableMainMenuToolbar = 0;
    MaxMainMenu = 1;
    frmMain& form = Start();
    EXPECT_FALSE(Find<QToolBar>(form, "Toolbar1").isVisible());
    EXPECT_TRUE(form.windowState() & Qt::WindowMaximized);
    EXPECT_EQ(Find<QLabel>(form, "lblVer").y(), 0);
    EnableMainMenuToolbar = 1;
    MaxMainMenu = 0;
    ApplyMainWindowSettings(form);
    EXPECT_TRUE(Find<QToolBar>(form, "Toolbar1").isVisible());
    EXPECT_FALSE(form.windowState() & Qt::WindowMaximized);
}

TEST_F(MainWindow, ThePictureIsCentredAboveTheHistory) {
    frmMain& form = Start();
    auto& logo = Find<QSvgWidget>(form, "Picture1");
    EXPECT_EQ(logo.size(), QSize(460, 280));
    form.resize(701, 500);
    const QSize client = form.centralWidget()->size();
    const int top_twips = (client.height() * 15 - 280 * 15 - 1000) / 2;
    EXPECT_EQ(logo.pos(), QPoint((client.width() * 15 / 2 - 230 * 15) / 15, top_twips / 15));
    form.resize(330, 210);
    EXPECT_LT(logo.x(), 0);
    EXPECT_LT(logo.y(), 0);
}

TEST_F(MainWindow, TheVersionStandsAtTheTopRight) {
    frmMain& form = Start();
    form.resize(700, 500);
    form.resize(701, 500);
    const auto& label = Find<QLabel>(form, "lblVer");
    EXPECT_EQ(label.text(), "1.3.02 ");
    EXPECT_EQ(label.y(), Find<QToolBar>(form, "Toolbar1").height());
    EXPECT_EQ(label.x() + label.width(), form.centralWidget()->width());
}

TEST_F(MainWindow, TheVersionFollowsAToolbarThatIsSwitched) {
    frmMain& form = Start();
    const auto& label = Find<QLabel>(form, "lblVer");
    const int below = Find<QToolBar>(form, "Toolbar1").height();
    EXPECT_EQ(label.y(), below);
    EnableMainMenuToolbar = 0;
    Platform.MainWindow->ApplySettings();
    EXPECT_EQ(label.y(), 0);
    EnableMainMenuToolbar = 1;
    Platform.MainWindow->ApplySettings();
    EXPECT_EQ(label.y(), below);
}

TEST_F(MainWindow, APictureBelowTheToolbarDoesNotShowThroughIt) {
    frmMain& form = Start();
    form.resize(320, 220);
    RunEvents();
    const QToolBar& toolbar = Find<QToolBar>(form, "Toolbar1");
    ASSERT_TRUE(form.Logo().geometry().intersects(toolbar.geometry()));
    form.Logo().hide();
    const QImage without = PictureOf(form);
    form.Logo().show();
    const QImage with = PictureOf(form);
    const QRect bar(toolbar.mapTo(&form, QPoint(0, 0)), toolbar.size());
    EXPECT_EQ(with.copy(bar), without.copy(bar));
}

TEST_F(MainWindow, RecentFilesStandAtTheFootOfTheFileMenu) {
    MaxLastFiles = 3;
    LastFile[1] = "a&b.TKL";
    LastFileLong[1] = "/p/a&b.TKL";
    LastFile[3] = "c.TKL";
    LastFileLong[3] = "/p/c.TKL";
    frmMain& form = Start();
    EXPECT_EQ(Item("mnuFileArray_1").text(), "/p/a&&b.TKL");
    EXPECT_EQ(Platform.MainWindow->RecentCaption(1), "/p/a&b.TKL");
    EXPECT_TRUE(Item("mnuFileArray_1").isVisible());
    EXPECT_TRUE(Item("mnuFileArray_0").isVisible());
    EXPECT_EQ(form.findChild<QAction*>("mnuFileArray_2"), nullptr);
    EXPECT_EQ(Item("mnuFileArray_3").text(), "/p/c.TKL");
    QStringList names;
    for (QAction* action : Find<QMenu>(form, "mnuFile").actions()) names << action->objectName();
    EXPECT_EQ(names.mid(12), QStringList({"mnuFileArray_0", "mnuFileArray_1", "mnuFileArray_3"}));
    Platform.MainWindow->SetRecentCaption(2, "/p/b.TKL");
    names.clear();
    for (QAction* action : Find<QMenu>(form, "mnuFile").actions()) names << action->objectName();
    EXPECT_EQ(names.mid(13), QStringList({"mnuFileArray_1", "mnuFileArray_2", "mnuFileArray_3"}));
}

TEST_F(MainWindow, ALongRecentPathShowsWhole) {
    Start();
    const std::string path = "/home/engineer/" + std::string(60, 'p') + "/Ridge Panel & Extension.TKL";
    Platform.MainWindow->SetRecentCaption(1, path);
    EXPECT_EQ(Item("mnuFileArray_1").text(),
              QString("/home/engineer/%1/Ridge Panel && Extension.TKL").arg(QString(60, 'p')));
    EXPECT_EQ(Platform.MainWindow->RecentCaption(1), path);
    Platform.MainWindow->SetRecentCaption(1, "");
    EXPECT_FALSE(Item("mnuFileArray_1").isVisible());
}

TEST_F(MainWindow, TheRecentListSwitchedOnInARunHoldsTheOpenedAndTheSavedFiles) {
    KeepFileNames = 0;
    MaxLastFiles = 1;
    LastFile[1] = "old.TKL";
    LastFileLong[1] = "/p/old.TKL";
    frmMain& form = Start();
    const std::string path = WriteProject("one.TKL");
    FileNew(true, true);
    EXPECT_FALSE(Item("mnuFileArray_0").isVisible());
    KeepFileNames = 1;
    Host.Dialogs.FileAnswers = {path};
    Choose(form, "mnuFileItem_1");
    EXPECT_EQ(Platform.MainWindow->RecentCaption(1), path);
    EXPECT_EQ(Item("mnuFileArray_2").text(), "/p/old.TKL");
    EXPECT_TRUE(Item("mnuFileArray_1").isVisible());
    EXPECT_TRUE(Item("mnuFileArray_2").isVisible());
    EXPECT_TRUE(Item("mnuFileArray_0").isVisible());
}

TEST_F(MainWindow, AnOpenedFileEntersTheListAndItsEntryOpensItAgain) {
    frmMain& form = Start();
    const std::string path = WriteProject("one.TKL");
    FileNew(true, true);
    Host.Dialogs.FileAnswers = {path};
    Choose(form, "Toolbar1_1");
    EXPECT_EQ(form.windowTitle(), ToQt("TARVO-KOL: " + path));
    EXPECT_TRUE(Item("mnuFileArray_0").isVisible());
    Choose(form, "mnuFileItem_0");
    EXPECT_EQ(form.windowTitle(), "TARVO-KOL: Untitled");
    Choose(form, "mnuFileArray_1");
    EXPECT_EQ(form.windowTitle(), ToQt("TARVO-KOL: " + path));
    EXPECT_EQ(ProjectRecord.NumberHoles, 10);
}

TEST_F(MainWindow, ARecentFileThatIsGoneIsToldAndStays) {
    frmMain& form = Start();
    const std::string path = WriteProject("gone.TKL");
    Host.Dialogs.FileAnswers = {path};
    Choose(form, "mnuFileItem_1");
    std::filesystem::remove(path);
    Choose(form, "mnuFileArray_1");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: File not found (53)"));
    EXPECT_TRUE(Item("mnuFileArray_1").isVisible());
}

TEST_F(MainWindow, TheHourglassOfAFailedReadStaysUntilTheNextCompletedOne) {
    frmMain& form = Start();
    const std::string path = WriteProject("gone.TKL");
    Host.Dialogs.FileAnswers = {path, PathTo("none.TKL")};
    Choose(form, "mnuFileItem_1");
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    Choose(form, "mnuFileItem_1");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: File not found (53)"));
    EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &activation);
    EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
    Choose(form, "mnuFileArray_1");
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MainWindow, ADroppedFileOpensLikeARecentPick) {
    frmMain& form = Start();
    const std::string path = WriteProject("dropped.TKL");
    ProjectSaved = 255;
    FileNew(true, true);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(ToQt(path))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&form, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&form, &drop);
    RunEvents();
    EXPECT_EQ(form.windowTitle(), ToQt("TARVO-KOL: " + path));
    EXPECT_EQ(PreviousFileName, "Untitled");
}

TEST_F(MainWindow, TwoDroppedFilesAndTextAreRefused) {
    frmMain& form = Start();
    QMimeData two;
    two.setUrls({QUrl::fromLocalFile("/a.TKL"), QUrl::fromLocalFile("/b.TKL")});
    QMimeData text;
    text.setText("x");
    for (QMimeData* data : {&two, &text}) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&form, &enter);
        EXPECT_FALSE(enter.isAccepted());
    }
}

TEST_F(MainWindow, ClosingWithoutChangesWritesTheRecentFilesAndShutsHelpDown) {
    frmMain& form = Start();
    int ended = 0;
    QObject::connect(&form, &frmMain::Ended, [&] { ++ended; });
    Choose(form, "mnuFileItem_11");
    EXPECT_FALSE(frmMain::IsLoaded());
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("uninitialize " + PathTo("TARVOKOL.CHM")));
    EXPECT_THAT(ReadBytes(IniPath), HasSubstr("[FileMenu]"));
    EXPECT_TRUE(Messages().empty());
}

TEST_F(MainWindow, ClosingWithChangesAsksAndCancelKeepsTheWindow) {
    frmMain& form = Start();
    ProjectSaved = 0;
    Host.Messages.Answers = {2};
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(frmMain::IsLoaded());
    EXPECT_THAT(Messages(), ElementsAre("Save changes to: Untitled?"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 35);
    Host.Messages.Answers = {7};
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(frmMain::IsLoaded());
}

TEST_F(MainWindow, YesFollowedByACancelledSaveKeepsTheWindow) {
    frmMain& form = Start();
    ProjectSaved = 0;
    Host.Messages.Answers = {6};
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(frmMain::IsLoaded());
    Host.Messages.Answers = {6};
    Host.Dialogs.FileAnswers = {PathTo("kept.TKL")};
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(std::filesystem::exists(PathTo("kept.TKL")));
}

TEST_F(MainWindow, YesFollowedByAFailedSaveKeepsTheWindow) {
    frmMain& form = Start();
    ProjectSaved = 0;
    Host.Messages.Answers = {6, 1};
    Host.Dialogs.FileAnswers = {PathTo("no such folder/kept.TKL")};
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(frmMain::IsLoaded());
}

TEST_F(MainWindow, LoadMakesTheProgramsFolderTheCurrentOne) {
    Start();
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::canonical(Folder));
    EXPECT_EQ(RunTimeHelpFile, PathTo("TARVOKOL.CHM"));
}

TEST_F(MainWindow, HelpCommandsGoToTheViewer) {
    frmMain& form = Start();
    Press(form, Qt::Key_F1);
    Choose(form, "mnuHelpItem_1");
    EXPECT_THAT(Host.Help.Calls,
                ElementsAre("contents " + PathTo("TARVOKOL.CHM"), "index " + PathTo("TARVOKOL.CHM")));
}

TEST_F(MainWindow, AMissingManualIsTold) {
    frmMain& form = Start();
    Choose(form, "mnuHelpItem_2");
    EXPECT_THAT(Messages(), ElementsAre("Help file (TARVOKOL.PDF) not available"));
}

TEST_F(MainWindow, TheAboutBoxIsNotLogged) {
    frmMain& form = Start();
    const std::string before = TextOf(form, "txtMain");
    Choose(form, "mnuHelpItem_10");
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].style, 64);
    EXPECT_THAT(Messages()[0], HasSubstr("Version: 1.3.02\r\n\n"));
    EXPECT_EQ(TextOf(form, "txtMain"), before);
}

}  // namespace
}  // namespace tarvokol
