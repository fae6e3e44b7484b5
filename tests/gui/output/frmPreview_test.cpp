// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmPreview.h"

#include <QFontInfo>
#include <QPlainTextEdit>
#include <QPushButton>

#include "core/messages/history_log.h"
#include "core/platform/message_box.h"
#include "core/program/start_up.h"
#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/update_reminder.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/recording_printer.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

// A printer whose user gives a job up while it runs.
class AbortingPrinter : public RecordingPrinter {
  public:
    void Print(const std::string& text) override {
        if (Aborts > 0) {
            --Aborts;
            Raise(error_number::Cancelled);
        }
        RecordingPrinter::Print(text);
    }

    int Aborts = 0;
};

class PrintPreview : public GuiTest {
  protected:
    PrintPreview() {
        ResetProgram();
        RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
        HistorySequence = 0;
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
        OutputBuffers[0] = "first\r\n\r\n  third\r\n";
        OutputBuffers[1] = "factors\r\n";
        OutputBuffers[2] = "pillars\r\n";
        Platform.Printer = &Printer;
        Host.TheClock.Date = CalendarDate{2026, 3, 7};
        Host.TheClock.Time = "10:11:12 AM";
    }
    ~PrintPreview() override {
        UnloadAllForms();
        Platform.Printer = nullptr;
    }

    static frmPreview& Open() {
        ShowAndActivate(frmPreview::Instance());
        return frmPreview::Instance();
    }

    const std::string& History() const { return Host.MainWindow.History; }

    AbortingPrinter Printer;
};

TEST_F(PrintPreview, HasItsCaptions) {
    frmPreview& form = Open();
    EXPECT_EQ(form.windowTitle(), "Print Preview");
    EXPECT_EQ(TextOf(form, "Command1"), "OK");
    EXPECT_EQ(TextOf(form, "Command2"), "&Copy to Clipboard");
    EXPECT_EQ(TextOf(form, "Command3"), "&Print");
    EXPECT_EQ(TextOf(form, "Command8"), "Help");
}

TEST_F(PrintPreview, ShowsTheInputsAndLogsIt) {
    frmPreview& form = Open();
    EXPECT_EQ(TextOf(form, "RichTextBox1"), "first\n\n  third\n");
    EXPECT_EQ(History(), "1. Preview displayed\r\n");
}

TEST_F(PrintPreview, ThePageIsForReadingInFixedPitch) {
    OutputBuffers[0] = FromQt(QString(70, 'W'));
    frmPreview& form = Open();
    auto& box = Find<QPlainTextEdit>(form, "RichTextBox1");
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(box.font().family(), "Courier New");
    EXPECT_TRUE(QFontInfo(box.font()).fixedPitch());
    EXPECT_EQ(box.lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_GE(box.viewport()->width(), QFontMetrics(box.font()).horizontalAdvance(QString(70, 'W')));
    QTest::keyClicks(&box, "typed");
    EXPECT_EQ(box.toPlainText(), QString(70, 'W'));
}

TEST_F(PrintPreview, IsModalAndOkClosesIt) {
    WhenShown("frmPreview", [&](FormBase& form) { Click(form, "Command1"); });
    frmPreview::Instance().ShowModal();
    EXPECT_FALSE(frmPreview::IsLoaded());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        WhenShown("frmPreview", [&](FormBase& form) { Press(form, key); });
        frmPreview::Instance().ShowModal();
        EXPECT_FALSE(frmPreview::IsLoaded()) << key;
    }
    EXPECT_THAT(Printer.Calls, IsEmpty());
}

TEST_F(PrintPreview, CopiesThePage) {
    frmPreview& form = Open();
    Host.TheClipboard.Text = "before";
    Click(form, "Command2");
    EXPECT_EQ(Host.TheClipboard.Text, "first\r\n\r\n  third\r\n");
    EXPECT_EQ(History(), "1. Preview displayed\r\n2. Output copied to clipboard\r\n");
}

TEST_F(PrintPreview, PrintsTheTextShownWithoutADialogAndWithoutALogLine) {
    frmPreview& form = Open();
    Click(form, "Command3");
    EXPECT_THAT(Host.Dialogs.PrinterFlags, IsEmpty());
    const auto texts = Printer.TextsOfPage(1);
    ASSERT_EQ(texts.size(), 5u);
    EXPECT_THAT(texts[0], EndsWith(", 3/7/2026, 10:11:12 AM"));
    EXPECT_EQ(texts[1], "Page: 1");
    EXPECT_EQ(texts[2], "first");
    EXPECT_EQ(texts[3], "");
    EXPECT_EQ(texts[4], "  third");
    EXPECT_EQ(Printer.Calls.back(), "end");
    EXPECT_EQ(History(), "1. Preview displayed\r\n");
}

TEST_F(PrintPreview, EveryCharacterOfThePageReachesThePrinter) {
    OutputBuffers[0] =
        "H\xC3\xB6he\xC2\xA0"
        "5\tm\xE2\x82\xAC  \r\n";
    frmPreview& form = Open();
    Click(form, "Command3");
    EXPECT_EQ(Printer.TextsOfPage(1).back(),
              "H\xC3\xB6he\xC2\xA0"
              "5\tm\xE2\x82\xAC  ");
}

TEST_F(PrintPreview, ATextWithoutALastLineEndLosesItsLastLineInPrint) {
    OutputBuffers[0] = "kept\r\nlost";
    frmPreview& form = Open();
    Click(form, "Command3");
    EXPECT_EQ(Printer.TextsOfPage(1).back(), "kept");
}

TEST_F(PrintPreview, AnEmptyPagePrintsItsHeader) {
    OutputBuffers[0] = "";
    frmPreview& form = Open();
    Click(form, "Command3");
    EXPECT_EQ(Printer.TextsOfPage(1).size(), 2u);
    EXPECT_EQ(Printer.Calls.back(), "end");
}

TEST_F(PrintPreview, AnAbortIsNoticedAtTheNextPrintOnly) {
    frmPreview& form = Open();
    Printer.Aborts = 1;
    Click(form, "Command3");
    // The header was given up; block and end follow.
    EXPECT_THAT(Printer.TextsOfPage(1), ElementsAre("first", "", "  third"));
    EXPECT_EQ(Printer.Calls.back(), "end");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(History(), "1. Preview displayed\r\n2. Cancel was selected\r\n");
    Printer.Calls.clear();
    Click(form, "Command3");
    Click(form, "Command3");
    EXPECT_THAT(Printer.Calls, IsEmpty());
    EXPECT_THAT(History(), EndsWith("\r\n3. Printing aborted\r\n4. Printing aborted\r\n"));
}

TEST_F(PrintPreview, AnErrorBehindAnAbortClearsIt) {
    frmPreview& form = Open();
    Printer.Aborts = 1;
    Printer.FailingPrints = 1;
    Host.Messages.Answers = {box_result::Retry};
    Click(form, "Command3");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Printer error (482)"));
    Printer.Lines.clear();
    Click(form, "Command3");
    EXPECT_EQ(Printer.TextsOfPage(1).size(), 5u);
}

TEST_F(PrintPreview, ANewPreviewForgetsTheAbort) {
    Printer.Aborts = 1;
    Click(Open(), "Command3");
    frmPreview::Instance().Unload();
    RunEvents();
    Printer.Lines.clear();
    Click(Open(), "Command3");
    EXPECT_EQ(Printer.TextsOfPage(1).size(), 5u);
}

TEST_F(PrintPreview, APrinterErrorOffersRetryAndCancel) {
    frmPreview& form = Open();
    Printer.FailingPrints = 2;
    Host.Messages.Answers = {box_result::Retry, box_result::Cancel};
    Click(form, "Command3");
    EXPECT_THAT(Messages(),
                ElementsAre("Error occurred: Printer error (482)", "Error occurred: Printer error (482)"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 5);
    EXPECT_THAT(Printer.TextsOfPage(1), ElementsAre("first", "", "  third"));
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(PrintPreview, APrinterWithoutTheFontsStopsThePrint) {
    Printer.Fonts = {"Helvetica"};
    frmPreview& form = Open();
    Click(form, "Command3");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Subscript out of range (9). Procedure Terminated"));
    EXPECT_THAT(Printer.Lines, IsEmpty());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(PrintPreview, HelpShowsTheHint) {
    Click(Open(), "Command8");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
}

TEST_F(PrintPreview, TheFileMenuOpensItOnTheProjectsInputs) {
    MainWindowBinding binding;
    Platform.MainWindow = &binding;
    AppFolder = TempDataFolder = Folder.string() + "/";
    DescTempPath = PathTo("~tmpdesc.tmp");
    ShowDisclaim = RemindAnnualUpdates = 0;
    ProjectTitle = "North pit";
    ProjectEmpty = 0;
    ShowAndActivate(frmMain::Instance());
    std::string shown;
    WhenShown("frmPreview", [&](FormBase& form) {
        shown = TextOf(form, "RichTextBox1");
        Click(form, "Command1");
    });
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuFileItem_7"));
    EXPECT_THAT(shown, testing::HasSubstr("[PROJECT TITLE]\nNorth pit\n"));
    EXPECT_FALSE(frmPreview::IsLoaded());
    EXPECT_TRUE(frmMain::Instance().isEnabled());
    UnloadAllForms();
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    Platform.MainWindow = &Host.MainWindow;
}

}  // namespace
}  // namespace tarvokol
