// SPDX-License-Identifier: GPL-3.0-or-later
// A command line that was built without the toolkit: it refuses what only the toolkit draws by its names, and does the rest.
#include "core/files/file_system.h"
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::EndsWith;
using testing::IsEmpty;

constexpr const char* kRefused =
    "-o: .png, .svg, .pdf and .xlsx are not written by this tarvokol-cli, which was built without the "
    "toolkit\n";

class WithoutToolkit : public CliTest {
  protected:
    WithoutToolkit() { Project("p.TKL"); }
};

TEST_F(WithoutToolkit, WhatIsDrawnIsWrongUsageAndLeavesNoFile) {
    const std::vector<std::vector<std::string>> drawn{
        {"results", "-o", "p.pdf", "p.TKL"},
        {"curve", "web", "-o", "p.png", "p.TKL"},
        {"curve", "web", "-o", "p.xlsx", "p.TKL"},
        {"plan", "-o", "p.svg", "p.TKL"},
        {"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "p.xlsx"},
        {"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "p.svg"},
        {"table", "p.TKL", "-", "-o", "p.xlsx"},
        {"risk", "p.TKL", "--random", "Height=uniform:5:6", "-o", "p.png"}};
    for (const auto& arguments : drawn) {
        const CliAnswer answer = Run(arguments, "Height\n5\n");
        EXPECT_EQ(answer.status, 2) << arguments.front();
        EXPECT_THAT(answer.err, EndsWith(kRefused)) << arguments.front();
        EXPECT_THAT(answer.out, IsEmpty()) << arguments.front();
        for (const char* const file : {"p.pdf", "p.png", "p.svg", "p.xlsx"})
            EXPECT_FALSE(FileExists(PathTo(file))) << arguments.front() << ' ' << file;
    }
}

TEST_F(WithoutToolkit, TextCsvAndJsonAreWritten) {
    for (const std::string output : {"r.txt", "r.json"})
        EXPECT_EQ(Run({"results", "-o", output, "p.TKL"}).status, 0) << output;
    EXPECT_EQ(Run({"curve", "web", "-o", "c.csv", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"plan", "-o", "plan.csv", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"sweep", "p.TKL", "--vary", "Height=5,6", "-o", "s.csv"}).status, 0);
    EXPECT_EQ(
        Run({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "100", "-o", "r2.txt"}).status,
        0);
    for (const char* const file : {"r.txt", "r.json", "c.csv", "plan.csv", "s.csv", "r2.txt"})
        EXPECT_TRUE(FileExists(PathTo(file))) << file;
}

}  // namespace
}  // namespace tarvokol
