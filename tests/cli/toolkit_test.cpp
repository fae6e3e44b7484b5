// SPDX-License-Identifier: GPL-3.0-or-later
// What only the toolkit draws, wherever it is asked for: no display, no words of the toolkit's own.
#include <cstdlib>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::HasSubstr;

class Toolkit : public CliTest {
  protected:
    Toolkit() { Project("p.TKL"); }

    // The words of a PDF file.
    std::string TextOf(const std::string& pdf) const {
        const CliAnswer answer =
            RunProgram("/bin/sh", {"-c", "pdftotext -layout " + pdf + " -"}, Folder.string());
        EXPECT_EQ(answer.status, 0) << answer.err;
        return answer.out;
    }
};

TEST_F(Toolkit, NeedsNoPlatformAndSaysNothing) {
    const char* const platform = std::getenv("QT_QPA_PLATFORM");
    const std::string before = platform != nullptr ? platform : "";
    ::setenv("QT_QPA_PLATFORM", "there-is-none", 1);
    ::setenv("QT_DEBUG_PLUGINS", "1", 1);
    for (const std::string output : {"a.png", "a.svg", "a.pdf"}) {
        const CliAnswer answer = Run({"plan", "-o", output, "p.TKL"});
        EXPECT_EQ(answer.status, 0) << output;
        EXPECT_EQ(answer.out + answer.err, "") << output;
    }
    ::unsetenv("QT_DEBUG_PLUGINS");
    if (platform != nullptr)
        ::setenv("QT_QPA_PLATFORM", before.c_str(), 1);
    else
        ::unsetenv("QT_QPA_PLATFORM");
}

TEST_F(Toolkit, APrintedReportHoldsAllItsPages) {
    ProjectText other;
    other.title = "Ridge Panel 5";
    Project("q.TKL", other);
    EXPECT_EQ(Run({"results", "-o", "out/", "--format", "pdf", "p.TKL", "q.TKL"}).status, 0);
    for (const std::string name : {"p", "q"}) {
        const std::string text = TextOf("out/" + name + ".pdf");
        for (const std::string& words : std::vector<std::string>{
                 "TARVOKOL, ", " Page: 1\n", "Project File: " + name + ".TKL",
                 name == "p" ? "Ridge Panel 4" : "Ridge Panel 5", "Webs ONLY..........................4.72",
                 "[PILLAR PARAMETERS]", "2.00E+07"})
            EXPECT_THAT(text, HasSubstr(words));
    }
}

TEST_F(Toolkit, APictureIsThatOfItsCurveOrView) {
    EXPECT_EQ(Run({"curve", "sf-hole", "-o", "c.pdf", "p.TKL"}).status, 0);
    EXPECT_THAT(TextOf("c.pdf"), HasSubstr("Hole Width (ft)"));
    EXPECT_EQ(Run({"curve", "barrier", "-o", "b.pdf", "p.TKL"}).status, 0);
    EXPECT_THAT(TextOf("b.pdf"), HasSubstr("Barrier Width (ft)"));
    EXPECT_EQ(Run({"plan", "--mode", "strength", "-o", "s.pdf", "p.TKL"}).status, 0);
    EXPECT_THAT(TextOf("s.pdf"), HasSubstr("TARVO-KOL: Unit Pillar Strength (psi)."));
    EXPECT_EQ(Run({"plan", "-o", "w.svg", "p.TKL"}).status, 0);
    EXPECT_EQ(Run({"plan", "--view", "preview", "-o", "v.svg", "p.TKL"}).status, 0);
    EXPECT_NE(ReadBytes(PathTo("w.svg")), ReadBytes(PathTo("v.svg")));
}

}  // namespace
}  // namespace tarvokol
