// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;

using SaveCommand = CliTest;

TEST_F(SaveCommand, WritesTheProjectAsTheProgramDoes) {
    ProjectText project;
    const json object = Run({"save", "--json", "-o", "out.TKL", Project("p.TKL", project)}).Object();
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["output"], "out.TKL");
    EXPECT_EQ(object["project"]["ProjectDescription"], "Upper seam, north highwall.\r\n");
    EXPECT_EQ(ReadBytes(PathTo("out.TKL")), project.Bytes());
}

TEST_F(SaveCommand, KeepsCharactersOfBothCharacterSets) {
    ProjectText project;
    project.title =
        "Gr\xFC\xDF"
        "e 60\xB0";  // Windows-1252
    Run({"save", "-o", "out.TKL", Project("p.TKL", project)});
    EXPECT_EQ(ReadBytes(PathTo("out.TKL")), project.Bytes());
    project.title = "\xE9\xA1\xB9\xE7\x9B\xAE";  // UTF-8
    const json object = Run({"save", "--json", "-o", "utf.TKL", Project("u.TKL", project)}).Object();
    EXPECT_EQ(object["project"]["ProjectTitle"], "\xE9\xA1\xB9\xE7\x9B\xAE");
    EXPECT_EQ(ReadBytes(PathTo("utf.TKL")), project.Bytes());
}

TEST_F(SaveCommand, NeedsAnOutputAndDoesNotReplaceByItself) {
    Project("p.TKL");
    EXPECT_EQ(Run({"save", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"save", "-o", "p.TKL", "p.TKL"}).status, 3);
    EXPECT_EQ(Run({"save", "-o", "no-such-folder/p.TKL", "p.TKL"}).status, 3);
    EXPECT_EQ(Run({"save", "-o", "/dev/full", "p.TKL"}).status, 3);
    EXPECT_EQ(Run({"save", "--force", "-o", "p.TKL", "p.TKL"}).status, 0);
}

TEST_F(SaveCommand, AFolderKeepsTheNames) {
    Project("a.TKL");
    Project("b.TKL");
    EXPECT_EQ(Run({"save", "-o", "copies/", "a.TKL", "b.TKL"}).status, 0);
    EXPECT_EQ(ReadBytes(PathTo("copies/b.TKL")), ProjectText{}.Bytes());
}

using ConvertCommand = CliTest;

TEST_F(ConvertCommand, WritesBesideTheOriginalUnderTheUtilitysName) {
    std::filesystem::create_directory(Folder / "sub");
    Project("sub/p.TKL");
    const json object = Run({"convert", "--to", "metric", "--json", "sub/p.TKL"}).Object();
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["output"], "sub/Metric_p.TKL");
    EXPECT_EQ(object["project"]["UnitSystem"], 1);
    EXPECT_EQ(object["project"]["Height"], 3.05);  // 3.048 to two decimals
    EXPECT_EQ(object["project"]["DepthCover"], 30.48);
    EXPECT_EQ(object["project"]["CoalStrength"], 6.21);  // 900 / 145.0377
    EXPECT_EQ(object["project"]["UnitWeight"], 25.45);   // 162 / 6.3663022639200495
    EXPECT_EQ(object["project"]["AbutmentAngle"], 21);
    EXPECT_EQ(Run({"results", "--json", "sub/Metric_p.TKL"}).Object()["project"]["HoleWidth"], 3.05);
}

TEST_F(ConvertCommand, RefusesTheSystemThatTheProjectIsIn) {
    const CliAnswer answer = Run({"convert", "--to", "english", "--json", Project("p.TKL")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.Object()["messages"].size(), 1u);
    EXPECT_FALSE(answer.Object().contains("output"));
    EXPECT_EQ(Run({"convert", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"convert", "--to", "martian", "p.TKL"}).status, 2);
}

TEST_F(ConvertCommand, NamesTheSystemThatTheProjectIsIn) {
    EXPECT_EQ(Run({"convert", "--to", "english", Project("p.TKL")}).err,
              "p.TKL: The project is already in English units\n");
    Run({"convert", "--to", "metric", "p.TKL"});
    EXPECT_EQ(Run({"convert", "--to", "metric", "Metric_p.TKL"}).err,
              "Metric_p.TKL: The project is already in Metric units\n");
}

TEST_F(ConvertCommand, AnExistingResultIsReplacedOnlyByForce) {
    Project("p.TKL");
    EXPECT_EQ(Run({"convert", "--to", "metric", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"convert", "--to", "metric", "p.TKL"}).status, 3);
    EXPECT_EQ(Run({"convert", "--to", "metric", "--force", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"convert", "--to", "metric", "-o", "x.TKL", "p.TKL"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(PathTo("x.TKL")));
}

}  // namespace
}  // namespace tarvokol
