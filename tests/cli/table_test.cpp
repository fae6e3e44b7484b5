// SPDX-License-Identifier: GPL-3.0-or-later

#include <charconv>
#include <random>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class TableCommand : public CliTest {
  protected:
    CliAnswer Table(const std::string& rows, std::vector<std::string> more = {}) {
        Project("p.TKL");
        WriteBytes(PathTo("rows.csv"), rows);
        std::vector<std::string> arguments{"table", "--quiet", "p.TKL", "rows.csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
};

// Webs of the plain panel by hand: 4.7199928 under 100, half of it under 200, 2.5 times under 40.
TEST_F(TableCommand, ThreeRowsOfTheWorkedExample) {
    const auto rows =
        Table("Borehole,depthcover,Note\nB-1,200,\"deep, wet\"\nB-2,,as drawn\nB-3,40,\n", {"--json"})
            .Objects();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0]["row"], (json{{"Borehole", "B-1"}, {"Note", "deep, wet"}}));
    EXPECT_EQ(rows[2]["row"], (json{{"Borehole", "B-3"}, {"Note", ""}}));
    EXPECT_NEAR(rows[0]["WebsOnly"], 2.3599964, 1e-13);
    EXPECT_EQ(rows[1]["DepthCover"], 100);
    EXPECT_NEAR(rows[1]["WebsOnly"], 4.7199928, 1e-13);
    EXPECT_NEAR(rows[2]["WebsOnly"], 11.799982, 1e-12);
}

TEST_F(TableCommand, CarriesOtherColumnsAlongAsTheyStand) {
    const CliAnswer answer = Table("Ort;HEIGHT;Wert\nK\xF6ln;10;1,5\n\"say \"\"no\"\"\";10;007\n");
    EXPECT_EQ(answer.status, 0) << answer.err;
    EXPECT_THAT(
        answer.out,
        testing::StartsWith(
            "Height (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message,Ort,Wert\n10,"));
    EXPECT_THAT(answer.out, HasSubstr(",,K\xC3\xB6ln,\"1,5\"\n10,"));
    EXPECT_THAT(answer.out, testing::EndsWith(",,\"say \"\"no\"\"\",007\n"));
}

TEST_F(TableCommand, ADecimalCommaOrAThousandsSeparatorIsRefusedWithItsPlace) {
    const auto refused = [this](const std::string& rows, const std::string& text) {
        const CliAnswer answer = Table(rows);
        EXPECT_EQ(answer.status, 1) << rows;
        EXPECT_EQ(answer.out, "") << rows;
        EXPECT_EQ(answer.err, text + "\n");
    };
    const std::string hint = ": write a decimal point and no thousands separators";
    refused("Name;DepthCover\na;100\nb;100,5\n",
            "rows.csv, line 3: column 2 (DepthCover): \"100,5\" is no number" + hint);
    refused("DepthCover,Name\n\"1,500\",a\n",
            "rows.csv, line 2: column 1 (DepthCover): \"1,500\" is no number" + hint);
    refused("DepthCover;Name\n1 500;a\n",
            "rows.csv, line 2: column 1 (DepthCover): \"1 500\" is no number" + hint);
    refused("DepthCover;Name\n1'500;a\n",
            "rows.csv, line 2: column 1 (DepthCover): \"1'500\" is no number" + hint);
    refused("DepthCover;Name\n100ft;a\n", "rows.csv, line 2: column 1 (DepthCover): \"100ft\" is no number");
    refused("DepthCover\n1,5\n",
            "rows.csv, line 2: 2 cells under 1 columns; a figure needs a decimal point, not a comma");
    refused("NumberHoles\n2.5\n",
            "rows.csv, line 2: column 1 (NumberHoles): \"2.5\" cannot be stored in this field");
}

// The fault stands after thousands of good rows: none of them is written.
TEST_F(TableCommand, AFaultInTheLastLineLeavesNothingHalfWritten) {
    std::string rows = "DepthCover\n";
    for (int i = 0; i < 10000; ++i) rows += "100\n";
    const CliAnswer answer = Table(rows + "1,5\n", {"-o", "out.csv"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_FALSE(std::filesystem::exists(PathTo("out.csv")));
    EXPECT_EQ(Table(rows + "x\n").out, "");
}

TEST_F(TableCommand, NamesTheFieldsWhereNoColumnIsOne) {
    const CliAnswer answer = Table("Depth,Name\n100,a\n");
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.err,
                HasSubstr("no column is named as a field of the project; the fields are Height,"));
    EXPECT_THAT(Table("Height,height\n1,2\n").err, HasSubstr("the column Height stands there twice"));
}

TEST_F(TableCommand, ReadsStandardInput) {
    Project("p.TKL");
    const auto rows = Run({"table", "p.TKL", "-", "--json"}, "DepthCover\r\n100\r\n").Objects();
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_NEAR(rows[0]["WebsOnly"], 4.7199928, 1e-13);
}

TEST_F(TableCommand, AMissingTableIsBadData) {
    Project("p.TKL");
    const CliAnswer answer = Run({"table", "p.TKL", "none.csv"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "none.csv: File not found\n");
    EXPECT_EQ(Run({"table", "p.TKL", "."}).status, 1);
    EXPECT_EQ(Run({"table", "p.TKL", "rows.csv", "-o", "map.png"}).status, 2);
}

// Every row equals what the other commands say of a project with those figures, to the last bit.
class RandomPanels : public CliTest {
  protected:
    static constexpr int kPanels = 500;

    // One round in the daily tests, 10,000 panels in the long ones.
    static int Rounds() { return std::getenv("TARVOKOL_LONG_TESTS") != nullptr ? 10 : 1; }

    double Between(double low, double high) { return std::uniform_real_distribution<>(low, high)(random_); }

    // With now and then a figure that the check or the solver refuses.
    ProjectText Panel(bool metric) {
        const double feet = metric ? 0.3048 : 1;
        const auto text = [](double value) {
            char buffer[32];
            return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
        };
        ProjectText panel;
        panel.units = metric ? " 1 " : " 0 ";
        panel.height = text(Between(-0.3, 15) * feet);
        panel.depth = text(Between(-10, 1200) * feet);
        panel.hole = text(Between(-0.2, 14) * feet);
        panel.web = text(Between(-0.5, 30) * feet);
        panel.barrier = text(Between(-1, 90) * feet);
        panel.holes = " " + std::to_string(std::uniform_int_distribution<>(1, 21)(random_)) + " ";
        panel.strength = text(Between(-20, 2500) * (metric ? 0.0068948 : 1));
        panel.weight = text(Between(-2, 190) * (metric ? 0.157 : 1));
        panel.abutment = text(Between(-1, 60));
        panel.sf_web = text(static_cast<float>(Between(0.8, 4)));
        panel.sf_barrier = text(static_cast<float>(Between(0.8, 4)));
        return panel;
    }

    static std::string RowOf(const ProjectText& p) {
        return p.height + "," + p.depth + "," + p.hole + "," + p.web + "," + p.barrier + "," +
               p.holes.substr(1, p.holes.size() - 2) + "," + p.strength + "," + p.weight + "," + p.abutment +
               "," + p.sf_web + "," + p.sf_barrier + "\n";
    }

    void Compare(bool metric) {
        std::string table =
            "Height,DepthCover,HoleWidth,WebThickness,BarrierPillarWidth,NumberHoles,CoalStrength,UnitWeight,"
            "AbutmentAngle,SFWeb,SFBarrier\n";
        std::string paths;
        for (int i = 0; i < kPanels; ++i) {
            const ProjectText panel = Panel(metric);
            table += RowOf(panel);
            paths += Project("p" + std::to_string(i) + ".TKL", panel) + "\n";
        }
        WriteBytes(PathTo("rows.csv"), table);
        const auto rows = Run({"table", "--quiet", "p0.TKL", "rows.csv", "--size", "--json"}).Objects();
        const auto results = Run({"results", "--quiet", "--json", "-"}, paths).Objects();
        const auto sizes = Run({"size", "--quiet", "--json", "-"}, paths).Objects();
        ASSERT_EQ(rows.size(), results.size());
        int refused = 0;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ASSERT_EQ(rows[i]["ok"], results[i]["ok"]) << i;
            if (!results[i]["ok"]) {
                ++refused;
                EXPECT_TRUE(rows[i]["Overall"].is_null());
                continue;
            }
            EXPECT_EQ(rows[i]["Overall"], results[i]["StabilityFactor"][0]) << i;
            EXPECT_EQ(rows[i]["WebsOnly"], results[i]["StabilityFactor"][1]) << i;
            EXPECT_EQ(rows[i]["BarrierPillar"], results[i]["StabilityFactor"][2]) << i;
            EXPECT_EQ(rows[i]["SuggestedWeb"], sizes[i].value("SuggestedWeb", json())) << i;
            EXPECT_EQ(rows[i]["SuggestedBarrier"], sizes[i].value("SuggestedBarrier", json())) << i;
        }
        EXPECT_GT(refused, 10);
        EXPECT_LT(refused, kPanels / 2);
    }

  private:
    std::mt19937_64 random_{20130820};
};

TEST_F(RandomPanels, EnglishRowsEqualResultsAndSizes) {
    for (int round = 0; round < Rounds(); ++round) Compare(false);
}

TEST_F(RandomPanels, MetricRowsEqualResultsAndSizes) {
    for (int round = 0; round < Rounds(); ++round) Compare(true);
}

}  // namespace
}  // namespace tarvokol
