// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands over projects give to be printed or drawn, and under which name.
#include <gmock/gmock.h>

#include "tests/cli/parts/recording_drawing.h"

namespace tarvokol::cli {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using DrawnResults = DrawnTest;

TEST_F(DrawnResults, AReportIsPrintedPageAfterPage) {
    EXPECT_EQ(Run(Into("r.pdf", {"results"})), 0);
    ASSERT_EQ(TheRecording().Calls.size(), 1u);
    const std::string& printed = TheRecording().Calls[0];
    EXPECT_THAT(printed, AllOf(StartsWith("print .pdf: TARVOKOL module build: 1.3.02\r\n"),
                               HasSubstr("[TARVO-KOL STABILITY FACTORS]"), EndsWith("\r\n")));
    EXPECT_LT(printed.find("[TARVO-KOL STABILITY FACTORS]"), printed.find("[PILLAR PARAMETERS]"));
}

TEST_F(DrawnResults, ACurveIsDrawnAsItsGraph) {
    const std::vector<std::pair<std::string, std::string>> graphs{{"sf-height", "curves .svg stability 0"},
                                                                  {"sf-depth", "curves .svg stability 1"},
                                                                  {"sf-hole", "curves .svg stability 2"},
                                                                  {"web", "curves .svg sizing 0"},
                                                                  {"barrier", "curves .svg sizing 1"}};
    for (const auto& [kind, call] : graphs) {
        TheRecording() = RecordingDrawing();
        EXPECT_EQ(Run(Into("c.svg", {"curve", kind})), 0);
        EXPECT_THAT(TheRecording().Calls, ElementsAre(call));
    }
}

TEST_F(DrawnResults, AWorkbookOfCurvesIsBegunFilledAndFinished) {
    EXPECT_EQ(Run(Into("c.xlsx", {"curve", "sf-height"})), 0);
    const auto& calls = TheRecording().Calls;
    ASSERT_GT(calls.size(), 4u);
    EXPECT_THAT(calls[0], StartsWith("workbook .xlsx"));
    EXPECT_EQ(calls[1], "begin");
    EXPECT_EQ(calls[2], "A2 number 3.000000");
    EXPECT_THAT(calls, Contains("C1 X-coord"));
    EXPECT_EQ(calls.back(), "show");
}

TEST_F(DrawnResults, APlanIsDrawnAsInItsWindowOrAsAPreview) {
    EXPECT_EQ(Run(Into("p.png", {"plan", "--mode", "dimensions", "--view", "window"})), 0);
    EXPECT_EQ(Run(Into("q.pdf", {"plan", "--mode", "strength", "--view", "preview"})), 0);
    EXPECT_THAT(TheRecording().Calls, ElementsAre("plan .png window", "plan .pdf preview"));
}

TEST_F(DrawnResults, TextsAndTablesAreNotDrawn) {
    EXPECT_EQ(Run(Into("r.txt", {"results"})), 0);
    EXPECT_EQ(Run(Into("c.csv", {"curve", "web"})), 0);
    EXPECT_EQ(Run(Into("c.json", {"curve", "web"})), 0);
    EXPECT_EQ(Run(Into("p.csv", {"plan", "--mode", "dimensions", "--view", "window"})), 0);
    EXPECT_TRUE(TheRecording().Calls.empty());
    EXPECT_THAT(ReadBytes(PathTo("c.csv")), StartsWith("Depth of Cover (ft),Web Thickness (ft)\n"));
    EXPECT_THAT(ReadBytes(PathTo("p.csv")), HasSubstr("\n" + PathTo("p.TKL") + ",1,Barrier,ft,"));
}

}  // namespace
}  // namespace tarvokol::cli
