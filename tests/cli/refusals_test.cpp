// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line refuses, in its words: wrong usage is reported in one line and does nothing else.
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

class Refusals : public CliTest {
  protected:
    using Words = std::vector<std::string>;

    Refusals() {
        Project("p.TKL");
        Project("q.TKL");
    }
    // Runs the command line and expects it to refuse the usage.
    void ExpectRefused(const Words& arguments, const std::string& text) const {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 2);
        EXPECT_EQ(answer.out, "");
        EXPECT_EQ(answer.err, "tarvokol-cli " + arguments.front() + ": " + text + "\n");
    }
    void ExpectNotWritten(const Words& arguments, const std::string& text) const {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 3);
        EXPECT_EQ(answer.err, text + "\n");
    }
    // Status and standard error of a command whose standard output is a terminal.
    std::pair<int, std::string> OnATerminal(const std::string& arguments) const {
        const std::string command =
            "cd '" + Folder.string() + "' && exec '" TARVOKOL_CLI "' " + arguments + " 2> err";
        int terminal = -1;
        const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            ::_exit(127);
        }
        char bytes[256];
        while (::read(terminal, bytes, sizeof bytes) > 0) {
        }
        ::close(terminal);
        int status = 0;
        ::waitpid(child, &status, 0);
        return {WEXITSTATUS(status), ReadBytes(PathTo("err"))};
    }
};

TEST_F(Refusals, AnExtensionIsOneOfTheCommands) {
    const std::string must = "-o: the extension must be one of ";
    ExpectRefused({"results", "-o", "r.docx", "p.TKL"}, must + ".txt, .pdf, .json, .jsonl");
    ExpectRefused({"size", "-o", "s.txt", "p.TKL"}, must + ".json, .jsonl");
    ExpectRefused({"curve", "web", "-o", "c.txt", "p.TKL"},
                  must + ".csv, .xlsx, .png, .svg, .pdf, .json, .jsonl");
    ExpectRefused({"plan", "-o", "p.xlsx", "p.TKL"}, must + ".svg, .png, .pdf, .csv, .json, .jsonl");
    ExpectRefused({"risk", "p.TKL", "--random", "Height=uniform:5:6", "-o", "r.csv"},
                  must + ".txt, .json, .jsonl, .png, .svg, .pdf");
    ExpectRefused({"sweep", "p.TKL", "--vary", "Height=5", "-o", "rows.txt"},
                  must + ".csv, .json, .jsonl, .xlsx, .png, .svg, .pdf");
    ExpectRefused({"table", "p.TKL", "rows.csv", "-o", "rows.svg"},
                  "-o: a table gives .csv, .json or .xlsx, no picture");
    ExpectRefused({"plan", "-o", "a.png", "--format", "svg", "p.TKL"},
                  "--format: a.png has the extension of another format");
    EXPECT_EQ(Run({"plan", "-o", "a.CSV", "--format", "csv", "p.TKL"}).status, 0);
}

TEST_F(Refusals, OneOutputHoldsOneResult) {
    ExpectRefused({"results", "-o", "r.txt", "p.TKL", "q.TKL"},
                  "-o: one output file for several projects; name a folder instead");
    ExpectRefused({"plan", "--format", "svg", "p.TKL", "q.TKL"},
                  "-o -: one result on standard output for several projects; name a folder instead");
    ExpectRefused({"save", "--json", "-o", "-", "p.TKL"},
                  "-o -: standard output takes the result or, with --json, the objects, not both");
    ExpectRefused({"save", "p.TKL"}, "-o is required: the file or folder to write");
}

TEST_F(Refusals, AProjectOnStandardInputHasNoName) {
    ExpectRefused({"convert", "--to", "metric", "--stdin-project", "-"},
                  "--stdin-project: name the converted project with -o, - for standard output");
    ExpectRefused({"size", "--stdin-project", "p.TKL"},
                  "--stdin-project: one FILE must be -, which stands for standard input");
    ExpectRefused(
        {"plan", "--stdin-project", "-o", "out/", "-"},
        "--stdin-project: the project has no name for a file in the folder out/; name the file, or -");
    ExpectRefused({"table", "--stdin-project", "-", "-"},
                  "--stdin-project: standard input holds the project or the rows, not both");
}

TEST_F(Refusals, AUnitIsOneOfItsQuantity) {
    ExpectRefused({"units", "length", "furlong", "1"}, "UNIT: \"furlong\" is none of in, ft, cm, m");
    ExpectRefused({"units", "stress", "ft", "1"}, "UNIT: \"ft\" is none of psi, ksi, psf, Pa, MPa");
}

TEST_F(Refusals, ASweepHasItsLimits) {
    const Words sweep{"sweep", "p.TKL", "--vary", "Height=1:2/1000000", "--vary"};
    const auto with = [&sweep](const Words& more) {
        Words words = sweep;
        words.insert(words.end(), more.begin(), more.end());
        return words;
    };
    ExpectRefused(
        with({"DepthCover=1:2/1001"}),
        "--vary: 1001000000 combinations are more than 1000000000; give larger steps, --part or --force");
    ExpectRefused(
        {"sweep", "p.TKL", "--vary", "Height=1:2/2000000000", "--vary", "DepthCover=1:2/4000000000"},
        "--vary: 8000000000000000000 combinations are more than 1000000000; give larger steps, --part or "
        "--force");
    const std::string uncountable = "--vary: too many combinations to count; give larger steps";
    ExpectRefused(
        with({"DepthCover=1:2/1000000", "--vary", "HoleWidth=1:2/1000000", "--vary", "WebThickness=1:2/10"}),
        uncountable);
    ExpectRefused(with({"DepthCover=1:2/1000000", "--vary", "HoleWidth=1:2/10000000", "--force"}),
                  uncountable);
    ExpectRefused(with({"height=1"}), "--vary Height: the field is given twice");
}

TEST_F(Refusals, WholeNumbersHaveTheirBounds) {
    const Words risk{"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples"};
    const auto with = [&risk](const Words& more) {
        Words words = risk;
        words.insert(words.end(), more.begin(), more.end());
        return words;
    };
    const std::string samples = "is not a whole number from 1 to 4294967295";
    for (const std::string text : {"0", "1.5", "-1", "4294967296"})
        ExpectRefused({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples=" + text},
                      "--samples: \"" + text + "\" " + samples);
    EXPECT_EQ(Run(with({"1"})).status, 0);
    const std::string seeds = "is not a whole number from 0 to 9007199254740992";
    for (const std::string text : {"-1", "0.5", "9007199254740994"})
        ExpectRefused(with({"1", "--seed=" + text}), "--seed: \"" + text + "\" " + seeds);
    EXPECT_EQ(Run(with({"1", "--seed", "0"})).status, 0);
    EXPECT_EQ(Run(with({"1", "--seed", "9007199254740992", "--json"})).Object()["seed"], 9007199254740992);
}

TEST_F(Refusals, ThreadsAreOneToAThousandAndTwentyFour) {
    for (const std::string text : {"0", "01", "1025", "2x"}) {
        const CliAnswer answer = Run({"sweep", "p.TKL", "--vary", "Height=5", "--threads=" + text});
        EXPECT_EQ(answer.status, 2) << text;
        EXPECT_THAT(answer.err, testing::StartsWith("tarvokol-cli sweep: --threads: \"" + text +
                                                    "\" is not a whole number from 1 to 1024\n"));
    }
    for (const std::string text : {"1", "1024"})
        EXPECT_EQ(Run({"sweep", "p.TKL", "--vary", "Height=5", "--threads", text}).status, 0) << text;
}

TEST_F(Refusals, AConfigurationFileThatIsNoneIsNamed) {
    std::filesystem::create_directory(Folder / "folder.ini");
    WriteBytes(PathTo("large.ini"), "");
    std::filesystem::resize_file(Folder / "large.ini", 16 * 1024 * 1024 + 1);
    ExpectRefused({"results", "--settings", "large.ini", "p.TKL"},
                  "--settings: large.ini: cannot be read, or is larger than 16 MB");
}

TEST_F(Refusals, ATerminalShowsNoPictures) {
    const auto refusal = [](const std::string& command, const std::string& format) {
        return std::pair(2, "tarvokol-cli " + command + ": -o -: a terminal shows no " + format +
                                "; send it into a file or a pipe\n");
    };
    EXPECT_EQ(OnATerminal("plan --format png p.TKL"), refusal("plan", "png"));
    EXPECT_EQ(OnATerminal("plan -o - --format svg p.TKL"), refusal("plan", "svg"));
    EXPECT_EQ(OnATerminal("curve web --format xlsx p.TKL"), refusal("curve", "xlsx"));
    EXPECT_EQ(OnATerminal("results --format pdf p.TKL"), refusal("results", "pdf"));
    EXPECT_EQ(OnATerminal("sweep --quiet p.TKL --vary Height=5,6 --format xlsx"), refusal("sweep", "xlsx"));
    EXPECT_EQ(OnATerminal("sweep --quiet p.TKL --vary Height=5,6 --format svg"), refusal("sweep", "svg"));
    const std::pair<int, std::string> done(0, "");
    EXPECT_EQ(OnATerminal("plan --format csv p.TKL"), done);
    EXPECT_EQ(OnATerminal("save -o - p.TKL"), done);
    EXPECT_EQ(OnATerminal("sweep --quiet p.TKL --vary Height=5,6 --format csv"), done);
}

TEST_F(Refusals, AFileThatStandsThereIsNamed) {
    std::filesystem::create_directories(Folder / "rows.csv");
    std::filesystem::create_directories(Folder / "out");
    WriteBytes(PathTo("old.csv"), "mine");
    WriteBytes(PathTo("out/p.csv"), "mine");
    const Words risk{"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "10", "-q"};
    const std::string exists = ": file already exists (--force replaces it)";
    ExpectNotWritten({"sweep", "p.TKL", "--vary", "Height=5", "-o", "rows.csv"}, "rows.csv: is a folder");
    ExpectNotWritten({"sweep", "p.TKL", "--vary", "Height=5", "-o", "old.csv"}, "old.csv" + exists);
    ExpectNotWritten(
        {"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "10", "--samples-out", "old.csv"},
        "old.csv" + exists);
    ExpectNotWritten({"curve", "web", "-o", "old.csv", "p.TKL"}, "p.TKL: old.csv" + exists);
    ExpectNotWritten({"curve", "web", "-o", "out", "p.TKL"}, "p.TKL: out/p.csv" + exists);
    ExpectNotWritten({"save", "-o", "out/p.csv/x/", "p.TKL"}, "p.TKL: out/p.csv/x/: Path not found");
    EXPECT_EQ(ReadBytes(PathTo("old.csv")), "mine");
}

// What would destroy what the command reads, whatever it is called.
TEST_F(Refusals, AFileThatIsReadIsNeverReplaced) {
    WriteBytes(PathTo("rows.csv"), "Height\n5\n");
    std::filesystem::copy_file(Folder / "p.TKL", Folder / "p.csv");
    std::filesystem::copy_file(Folder / "p.TKL", Folder / "p.txt");
    std::filesystem::create_symlink("rows.csv", Folder / "link.csv");
    const std::string read = ": is a file that the command reads; it is not replaced";
    const std::string rows = ReadBytes(PathTo("rows.csv")), project = ReadBytes(PathTo("p.csv"));
    const Words risk{"risk", "p.csv", "--random", "Height=uniform:5:6", "--samples", "10", "--force"};
    ExpectNotWritten({"table", "p.TKL", "rows.csv", "--force", "-o", "rows.csv"}, "rows.csv" + read);
    ExpectNotWritten({"table", "p.TKL", "rows.csv", "--force", "-o", "link.csv"}, "link.csv" + read);
    ExpectNotWritten({"table", "p.csv", "rows.csv", "--force", "-o", "./p.csv"}, "./p.csv" + read);
    ExpectNotWritten({"sweep", "p.csv", "--vary", "Height=5", "--force", "-o", "p.csv"}, "p.csv" + read);
    ExpectNotWritten({"curve", "web", "--force", "-o", "p.csv", "p.csv"}, "p.csv: p.csv" + read);
    ExpectNotWritten({"results", "--force", "-o", "p.txt", "p.txt"}, "p.txt: p.txt" + read);
    Words samples = risk;
    samples.insert(samples.end(), {"--samples-out", "p.csv"});
    ExpectNotWritten(samples, "p.csv" + read);
    EXPECT_EQ(ReadBytes(PathTo("rows.csv")), rows);
    EXPECT_EQ(ReadBytes(PathTo("p.csv")), project);
    EXPECT_EQ(ReadBytes(PathTo("p.txt")), project);
    // A project that is saved again may stand where it was read.
    EXPECT_EQ(Run({"save", "--force", "-o", "p.TKL", "p.TKL"}).status, 0);
}

TEST_F(Refusals, SamplesHaveAPlaceOfTheirOwn) {
    const auto with = [](const Words& more) {
        Words words{"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "10", "--samples-out"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    };
    const std::string both =
        "--samples-out -: standard output takes the samples or the summary; write the summary to a file with "
        "-o";
    ExpectRefused(with({"-"}), both);
    ExpectRefused(with({"-", "--json"}), both);
    ExpectRefused(with({"-", "-o", "-"}), both);
    ExpectRefused(with({"-", "-o", "s.json", "--json"}), both);
    for (const std::string name : {"s.xlsx", "s.json", "s", "s.csv.gz"})
        ExpectRefused(with({name}), "--samples-out: the extension must be .csv");
    WriteBytes(PathTo("s.json"), "{}");
    std::filesystem::create_symlink("s.json", Folder / "link.csv");
    ExpectRefused(with({"link.csv", "-o", "s.json", "--force"}), "--samples-out: link.csv is the file of -o");
    EXPECT_EQ(ReadBytes(PathTo("s.json")), "{}");
}

TEST_F(Refusals, AListThatEndsItsPathsInNulIsNamedWithoutItsOption) {
    const std::string list("p.TKL\0p.TKL\0", 12);
    const CliAnswer answer = Run({"size", "-"}, list);
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err,
              "tarvokol-cli size: -: the list of files holds NUL characters; give -0 for a list that they "
              "end\n");
    ExpectRefused({"size", "-0", "p.TKL"},
                  "-0: belongs to a list of files on standard input; name - as the FILE");
    ExpectRefused({"size", "-0", "--stdin-project", "-"},
                  "-0: belongs to a list of files on standard input; name - as the FILE");
}

TEST_F(Refusals, AStudyNamesTheProjectOrTheTableThatItCannotRead) {
    WriteBytes(PathTo("other.TKL"), "OTHER\r\n");
    const auto told = [this](const Words& arguments) {
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 1);
        EXPECT_EQ(answer.out, "");
        return answer.err;
    };
    EXPECT_EQ(told({"sweep", "other.TKL", "--vary", "Height=5"}), "other.TKL: Invalid file format\n");
    EXPECT_EQ(told({"table", "p.TKL", "none.csv"}), "none.csv: File not found\n");
    EXPECT_EQ(told({"table", "p.TKL", "."}), ".: Path/File access error\n");
    WriteBytes(PathTo("rows.csv"), "Height,height\n1,2\n");
    EXPECT_EQ(told({"table", "p.TKL", "rows.csv"}),
              "rows.csv, line 1: the column Height stands there twice\n");
    WriteBytes(PathTo("rows.csv"), "Depth,Name\n1,2\n");
    EXPECT_EQ(
        told({"table", "p.TKL", "rows.csv"}),
        "rows.csv, line 1: no column is named as a field of the project; the fields are Height, DepthCover, "
        "HoleWidth, WebThickness, BarrierPillarWidth, NumberHoles, CoalStrength, UnitWeight, AbutmentAngle, "
        "SFWeb, SFBarrier\n");
    EXPECT_EQ(told({"table", "p.TKL", "-"}),
              "standard input: the table is empty; its first line names the columns\n");
}

}  // namespace
}  // namespace tarvokol
