// SPDX-License-Identifier: GPL-3.0-or-later
// The cells that the studies give to a workbook.
#include <cmath>
#include <iostream>
#include <sstream>

#include <gmock/gmock.h>

#include "tests/cli/parts/recording_drawing.h"

namespace tarvokol::cli {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

double NumberIn(const SheetRow& row, std::size_t at) {
    return std::get<double>(row.at(at));
}

std::string TextIn(const SheetRow& row, std::size_t at) {
    return std::get<std::string>(row.at(at));
}

class StudyWorkbooks : public DrawnTest {
  protected:
    Words Sweep(const std::vector<std::string>& varied) const {
        Words words = Into("rows.xlsx", {"sweep"}, {"--threads", "2"});
        for (const std::string& field : varied) words.insert(words.end(), {"--vary", field});
        return words;
    }
};

TEST_F(StudyWorkbooks, ASweepHasARowAPanelUnderTitlesWithUnits) {
    EXPECT_EQ(Run(Sweep({"WebThickness=10,20", "NumberHoles=5"})), 0);
    EXPECT_THAT(TheRecording().Titles, ElementsAre("WebThickness (ft)", "NumberHoles", "Overall", "WebsOnly",
                                                   "BarrierPillar", "ExtractionRatio (percent)", "Message"));
    ASSERT_EQ(TheRecording().Rows.size(), 2u);
    const SheetRow& first = TheRecording().Rows[0];
    ASSERT_EQ(first.size(), 7u);
    EXPECT_EQ(NumberIn(first, 0), 10);
    EXPECT_EQ(NumberIn(first, 1), 5);
    EXPECT_NEAR(NumberIn(first, 2), 5.934529745454546, 1e-13);
    EXPECT_NEAR(NumberIn(first, 3), 4.7199928, 1e-13);
    EXPECT_NEAR(NumberIn(first, 4), 4.713406400915023, 1e-13);
    EXPECT_NEAR(NumberIn(first, 5), 100.0 * 50 / 110, 1e-12);
    EXPECT_EQ(TextIn(first, 6), "");
    EXPECT_EQ(NumberIn(TheRecording().Rows[1], 0), 20);
    EXPECT_TRUE(TheRecording().Finished);
    EXPECT_EQ(ReadBytes(PathTo("rows.xlsx")), "workbook");
    EXPECT_THAT(TheRecording().Kinds, ElementsAre(".xlsx"));
}

TEST_F(StudyWorkbooks, SizesStandBetweenTheRatioAndTheMessage) {
    Words words = Sweep({"SFWeb=1.6,0.5"});
    words.emplace_back("--size");
    EXPECT_EQ(Run(words), 0);
    EXPECT_THAT(TheRecording().Titles,
                ElementsAre("SFWeb", "Overall", "WebsOnly", "BarrierPillar", "ExtractionRatio (percent)",
                            "SuggestedWeb (in)", "SuggestedBarrier (in)", "Message"));
    ASSERT_EQ(TheRecording().Rows.size(), 2u);
    EXPECT_NEAR(NumberIn(TheRecording().Rows[0], 5), 38.9991340637207, 1e-5);
    EXPECT_NEAR(NumberIn(TheRecording().Rows[0], 6), 122.40354919433594, 1e-5);
    EXPECT_TRUE(std::isnan(NumberIn(TheRecording().Rows[1], 5)));
    EXPECT_EQ(TextIn(TheRecording().Rows[1], 7),
              "Value '0.5' is outside input range\r\nValid range is: 1-10");
}

TEST_F(StudyWorkbooks, ATableKeepsItsTextsAsTextsAndFillsItsNumbers) {
    WriteBytes(PathTo("rows.csv"), "Hole,depthcover,Note\n007,200,\"a, b\"\n8,,\n9,-1,x\n");
    EXPECT_EQ(Run(Into("rows.xlsx", {"table"}, {PathTo("rows.csv")})), 1);
    EXPECT_THAT(TheRecording().Titles, ElementsAre("DepthCover (ft)", "Overall", "WebsOnly", "BarrierPillar",
                                                   "ExtractionRatio (percent)", "Message", "Hole", "Note"));
    ASSERT_EQ(TheRecording().Rows.size(), 3u);
    EXPECT_EQ(NumberIn(TheRecording().Rows[0], 0), 200);
    EXPECT_NEAR(NumberIn(TheRecording().Rows[0], 2), 2.3599964, 1e-13);
    EXPECT_EQ(TextIn(TheRecording().Rows[0], 6), "007");
    EXPECT_EQ(TextIn(TheRecording().Rows[0], 7), "a, b");
    EXPECT_EQ(NumberIn(TheRecording().Rows[1], 0), 100);
    EXPECT_TRUE(std::isnan(NumberIn(TheRecording().Rows[2], 1)));
    EXPECT_EQ(TextIn(TheRecording().Rows[2], 5), "Invalid depth of cover");
}

TEST_F(StudyWorkbooks, ASheetHoldsAHeaderAndAMillionRows) {
    EXPECT_EQ(RefusalOf(Sweep({"DepthCover=100:200/1048576"})),
              "tarvokol-cli sweep: -o: 1048576 rows and a header are more than the 1048576 of a sheet; write "
              ".csv or .json");
    EXPECT_THAT(TheRecording().Titles, IsEmpty());
    TheRecording().KeepRows = false;
    EXPECT_EQ(Run(Sweep({"DepthCover=100:200/1048575"})), 0);
    EXPECT_EQ(TheRecording().RowCount, 1048575u);
}

// How many rows standard input brings is only known at its end.
TEST_F(StudyWorkbooks, ATableThatIsTooLongIsRefusedWhereTheSheetEnds) {
    std::string rows = "DepthCover\n";
    for (int i = 0; i < 1048577; ++i) rows += "100\n";
    std::istringstream input(rows);
    std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
    TheRecording().KeepRows = false;
    EXPECT_EQ(RefusalOf(Into("rows.xlsx", {"table"}, {"-"})),
              "tarvokol-cli table: -o: 1048576 rows and a header are more than the 1048576 of a sheet; write "
              ".csv or .json");
    std::cin.rdbuf(before);
    std::cin.clear();
    EXPECT_EQ(TheRecording().RowCount, 1048575u);
    EXPECT_FALSE(TheRecording().Finished);
    EXPECT_FALSE(std::filesystem::exists(PathTo("rows.xlsx")));
}

}  // namespace
}  // namespace tarvokol::cli
