// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmResTxtPlt.h"

#include <QFontInfo>
#include <QPlainTextEdit>
#include <QPushButton>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/history_log.h"
#include "core/platform/message_box.h"
#include "core/program/start_up.h"
#include "core/project/preview_record.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/update_reminder.h"
#include "desktop/base/results_caller.h"
#include "desktop/input/frmTARVOParm.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "desktop/plan/frmPicture.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/recording_printer.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The forms that the viewer meets: the main window and the parameters dialog.
class MainWindow : public SingleForm<MainWindow> {
  public:
    MainWindow() { setObjectName("frmMain"); }
};
class ParametersDialog : public SingleForm<ParametersDialog> {
  public:
    ParametersDialog() { setObjectName("frmTARVOParm"); }
};

class ResultsViewer : public GuiTest {
  protected:
    ResultsViewer() {
        ResetProgram();
        RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
        HistorySequence = 0;
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
        OutputBuffers[0] = "inputs 1\r\ninputs 2\r\n";
        OutputBuffers[1] = "factors 1\r\n\r\nfactors 3\r\n";
        OutputBuffers[2] = "pillars\r\n";
        Platform.Printer = &Printer;
        Host.TheClock.Date = CalendarDate{2026, 3, 7};
        Host.TheClock.Time = "10:11:12 AM";
        ResultsCaller = nullptr;
    }
    ~ResultsViewer() override {
        UnloadAllForms();
        Platform.Printer = nullptr;
        ResultsReturn = results_return::Normal;
    }

    static frmResTxtPlt& Open() {
        ShowAndActivate(MainWindow::Instance());
        ResultsCaller = &MainWindow::Instance();
        MainWindow::Instance().setEnabled(false);
        frmResTxtPlt& form = frmResTxtPlt::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Enabled(QWidget& form, const std::string& name) {
        return Find<QWidget>(form, name).isEnabled();
    }
    static std::string Page(QWidget& form) { return TextOf(form, "RichTextBox1"); }
    const std::string& History() const { return Host.MainWindow.History; }

    RecordingPrinter Printer;
};

TEST_F(ResultsViewer, HasItsCaptionsAndKeys) {
    frmResTxtPlt& form = Open();
    EXPECT_EQ(form.windowTitle(), "Calculation Results");
    EXPECT_EQ(TextOf(form, "cmdPrevPage"), "P&revious page");
    EXPECT_EQ(TextOf(form, "cmdNextPage"), "&Next page");
    EXPECT_EQ(TextOf(form, "cmdPrintPage"), "&Print page");
    EXPECT_EQ(TextOf(form, "cmdPrintAll"), "Print &all");
    EXPECT_EQ(TextOf(form, "cmdCopyPage"), "&Copy page");
    EXPECT_EQ(TextOf(form, "cmdCopyAll"), "Cop&y all");
    EXPECT_EQ(TextOf(form, "cmdViewPlots"), "&View plots");
    EXPECT_EQ(TextOf(form, "cmdHelpResults"), "Help on results");
    EXPECT_EQ(TextOf(form, "cmdHelp"), "Help");
    EXPECT_EQ(TextOf(form, "cmdClose"), "Close");
    EXPECT_EQ(Find<QPushButton>(form, "cmdPrintPage").shortcut(), QKeySequence("Alt+P"));
}

TEST_F(ResultsViewer, OpensOnTheStabilityFactors) {
    frmResTxtPlt& form = Open();
    EXPECT_EQ(Page(form), "factors 1\n\nfactors 3\n");
    EXPECT_TRUE(Enabled(form, "cmdPrevPage"));
    EXPECT_TRUE(Enabled(form, "cmdNextPage"));
    EXPECT_EQ(form.focusWidget()->objectName(), "cmdNextPage");
    EXPECT_EQ(History(), "1. Results displayed\r\n");
    EXPECT_EQ(ResultsReturn, 2);
}

TEST_F(ResultsViewer, LoadDisablesTheMainWindow) {
    MainWindow::Instance();
    frmResTxtPlt::Instance();
    EXPECT_FALSE(MainWindow::Instance().isEnabled());
}

TEST_F(ResultsViewer, IsNotLoggedWithTheHistoryOff) {
    DisplayHistoryWin = 0;
    Open();
    EXPECT_EQ(History(), "");
}

TEST_F(ResultsViewer, LeafsForwardToTheLastPage) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdNextPage");
    EXPECT_EQ(Page(form), "pillars\n");
    EXPECT_TRUE(Enabled(form, "cmdPrevPage"));
    EXPECT_FALSE(Enabled(form, "cmdNextPage"));
    Click(form, "cmdPrevPage");
    EXPECT_EQ(Page(form), "factors 1\n\nfactors 3\n");
    EXPECT_TRUE(Enabled(form, "cmdNextPage"));
}

TEST_F(ResultsViewer, LeafsBackToTheInputs) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrevPage");
    EXPECT_EQ(Page(form), "inputs 1\ninputs 2\n");
    EXPECT_FALSE(Enabled(form, "cmdPrevPage"));
    EXPECT_TRUE(Enabled(form, "cmdNextPage"));
    Click(form, "cmdNextPage");
    Click(form, "cmdNextPage");
    EXPECT_EQ(Page(form), "pillars\n");
}

TEST_F(ResultsViewer, EnterLeafsOnAndMnemonicsWork) {
    frmResTxtPlt& form = Open();
    Press(form, Qt::Key_Return);
    EXPECT_EQ(Page(form), "pillars\n");
    QTest::keyClick(&form, Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(WaitUntil([&] { return Page(form) == "factors 1\n\nfactors 3\n"; }));
}

TEST_F(ResultsViewer, AtEitherEndTheFocusGoesToTheOtherDirection) {
    frmResTxtPlt& form = Open();
    Press(form, Qt::Key_Return);
    EXPECT_EQ(form.focusWidget()->objectName(), "cmdPrevPage");
    Press(form, Qt::Key_Return);
    Press(form, Qt::Key_Return);
    EXPECT_EQ(Page(form), "inputs 1\ninputs 2\n");
    EXPECT_EQ(form.focusWidget()->objectName(), "cmdNextPage");
}

TEST_F(ResultsViewer, ThePageIsForReadingInFixedPitchWithoutWrapping) {
    const QString line(200, 'x');
    OutputBuffers[1] = FromQt(line);
    frmResTxtPlt& form = Open();
    auto& box = Find<QPlainTextEdit>(form, "RichTextBox1");
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(box.font().family(), "Courier New");
    EXPECT_TRUE(QFontInfo(box.font()).fixedPitch());
    EXPECT_EQ(QFontMetrics(box.font()).horizontalAdvance("iiii"),
              QFontMetrics(box.font()).horizontalAdvance("WWWW"));
    EXPECT_EQ(box.lineWrapMode(), QPlainTextEdit::NoWrap);
    QTest::keyClicks(&box, "typed");
    EXPECT_EQ(box.toPlainText(), line);
}

TEST_F(ResultsViewer, SeventyColumnsShowWithoutScrolling) {
    OutputBuffers[1] = FromQt(QString(70, 'W'));
    frmResTxtPlt& form = Open();
    auto& box = Find<QPlainTextEdit>(form, "RichTextBox1");
    const int text = QFontMetrics(box.font()).horizontalAdvance(QString(70, 'W'));
    EXPECT_GE(box.viewport()->width(), text);
    form.resize(form.minimumSizeHint());
    RunEvents();
    EXPECT_GE(box.viewport()->width(), text);
}

TEST_F(ResultsViewer, HalfAPageShowsInTheSmallestWindow) {
    frmResTxtPlt& form = Open();
    auto& box = Find<QPlainTextEdit>(form, "RichTextBox1");
    const int line = QFontMetrics(box.font()).lineSpacing();
    EXPECT_GE(box.minimumHeight(), 14 * line + 2 * box.frameWidth());
    EXPECT_LT(box.minimumHeight(), 15 * line + 2 * box.frameWidth() + 8);
}

TEST_F(ResultsViewer, PrintsThePageShown) {
    Host.Dialogs.PrinterAnswers = {true};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintPage");
    EXPECT_THAT(Host.Dialogs.PrinterFlags, ElementsAre(264));
    ASSERT_EQ(Printer.TextsOfPage(1).size(), 5u);
    EXPECT_EQ(Printer.TextsOfPage(1)[1], "Page: 1");
    EXPECT_EQ(Printer.TextsOfPage(1)[2], "factors 1");
    EXPECT_EQ(Printer.TextsOfPage(1)[3], "");
    EXPECT_EQ(Printer.TextsOfPage(1)[4], "factors 3");
    EXPECT_EQ(Printer.Calls.back(), "end");
    EXPECT_EQ(History(), "1. Results displayed\r\n2. Current page printed\r\n");
    EXPECT_EQ(Page(form), "factors 1\n\nfactors 3\n");
}

TEST_F(ResultsViewer, PrintsAllPagesAsOneJobWithContinuousNumbers) {
    // 64 lines of 200 twips stand on a page: from 1152 on until the pen lies below 15840 - 1872.
    OutputBuffers[0] = "";
    for (int line = 0; line < 65; ++line) OutputBuffers[0] += "in\r\n";
    Host.Dialogs.PrinterAnswers = {true};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintAll");
    EXPECT_EQ(std::count(Printer.Calls.begin(), Printer.Calls.end(), "end"), 1);
    EXPECT_EQ(std::count(Printer.Calls.begin(), Printer.Calls.end(), "new page"), 1);
    EXPECT_EQ(Printer.TextsOfPage(1).size(), 2u + 65u);
    const auto second = Printer.TextsOfPage(2);
    ASSERT_EQ(second.size(), 6u);
    EXPECT_EQ(second[1], "Page: 2");
    EXPECT_EQ(second[2], "factors 1");
    EXPECT_EQ(second[5], "pillars");
    EXPECT_EQ(History(), "1. Results displayed\r\n2. All pages printed\r\n");
}

// The page may have been scrolled, or its project calculated anew.
TEST_F(ResultsViewer, PrintingShowsThePageAsItIsNow) {
    Host.Dialogs.PrinterAnswers = {true, true};
    frmResTxtPlt& form = Open();
    OutputBuffers[1] = "second\r\n";
    Click(form, "cmdPrintPage");
    EXPECT_EQ(Page(form), "second\n");
    OutputBuffers[1] = "third\r\n";
    Click(form, "cmdPrintAll");
    EXPECT_EQ(Page(form), "third\n");
}

TEST_F(ResultsViewer, PagesAreJoinedWithNothingBetween) {
    OutputBuffers[0] = "a\r\nb";
    OutputBuffers[1] = "c\r\n";
    OutputBuffers[2] = "lost";
    Host.Dialogs.PrinterAnswers = {true};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintAll");
    const auto texts = Printer.TextsOfPage(1);
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[2], "a");
    EXPECT_EQ(texts[3], "bc");
}

TEST_F(ResultsViewer, ACancelledPrinterDialogPrintsNothing) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintPage");
    EXPECT_THAT(Printer.Calls, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
    // The shared error service tells a cancel in the log.
    EXPECT_EQ(History(),
              "1. Results displayed\r\n2. Current page printed\r\n3. Cancel was selected\r\n4. Printing "
              "aborted\r\n");
    Click(form, "cmdPrintAll");
    EXPECT_THAT(Printer.Calls, IsEmpty());
    EXPECT_THAT(History(), HasSubstr("5. All pages printed\r\n6. Cancel was selected\r\n"
                                     "7. Printing aborted\r\n"));
}

TEST_F(ResultsViewer, ACancelIsForgottenAtTheNextPrint) {
    Host.Dialogs.PrinterAnswers = {false, true};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintPage");
    EXPECT_THAT(Printer.Calls, IsEmpty());
    Click(form, "cmdPrintPage");
    EXPECT_EQ(Printer.Calls.back(), "end");
}

TEST_F(ResultsViewer, APrinterErrorOffersRetryAndCancel) {
    Host.Dialogs.PrinterAnswers = {true, true};
    Printer.FailingPrints = 1;
    Host.Messages.Answers = {box_result::Retry};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintPage");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message, "Error occurred: Printer error (482)");
    EXPECT_EQ(Host.Messages.Shown[0].style, 5);
    EXPECT_EQ(Printer.TextsOfPage(1).back(), "factors 3");
    Printer.Lines.clear();
    Printer.FailingPrints = 1;
    Host.Messages.Answers = {box_result::Cancel};
    Click(form, "cmdPrintPage");
    // The job's begin is given up, its block and its end follow.
    EXPECT_THAT(Printer.TextsOfPage(1), ElementsAre("factors 1", "", "factors 3"));
    EXPECT_EQ(Printer.Calls.back(), "end");
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(ResultsViewer, APrinterWithoutTheFontsEndsThePrintButNotTheForm) {
    Host.Dialogs.PrinterAnswers = {true};
    Printer.Fonts = {"Helvetica"};
    frmResTxtPlt& form = Open();
    Click(form, "cmdPrintPage");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Subscript out of range (9). Procedure Terminated"));
    EXPECT_THAT(Printer.Lines, IsEmpty());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Page(form), "factors 1\n\nfactors 3\n");
}

TEST_F(ResultsViewer, CopiesThePageShown) {
    frmResTxtPlt& form = Open();
    Host.TheClipboard.Text = "before";
    Click(form, "cmdCopyPage");
    EXPECT_EQ(Host.TheClipboard.Text, "factors 1\r\n\r\nfactors 3\r\n");
    EXPECT_EQ(History(), "1. Results displayed\r\n2. Output page # 1copied to clipboard\r\n");
    Click(form, "cmdPrevPage");
    Click(form, "cmdCopyPage");
    EXPECT_EQ(Host.TheClipboard.Text, "inputs 1\r\ninputs 2\r\n");
    EXPECT_THAT(History(), testing::EndsWith("3. Output page # 0copied to clipboard\r\n"));
}

TEST_F(ResultsViewer, CopiesAllPages) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdCopyAll");
    EXPECT_EQ(Host.TheClipboard.Text, "inputs 1\r\ninputs 2\r\nfactors 1\r\n\r\nfactors 3\r\npillars\r\n");
    EXPECT_EQ(History(), "1. Results displayed\r\n2. Output copied to clipboard\r\n");
}

TEST_F(ResultsViewer, HelpOnResultsOpensItsTopic) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdHelpResults");
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM Table1StabilityFactors.htm"));
}

TEST_F(ResultsViewer, HelpShowsTheHint) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdHelp");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
}

TEST_F(ResultsViewer, CloseGivesTheCallerBack) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdClose");
    EXPECT_FALSE(frmResTxtPlt::IsLoaded());
    EXPECT_TRUE(MainWindow::Instance().isEnabled());
    EXPECT_TRUE(WaitUntil([] { return MainWindow::Instance().isActiveWindow(); }));
    EXPECT_EQ(ResultsReturn, 2);
    EXPECT_EQ(History(), "1. Results displayed\r\n");
}

TEST_F(ResultsViewer, EscapeAndTheCloseBoxClose) {
    frmResTxtPlt& form = Open();
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(frmResTxtPlt::IsLoaded());
    EXPECT_TRUE(MainWindow::Instance().isEnabled());
    RunEvents();
    Open().close();
    EXPECT_FALSE(frmResTxtPlt::IsLoaded());
    EXPECT_TRUE(MainWindow::Instance().isEnabled());
}

TEST_F(ResultsViewer, OpenedFromTheParametersDialogItGivesThatBackOnly) {
    MainWindow::Instance().setEnabled(false);
    ShowAndActivate(ParametersDialog::Instance());
    ResultsCaller = &ParametersDialog::Instance();
    ParametersDialog::Instance().setEnabled(false);
    frmResTxtPlt& form = frmResTxtPlt::Instance();
    ShowAndActivate(form);
    Click(form, "cmdClose");
    EXPECT_TRUE(ParametersDialog::Instance().isEnabled());
    EXPECT_FALSE(MainWindow::Instance().isEnabled());
}

TEST_F(ResultsViewer, ASecondOpeningStartsOnTheStabilityFactorsAgain) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdNextPage");
    Click(form, "cmdClose");
    RunEvents();
    OutputBuffers[1] = "new factors\r\n";
    frmResTxtPlt& again = Open();
    EXPECT_EQ(Page(again), "new factors\n");
    EXPECT_TRUE(Enabled(again, "cmdNextPage"));
}

class PlotsOfResults : public ResultsViewer {
  protected:
    PlotsOfResults() {
        ProjectRecord.Height = 6;
        ProjectRecord.DepthCover = 150;
        ProjectRecord.HoleWidth = 10;
        ProjectRecord.CrosscutSpacing = 1000000;
        ProjectRecord.CrosscutAngle = 90;
        ProjectRecord.WebThickness = 8;
        ProjectRecord.BarrierPillarWidth = 20;
        ProjectRecord.NumberHoles = 3;
        ProjectRecord.CoalStrength = 900;
        ProjectRecord.UnitWeight = 162;
        ProjectRecord.AbutmentAngle = 21;
        ProjectRecord.SFWeb = 1.6f;
        ProjectRecord.SFBarrier = 2.0f;
    }
};

TEST_F(PlotsOfResults, ThePlotWindowOpensOverTheDisabledViewer) {
    frmResTxtPlt& form = Open();
    Click(form, "cmdViewPlots");
    ASSERT_TRUE(frmPicture::IsLoaded());
    EXPECT_TRUE(WaitUntil([] { return frmPicture::Instance().isActiveWindow(); }));
    EXPECT_FALSE(form.isEnabled());
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(PlotFromResults);
    EXPECT_TRUE(Find<QAction>(frmPicture::Instance(), "mnuPlotSetItem_1").isEnabled());
    frmPicture::Instance().Unload();
    EXPECT_TRUE(form.isEnabled());
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    EXPECT_EQ(form.focusWidget()->objectName(), "cmdNextPage");
    EXPECT_FALSE(MainWindow::Instance().isEnabled());
}

TEST_F(PlotsOfResults, ThePlanIsThatOfTheProject) {
    PreviewRecord.Height = 1;
    PreviewRecord.CenterDistance[4] = 77;
    frmResTxtPlt& form = Open();
    Click(form, "cmdViewPlots");
    EXPECT_EQ(PreviewRecord.Height, 6);
    EXPECT_EQ(PreviewRecord.DepthCover, 150);
    EXPECT_EQ(PreviewRecord.HoleWidth, 10);
    EXPECT_EQ(PreviewRecord.CrosscutSpacing, 1000000);
    EXPECT_EQ(PreviewRecord.CrosscutAngle, 90);
    EXPECT_EQ(PreviewRecord.WebThickness, 8);
    EXPECT_EQ(PreviewRecord.BarrierPillarWidth, 20);
    EXPECT_EQ(PreviewRecord.NumberHoles, 3);
    EXPECT_EQ(PreviewRecord.CenterDistance[1], 30);
    EXPECT_EQ(PreviewRecord.CenterDistance[2], 18);
    EXPECT_EQ(PreviewRecord.CenterDistance[3], 18);
    EXPECT_EQ(PreviewRecord.CenterDistance[4], 77);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutSpacing[3], 1000000.0f);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutAngle, 90.0f);
    EXPECT_EQ(PreviewRecord.CoalStrength, 900);
    EXPECT_EQ(PreviewRecord.UnitWeight, 162);
    EXPECT_EQ(PreviewRecord.AbutmentAngle, 21);
    EXPECT_EQ(PreviewRecord.SFWeb, 1.6f);
    EXPECT_EQ(PreviewRecord.SFBarrier, 2.0f);
}

// The real main window and the real parameters dialog.
class RoadOfACalculation : public PlotsOfResults {
  protected:
    RoadOfACalculation() {
        FillNames();
        AppFolder = TempDataFolder = Folder.string() + "/";
        DescTempPath = PathTo("~tmpdesc.tmp");
        ShowDisclaim = RemindAnnualUpdates = 0;
        ProjectFileName = "Untitled";
        ProjectEmpty = 0;
        Platform.MainWindow = &binding_;
        ShowAndActivate(frmMain::Instance());
    }
    ~RoadOfACalculation() override {
        UnloadAllForms();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        Platform.MainWindow = &Host.MainWindow;
    }

    static void FillNames() {
        StabilityCaseNames[1] = "Overall";
        StabilityCaseNames[2] = "Webs ONLY";
        StabilityCaseNames[3] = "Barrier Pillar";
    }

    static frmResTxtPlt& Viewer() {
        EXPECT_TRUE(frmResTxtPlt::IsLoaded());
        EXPECT_TRUE(WaitUntil([] { return frmResTxtPlt::Instance().isActiveWindow(); }));
        return frmResTxtPlt::Instance();
    }

  private:
    MainWindowBinding binding_;
};

TEST_F(RoadOfACalculation, TheOutputCommandShowsAllPagesAndLeadsBack) {
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuCalcItem_0"));
    frmResTxtPlt& form = Viewer();
    EXPECT_FALSE(frmMain::Instance().isEnabled());
    EXPECT_THAT(Page(form), HasSubstr("[TARVO-KOL STABILITY FACTORS]"));
    Click(form, "cmdPrevPage");
    EXPECT_THAT(Page(form), HasSubstr("[PROJECT TITLE]"));
    Click(form, "cmdViewPlots");
    EXPECT_TRUE(WaitUntil([] { return frmPicture::Instance().isActiveWindow(); }));
    frmPicture::Instance().Unload();
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    Click(form, "cmdClose");
    EXPECT_TRUE(WaitUntil([] { return frmMain::Instance().isActiveWindow(); }));
    EXPECT_TRUE(frmMain::Instance().isEnabled());
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(RoadOfACalculation, ATrialRunLeadsBackToTheDialogAndTheProjectIsAsBefore) {
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuEditItem_1"));
    frmTARVOParm& dialog = frmTARVOParm::Instance();
    EXPECT_TRUE(WaitUntil([&] { return dialog.isActiveWindow(); }));
    Type(dialog, "txtHeight", "9");
    Click(dialog, "cmdResults");
    frmResTxtPlt& form = Viewer();
    EXPECT_FALSE(dialog.isEnabled());
    EXPECT_EQ(ProjectRecord.Height, 9);
    Click(form, "cmdViewPlots");
    EXPECT_TRUE(WaitUntil([] { return frmPicture::Instance().isActiveWindow(); }));
    EXPECT_EQ(PreviewRecord.Height, 9);
    frmPicture::Instance().Unload();
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    EXPECT_FALSE(dialog.isEnabled());
    Click(form, "cmdClose");
    EXPECT_TRUE(WaitUntil([&] { return dialog.isActiveWindow(); }));
    EXPECT_TRUE(dialog.isEnabled());
    EXPECT_FALSE(frmMain::Instance().isEnabled());
    EXPECT_EQ(ProjectRecord.Height, 6);
    EXPECT_EQ(ResultsReturn, 1);
    Click(dialog, "cmdCancel");
    EXPECT_TRUE(frmMain::Instance().isEnabled());
    EXPECT_EQ(ProjectRecord.Height, 6);
}

}  // namespace
}  // namespace tarvokol
