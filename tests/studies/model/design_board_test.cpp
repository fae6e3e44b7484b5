// SPDX-License-Identifier: GPL-3.0-or-later
// Designs side by side.
#include "studies/model/design_board.h"

#include <gmock/gmock.h>

#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const ComparedLine& LineOf(const std::vector<ComparedLine>& lines, const std::string& title) {
    for (const ComparedLine& line : lines)
        if (line.title == title) return line;
    throw std::runtime_error("no line " + title);
}

TEST(DesignBoard, MarksWhatDiffersAndWhatMisses) {
    DesignBoard board;
    Panel deep = WorkedPanel();
    deep.DepthCover = 300;  // webs 1.57333
    EXPECT_TRUE(board.Keep("shallow", WorkedPanel()));
    EXPECT_TRUE(board.Keep("deep", deep));
    const auto lines = board.Lines();
    EXPECT_EQ(lines.size(), 17U);
    const ComparedLine& depth = LineOf(lines, "Depth of cover (ft)");
    EXPECT_THAT(depth.texts, ElementsAre("100", "300"));
    EXPECT_THAT(depth.differs, ElementsAre(false, true));
    EXPECT_THAT(LineOf(lines, "Stability factor for webs").texts, ElementsAre("1.6", "1.6"));
    EXPECT_THAT(LineOf(lines, "Stability factor for webs").differs, ElementsAre(false, false));
    const ComparedLine& webs = LineOf(lines, "Stability factor \"Webs ONLY\"");
    EXPECT_THAT(webs.texts, ElementsAre("4.71999", "1.57333"));
    EXPECT_THAT(webs.misses, ElementsAre(false, true));
}

TEST(DesignBoard, HoldsSix) {
    DesignBoard board;
    EXPECT_EQ(board.Csv(), "");
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(board.Keep(FreeDesignName(board), WorkedPanel()));
    EXPECT_FALSE(board.Keep("one more", WorkedPanel()));
    EXPECT_EQ(board.Designs().size(), 6U);
    EXPECT_EQ(board.Designs()[5].name, "Design 6");
}

TEST(DesignBoard, ANameThatHasBecomeFreeIsTheNextOne) {
    DesignBoard board;
    for (const char* name : {"Design 1", "Design 2", "Design 4"}) board.Keep(name, WorkedPanel());
    EXPECT_EQ(FreeDesignName(board), "Design 3");
}

TEST(DesignBoard, TellsOtherUnitsAndWhyFiguresAreMissing) {
    DesignBoard board;
    board.Keep("feet", WorkedPanel());
    Panel metric = WorkedPanel();
    metric.units = Units::Metric;
    metric.Height = 0;
    board.Keep("metres, \"thin\"", metric);
    const auto lines = board.Lines();
    EXPECT_THAT(LineOf(lines, "Depth of cover (ft)").texts, ElementsAre("100", "100 m"));
    EXPECT_THAT(LineOf(lines, "Depth of cover (ft)").differs, ElementsAre(false, true));
    EXPECT_THAT(LineOf(lines, "Message").texts[1], HasSubstr("Invalid entry height"));
    EXPECT_THAT(board.Csv(),
                ::testing::StartsWith("Figure,feet,\"metres, \"\"thin\"\"\"\nExtraction height (ft),10,"));
}

}  // namespace
}  // namespace tarvokol
