// SPDX-License-Identifier: GPL-3.0-or-later
// A design by the mouse alone, but for the figures and names that are typed.
#include <utility>

#include <gmock/gmock.h>

#include "tests/e2e/reader_desktop.h"

namespace tarvokol {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class ByMouse : public ReaderTest {
  protected:
    // A menu of the window in front, and its entry.
    static void Choose(const std::string& menu, const std::string& entry) {
        ClickOn("menu item", menu);
        ClickOn("menu item", entry);
    }

    static void TypeInto(const std::string& box, const std::string& text) {
        ClickOn("text", box);
        OutputOf("xdotool click --repeat 2 --delay 60 1");  // with the first click: the whole line
        Type(text);
    }
};

TEST_F(ByMouse, ADesignLeadsFromTheNewProjectToThePrintedReport) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\nAskOfficeInstall=1\r\n");
    Start();
    ExpectWindow("TARVO-KOL");
    Choose("File", "New");
    ExpectWindow("TARVO-KOL: Untitled");

    Choose("Input", "Project Description...");
    ExpectWindow("Project description");
    TypeInto("Title", "Ridge by mouse");
    ClickOn("push button", "Next Form");
    ExpectWindow("Parameters");
    const std::pair<const char*, const char*> fields[] = {
        {"Extraction height (ft)", "10"},    {"Depth of cover (ft)", "100"},
        {"Hole width (ft)", "10"},           {"Web thickness (ft)", "10"},
        {"Barrier pillar width (ft)", "20"}, {"Number of holes between barriers (2-20)", "5"}};
    for (const auto& [box, value] : fields) TypeInto(box, value);
    ClickOn("page tab", "Defaults");
    TypeInto("In situ coal strength (psi)", "950");
    ClickOn("page tab", "Sizing");
    ClickOn("push button", "Size pillars");
    ClickOn("push button", "View");
    ExpectWindow("View Plan");
    Choose("File", "Exit");
    ExpectWindow("Parameters");
    ClickOn("push button", "OK");
    ExpectWindow("TARVO-KOL: Untitled");

    Choose("File", "Save As...");
    ExpectWindowBeside("TARVO-KOL: Untitled");
    TypeInto("File name:", PathTo("mouse.TKL"));
    ClickOn("push button", "Save");
    ExpectWindow("TARVO-KOL: " + PathTo("mouse.TKL"));
    EXPECT_THAT(
        ReadBytes(PathTo("mouse.TKL")),
        AllOf(HasSubstr("\r\nRidge by mouse\r\n"),
              HasSubstr("##EndDesc##\r\n10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n"), HasSubstr("\r\n950\r\n")));

    Choose("Output", "Stability Factors...");
    ExpectWindow("Calculation Results");
    ClickOn("push button", "Print all");
    ExpectWindow("Print");
    TypeInto("Output file:", PathTo("mouse.pdf"));
    ClickOn("push button", "Print");
    ExpectWindow("Calculation Results");
    const auto printed = [this] {
        return OutputOf("pdftotext -layout '" + PathTo("mouse.pdf") + "' - 2>/dev/null");
    };
    EXPECT_TRUE(Eventually([&] { return printed().find("Webs ONLY") != std::string::npos; })) << printed();
    EXPECT_THAT(printed(), AllOf(HasSubstr("Ridge by mouse"), HasSubstr("950")));
    ClickOn("push button", "Close");
    ExpectWindow("TARVO-KOL: " + PathTo("mouse.TKL"));
    ClickOn("menu item", "File");
    ClickOn("menu item", "Exit");
    EXPECT_EQ(Program.ExitStatus(), 0);
}

// Every window that a menu leads to opens by a click and closes by one.
TEST_F(ByMouse, EveryWindowOfTheMenusOpensAndCloses) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n");
    const std::string project = PathTo("panel.TKL");
    WriteBytes(
        project,
        "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n"
        "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n");
    Start({project});
    const std::string caption = "TARVO-KOL: " + project;
    ExpectWindow(caption);
    struct Window {
        const char* menu;
        const char* entry;
        const char* title;
        const char* button;  // that closes it
    };
    const Window windows[] = {{"File", "Print Preview...", "Print Preview", "OK"},
                              {"File", "View Source Files...", "View Source Files", "OK"},
                              {"Input", "Project Description...", "Project description", "Cancel"},
                              {"Input", "Project Parameters...", "Parameters", "Cancel"},
                              {"Output", "Stability Factors...", "Calculation Results", "Close"},
                              {"Utilities", "Settings...", "Settings", "Cancel"},
                              {"Utilities", "Options...", "Options", "Cancel"},
                              {"Utilities", "Unit Conversion...", "Unit Conversions", "Close"},
                              {"Utilities", "File Conversion...", "File Conversion Utility", "Cancel"},
                              {"Help", "Resource Files...", "View Resource Files", "Close"},
                              {"Help", "Disclaimer...", "Disclaimer for TARVOKOL", "OK"},
                              {"Help", "Program Updates...", "Program Update for TARVOKOL", "OK"},
                              {"Help", "About the Program...", "About the TARVOKOL Program", "OK"}};
    for (const Window& window : windows) {
        SCOPED_TRACE(window.title);
        Choose(window.menu, window.entry);
        ExpectWindow(window.title);
        ClickOn("push button", window.button);
        ExpectWindow(caption);
    }
    Choose("File", "Exit");
    EXPECT_EQ(Program.ExitStatus(), 0);
}

}  // namespace
}  // namespace tarvokol
