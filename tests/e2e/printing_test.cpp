// SPDX-License-Identifier: GPL-3.0-or-later
// Printing without a printer: the file that the user names is the one that is written.
#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string kAsk = "Print to PDF File";

class Printing : public DesktopTest {
  protected:
    std::string Caption() const { return "TARVO-KOL: " + PathTo("panel.TKL"); }

    void StartWithProject() {
        WriteSettings("DisplayHistoryWin=1\r\n", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n");
        WriteBytes(
            PathTo("panel.TKL"),
            "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n"
            "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n");
        Start({PathTo("panel.TKL")});
        ExpectWindow(Caption());
    }

    // Names the file in the printer dialog that is open, where the letter leads to the box for it, until the dialog has gone to
    // `next`: of the keys one may be lost.
    void NameInDialog(const std::string& name, const std::string& next) {
        for (int tries = 1; tries <= 3; ++tries) {
            Press("alt+f ctrl+a");
            Type(name);
            Press("Return");
            if (Eventually([&] { return Front().title == next; }, kPatienceWithAKey)) return;
        }
        ExpectWindow(next);
    }

    // The keys, pressed again while no such file is there.
    void PressToPdf(const std::string& keys, const std::string& name) {
        PressUntil(keys, [&] { return IsPdf(name); });
    }

    bool IsPdf(const std::string& name) const {
        return std::filesystem::exists(PathTo(name)) && ReadBytes(PathTo(name)).substr(0, 5) == "%PDF-";
    }

    void ExpectPdf(const std::string& name) {
        EXPECT_TRUE(Eventually([&] { return IsPdf(name); }))
            << name << " of " << OutputOf("find '" + Folder.string() + "' -name '*.pdf'");
    }

    std::string NamesOfPdfs() const {
        return OutputOf("cd '" + Folder.string() + "' && find . -name '*.pdf' | sort | tr '\\n' ' '");
    }

    std::string HistoryText() const {
        std::string text;
        PressUntil("alt+u Up Return",
                   [&text] { return !(text = ClipboardText()).empty(); });  // the last entry copies it
        return text;
    }
};

TEST_F(Printing, AFileNamedInAPrinterDialogIsWrittenWithoutAnotherQuestion) {
    StartWithProject();
    PressTo("alt+o Return", kResults);
    PressTo("alt+a", "Print");
    NameInDialog(PathTo("named.pdf"), kResults);
    ExpectPdf("named.pdf");
    PressTo("Escape", Caption());

    PressTo("alt+o Down Right Return", "Graph");
    PressTo("alt+f p", "Print");
    NameInDialog("curves", "Graph");
    ExpectPdf("curves.pdf");
    PressTo("alt+f p", "Print");
    PressTo("Escape", "Graph");
    PressTo("alt+f x", Caption());
    EXPECT_EQ(NamesOfPdfs(), "./curves.pdf ./named.pdf ");
    const std::string history = HistoryText();
    EXPECT_THAT(history, HasSubstr("Printing Graph"));
    EXPECT_THAT(history, Not(HasSubstr("Printing aborted")));
    EXPECT_THAT(history, Not(HasSubstr("Cancel was selected")));
}

TEST_F(Printing, AFileNamedInPrinterSetupIsWrittenByEveryJob) {
    StartWithProject();
    PressTo("alt+f Down Down Down Down Return", "Printer Setup");
    NameInDialog(PathTo("setup.pdf"), Caption());
    PressToPdf("ctrl+p", "setup.pdf");
    ExpectWindow(Caption());
    std::filesystem::remove(PathTo("setup.pdf"));
    PressTo("ctrl+e", "Parameters");
    PressTo("alt+v", "View Plan");
    PressToPdf("alt+f p", "setup.pdf");
    ExpectWindow("View Plan");
    EXPECT_EQ(NamesOfPdfs(), "./setup.pdf ");
}

TEST_F(Printing, EachJobSuggestsANameOfItsOwn) {
    StartWithProject();
    PressTo("ctrl+p", kAsk);
    PressTo("Return", Caption());
    ExpectPdf("panel_inputs.pdf");
    PressTo("alt+o Return", kResults);
    PressTo("alt+a", "Print");
    PressTo("Return", kResults);
    ExpectPdf("panel_report.pdf");
    PressTo("alt+v", "View Plan");
    PressTo("alt+f p", kAsk);
    PressTo("Return", "View Plan");
    ExpectPdf("panel_plan.pdf");
    PressTo("Escape", kResults);
    PressTo("Escape", Caption());
    PressTo("alt+o Down Right Return", "Graph");
    PressTo("alt+f p", "Print");
    PressTo("Return", "Graph");
    ExpectPdf("panel_graph.pdf");
    EXPECT_TRUE(Program.IsRunning());
    EXPECT_EQ(NamesOfPdfs(), "./panel_graph.pdf ./panel_inputs.pdf ./panel_plan.pdf ./panel_report.pdf ");
}

}  // namespace
}  // namespace tarvokol
