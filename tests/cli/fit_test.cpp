// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>
#include <vector>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class FitCommand : public CliTest {
  protected:
    void WriteStrengths() {
        std::string csv = "Specimen,Strength (psi)\n";
        int number = 0;
        for (const int value : {870, 710,  1050, 805, 925,  655, 1005, 890, 820,  1165, 695, 990,
                                790, 1065, 860,  900, 1135, 685, 1015, 870, 1040, 790,  925, 1060})
            csv += std::to_string(++number) + ',' + std::to_string(value) + '\n';
        WriteBytes(PathTo("lab.csv"), csv + "25,\n");
    }
};

TEST_F(FitCommand, TellsTheBestAsText) {
    WriteStrengths();
    const CliAnswer answer = Run({"fit", "lab.csv", "--column", "strength", "--field", "CoalStrength"});
    EXPECT_EQ(answer.status, 0) << answer.err;
    EXPECT_EQ(answer.err, "");
    EXPECT_THAT(answer.out,
                HasSubstr("lab.csv, column Strength: 24 values from 655 to 1165 psi, mean 904.79 psi, "
                          "standard deviation 144.6 psi\n1 row without a value\n\n"));
    EXPECT_THAT(answer.out,
                HasSubstr("normal      MEAN 904.792 (29)             SD 141.557 (20)                  "
                          "-152.92     312.2   0.10139"));
    EXPECT_THAT(answer.out,
                HasSubstr("BIC within 2 of the best, so hardly worse: gamma, weibull, lognormal\n"));
    EXPECT_TRUE(answer.out.ends_with("\nBest by BIC: --random CoalStrength=normal:904.792:141.557\n"))
        << answer.out;
}

TEST_F(FitCommand, TellsAllAsAnObject) {
    WriteStrengths();
    const json object = Run({"fit", "lab.csv", "--column", "Strength (psi)", "--json"}).Object();
    EXPECT_EQ(object["file"], "lab.csv");
    EXPECT_EQ(object["column"], "Strength");
    EXPECT_EQ(object["values"], 24);
    EXPECT_EQ(object["blanks"], 1);
    EXPECT_EQ(object["random"], "FIELD=normal:904.792:141.557");
    EXPECT_EQ(object["replicates"], 999);
    EXPECT_EQ(object["fits"].size(), 5U);
    EXPECT_EQ(object["fits"][2]["distribution"], "weibull");
    EXPECT_NEAR(object["fits"][2]["parameters"]["SHAPE"]["value"], 7.22549762968, 1e-8);
    EXPECT_NEAR(object["fits"][2]["parameters"]["SHAPE"]["standard_error"], 1.14997366406, 1e-8);
    EXPECT_EQ(object["units"]["mean"], "psi");
}

TEST_F(FitCommand, WritesFiles) {
    WriteStrengths();
    for (const char* const name : {"fit.txt", "fit.json", "fit.svg"}) {
        const CliAnswer answer = Run({"fit", "lab.csv", "--column", "Strength", "-o", name});
        EXPECT_EQ(answer.status, 0) << name << ": " << answer.err;
        EXPECT_GT(ReadBytes(PathTo(name)).size(), 500U) << name;
    }
    EXPECT_EQ(Run({"fit", "lab.csv", "--column", "Strength", "-o", "fit.txt"}).status, 3);
    EXPECT_EQ(Run({"fit", "lab.csv", "--column", "Strength", "-o", "lab.csv", "--force"}).status, 2);
}

// What it prints is taken by the study that it is for.
TEST_F(FitCommand, ItsOptionCanBeDrawn) {
    WriteBytes(PathTo("lab.csv"), "S\n1\n3\n2\n9\n4\n2.5\n40\n1.5\n");
    const json object = Run({"fit", "lab.csv", "--column", "S", "--field", "DepthCover", "--json"}).Object();
    const std::string option = object["random"];
    EXPECT_EQ(Run({"risk", Project("p.TKL"), "--random", option, "--samples", "100"}).status, 0) << option;
}

TEST_F(FitCommand, FewValuesDecideNothing) {
    WriteBytes(PathTo("lab.csv"), "S\n1\n3\n2\n9\n4\n2.5\n7\n");
    EXPECT_THAT(Run({"fit", "lab.csv", "--column", "S"}).out,
                HasSubstr("7 values decide nothing: a fit needs at least 8\n"));
    const json object = Run({"fit", "lab.csv", "--column", "S", "--json"}).Object();
    EXPECT_EQ(object["messages"][0], "7 values decide nothing: a fit needs at least 8");
}

TEST_F(FitCommand, RefusesByName) {
    const auto refused = [this](const char* csv, std::vector<std::string> more, int status,
                                const char* words) {
        WriteBytes(PathTo("lab.csv"), csv);
        std::vector<std::string> arguments{"fit", "lab.csv", "--column", "S"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, status) << csv;
        EXPECT_THAT(answer.err, HasSubstr(words));
    };
    refused("S\n1\n2\n", {}, 1, "lab.csv: a fit needs at least 3 values, not 2\n");
    refused("S\n1\n1\n1\n", {}, 1, "lab.csv: the values are all the same\n");
    refused("S\n1\nx\n", {}, 1, "lab.csv, line 3: column 1 (S): \"x\" is no number");
    refused("T\n1\n2\n3\n", {}, 1, "lab.csv: has no column S; its columns are T\n");
    refused("", {}, 1, "lab.csv: the table is empty");
    refused("S (kg)\n1\n2\n4\n", {"--field", "CoalStrength"}, 1,
            "lab.csv: the column S is in kg, CoalStrength is in psi or MPa\n");
    refused("S\n1\n2\n4\n", {"--field", "Strength"}, 2, "--field: unknown field \"Strength\"");
    const json object = Run({"fit", "nowhere.csv", "--column", "S", "--json"}).Object();
    EXPECT_EQ(object["ok"], false);
    EXPECT_EQ(object["messages"][0], "nowhere.csv: File not found");
}

}  // namespace
}  // namespace tarvokol
