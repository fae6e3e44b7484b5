// SPDX-License-Identifier: GPL-3.0-or-later
// The command line starts without the toolkit, and becomes its sibling for what only the toolkit draws.
#include <cstdlib>
#include <filesystem>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::filesystem::path kProgram = TARVOKOL_CLI;
const std::filesystem::path kSibling = kProgram.parent_path() / "tarvokol-cli-drawing";

class Start : public CliTest {
  protected:
    // A copy of the program in bin/ of the test's folder, by itself.
    std::string CopyAlone() const {
        std::filesystem::create_directories(Folder / "bin");
        std::filesystem::copy_file(kProgram, Folder / "bin/tarvokol-cli");
        return (Folder / "bin/tarvokol-cli").string();
    }
    void InstallSibling(const std::string& folder) const {
        std::filesystem::create_directories(Folder / folder);
        std::filesystem::create_symlink(kSibling, Folder / folder / "tarvokol-cli-drawing");
    }
};

// Each of the outputs that only the toolkit or the workbook library writes.
const std::vector<std::vector<std::string>> kDrawn{
    {"results", "-o", "p.pdf", "p.TKL"},
    {"results", "-o", "P.PDF", "p.TKL"},
    {"curve", "web", "-o", "p.png", "p.TKL"},
    {"curve", "web", "-o", "p.xlsx", "p.TKL"},
    {"plan", "-o", "p.svg", "p.TKL"},
    {"plan", "-o", "folder/", "p.TKL"},
    {"plan", "-o", "p.pdf", "-"},
    {"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "p.xlsx"},
    {"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "p.svg"},
    {"table", "p.TKL", "-", "-o", "p.xlsx"},
    {"risk", "p.TKL", "--random", "Height=uniform:5:6", "-o", "p.png"}};

TEST_F(Start, LoadsNeitherToolkitNorWorkbookLibrary) {
    ::setenv("LD_TRACE_LOADED_OBJECTS", "1", 1);
    const CliAnswer plain = Run({"--help"});
    const CliAnswer drawing = RunProgram(kSibling.string(), {"--help"});
    ::unsetenv("LD_TRACE_LOADED_OBJECTS");
    EXPECT_THAT(plain.out, HasSubstr("libstdc++"));
    EXPECT_THAT(plain.out,
                AllOf(Not(HasSubstr("Qt6")), Not(HasSubstr("xlsxwriter")), Not(HasSubstr("libX"))));
    EXPECT_THAT(drawing.out, HasSubstr("libQt6Gui"));
}

TEST_F(Start, WithoutItsSiblingADrawingIsAnOutputThatCannotBeWritten) {
    Project("p.TKL");
    const std::string alone = CopyAlone();
    for (const auto& arguments : kDrawn) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const CliAnswer answer = RunProgram(alone, arguments, Folder.string(), "p.TKL\n");
        EXPECT_EQ(answer.status, 3);
        EXPECT_EQ(answer.out, "");
        EXPECT_EQ(answer.err,
                  "tarvokol-cli-drawing: No such file or directory; pictures, PDF and workbooks need it: "
                  "install the package tarvokol-cli-drawing, or the program again\n");
    }
    EXPECT_FALSE(std::filesystem::exists(Folder / "folder"));
}

TEST_F(Start, WithoutItsSiblingEverythingElseIsDone) {
    Project("p.TKL");
    const std::string alone = CopyAlone();
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"results", "p.TKL"},
                                                      {"results", "--json", "p.TKL"},
                                                      {"plan", "p.TKL"},
                                                      {"curve", "web", "p.TKL"},
                                                      {"sweep", "p.TKL", "--vary", "Height=5,6"},
                                                      {"--version"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const CliAnswer answer = RunProgram(alone, arguments, Folder.string());
        EXPECT_EQ(answer.status, 0);
        EXPECT_TRUE(SameBytes(answer.out, Run(arguments).out));
    }
    EXPECT_EQ(RunProgram(alone, {"save", "-o", "q.svg", "p.TKL"}, Folder.string()).status, 0);
    EXPECT_EQ(RunProgram(alone, {"size", "-o", "q.pdf", "p.TKL"}, Folder.string()).status, 2);
}

TEST_F(Start, FindsItsSiblingBesideItselfAndInTheInstallationsFolder) {
    Project("p.TKL");
    const std::string alone = CopyAlone();
    InstallSibling("libexec/tarvokol");
    EXPECT_EQ(RunProgram(alone, {"plan", "-o", "a.svg", "p.TKL"}, Folder.string()).status, 0);
    std::filesystem::remove_all(Folder / "libexec");
    InstallSibling("bin");
    EXPECT_EQ(RunProgram(alone, {"plan", "-o", "b.svg", "p.TKL"}, Folder.string()).status, 0);
    EXPECT_THAT(ReadBytes(PathTo("a.svg")), StartsWith("<?xml"));
    EXPECT_TRUE(SameBytes(ReadBytes(PathTo("b.svg")), ReadBytes(PathTo("a.svg"))));
}

TEST_F(Start, ASiblingThatCannotRunIsNamedWithTheReason) {
    Project("p.TKL");
    const std::string alone = CopyAlone();
    WriteBytes(PathTo("bin/tarvokol-cli-drawing"), "no program");
    const CliAnswer answer = RunProgram(alone, {"plan", "-o", "a.svg", "p.TKL"}, Folder.string());
    EXPECT_EQ(answer.status, 3);
    EXPECT_THAT(answer.err,
                AllOf(HasSubstr("bin/tarvokol-cli-drawing: Permission denied; "), EndsWith("again\n")));
}

TEST_F(Start, TheSiblingTakesOverInputOutputsAndStatus) {
    Project("p.TKL");
    ProjectText refused;
    refused.height = "0";
    Project("r.TKL", refused);
    const CliAnswer answer = Run({"plan", "-o", "folder/", "--mode", "strength", "-"}, "p.TKL\nr.TKL\n");
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "r.TKL: Invalid entry height\n");
    EXPECT_TRUE(std::filesystem::exists(Folder / "folder/p.svg"));
    EXPECT_EQ(Run({"plan", "-o", "folder/", "p.TKL"}).status, 3);  // stands there already
    EXPECT_EQ(Run({"plan", "-o", "x.svg", "-"}, "p.TKL\nr.TKL\n").err,
              "tarvokol-cli plan: -o: one output file for several projects; name a folder instead\n");
    EXPECT_EQ(Run({"plan", "-o", "[x].svg", "--", "p.TKL"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(Folder / "[x].svg"));
}

}  // namespace
}  // namespace tarvokol
