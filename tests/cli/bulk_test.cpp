// SPDX-License-Identifier: GPL-3.0-or-later
// Runs over many FILEs: one answer each, in order, each from a fresh program; what is said and where.
#include <filesystem>
#include <regex>

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;

class Bulk : public CliTest {
  protected:
    // What the command writes on standard error if that is a terminal; standard output goes nowhere. Standard input comes
    // from `before`, where that is given.
    std::string ErrorsOnATerminal(const std::string& arguments, const std::string& before = "") const {
        const std::string command = "cd '" + Folder.string() + "' && " +
                                    (before.empty() ? "exec" : before + " |") + " '" TARVOKOL_CLI "' " +
                                    arguments + " > /dev/null";
        int terminal = -1;
        const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            ::_exit(127);
        }
        std::string said;
        char bytes[256];
        for (ssize_t count = 0; (count = ::read(terminal, bytes, sizeof bytes)) > 0;)
            said.append(bytes, static_cast<std::size_t>(count));
        ::close(terminal);
        int status = 0;
        ::waitpid(child, &status, 0);
        return said;
    }
};

TEST_F(Bulk, KeysStandInTheirOrder) {
    Project("a.TKL");
    ProjectText foreign;
    foreign.magic = "OTHER";
    Project("b.TKL", foreign);
    WriteBytes(PathTo("c.TKL"), "TARVOKOL_101\r\n 0 \r\n");
    const CliAnswer answer = Run({"results", "--json", "a.TKL", "b.TKL", "c.TKL"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "");
    const std::string a =
        R"({"file":"a.TKL","ok":true,"messages":[],"project":{"UnitSystem":0,"ProjectTitle":"Ridge Panel 4",)"
        R"("ProjectDescription":"Upper seam, north highwall.\r\n","Height":10,"DepthCover":100,"HoleWidth":10,)"
        R"("CrosscutSpacing":1000000,"CrosscutAngle":90,"WebThickness":10,"BarrierPillarWidth":20,)"
        R"("NumberHoles":5,"CoalStrength":900,"UnitWeight":162,"AbutmentAngle":21,"SFWeb":1.600000023841858,)"
        R"("SFBarrier":2,"SpareSingle":0},"StabilityFactor":[)";
    EXPECT_EQ(answer.out.substr(0, a.size()), a);
    EXPECT_THAT(
        answer.out,
        testing::EndsWith(
            "\n{\"file\":\"b.TKL\",\"ok\":false,\"messages\":[\"Invalid file format\"],\"schema\":1}\n"
            "{\"file\":\"c.TKL\",\"ok\":false,\"messages\":[],"
            "\"error\":{\"number\":62,\"text\":\"Input past end of file\"},\"schema\":1}\n"));
}

TEST_F(Bulk, WordsForPeopleGoToStandardErrorUnderTheFilesName) {
    ProjectText flat;
    flat.height = "0";
    Project("flat.TKL", flat);
    const CliAnswer answer = Run({"results", "flat.TKL", "none.TKL"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "flat.TKL: Invalid entry height\nnone.TKL: File not found\n");
}

// A file that is refused, or cannot be read, takes no setting away from those after it.
TEST_F(Bulk, SettingsHoldForEveryFile) {
    WriteBytes(PathTo("s.ini"), "[TARVOKOLOptions]\r\nPlotRangeMin=100\r\nPlotRangeMax=300\r\n");
    ProjectText flat;
    flat.height = "0";
    Project("flat.TKL", flat);
    Project("a.TKL");
    WriteBytes(PathTo("cut.TKL"), "TARVOKOL_101\r\n 0 \r\n");
    const std::vector<json> answers = Run({"curve", "sf-depth", "--settings", "s.ini", "--json", "a.TKL",
                                           "flat.TKL", "a.TKL", "cut.TKL", "none.TKL", "a.TKL"})
                                          .Objects();
    ASSERT_EQ(answers.size(), 6u);
    EXPECT_EQ(answers[0], answers[2]);
    EXPECT_EQ(answers[0], answers[5]);
    EXPECT_NE(answers[0], Run({"curve", "sf-depth", "--json", "a.TKL"}).Object());
}

// One form under two extensions, for every command that writes objects.
TEST_F(Bulk, JsonLinesHaveTwoExtensions) {
    Project("a.TKL");
    const std::vector<std::vector<std::string>> commands{
        {"results", "a.TKL"},
        {"size", "a.TKL"},
        {"curve", "web", "a.TKL"},
        {"plan", "a.TKL"},
        {"risk", "a.TKL", "-q", "--random", "Height=uniform:5:6", "--samples", "9"},
        {"sweep", "a.TKL", "-q", "--vary", "Height=5,6"}};
    for (const auto& command : commands) {
        SCOPED_TRACE(command.front());
        const auto with = [this, &command](const std::vector<std::string>& more) {
            std::vector<std::string> words = command;
            words.insert(words.end(), more.begin(), more.end());
            return Run(words).out;
        };
        const std::string objects = with({"--json"});
        EXPECT_THAT(objects, testing::StartsWith("{\"file\":\"a.TKL\""));
        EXPECT_EQ(with({"--format", "json"}), objects);
        EXPECT_EQ(with({"--format", "jsonl"}), objects);
        with({"-o", command.front() + ".jsonl"});
        EXPECT_EQ(ReadBytes(PathTo(command.front() + ".jsonl")), objects);
    }
    Run({"size", "-o", "out/", "--format", "jsonl", "a.TKL"});
    EXPECT_EQ(ReadBytes(PathTo("out/a.jsonl")), Run({"size", "--json", "a.TKL"}).out);
}

// Names with line ends in them, as find -print0 lists them.
TEST_F(Bulk, PathsOfAListMayEndInNul) {
    Project("a.TKL");
    Project("b\nc.TKL");
    Project("d\r");
    const std::string list("a.TKL\0b\nc.TKL\0\0d\r", 17);
    for (const std::string option : {"-0", "--null"}) {
        const auto objects = Run({"size", "--json", option, "-"}, list).Objects();
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(objects[0]["file"], "a.TKL");
        EXPECT_EQ(objects[1]["file"], "b\nc.TKL");
        EXPECT_EQ(objects[2]["file"], "d\r");
        for (const json& object : objects) EXPECT_EQ(object["ok"], true);
    }
    EXPECT_EQ(Run({"size", "--json", "-0", "-"}, "").out, "");
}

TEST_F(Bulk, ManyFilesOfAListAreAnsweredInOrder) {
    Project("good.TKL");
    std::string list;
    for (int i = 0; i < 3000; ++i) list += i % 3 == 0 ? "good.TKL\n" : "none" + std::to_string(i) + "\r\n";
    const CliAnswer answer = Run({"size", "--json", "-"}, list);
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "");
    const auto objects = answer.Objects();
    ASSERT_EQ(objects.size(), 3000u);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(objects[i]["file"], i % 3 == 0 ? "good.TKL" : "none" + std::to_string(i));
        EXPECT_EQ(objects[i]["ok"], i % 3 == 0);
    }
}

// Good projects of both unit systems among some that are refused, damaged, foreign or missing.
TEST_F(Bulk, AnswersAreTheSameOnAnyNumberOfThreads) {
    ProjectText flat, foreign, crowded;
    flat.height = "0";
    foreign.magic = "OTHER";
    crowded.holes = " 25 ";
    Project("good.TKL");
    Project("metric.TKL", MetricProject());
    Project("flat.TKL", flat);
    Project("foreign.TKL", foreign);
    Project("crowded.TKL", crowded);
    WriteBytes(PathTo("cut.TKL"), "TARVOKOL_101\r\n 0 \r\n");
    const std::vector<std::string> names{"good.TKL",    "flat.TKL", "metric.TKL", "cut.TKL",
                                         "crowded.TKL", "none.TKL", "foreign.TKL"};
    std::string list;
    for (int i = 0; i < 60; ++i) list += names[static_cast<std::size_t>(i % 7)] + "\n";
    for (const std::string command :
         {"results -", "results --json -", "size -", "size --json -", "curve sf-depth -", "curve web -",
          "curve barrier --json -", "convert --to metric --json -o $t/ -", "save --json -o $t/ -",
          "results -o $t/ -", "curve sf-hole -o $t/ -"}) {
        SCOPED_TRACE(command);
        WriteBytes(PathTo("list"), list);
        const auto answer = [&](const std::string& threads) {
            const CliAnswer told = Shell("t=out" + threads + "; $cli " + command + " --threads " + threads +
                                         " < list; echo status $?; [ -e $t ] && cd $t && cat *");
            return std::regex_replace(told.out + told.err, std::regex("out" + threads + "/"), "out/");
        };
        const std::string one = answer("1");
        EXPECT_THAT(one, testing::ContainsRegex("status [13]\n"));
        for (const std::string threads : {"3", "8"}) EXPECT_EQ(answer(threads), one) << threads;
    }
}

// The second project is read after the first one has taken its place.
TEST_F(Bulk, AResultThatAProjectIsReadFromStandsBeforeIt) {
    Project("a.TKL");
    Project("Metric_a.TKL");
    std::filesystem::create_symlink("Metric_a.TKL", PathTo("link.TKL"));
    for (const std::string second : {"Metric_a.TKL", "./Metric_a.TKL", "link.TKL"}) {
        Project("Metric_a.TKL");
        const CliAnswer answer =
            Run({"convert", "--to", "metric", "--force", "--threads", "4", "a.TKL", second});
        EXPECT_EQ(answer.status, 1);
        EXPECT_EQ(answer.out, "a.TKL: Metric_a.TKL\n");
        EXPECT_EQ(answer.err, second + ": The project is already in Metric units\n");
    }
}

// Results are written in the order of the projects, whichever was calculated first.
TEST_F(Bulk, OfProjectsOfOneNameTheFirstHasTheFile) {
    std::vector<std::string> words{"size", "--json", "--threads", "8", "-o", "out/"};
    for (int i = 0; i < 40; ++i) {
        const std::string folder = "f" + std::to_string(i);
        std::filesystem::create_directory(PathTo(folder));
        ProjectText project;
        project.depth = std::to_string(100 + i);
        Project(folder + "/a.TKL", project);
        words.push_back(folder + "/a.TKL");
    }
    const CliAnswer answer = Run(words);
    EXPECT_EQ(answer.status, 3);
    const std::vector<json> objects = answer.Objects();
    ASSERT_EQ(objects.size(), 40u);
    EXPECT_EQ(objects[0]["ok"], true);
    for (std::size_t i = 1; i < objects.size(); ++i) {
        EXPECT_EQ(objects[i]["file"], "f" + std::to_string(i) + "/a.TKL");
        EXPECT_EQ(objects[i]["error"]["text"],
                  "out/a.json: holds the result of another project of the same name");
    }
    EXPECT_EQ(ReadBytes(PathTo("out/a.json")), Run({"size", "--json", "f0/a.TKL"}).out);
}

TEST_F(Bulk, AnEmptyListIsDone) {
    const CliAnswer answer = Run({"results", "--json", "-"}, "\n\n");
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.out + answer.err, "");
}

// A file of 12 bytes and more has its magic, unless a CR without its LF stands after it; only the last three
// cuts leave the last number whole.
TEST_F(Bulk, AProjectCutAtAnyByteFailsCleanlyAndIsNotTouched) {
    const std::string bytes = ProjectText().Bytes();
    std::string list;
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        WriteBytes(PathTo(std::to_string(length)), bytes.substr(0, length));
        list += std::to_string(length) + "\n";
    }
    const auto objects = Run({"results", "--json", "-"}, list).Objects();
    ASSERT_EQ(objects.size(), bytes.size() + 1);
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        SCOPED_TRACE(length);
        const json& object = objects[length];
        const bool foreign = (length > 0 && length < 12) || length == 13;
        const bool whole = length + 2 >= bytes.size();
        EXPECT_EQ(object["ok"], whole);
        EXPECT_EQ(object["messages"], foreign ? json{"Invalid file format"} : json::array());
        EXPECT_EQ(object.value("error", json{{"number", 0}})["number"], foreign || whole ? 0 : 62);
        EXPECT_EQ(ReadBytes(PathTo(std::to_string(length))), bytes.substr(0, length));
    }
}

TEST_F(Bulk, ADescriptionLosesItsCommasBySavesUntilNoneIsLeft) {
    ProjectText project;
    project.description = {"First, with a comma", "second \"quoted\", line", "", "x, \"y, z\"", "  four  "};
    Project("a.TKL", project);
    EXPECT_EQ(Run({"save", "-o", "b.TKL", "a.TKL"}).status, 0);
    EXPECT_EQ(Run({"save", "-o", "c.TKL", "b.TKL"}).status, 0);
    ProjectText kept = project;
    kept.description = {"First, with a comma", "second \"quoted\"", "line", "x", "y, z", "four"};
    EXPECT_EQ(ReadBytes(PathTo("b.TKL")), kept.Bytes());
    kept.description = {"First, with a comma", "second \"quoted\"", "line", "x", "y", "z", "four"};
    EXPECT_EQ(ReadBytes(PathTo("c.TKL")), kept.Bytes());
    EXPECT_EQ(Run({"save", "-o", "d.TKL", "c.TKL"}).status, 0);
    EXPECT_EQ(ReadBytes(PathTo("d.TKL")), kept.Bytes());
}

TEST_F(Bulk, OnlyATerminalGetsAProgressLine) {
    Project("a.TKL");
    EXPECT_EQ(ErrorsOnATerminal("size a.TKL a.TKL a.TKL"), "\r3/3\r\n");
    EXPECT_EQ(ErrorsOnATerminal("size --quiet a.TKL a.TKL a.TKL"), "");
    EXPECT_EQ(ErrorsOnATerminal("size a.TKL a.TKL"), "\r2/2\r\n");
    EXPECT_EQ(ErrorsOnATerminal("size a.TKL"), "");
    EXPECT_EQ(Run({"size", "a.TKL", "a.TKL", "a.TKL"}).err, "");
}

TEST_F(Bulk, TheProgressLineComesAtEveryFiftiethFileAndAtTheEnd) {
    Project("a.TKL");
    std::string files;
    for (int i = 0; i < 101; ++i) files += " a.TKL";
    EXPECT_EQ(ErrorsOnATerminal("size" + files), "\r50/101\r100/101\r101/101\r\n");
}

// The first line comes when rows are done after a fifth of a second, so these come much later, and at once; at the end none
// is left.
TEST_F(Bulk, AStudyTellsOfItsRowsWhileItRuns) {
    Project("a.TKL");
    const std::string rows = "(echo DepthCover; sleep 2; printf '100\\n200\\n')";
    EXPECT_THAT(ErrorsOnATerminal("table --json a.TKL -", rows),
                testing::MatchesRegex("\r\x1b\\[K2 rows  [0-9]+\\.[0-9] rows/s\r\x1b\\[K"));
    EXPECT_EQ(ErrorsOnATerminal("table --json --quiet a.TKL -", rows), "");
    EXPECT_EQ(Run({"table", "--json", "a.TKL", "-"}, "DepthCover\n100\n").err, "");
}

TEST_F(Bulk, ADashBesideOtherFilesIsAFile) {
    Project("a.TKL");
    const CliAnswer answer = Run({"size", "-", "a.TKL"}, "a.TKL\n");
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "-: File not found; a project on standard input is read with --stdin-project\n");
}

TEST_F(Bulk, EveryCommandTakesTheCommonOptions) {
    Project("a.TKL");
    WriteBytes(PathTo("s.ini"), "[Settings]\r\nDefaultUnits=1\r\n");
    EXPECT_EQ(Run({"units", "--settings", "s.ini", "--quiet", "--json", "length", "ft", "1"}).status, 0);
    EXPECT_EQ(
        Run({"settings", "--settings", "s.ini", "--quiet", "--json"}).Object()["Settings"]["DefaultUnits"],
        1);
    for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
             {"results"}, {"size"}, {"curve", "web"}, {"plan"}, {"convert", "--to", "metric"}, {"save"}}) {
        SCOPED_TRACE(command.front());
        std::vector<std::string> words = command;
        const std::string output = command.front() + (command.front() == "save" ? ".TKL" : ".json");
        for (const std::string word : {"--settings", "s.ini", "--quiet", "--json", "--force", "-o"})
            words.push_back(word);
        words.insert(words.end(), {output, "--", "a.TKL"});
        const CliAnswer answer = Run(words);
        EXPECT_EQ(answer.status, 0) << answer.err;
        EXPECT_EQ(answer.Object()["ok"], true);
        EXPECT_NE(ReadBytes(PathTo(output)), "");
    }
}

}  // namespace
}  // namespace tarvokol
