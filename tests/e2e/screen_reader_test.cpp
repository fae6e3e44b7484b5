// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader finds of the program, over the desktop's own bus for it.
#include <gmock/gmock.h>

#include "tests/e2e/reader_desktop.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ScreenReader : public ReaderTest {
  protected:
    std::string ProjectPath() const { return PathTo("panel.TKL"); }
    std::string Caption() const { return "TARVO-KOL: " + ProjectPath(); }

    void StartWithProject() {
        WriteSettings("", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n");
        WriteBytes(ProjectPath(),
                   "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n"
                   "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n"
                   "1.6\r\n2\r\n0\r\n");
        Start({ProjectPath()});
        ExpectWindow(Caption());
    }

    // Waits until a line is as told; the lines then.
    template <typename Matcher>
    static std::vector<std::string> LinesWith(const Matcher& line) {
        std::vector<std::string> lines;
        EXPECT_TRUE(Eventually([&] {
            lines = Lines();
            return testing::Matches(Contains(line))(lines);
        })) << testing::PrintToString(lines);
        return lines;
    }
};

TEST_F(ScreenReader, ReadsTheDisclaimerTheVersionAndTheAdviceOnUpdates) {
    Start();
    ExpectWindow("Disclaimer for TARVOKOL");
    LinesWith(StartsWith("label\tDisclaimer of Liability"));
    PressTo("Return", "Program Update for TARVOKOL");
    ExpectRead(
        {"label\tCurrent Program Version: 1.3.02 Current Revision Date: 20-Aug-2013\tVersion and revision "
         "date\t\t"});
    EXPECT_THAT(Lines(), Contains(StartsWith("label\tThis version was released over a year ago.")));
    PressTo("Return", "TARVO-KOL");
    ExpectRead({"label\t1.3.02\tProgram version\t\t"});
}

TEST_F(ScreenReader, ReadsTheParametersWithTheirUnitsAndThePageThatShows) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    ExpectRead({"text\tExtraction height (ft)\t\t\t10", "text\tDepth of cover (ft)\t\t\t100",
                "text\tPanel width (excluding barriers) (ft)\t\t\t90."});
    EXPECT_THAT(Lines(), Contains(HasSubstr("\tParameter groups\tStandard\t1 of 1 to 3\t")));
    Press("ctrl+Tab");
    LinesWith("text\tIn situ coal strength (psi)\t\t\t900.");
    EXPECT_THAT(Lines(), Contains(HasSubstr("\tParameter groups\tDefaults\t2 of 1 to 3\t")));
    EXPECT_THAT(Lines(), Contains("text\tOverburden unit weight (pcf)\t\t\t162."));
    PressTo("Escape", Caption());
}

TEST_F(ScreenReader, ReadsThePlanAndTheGraphWithTheirPlaces) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    PressTo("alt+v", "View Plan");
    Press("Home Right");
    LinesWith("image\tPlan of the panel\tPillar 2 of 5: 10x oo\t2 of 0 to 5\t");
    PressTo("Escape", "Parameters");
    PressTo("Escape", Caption());
    PressTo("alt+o Down Right Return", "Graph");
    Press("Home");
    const std::vector<std::string> lines =
        LinesWith(testing::ContainsRegex("^chart\tGraph\tOverall, X 3.00, Y [0-9.]+\t[0-9.]+ of "));
    EXPECT_THAT(lines, Contains("label\t3.00\tX-coord\t\t"));
    EXPECT_THAT(lines, Contains("label\tOverall\tCurve\t\t"));
    PressTo("Escape", Caption());
}

}  // namespace
}  // namespace tarvokol
