// SPDX-License-Identifier: GPL-3.0-or-later
// Printing without a printer: the file that the user names is the one that is written.
#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string kResults = "Calculation Results";
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

    // Names the file in a printer dialog, where the letter leads to the box for it.
    void NameInDialog(const std::string& dialog, const std::string& name) {
        ExpectWindow(dialog);
        Press("alt+f ctrl+a");
        Type(name);
        Press("Return");
    }

    void ExpectPdf(const std::string& name) {
        EXPECT_TRUE(Eventually([&] {
            return std::filesystem::exists(PathTo(name)) && ReadBytes(PathTo(name)).substr(0, 5) == "%PDF-";
        })) << name
            << " of " << OutputOf("find '" + Folder.string() + "' -name '*.pdf'");
    }

    std::string NamesOfPdfs() const {
        return OutputOf("cd '" + Folder.string() + "' && find . -name '*.pdf' | sort | tr '\\n' ' '");
    }

    static std::string HistoryText() {
        Press("alt+u Up Return");  // copies the history, the last entry
        std::string text;
        Eventually([&text] { return !(text = ClipboardText()).empty(); });
        return text;
    }
};

TEST_F(Printing, AFileNamedInAPrinterDialogIsWrittenWithoutAnotherQuestion) {
    StartWithProject();
    Press("alt+o Return");
    ExpectWindow(kResults);
    Press("alt+a");
    NameInDialog("Print", PathTo("named.pdf"));
    ExpectWindow(kResults);
    ExpectPdf("named.pdf");
    Press("Escape");
    ExpectWindow(Caption());

    Press("alt+o Down Right Return");
    ExpectWindow("Graph");
    Press("alt+f p");
    NameInDialog("Print", "curves");
    ExpectWindow("Graph");
    ExpectPdf("curves.pdf");
    Press("alt+f p");
    ExpectWindow("Print");
    Press("Escape");
    ExpectWindow("Graph");
    Press("alt+f x");
    ExpectWindow(Caption());
    EXPECT_EQ(NamesOfPdfs(), "./curves.pdf ./named.pdf ");
    const std::string history = HistoryText();
    EXPECT_THAT(history, HasSubstr("Printing Graph"));
    EXPECT_THAT(history, Not(HasSubstr("Printing aborted")));
    EXPECT_THAT(history, Not(HasSubstr("Cancel was selected")));
}

TEST_F(Printing, AFileNamedInPrinterSetupIsWrittenByEveryJob) {
    StartWithProject();
    Press("alt+f Down Down Down Down Return");
    NameInDialog("Printer Setup", PathTo("setup.pdf"));
    ExpectWindow(Caption());
    Press("ctrl+p");
    ExpectPdf("setup.pdf");
    ExpectWindow(Caption());
    std::filesystem::remove(PathTo("setup.pdf"));
    Press("ctrl+e");
    ExpectWindow("Parameters");
    Press("alt+v");
    ExpectWindow("View Plan");
    Press("alt+f p");
    ExpectPdf("setup.pdf");
    ExpectWindow("View Plan");
    EXPECT_EQ(NamesOfPdfs(), "./setup.pdf ");
}

TEST_F(Printing, EachJobSuggestsANameOfItsOwn) {
    StartWithProject();
    Press("ctrl+p");
    ExpectWindow(kAsk);
    Press("Return");
    ExpectPdf("panel_inputs.pdf");
    ExpectWindow(Caption());
    Press("alt+o Return");
    ExpectWindow(kResults);
    Press("alt+a");
    ExpectWindow("Print");
    Press("Return");
    ExpectPdf("panel_report.pdf");
    ExpectWindow(kResults);
    Press("alt+v");
    ExpectWindow("View Plan");
    Press("alt+f p");
    ExpectWindow(kAsk);
    Press("Return");
    ExpectPdf("panel_plan.pdf");
    ExpectWindow("View Plan");
    Press("Escape");
    ExpectWindow(kResults);
    Press("Escape");
    ExpectWindow(Caption());
    Press("alt+o Down Right Return");
    ExpectWindow("Graph");
    Press("alt+f p");
    ExpectWindow("Print");
    Press("Return");
    ExpectPdf("panel_graph.pdf");
    ExpectWindow("Graph");
    EXPECT_TRUE(Program.IsRunning());
    EXPECT_EQ(NamesOfPdfs(), "./panel_graph.pdf ./panel_inputs.pdf ./panel_plan.pdf ./panel_report.pdf ");
}

}  // namespace
}  // namespace tarvokol
