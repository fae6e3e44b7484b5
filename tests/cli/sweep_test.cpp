// SPDX-License-Identifier: GPL-3.0-or-later
#include <fstream>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using SweepCommand = CliTest;

// By hand, for webs of the plain panel: strength 900 x 144 x (0.64 + 0.54 x web / 10 - 0.18 x web^2 / 10^7)
// psf, factor strength x web / (162 x depth x (10 + web)):
//   web 10: 129600 x 1.1799982 = 152927.76672, x 10 / (16200 x 20) = 4.7199928, half of it under twice the
//   depth; web 20: 129600 x 1.7199928 = 222911.06688, x 20 / (16200 x 30) = 9.1732949333...
TEST_F(SweepCommand, TwoByTwoPanelsOfTheWorkedExample) {
    const CliAnswer answer = Run({"sweep", Project("p.TKL"), "--vary", "WebThickness=10,20", "--vary",
                                  "DepthCover=100:200:100", "--json"});
    EXPECT_EQ(answer.status, 0);
    const auto rows = answer.Objects();
    ASSERT_EQ(rows.size(), 4u);
    const double webs[] = {10, 10, 20, 20};
    const double depths[] = {100, 200, 100, 200};
    const double factors[] = {4.7199928, 2.3599964, 9.17329493333333, 4.58664746666667};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[i]["file"], "p.TKL");
        EXPECT_EQ(rows[i]["ok"], true);
        EXPECT_EQ(rows[i]["WebThickness"], webs[i]);
        EXPECT_EQ(rows[i]["DepthCover"], depths[i]);
        EXPECT_NEAR(rows[i]["WebsOnly"], factors[i], 1e-13);
        EXPECT_EQ(rows[i]["units"],
                  (json{{"WebThickness", "ft"}, {"DepthCover", "ft"}, {"ExtractionRatio", "percent"}}));
    }
    // 5 holes of 10 beside 4 webs of 10 and a barrier of 20: 50 of 110.
    EXPECT_NEAR(rows[0]["ExtractionRatio"], 100.0 * 50 / 110, 1e-12);
}

TEST_F(SweepCommand, CsvHasUnitsInItsHeaderLineFeedsAndTheMessageLast) {
    const CliAnswer answer = Run({"sweep", Project("p.TKL"), "--vary", "DepthCover=-1,100"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "Units: DepthCover ft, ExtractionRatio percent\n");
    EXPECT_THAT(
        answer.out,
        StartsWith("DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n"
                   "-1,,,,,Invalid depth of cover\n"
                   "100,"));
    EXPECT_THAT(answer.out, HasSubstr(",4.71999280000000"));
    EXPECT_TRUE(answer.out.ends_with(",\n"));
    EXPECT_EQ(answer.out.find('\r'), std::string::npos);
    EXPECT_EQ(Run({"sweep", "--quiet", "p.TKL", "--vary", "DepthCover=100"}).err, "");
}

TEST_F(SweepCommand, ABareHeaderHasNoUnits) {
    EXPECT_THAT(
        Run({"sweep", "-q", Project("p.TKL"), "--vary", "DepthCover=100", "--vary", "UnitWeight=160",
             "--size", "--bare-header"})
            .out,
        StartsWith("DepthCover,UnitWeight,Overall,WebsOnly,BarrierPillar,ExtractionRatio,SuggestedWeb,"
                   "SuggestedBarrier,Message\n"));
    EXPECT_THAT(Run({"sweep", "-q", Project("m.TKL", MetricProject()), "--vary", "CoalStrength=6", "--vary",
                     "AbutmentAngle=21", "--vary", "NumberHoles=5", "--size"})
                    .out,
                StartsWith("CoalStrength (MPa),AbutmentAngle (degrees),NumberHoles,Overall,WebsOnly,"
                           "BarrierPillar,ExtractionRatio (percent),SuggestedWeb (in),SuggestedBarrier (in),"
                           "Message\n"));
}

// A message of two lines stays one cell, and its lines end as those of the table.
TEST_F(SweepCommand, NoLineOfATableEndsInCrLf) {
    const std::string out = Run({"sweep", "-q", Project("p.TKL"), "--vary", "SFWeb=0.5", "--size"}).out;
    EXPECT_THAT(out, HasSubstr(",\"Value '0.5' is outside input range\nValid range is: 1-10\"\n"));
    EXPECT_EQ(out.find('\r'), std::string::npos);
}

TEST_F(SweepCommand, ARefusedRowGivesStatusOneInEveryForm) {
    Project("p.TKL");
    const std::vector<std::vector<std::string>> forms{
        {"--json"}, {"-o", "r.csv"}, {"-o", "r.jsonl"}, {"-o", "r.xlsx"}, {"-o", "c.svg"}};
    for (const auto& form : forms) {
        SCOPED_TRACE(testing::PrintToString(form));
        const auto status = [&](const std::string& values) {
            std::vector<std::string> words{"sweep",   "-q",     "p.TKL",
                                           "--force", "--vary", "DepthCover=" + values};
            words.insert(words.end(), form.begin(), form.end());
            return Run(words).status;
        };
        EXPECT_EQ(status("100,200"), 0);
        EXPECT_EQ(status("100,-1,200"), 1);
    }
    EXPECT_EQ(Run({"sweep", "-q", "p.TKL", "--vary", "WebThickness=10,20", "--vary", "DepthCover=-1,100",
                   "-o", "map.svg"})
                  .status,
              1);
    // A size that the solver refuses leaves the row's factors.
    EXPECT_EQ(Run({"sweep", "-q", "p.TKL", "--vary", "SFWeb=0.5", "--size"}).status, 0);
}

TEST_F(SweepCommand, SizesOfAMetricProjectSayThatTheyAreInches) {
    const std::string note = Run({"size", Project("m.TKL", MetricProject())}).err;
    EXPECT_THAT(note, StartsWith("m.TKL: "));
    EXPECT_THAT(note, HasSubstr("inches"));
    const std::vector<std::string> sweep{"sweep", "-q", "m.TKL", "--vary", "DepthCover=30,40"};
    EXPECT_EQ(Run(sweep).err, "");
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{"--size"}, {"--size", "--json"}, {"--size", "-o", "rows.csv"}}) {
        std::vector<std::string> words = sweep;
        words.insert(words.end(), more.begin(), more.end());
        EXPECT_EQ(Run(words).err, note);
    }
    EXPECT_EQ(Run({"sweep", "-q", Project("p.TKL"), "--vary", "DepthCover=100", "--size"}).err, "");
}

TEST_F(SweepCommand, ARunTimeErrorOfARowIsItsMessage) {
    const auto rows = Run({"sweep", Project("p.TKL"), "--vary", "NumberHoles=20,21", "--json"}).Objects();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0]["ok"], true);
    EXPECT_EQ(rows[1]["ok"], false);
    EXPECT_EQ(rows[1]["messages"], json({"Subscript out of range"}));
    EXPECT_TRUE(rows[1]["Overall"].is_null());
}

// The worked sizing of the plain panel: 39.00 in for webs, 122.40 in for the barrier.
TEST_F(SweepCommand, SizesAreTheSolversInches) {
    const auto rows =
        Run({"sweep", Project("p.TKL"), "--vary", "SFWeb=1.6,0.5", "--size", "--json"}).Objects();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_NEAR(rows[0]["SuggestedWeb"], 38.9991340637207, 1e-5);
    EXPECT_NEAR(rows[0]["SuggestedBarrier"], 122.40354919433594, 1e-5);
    EXPECT_EQ(rows[0]["units"]["SuggestedWeb"], "in");
    EXPECT_EQ(rows[1]["messages"], json({"Value '0.5' is outside input range\r\nValid range is: 1-10"}));
    EXPECT_TRUE(rows[1]["SuggestedWeb"].is_null());
    EXPECT_NEAR(rows[1]["WebsOnly"], 4.7199928, 1e-13);
}

TEST_F(SweepCommand, AnyNumberOfThreadsGivesTheSameBytes) {
    Project("p.TKL");
    const std::vector<std::string> sweep{
        "sweep",  "p.TKL",    "--vary", "WebThickness=1:20/97", "--vary", "DepthCover=50:900/131",
        "--size", "--threads"};
    std::string first;
    for (const char* threads : {"1", "2", "16"}) {
        auto arguments = sweep;
        arguments.emplace_back(threads);
        const std::string rows = Run(arguments).out;
        if (first.empty()) first = rows;
        EXPECT_EQ(rows, first) << threads;
    }
    EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), 97 * 131 + 1);
}

TEST_F(SweepCommand, WritesEveryKindOfFile) {
    Project("p.TKL");
    for (const char* name :
         {"rows.csv", "rows.json", "rows.jsonl", "rows.xlsx", "map.png", "map.svg", "map.pdf"}) {
        const CliAnswer answer = Run({"sweep", "p.TKL", "--vary", "WebThickness=2:12:1", "--vary",
                                      "DepthCover=50:400:50", "-o", name});
        EXPECT_EQ(answer.status, 0) << name << answer.err;
        EXPECT_EQ(answer.out, "") << name;
        EXPECT_GT(std::filesystem::file_size(PathTo(name)), 400u) << name;
    }
    EXPECT_EQ(Run({"sweep", "p.TKL", "--vary", "DepthCover=50:400:50", "-o", "curve.svg"}).status, 0);
    const std::string map = ReadBytes(PathTo("map.svg"));
    for (const char* text :
         {"Ridge Panel 4", "Web thickness (ft)", "Depth of cover (ft)", "Stability factor", "the project"})
        EXPECT_THAT(map, HasSubstr(text));
    EXPECT_THAT(ReadBytes(PathTo("curve.svg")), HasSubstr("Barrier Pillar"));
    EXPECT_THAT(ReadBytes(PathTo("curve.svg")), HasSubstr("font-family=\"Arial, sans-serif\""));
    EXPECT_TRUE(SameBytes(ReadBytes(PathTo("rows.json")), ReadBytes(PathTo("rows.jsonl"))));
}

TEST_F(SweepCommand, AnExistingFileNeedsForce) {
    Project("p.TKL");
    WriteBytes(PathTo("rows.csv"), "old");
    const std::vector<std::string> sweep{"sweep", "p.TKL", "--vary", "DepthCover=100", "-o", "rows.csv"};
    EXPECT_EQ(Run(sweep).status, 3);
    EXPECT_EQ(ReadBytes(PathTo("rows.csv")), "old");
    auto forced = sweep;
    forced.emplace_back("--force");
    EXPECT_EQ(Run(forced).status, 0);
    EXPECT_THAT(ReadBytes(PathTo("rows.csv")), StartsWith("DepthCover (ft),"));
}

// Every row stands in one part and in its order, whatever the number of parts and of threads.
TEST_F(SweepCommand, ThePartsOneAfterAnotherAreTheWhole) {
    Project("p.TKL");
    const std::vector<std::string> grid{
        "sweep", "-q", "p.TKL", "--vary", "Height=5,6,7", "--vary", "DepthCover=100:1200:1"};
    for (const std::string format : {"csv", "json"}) {
        std::vector<std::string> words = grid;
        words.insert(words.end(), {"--format", format});
        const std::string whole = Run(words).out;
        EXPECT_EQ(std::count(whole.begin(), whole.end(), '\n'), 3303 + (format == "csv" ? 1 : 0));
        for (const int parts : {1, 2, 7}) {
            std::string joined;
            for (int part = 1; part <= parts; ++part) {
                std::vector<std::string> one = words;
                one.insert(one.end(), {"--part", std::to_string(part) + "/" + std::to_string(parts),
                                       "--threads", std::to_string(part)});
                joined += Run(one).out;
            }
            EXPECT_TRUE(SameBytes(joined, whole)) << parts << ' ' << format;
        }
    }
}

TEST_F(SweepCommand, PartsDifferByARowAtMostTheFirstOnesBeingLonger) {
    Project("p.TKL");
    const auto rows = [this](const std::string& part) {
        const CliAnswer answer = Run({"sweep", "p.TKL", "--json", "--vary", "Height=5,6,7", "--part", part});
        EXPECT_EQ(answer.status, 0);
        std::vector<double> heights;
        for (const json& row : answer.Objects()) heights.push_back(row["Height"]);
        return heights;
    };
    EXPECT_EQ(rows("1/2"), (std::vector<double>{5, 6}));
    EXPECT_EQ(rows("2/2"), (std::vector<double>{7}));
    EXPECT_EQ(rows("3/5"), (std::vector<double>{7}));
    EXPECT_EQ(rows("4/5"), (std::vector<double>{}));
}

TEST_F(SweepCommand, APartIsOneOfItsNumber) {
    Project("p.TKL");
    for (const std::string part :
         {"0/3", "4/3", "2", "/3", "2/", "a/3", "-1/3", "1/0", "1.5/3", "1/1000001", ""}) {
        const CliAnswer answer = Run({"sweep", "p.TKL", "--vary", "Height=5,6", "--part=" + part});
        EXPECT_EQ(answer.status, 2) << part;
        EXPECT_EQ(answer.out, "") << part;
    }
    EXPECT_THAT(
        Run({"sweep", "p.TKL", "--vary", "Height=5,6", "--part", "4/3"}).err,
        StartsWith("tarvokol-cli sweep: --part: \"4/3\" is no part; write K/N, K from 1 to N, N at most "
                   "1000000\n"));
    EXPECT_EQ(Run({"sweep", "p.TKL", "--vary", "Height=5,6", "--part", "1/2", "-o", "a.svg"}).err,
              "tarvokol-cli sweep: --part: a picture shows all rows\n");
}

TEST_F(SweepCommand, WrongUsageIsToldInOneLine) {
    Project("p.TKL");
    const auto refused = [this](std::vector<std::string> words, const std::string& text) {
        words.insert(words.begin(), {"sweep", "p.TKL"});
        const CliAnswer answer = Run(words);
        EXPECT_EQ(answer.status, 2) << text;
        EXPECT_EQ(answer.out, "") << text;
        EXPECT_THAT(answer.err, AllOf(StartsWith("tarvokol-cli sweep: "), HasSubstr(text)));
        EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1) << answer.err;
    };
    refused({"--vary", "Height"}, "--vary: \"Height\" has no \"=\"; write FIELD=FIRST:LAST:STEP\n");
    refused({"--vary", "height="},
            "--vary Height: no values; write FIRST:LAST:STEP, FIRST:LAST/COUNT or V1,V2,V3\n");
    refused({"--vary", "Height=1:2/4000000000", "--vary", "DepthCover=1:2/4000000000"},
            "--vary: too many combinations to count; give larger steps\n");
    refused({"--vary", "Foo=1"}, "unknown field \"Foo\"; the fields are Height, DepthCover,");
    refused({"--vary", "Height=3:1:1"}, "never arrives");
    refused({"--vary", "Height=1:3:0"}, "a step of 0");
    refused({"--vary", "Height=1,5x"}, "\"5x\" is not a number with a decimal point");
    refused({"--vary", "Height=1", "--vary", "height=2"}, "--vary Height: the field is given twice");
    refused({"--vary", "Height=1:10/100000", "--vary", "DepthCover=1:10/100000"}, "10000000000 combinations");
    refused({"--vary", "Height=1", "-o", "rows.doc"}, "the extension must be one of .csv");
    refused({"--vary", "Height=1,2", "--vary", "DepthCover=1,2", "--vary", "HoleWidth=1,2", "-o", "map.png"},
            "a picture shows one field (curves) or two (a map), not 3");
    refused({"--vary", "Height=1,2", "-o", "c.png", "--of", "Foo"}, "--of: unknown figure \"Foo\"");
    refused({"--vary", "Height=1,2", "--of", "Foo"}, "--of: unknown figure \"Foo\"");
    refused({"--vary", "Height=1:2/2000", "--vary", "DepthCover=1:9/2000", "-o", "r.xlsx"},
            "of a sheet; write .csv");
    EXPECT_FALSE(std::filesystem::exists(PathTo("r.xlsx")));
    EXPECT_FALSE(std::filesystem::exists(PathTo("map.png")));
}

TEST_F(SweepCommand, AProjectThatCannotBeReadIsBadData) {
    const CliAnswer missing = Run({"sweep", "none.TKL", "--vary", "Height=1"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "none.TKL: File not found\n");
    EXPECT_EQ(missing.out, "");
}

TEST_F(SweepCommand, AProjectThatCannotBeReadIsAnObjectToo) {
    WriteBytes(PathTo("other.TKL"), "OTHER\r\n");
    const json missing{{"file", "none.TKL"},
                       {"ok", false},
                       {"messages", json::array()},
                       {"error", {{"number", 53}, {"text", "File not found"}}},
                       {"schema", 1}};
    const json refused{
        {"file", "other.TKL"}, {"ok", false}, {"messages", {"Invalid file format"}}, {"schema", 1}};
    WriteBytes(PathTo("rows.csv"), "Height\n5\n");
    for (const auto& [project, object] : {std::pair("none.TKL", missing), std::pair("other.TKL", refused)}) {
        for (const std::vector<std::string>& command :
             {std::vector<std::string>{"sweep", project, "--vary", "Height=5"},
              {"table", project, "rows.csv"},
              {"risk", project, "--random", "Height=uniform:5:6"}}) {
            SCOPED_TRACE(testing::PrintToString(command));
            std::vector<std::string> words = command;
            words.emplace_back("--json");
            const CliAnswer answer = Run(words);
            EXPECT_EQ(answer.status, 1);
            EXPECT_EQ(answer.Object(), object);
            EXPECT_EQ(answer.err, "");
            words.back() = "-o";
            words.emplace_back("rows.json");
            EXPECT_EQ(Run(words).status, 1);
            EXPECT_FALSE(std::filesystem::exists(PathTo("rows.json")));
        }
    }
}

// The reader leaves after one line: nothing is said, and nothing hangs. Where the caller ignores the signal, as many programs
// of other languages do, the study ends by itself.
TEST_F(SweepCommand, APipeThatIsClosedEndsItQuietly) {
    Project("p.TKL");
    for (const auto& [signal, status] : {std::pair("", "141\n"), {"trap '' PIPE; ", "0\n"}}) {
        SCOPED_TRACE(signal);
        const std::string command =
            "cd '" + Folder.string() + "' && (" + signal + TARVOKOL_CLI +
            " sweep --quiet p.TKL --vary DepthCover=1:1000000:1 2>err; echo $? >status) | head -n 1";
        std::FILE* pipe = ::popen(command.c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        char line[256] = {};
        EXPECT_NE(std::fgets(line, sizeof line, pipe), nullptr);
        ::pclose(pipe);
        EXPECT_STREQ(line,
                     "DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n");
        EXPECT_EQ(ReadBytes(PathTo("err")), "");
        EXPECT_EQ(ReadBytes(PathTo("status")), status);
    }
}

}  // namespace
}  // namespace tarvokol
