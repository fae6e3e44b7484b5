// SPDX-License-Identifier: GPL-3.0-or-later
// What people and scripts expect of any command line: words that are nearly right, standard streams, numbers
// and units.
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Words = std::vector<std::string>;

class Manners : public CliTest {
  protected:
    ProjectText MetricText() const {
        ProjectText project;
        project.units = " 1 ";
        project.height = "3";
        project.depth = "100";
        project.hole = "3";
        project.web = "4";
        project.barrier = "8";
        project.strength = "7";
        project.weight = "25";
        return project;
    }
    // What a command says that is wrongly called; it does nothing else.
    std::string Refusal(const Words& arguments, const std::string& input = "") const {
        const CliAnswer answer = Run(arguments, input);
        EXPECT_EQ(answer.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(answer.out, "") << testing::PrintToString(arguments);
        return answer.err;
    }
};

// What a command says of wrong words, and how to read more.
std::string More(const std::string& caller, const std::string& text) {
    return caller + ": " + text + "\nRun " + caller + " --help for more information.\n";
}

TEST_F(Manners, AWrongCommandIsNamedWithTheNearestRightOne) {
    const std::string cli = "tarvokol-cli";
    EXPECT_EQ(Refusal({"resluts", "p.TKL"}), More(cli, "\"resluts\" is no command; did you mean results?"));
    EXPECT_EQ(Refusal({"Result"}), More(cli, "\"Result\" is no command; did you mean results?"));
    EXPECT_EQ(Refusal({"swep"}), More(cli, "\"swep\" is no command; did you mean sweep?"));
    EXPECT_EQ(Refusal({"conv", "p.TKL"}), More(cli, "\"conv\" is no command; did you mean convert?"));
    EXPECT_EQ(Refusal({"p.TKL"}), More(cli, "\"p.TKL\" is no command"));
    EXPECT_EQ(Refusal({""}), More(cli, "\"\" is no command"));
    EXPECT_EQ(Refusal({}), More(cli, "no command is given"));
}

TEST_F(Manners, AWrongOptionIsNamedWithTheNearestRightOne) {
    Project("p.TKL");
    EXPECT_EQ(Refusal({"results", "--jsno", "p.TKL"}),
              More("tarvokol-cli results", "--jsno is no option; did you mean --json?"));
    EXPECT_EQ(Refusal({"plan", "--made=strength", "p.TKL"}),
              More("tarvokol-cli plan", "--made is no option; did you mean --mode?"));
    EXPECT_EQ(Refusal({"results", "--jsno"}),
              More("tarvokol-cli results", "--jsno is no option; did you mean --json?"));
    EXPECT_EQ(Refusal({"size", "-z", "p.TKL"}), More("tarvokol-cli size", "-z is no option"));
    EXPECT_EQ(Refusal({"size", "--colour", "p.TKL"}), More("tarvokol-cli size", "--colour is no option"));
    EXPECT_EQ(Refusal({"--verison"}),
              More("tarvokol-cli", "--verison is no option; did you mean --version?"));
    EXPECT_EQ(Refusal({"--json", "size", "p.TKL"}),
              More("tarvokol-cli size", "--json: the options of a command stand after its name"));
}

TEST_F(Manners, AWrongChoiceIsNamedWithTheNearestRightOne) {
    Project("p.TKL");
    EXPECT_EQ(Refusal({"curve", "sf-hight", "p.TKL"}),
              More("tarvokol-cli curve",
                   "KIND: \"sf-hight\" is none of sf-height, sf-depth, sf-hole, web, barrier; did you mean "
                   "sf-height?"));
    EXPECT_THAT(Refusal({"plan", "--mode", "capasity", "p.TKL"}), HasSubstr("; did you mean capacity?\n"));
    EXPECT_EQ(Refusal({"convert", "--to", "imperial", "p.TKL"}),
              More("tarvokol-cli convert", "--to: \"imperial\" is none of english, metric"));
    EXPECT_THAT(Refusal({"units", "lenght", "ft", "1"}), HasSubstr("; did you mean length?\n"));
    EXPECT_EQ(Refusal({"units", "stress", "pfs", "1"}),
              "tarvokol-cli units: UNIT: \"pfs\" is none of psi, ksi, psf, Pa, MPa; did you mean psf?\n");
    EXPECT_EQ(Refusal({"units", "length", "furlong", "1"}),
              "tarvokol-cli units: UNIT: \"furlong\" is none of in, ft, cm, m\n");
}

TEST_F(Manners, WhatIsMissingOrTooMuchIsNamed) {
    Project("p.TKL");
    const auto refused = [this](const Words& words, const std::string& text) {
        EXPECT_EQ(Refusal(words), More("tarvokol-cli " + words.front(), text));
    };
    refused({"curve"}, "KIND is missing");
    refused({"curve", "web"}, "FILE is missing");
    refused({"sweep"}, "PROJECT is missing");
    refused({"convert", "p.TKL"}, "--to is missing");
    refused({"sweep", "p.TKL"}, "--vary is missing");
    refused({"units", "length", "ft"}, "VALUE is missing");
    refused({"units", "length", "ft", "1", "2"}, "\"2\" is one argument too many");
    refused({"sweep", "p.TKL", "q.TKL", "--vary", "Height=5"}, "\"q.TKL\" is one argument too many");
    refused({"results", "p.TKL", "--format"}, "--format: its value is missing");
    refused({"results", "p.TKL", "-o"}, "-o: its value is missing");
    refused({"sweep", "p.TKL", "--vary"}, "--vary: its value is missing");
    refused({"results", "--json=no", "p.TKL"}, "--json takes no value");
    refused({"results", "--format", "txt", "--format", "pdf", "p.TKL"},
            "--format is given 2 times and takes one value");
    refused({"results", "--settings", "none.ini", "p.TKL"}, "--settings: \"none.ini\" is not there");
    refused({"results", "--settings", ".", "p.TKL"}, "--settings: \".\" is a folder");
}

TEST_F(Manners, HelpOfACommandIsAskedForInTwoWays) {
    EXPECT_EQ(Run({"help", "sweep"}).out, Run({"sweep", "--help"}).out);
    EXPECT_EQ(Run({"help"}).out, Run({"--help"}).out);
    EXPECT_THAT(Run({"help"}).out, EndsWith("`tarvokol-cli help COMMAND` tells more of a command.\n"));
    EXPECT_EQ(Run({"help", "units"}).status, 0);
    EXPECT_EQ(Refusal({"help", "untis"}),
              More("tarvokol-cli", "\"untis\" is no command; did you mean units?"));
}

TEST_F(Manners, HelpStaysWithinAHundredColumns) {
    for (const char* const command : {"", "results", "size", "save", "curve", "plan", "convert", "units",
                                      "settings", "sweep", "table", "risk", "fit"}) {
        std::istringstream lines(Run(*command == '\0' ? Words{"help"} : Words{"help", command}).out);
        int count = 0;
        for (std::string line; std::getline(lines, line); ++count) EXPECT_LE(line.size(), 100U) << line;
        EXPECT_GT(count, 8) << command;
    }
}

TEST_F(Manners, AProjectOnStandardInputWithoutItsOptionIsNoListOfFiles) {
    const std::string project = ProjectText().Bytes();
    EXPECT_EQ(
        Refusal({"results", "-"}, project),
        "tarvokol-cli results: -: standard input holds a project, no list of files; give --stdin-project to "
        "read it as one\n");
    const CliAnswer answer = Run({"sweep", "-", "--vary", "Height=5,6"}, project);
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "-: File not found; a project on standard input is read with --stdin-project\n");
    EXPECT_EQ(Run({"sweep", "-", "--stdin-project", "-q", "--vary", "Height=5,6"}, project).status, 0);
}

TEST_F(Manners, ControlCharactersInNamesAreShown) {
    const std::string name = "a\x1b[2Jb\nc\x7f\xc2\x9b.TKL";
    const std::string shown = R"(a\x1B[2Jb\x0Ac\x7F\u009B.TKL)";
    EXPECT_EQ(Run({"size", name}).err, shown + ": File not found\n");
    EXPECT_EQ(Run({"sweep", name, "--vary", "Height=5"}).err, shown + ": File not found\n");
    EXPECT_EQ(Run({"size", "--settings", name, "p.TKL"}).status, 2);
    EXPECT_THAT(Run({"size", "--settings", name, "p.TKL"}).err,
                HasSubstr("\"" + shown + "\" is not there\n"));
    // What goes into a pipe is the name as it is.
    Project(name);
    EXPECT_EQ(Run({"convert", "--to", "metric", name, "-o", "out.TKL"}).out, name + ": out.TKL\n");
}

TEST_F(Manners, LongAndShortOptionsAreTheSame) {
    Project("p.TKL");
    EXPECT_EQ(Run({"results", "--output", "a.txt", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"results", "--output=b.txt", "-q", "p.TKL"}).status, 0);
    EXPECT_TRUE(SameBytes(ReadBytes(PathTo("a.txt")), ReadBytes(PathTo("b.txt"))));
    EXPECT_EQ(Run({"sweep", "-q", "p.TKL", "--vary", "Height=5,6"}).err, "");
}

TEST_F(Manners, StandardOutputTakesWhatAFileWould) {
    Project("p.TKL");
    const std::vector<std::pair<Words, std::string>> outputs{
        {{"results"}, "txt"},      {{"curve", "sf-depth"}, "csv"},
        {{"curve", "web"}, "svg"}, {{"curve", "web"}, "png"},
        {{"plan"}, "svg"},         {{"plan"}, "png"},
        {{"plan"}, "csv"}};
    for (const auto& [command, format] : outputs) {
        SCOPED_TRACE(command.front() + " " + format);
        EXPECT_EQ(Run(With(command, {"--force", "-o", "f." + format, "p.TKL"})).status, 0);
        const CliAnswer answer = Run(With(command, {"-o", "-", "--format", format, "p.TKL"}));
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.err, "");
        EXPECT_TRUE(SameBytes(answer.out, ReadBytes(PathTo("f." + format))));
        EXPECT_TRUE(SameBytes(Run(With(command, {"--format", format, "p.TKL"})).out, answer.out));
    }
    EXPECT_FALSE(std::filesystem::exists(Folder / "-"));
}

TEST_F(Manners, StandardOutputTakesPdfWorkbooksAndObjects) {
    Project("p.TKL");
    EXPECT_THAT(Run({"results", "-o", "-", "--format", "pdf", "p.TKL"}).out, StartsWith("%PDF-"));
    EXPECT_THAT(Run({"plan", "--format", "pdf", "p.TKL"}).out, StartsWith("%PDF-"));
    EXPECT_THAT(Run({"curve", "web", "--format", "xlsx", "p.TKL"}).out, StartsWith("PK\x03\x04"));
    EXPECT_THAT(Run({"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "-", "--format", "xlsx"}).out,
                StartsWith("PK\x03\x04"));
    EXPECT_THAT(Run({"sweep", "p.TKL", "--vary", "Height=5,6", "--format", "svg"}).out, StartsWith("<?xml"));
    EXPECT_THAT(
        Run({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "50", "--format", "svg"}).out,
        StartsWith("<?xml"));
    for (const Words& command : {Words{"results"}, {"size"}, {"curve", "web"}, {"plan"}}) {
        EXPECT_TRUE(SameBytes(Run(With(command, {"-o", "-", "--format", "json", "p.TKL"})).out,
                              Run(With(command, {"--json", "p.TKL"})).out))
            << command.front();
    }
    EXPECT_TRUE(SameBytes(Run({"results", "-o", "-", "p.TKL"}).out, Run({"results", "p.TKL"}).out));
}

TEST_F(Manners, AReaderThatHasSeenEnoughLeavesNothingBehind) {
    Project("p.TKL");
    const std::string scratch = PathTo("scratch");
    std::filesystem::create_directory(scratch);
    const std::string command = "cd '" + Folder.string() + "' && TMPDIR='" + scratch +
                                "' '" TARVOKOL_CLI
                                "' sweep --quiet p.TKL --vary Height=2:12/300 --vary DepthCover=50:900/300 "
                                "--format xlsx | head -c 1 > first";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadBytes(PathTo("first")), "P");
    EXPECT_TRUE(std::filesystem::is_empty(scratch));
}

TEST_F(Manners, StandardOutputTakesAProject) {
    Project("p.TKL");
    EXPECT_EQ(Run({"save", "-o", "q.TKL", "p.TKL"}).status, 0);
    const CliAnswer saved = Run({"save", "-o", "-", "p.TKL"});
    EXPECT_EQ(saved.status, 0);
    EXPECT_TRUE(SameBytes(saved.out, ReadBytes(PathTo("q.TKL"))));
    const CliAnswer converted = Run({"convert", "--to", "metric", "-o", "-", "p.TKL"});
    EXPECT_EQ(converted.status, 0);
    EXPECT_THAT(converted.out, StartsWith("TARVOKOL_101\r\n 1 \r\n"));
    EXPECT_EQ(converted.out.find("p.TKL:"), std::string::npos);
}

TEST_F(Manners, StandardOutputTakesOneThingAtATime) {
    Project("p.TKL");
    Project("q.TKL");
    EXPECT_THAT(Refusal({"plan", "--format", "svg", "p.TKL", "q.TKL"}), HasSubstr("several projects"));
    EXPECT_THAT(Refusal({"save", "-o", "-", "p.TKL", "q.TKL"}), HasSubstr("several projects"));
    EXPECT_THAT(Refusal({"plan", "--json", "--format", "svg", "p.TKL"}), HasSubstr("not both"));
    EXPECT_THAT(Refusal({"save", "--json", "-o", "-", "p.TKL"}), HasSubstr("not both"));
    EXPECT_THAT(Refusal({"plan", "--format", "txt", "p.TKL"}), HasSubstr("txt"));
    EXPECT_THAT(Refusal({"plan", "-o", "a.png", "--format", "svg", "p.TKL"}),
                HasSubstr("--format: a.png has the extension of another format"));
    EXPECT_THAT(Run({"results", "--format", "txt", "p.TKL", "q.TKL"}).out, HasSubstr("Project File: q.TKL"));
}

TEST_F(Manners, AFolderReceivesFilesOfTheFormatNamed) {
    Project("p.TKL");
    EXPECT_EQ(Run({"curve", "web", "-o", "out/", "--format", "svg", "p.TKL"}).status, 0);
    EXPECT_THAT(ReadBytes(PathTo("out/p.svg")), StartsWith("<?xml"));
}

TEST_F(Manners, AProjectComesOnStandardInput) {
    const std::string bytes = ProjectText().Bytes();
    const json object = Run({"results", "--json", "--stdin-project", "-"}, bytes).Object();
    EXPECT_EQ(object["file"], "-");
    EXPECT_EQ(object["ok"], true);
    EXPECT_THAT(object["pages"][0].get<std::string>(), HasSubstr("Project File: -\r\n"));
    Project("p.TKL");
    const auto both = Run({"size", "--json", "--stdin-project", "p.TKL", "-"}, bytes).Objects();
    ASSERT_EQ(both.size(), 2u);
    EXPECT_EQ(both[0]["SuggestedWeb"], both[1]["SuggestedWeb"]);
    EXPECT_TRUE(SameBytes(Run({"plan", "--stdin-project", "--format", "svg", "-"}, bytes).out,
                          Run({"plan", "--format", "svg", "p.TKL"}).out));
    const CliAnswer metric = Run({"convert", "--to", "metric", "--stdin-project", "-o", "-", "-"}, bytes);
    EXPECT_TRUE(SameBytes(metric.out, Run({"convert", "--to", "metric", "-o", "-", "p.TKL"}).out));
    EXPECT_TRUE(SameBytes(Run({"sweep", "--stdin-project", "-", "--vary", "Height=5,6"}, bytes).out,
                          Run({"sweep", "p.TKL", "--vary", "Height=5,6"}).out));
}

TEST_F(Manners, WhatIsNoProjectOnStandardInputIsAnError) {
    const json empty{{"number", 62}, {"text", "Input past end of file"}};
    EXPECT_EQ(Run({"size", "--json", "--stdin-project", "-"}, "").Object()["error"], empty);
    const CliAnswer other = Run({"size", "--stdin-project", "-"}, "no project\r\n");
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.err, "-: Invalid file format\n");
}

TEST_F(Manners, StandardInputHoldsOneProject) {
    Project("p.TKL");
    EXPECT_THAT(Refusal({"size", "--stdin-project", "p.TKL"}), HasSubstr("one FILE must be -"));
    EXPECT_THAT(Refusal({"size", "--stdin-project", "-", "-"}), HasSubstr("one FILE must be -"));
    EXPECT_THAT(Refusal({"plan", "--stdin-project", "-o", "out/", "-"}),
                HasSubstr("no name for a file in the folder"));
    EXPECT_THAT(Refusal({"convert", "--to", "metric", "--stdin-project", "-"}), HasSubstr("with -o"));
    EXPECT_THAT(Refusal({"table", "--stdin-project", "-", "-"}), HasSubstr("not both"));
    EXPECT_FALSE(std::filesystem::exists(Folder / "out"));
}

TEST_F(Manners, TheCurvesOfSeveralProjectsAreOneTable) {
    Project("a.TKL");
    Project("b,c.TKL");
    const std::string out = Run({"curve", "sf-height", "a.TKL", "b,c.TKL"}).out;
    EXPECT_THAT(out, StartsWith("File,Extraction Height (ft),Overall,Webs ONLY,Barrier Pillar\na.TKL,3,"));
    EXPECT_THAT(out, HasSubstr("\n\"b,c.TKL\",3,"));
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 21);  // a header and twice ten heights
    EXPECT_TRUE(SameBytes(Run({"curve", "sf-height", "--format", "csv", "-"}, "a.TKL\nb,c.TKL\n").out, out));
}

TEST_F(Manners, ATableOfCurvesHoldsOneUnitSystem) {
    Project("a.TKL");
    Project("m.TKL", MetricText());
    Project("z.TKL");
    const CliAnswer answer = Run({"curve", "sf-depth", "a.TKL", "m.TKL", "z.TKL"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(
        answer.err,
        "m.TKL: The project is in Metric units and the table in others; run it by itself, or convert it\n");
    EXPECT_EQ(std::count(answer.out.begin(), answer.out.end(), '\n'), 103);
    EXPECT_EQ(Run({"curve", "sf-depth", "--json", "a.TKL", "m.TKL"}).status, 0);
    EXPECT_EQ(Run({"curve", "sf-depth", "-o", "out/", "a.TKL", "m.TKL"}).status, 0);
}

TEST_F(Manners, ASizingCurveNamesItsUnit) {
    EXPECT_THAT(Run({"curve", "web", Project("a.TKL")}).out,
                StartsWith("Depth of Cover (ft),Web Thickness (ft)\n"));
    const CliAnswer metric = Run({"curve", "barrier", Project("m.TKL", MetricText())});
    EXPECT_THAT(metric.out, StartsWith("Depth of Cover (m),Barrier Width (in)\n"));
    EXPECT_NE(metric.err, "");
}

TEST_F(Manners, ThePlanIsATableForPrograms) {
    ProjectText project;
    project.web = "8";
    project.holes = " 3 ";
    Project("a.TKL", project);
    Project("m.TKL", MetricText());
    EXPECT_EQ(Run({"plan", "--format", "csv", "a.TKL"}).out,
              "File,Pillar,Kind,Unit,X1,Y1,X2,Y2,X3,Y3,X4,Y4\n"
              "a.TKL,1,Barrier,ft,131,64,151,64,151,254,131,254\n"
              "a.TKL,2,Web,ft,161,64,169,64,169,254,161,254\n"
              "a.TKL,3,Web,ft,179,64,187,64,187,254,179,254\n");
    EXPECT_THAT(Run({"plan", "--format", "csv", Project("pit \"A\", north.TKL", project)}).out,
                HasSubstr("\n\"pit \"\"A\"\", north.TKL\",1,Barrier,ft,131,64,"));
    const std::string both = Run({"plan", "--format", "csv", "a.TKL", "m.TKL"}).out;
    EXPECT_EQ(std::count(both.begin(), both.end(), '\n'), 9);
    EXPECT_THAT(both, HasSubstr("\nm.TKL,1,Barrier,m,"));
}

TEST_F(Manners, ANumberIsOneToItsLastCharacter) {
    Project("p.TKL");
    for (const std::string text :
         {"abc", "1,500", "1e400", "", "1 5", "0x10", "nan", "inf", "1.5x", ".", "1D2"}) {
        SCOPED_TRACE(text);
        EXPECT_THAT(Refusal({"units", "length", "ft", text}),
                    HasSubstr("VALUE: \"" + text + "\" is no number"));
        EXPECT_NE(Refusal({"units", "--json", "length", "ft", text}), "");
        EXPECT_THAT(Refusal({"sweep", "p.TKL", "--vary", "Height=" + text + ":9:1"}), HasSubstr("Height"));
        EXPECT_THAT(Refusal({"risk", "p.TKL", "--random", "Height=uniform:" + text + ":9"}),
                    HasSubstr("Height"));
        EXPECT_NE(Refusal({"sweep", "p.TKL", "--vary", "Height=5,6", "--threads", text}), "");
        const Words risk{"risk", "p.TKL", "--random", "Height=uniform:5:6"};
        for (const std::string option : {"--samples", "--seed"}) {
            EXPECT_THAT(Refusal(With(risk, {option, text})), HasSubstr(option));
        }
    }
    EXPECT_THAT(Refusal({"units", "length", "ft", "1,500"}), HasSubstr("no thousands separators"));
    for (const std::string text : {"0", "010", "-1", "1025", "1e2"})
        EXPECT_THAT(Refusal({"sweep", "p.TKL", "--vary", "Height=5,6", "--threads=" + text}),
                    HasSubstr("1 to 1024"));
    for (const std::string text : {"0", "1.5", "-3"})
        EXPECT_THAT(Refusal({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples=" + text}),
                    HasSubstr("--samples"));
}

TEST_F(Manners, AnEmptyWordIsNoPath) {
    Project("p.TKL");
    EXPECT_THAT(Refusal({"results", "-o", "", "p.TKL"}), HasSubstr("--output: \"\" is empty"));
    EXPECT_THAT(Refusal({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples-out", ""}),
                HasSubstr("--samples-out: \"\" is empty"));
}

TEST_F(Manners, ObjectsTellTheUnitOfEachFigure) {
    Project("p.TKL");
    Project("m.TKL", MetricText());
    const json english = Run({"results", "--json", "p.TKL"}).Object()["units"];
    EXPECT_EQ(english["Height"], "ft");
    EXPECT_EQ(english["CoalStrength"], "psi");
    EXPECT_EQ(english["PillarStrength"], "psf");
    EXPECT_EQ(english["PillarArea"], "ft2");
    EXPECT_EQ(english["CapacityTotal"], json({"lbs", "lbs", "lbs/ft"}));
    EXPECT_EQ(english["TotalLoad"], json({"lbs", "lbs", "lbs/ft", "lbs/ft"}));
    EXPECT_EQ(english["SideAbutmentLoad"], "lbs/ft");
    const json metric = Run({"results", "--json", "m.TKL"}).Object()["units"];
    EXPECT_EQ(metric["UnitWeight"], "kN/m3");
    EXPECT_EQ(metric["PillarStrength"], "kPa");
    EXPECT_EQ(metric["DevelopmentLoad"], json({"kN", "kN", "kN/m"}));
    EXPECT_EQ(Run({"plan", "--json", "m.TKL"}).Object()["units"],
              json({{"PlotWidth", "m"}, {"PlotHeight", "m"}, {"lines", "m"}, {"texts", "m"}}));
    EXPECT_EQ(Run({"size", "--json", "m.TKL"}).Object()["units"]["SuggestedWeb"], "in");
    EXPECT_EQ(
        Run({"convert", "--json", "--to", "metric", "-o", "c.TKL", "p.TKL"}).Object()["units"]["Height"],
        "m");
    EXPECT_EQ(Run({"save", "--json", "-o", "s.TKL", "p.TKL"}).Object()["units"]["Height"], "ft");
}

TEST_F(Manners, TheVersionNamesTheBuild) {
    const std::string commit = TARVOKOL_COMMIT;  // empty for sources outside of a repository
    EXPECT_THAT(Run({"--version"}).out, testing::MatchesRegex("tarvokol-cli [0-9]+\\.[0-9]+\\.[0-9]+\nBuilt" +
                                                              (commit.empty() ? "" : " of commit " + commit) +
                                                              " by (GCC|Clang) [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
}  // namespace tarvokol
