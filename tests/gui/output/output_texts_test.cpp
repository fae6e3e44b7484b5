// SPDX-License-Identifier: GPL-3.0-or-later
// All that the forms of the output show, read out and tell, and where the tab key leads.
#include "desktop/output/frmPreview.h"
#include "desktop/output/frmResTxtPlt.h"
#include "desktop/output/frmTextBrow.h"
#include "desktop/output/page_box.h"
#include "tests/support/form_facts.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/window_menus.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class OutputTexts : public MainWindowTest {
  protected:
    OutputTexts() { DataPath = Folder.string() + "/"; }

    template <typename Form>
    static Form& Open() {
        ShowAndActivate(Form::Instance());
        return Form::Instance();
    }
};

TEST_F(OutputTexts, OfThePreview) {
    frmPreview& form = Open<frmPreview>();
    EXPECT_THAT(
        FactsOf(form),
        UnorderedElementsAre("frmPreview 'Print Preview'", "RichTextBox1 read 'Page of the report' locked",
                             "Command1 'OK' default cancel",
                             "Command2 '&Copy to Clipboard' tip 'Copy the page to the clipboard'",
                             "Command3 '&Print' tip 'Print the page on the printer of Printer Setup'",
                             "Command8 'Help'"));
    EXPECT_THAT(TabOrderOf(form),
                ElementsAre("Command1", "Command2", "Command3", "Command8", "RichTextBox1"));
    EXPECT_EQ(form.size(), QSize(640, 560));
}

TEST_F(OutputTexts, OfTheResults) {
    frmResTxtPlt& form = Open<frmResTxtPlt>();
    EXPECT_THAT(FactsOf(form),
                UnorderedElementsAre(
                    "frmResTxtPlt 'Calculation Results'", "RichTextBox1 read 'Page of the report' locked",
                    "cmdPrevPage 'P&revious page' tip 'Go back one page'",
                    "cmdNextPage '&Next page' tip 'Go forward one page' default",
                    "cmdPrintPage '&Print page' tip 'Print the page shown'",
                    "cmdPrintAll 'Print &all' tip 'Print all pages as one job'",
                    "cmdCopyPage '&Copy page' tip 'Copy the page shown to the clipboard'",
                    "cmdCopyAll 'Cop&y all' tip 'Copy all pages to the clipboard'",
                    "cmdViewPlots '&View plots' tip 'Show the plan of the panel with its results'",
                    "cmdHelpResults 'Help on results' tip 'What the stability factors mean'",
                    "cmdHelp 'Help'", "cmdClose 'Close' cancel"));
    EXPECT_THAT(TabOrderOf(form), ElementsAre("cmdNextPage", "cmdPrintPage", "cmdPrintAll", "cmdCopyPage",
                                              "cmdCopyAll", "cmdViewPlots", "cmdHelpResults", "cmdHelp",
                                              "cmdClose", "RichTextBox1", "cmdPrevPage"));
    EXPECT_EQ(form.size(), QSize(720, 560));
}

TEST_F(OutputTexts, OfTheTextBrowser) {
    frmTextBrow& form = Open<frmTextBrow>();
    EXPECT_THAT(
        FactsOf(form),
        UnorderedElementsAre(
            "frmTextBrow 'View Source Files'", "Label2 'Select &Drive:' for Drive1", "Drive1 read 'Drive'",
            "Label3 'Select Fo&lder:' for Dir1", "Dir1 read 'Folder'", "Label4 '&Pattern:' for Text2",
            "Text2 read 'Pattern' tip 'Which files are listed, as *.TKL; several patterns are set apart by "
            "semicolons'",
            "Label5 'Select F&ile:' for File1", "File1 read 'File' tip 'Double click or Enter opens a file'",
            "Label6 'Current file:'", "Label1 told 'Current file'",
            "Label7 '&View of Selected File' for RichTextBox1",
            "RichTextBox1 read 'View of selected file' locked",
            "Check1 'Use external viewer' tip 'Open files in the viewer of the settings'",
            "cmdSetFont 'Set &Font'", "Command1 'OK' default cancel"));
    EXPECT_THAT(TabOrderOf(form), ElementsAre("Command1", "Drive1", "Dir1", "Text2", "File1", "RichTextBox1",
                                              "Check1", "cmdSetFont"));
    EXPECT_EQ(form.size(), QSize(760, 520));
    const auto& page = Find<QPlainTextEdit>(form, "RichTextBox1");
    EXPECT_EQ(page.lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_FALSE(page.isUndoRedoEnabled());
}

// Seventy-two columns of the report and fourteen of its lines, with frame, margin and scroll bar.
TEST_F(OutputTexts, APageBoxHoldsAReportsLines) {
    QPlainTextEdit box;
    MakePageBox(box);
    EXPECT_EQ(box.font().family(), "Courier New");
    EXPECT_EQ(box.font().styleHint(), QFont::Monospace);
    EXPECT_TRUE(box.font().fixedPitch());
    EXPECT_EQ(box.font().pointSizeF(), 9);
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(box.textInteractionFlags(), Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    EXPECT_EQ(box.lineWrapMode(), QPlainTextEdit::NoWrap);
    const QFontMetrics metrics(box.font());
    const int edge = 2 * box.frameWidth() + 2 * static_cast<int>(box.document()->documentMargin());
    const int bar = box.verticalScrollBar()->sizeHint().width();
    EXPECT_EQ(box.minimumWidth(), 72 * metrics.horizontalAdvance('0') + edge + bar);
    EXPECT_EQ(box.minimumHeight(), 14 * metrics.lineSpacing() + edge);
}

// The frame counts on both sides.
TEST_F(OutputTexts, APageBoxGrowsWithItsFrame) {
    int width = 0;
    for (const int frame : {1, 4}) {
        QPlainTextEdit box;
        box.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        box.setLineWidth(frame);
        MakePageBox(box);
        if (frame == 4) {
            EXPECT_EQ(box.minimumWidth() - width, 2 * 3);
        }
        width = box.minimumWidth();
    }
}

TEST_F(OutputTexts, PagesJoinFromTheFirstToTheLast) {
    OutputBuffers[0] = "a";
    OutputBuffers[1] = "b";
    OutputBuffers[2] = "c";
    EXPECT_EQ(JoinPages(0, 2), "abc");
    EXPECT_EQ(JoinPages(1, 1), "b");
    EXPECT_EQ(JoinPages(2, 1), "");
    CopyToClipboard("text");
    EXPECT_EQ(Host.TheClipboard.Text, "text");
}

}  // namespace
}  // namespace tarvokol
