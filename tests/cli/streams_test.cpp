// SPDX-License-Identifier: GPL-3.0-or-later
// What a script relies on: names of any form, exact figures, and a status that tells of lost output.
#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;

class Streams : public CliTest {
  protected:
    // Status of a command whose standard output takes nothing.
    int StatusWithFullOutput(const std::string& arguments) const {
        const std::string command =
            "cd '" + Folder.string() + "' && '" TARVOKOL_CLI "' " + arguments + " > /dev/full";
        return WEXITSTATUS(std::system(command.c_str()));
    }
};

TEST_F(Streams, OutputThatCannotBePrintedGivesStatusThree) {
    Project("a.TKL");
    EXPECT_EQ(StatusWithFullOutput("settings"), 3);
    EXPECT_EQ(StatusWithFullOutput("settings --json"), 3);
    EXPECT_EQ(StatusWithFullOutput("units length ft 1"), 3);
    EXPECT_EQ(StatusWithFullOutput("results a.TKL"), 3);
    EXPECT_EQ(StatusWithFullOutput("size --json a.TKL"), 3);
    EXPECT_EQ(StatusWithFullOutput("--help"), 3);
}

TEST_F(Streams, AFileNameIsTakenAsItStands) {
    for (const std::string name : {"[a]", "[a,b]", "'q'", "\"q\"", "b c", "new\nline", "size", "{}", "%%",
                                   "=x", "\\", "$HOME", "x\\y.TKL"}) {
        SCOPED_TRACE(name);
        Project(name);
        const json object = Run({"size", "--json", name}).Object();
        EXPECT_EQ(object["file"], name);
        EXPECT_EQ(object["ok"], true);
    }
}

TEST_F(Streams, AFileNameWithALeadingMinusStandsBehindTheTwoDashes) {
    for (const std::string name : {"-m.TKL", "--json", "-5"}) {
        SCOPED_TRACE(name);
        Project(name);
        EXPECT_EQ(Run({"size", "--json", "--", name}).Object()["file"], name);
    }
}

TEST_F(Streams, AnOutputFolderInBracketsIsTakenAsItStands) {
    Project("a.TKL");
    std::filesystem::create_directory(Folder / "[o]");
    EXPECT_EQ(Run({"save", "--json", "-o", "[o]", "a.TKL"}).Object()["output"], "[o]/a.TKL");
}

TEST_F(Streams, EveryFileInBracketsIsTakenAsItStands) {
    Project("[p].TKL");
    WriteBytes(PathTo("[rows].csv"), "DepthCover\n100\n");
    WriteBytes(PathTo("[s].ini"), "[TARVOKOLOptions]\r\nDefaultAbutment=40\r\n");
    const std::string header =
        "DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n100,";
    EXPECT_EQ(
        Run({"table", "--quiet", "--settings", "[s].ini", "-o", "[o].csv", "[p].TKL", "[rows].csv"}).err, "");
    EXPECT_THAT(ReadBytes(PathTo("[o].csv")), testing::StartsWith(header));
    EXPECT_EQ(Run({"sweep", "--quiet", "-o", "[v].csv", "[p].TKL", "--vary", "DepthCover=100,200"}).err, "");
    EXPECT_THAT(ReadBytes(PathTo("[v].csv")), testing::StartsWith(header));
    EXPECT_EQ(Run({"risk", "--quiet", "--samples", "50", "--samples-out", "[m].csv", "-o", "[r].json",
                   "[p].TKL", "--random", "DepthCover=uniform:90:110"})
                  .err,
              "");
    EXPECT_TRUE(std::filesystem::exists(Folder / "[m].csv"));
    EXPECT_TRUE(std::filesystem::exists(Folder / "[r].json"));
    EXPECT_NE(Run({"settings", "[s].ini"}).out, Run({"settings"}).out);
}

TEST_F(Streams, AByteOfANameThatIsNoUtf8IsReplacedInTheOutputOnly) {
    Project("\xff.TKL");
    const json object = Run({"size", "--json", "\xff.TKL"}).Object();
    EXPECT_EQ(object["file"], "\xEF\xBF\xBD.TKL");
    EXPECT_EQ(object["ok"], true);
}

// Two names that read alike once such a byte is replaced are two files.
TEST_F(Streams, DrawnOutputsKeepTheBytesOfTheirNames) {
    Project("p\xff.TKL");
    Project("p\xfe.TKL");
    // The report shows the name; what fontconfig found for the sign in place of the byte is its own to free, and it does not.
    ASSERT_EQ(RunProgram("/usr/bin/env",
                         {"ASAN_OPTIONS=detect_leaks=0", TARVOKOL_CLI, "results", "-o", "out/", "--format",
                          "pdf", "p\xff.TKL", "p\xfe.TKL"},
                         Folder.string())
                  .status,
              0);
    ASSERT_EQ(Run({"plan", "-o", "out/", "--format", "svg", "p\xff.TKL", "p\xfe.TKL"}).status, 0);
    ASSERT_EQ(Run({"curve", "web", "-o", "w\xff.xlsx", "p\xff.TKL"}).status, 0);
    for (const std::string name :
         {"out/p\xff.pdf", "out/p\xfe.pdf", "out/p\xff.svg", "out/p\xfe.svg", "w\xff.xlsx"})
        EXPECT_GT(ReadBytes(PathTo(name)).size(), 1000u) << name;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder / "out"), {}), 4);
}

TEST_F(Streams, ATemporaryFolderThatIsMissingIsNotNeeded) {
    Project("a.TKL");
    const auto begin = [this](const std::vector<std::string>& arguments) {
        std::vector<std::string> words{"TMPDIR=" + PathTo("none"), TARVOKOL_CLI};
        words.insert(words.end(), arguments.begin(), arguments.end());
        const CliAnswer answer = RunProgram("/usr/bin/env", words, Folder.string());
        EXPECT_EQ(answer.status, 0) << answer.err;
        return answer.out.substr(0, 4);
    };
    EXPECT_EQ(begin({"results", "--format", "pdf", "a.TKL"}), "%PDF");
    EXPECT_EQ(begin({"plan", "--format", "png", "a.TKL"}), "\x89PNG");
    EXPECT_EQ(begin({"plan", "--format", "svg", "a.TKL"}), "<?xm");
    EXPECT_EQ(begin({"curve", "web", "--format", "xlsx", "a.TKL"}), "PK\x03\x04");
    EXPECT_EQ(begin({"sweep", "a.TKL", "--vary", "Height=5,6", "--format", "xlsx"}), "PK\x03\x04");
    EXPECT_FALSE(std::filesystem::exists(Folder / "none"));
}

// Figures for which a fast conversion to text gives one digit more than needed.
TEST_F(Streams, NumbersAreTheShortestThatReadBack) {
    ProjectText project;
    project.height = "7064.900000000001";
    project.depth = "6598.349999999999";
    project.hole = "18418.033007";
    project.web = "2410802564.98220";
    project.barrier = "1E+22";
    project.spare = "0.1";
    Project("a.TKL", project);
    const std::string out = Run({"results", "--json", Project("a.TKL", project)}).out;
    EXPECT_THAT(out, testing::HasSubstr("\"Height\":7064.900000000001,"));
    EXPECT_THAT(out, testing::HasSubstr("\"DepthCover\":6598.349999999999,"));
    EXPECT_THAT(out, testing::HasSubstr("\"HoleWidth\":18418.033007,"));
    EXPECT_THAT(out, testing::HasSubstr("\"WebThickness\":2410802564.9822,"));
    EXPECT_THAT(out, testing::HasSubstr("\"BarrierPillarWidth\":1e+22,"));
    EXPECT_THAT(out, testing::HasSubstr("\"SpareSingle\":0.10000000149011612}"));
}

TEST_F(Streams, WholeNumbersOfUpToFifteenDigitsAreWrittenAsSuch) {
    ProjectText project;
    project.web = "1E+14";
    project.barrier = "1E+15";
    const std::string out = Run({"results", "--json", Project("a.TKL", project)}).out;
    EXPECT_THAT(out, testing::HasSubstr("\"WebThickness\":100000000000000,"));
    EXPECT_THAT(out, testing::HasSubstr("\"BarrierPillarWidth\":1e+15,"));
}

TEST_F(Streams, AConfigurationFileThatIsNotThereIsWrongUsage) {
    Project("a.TKL");
    EXPECT_EQ(Run({"settings", "none.ini"}).status, 2);
    EXPECT_EQ(Run({"settings", "--settings", "none.ini"}).status, 2);
    EXPECT_EQ(Run({"results", "--settings", "none.ini", "a.TKL"}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(Folder / "none.ini"));
}

TEST_F(Streams, AConfigurationFileThatCannotBeReadIsWrongUsage) {
    Project("a.TKL");
    WriteBytes(PathTo("large.ini"), "[TARVOKOLOptions]\nDefaultAbutment=40\n");
    std::filesystem::resize_file(Folder / "large.ini", 16 * 1024 * 1024 + 1);
    std::filesystem::create_directory(Folder / "folder.ini");
    ASSERT_EQ(::mkfifo(PathTo("tube.ini").c_str(), 0600), 0);
    for (const std::string name : {"large.ini", "folder.ini", "tube.ini"}) {
        SCOPED_TRACE(name);
        for (const std::vector<std::string>& command : {std::vector<std::string>{"settings", name},
                                                        {"settings", "--settings", name},
                                                        {"results", "--settings", name, "a.TKL"},
                                                        {"units", "--settings", name, "length", "ft", "1"}}) {
            const CliAnswer answer = Run(command);
            EXPECT_EQ(answer.status, 2);
            EXPECT_EQ(answer.out, "");
            EXPECT_THAT(answer.err, testing::HasSubstr(name));
        }
    }
}

TEST_F(Streams, ASpecialFileIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    for (const std::string name : {"/dev/zero", "/dev/null", "pipe", "."}) {
        SCOPED_TRACE(name);
        const json error{{"number", 75}, {"text", "Path/File access error"}};
        EXPECT_EQ(Run({"results", "--json", name}).Object()["error"], error);
    }
}

}  // namespace
}  // namespace tarvokol
