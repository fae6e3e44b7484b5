// SPDX-License-Identifier: GPL-3.0-or-later
// SOURCE_DATE_EPOCH: the same work gives the same bytes on any day, in any zone.
#include <cstdlib>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::HasSubstr;
using testing::Not;

class SourceDates : public CliTest {
  protected:
    SourceDates() { Project("p.TKL"); }
    ~SourceDates() override {
        ::unsetenv("SOURCE_DATE_EPOCH");
        ::unsetenv("TZ");
    }

    void Make(const std::string& seconds, const std::string& zone, const std::string& folder) const {
        ::setenv("SOURCE_DATE_EPOCH", seconds.c_str(), 1);
        ::setenv("TZ", zone.c_str(), 1);
        std::filesystem::create_directory(Folder / folder);
        const std::vector<std::vector<std::string>> outputs{
            {"results", "-o", "r.pdf", "p.TKL"},
            {"plan", "-o", "plan.pdf", "p.TKL"},
            {"curve", "web", "-o", "c.pdf", "p.TKL"},
            {"curve", "web", "-o", "c.xlsx", "p.TKL"},
            {"sweep", "-q", "p.TKL", "--vary", "Height=5,6", "-o", "s.xlsx"}};
        for (std::vector<std::string> words : outputs) {
            for (std::string& word : words)
                if (word.ends_with(".pdf") || word.ends_with(".xlsx")) word.insert(0, folder + "/");
            const CliAnswer answer = Run(words);
            EXPECT_EQ(answer.status, 0) << answer.err;
        }
    }

    std::string Part(const std::string& workbook, const std::string& part) const {
        return RunProgram("/usr/bin/python3",
                          {"-c", "import sys, zipfile; print(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]))",
                           workbook, part},
                          Folder.string())
            .out;
    }
};

TEST_F(SourceDates, OutputsOfOneDateAreEqualToTheByte) {
    Make("1000000000", "UTC0", "a");
    Make("1000000000", "XST-9", "b");
    for (const std::string name : {"r.pdf", "plan.pdf", "c.pdf", "c.xlsx", "s.xlsx"})
        EXPECT_TRUE(SameBytes(ReadBytes(PathTo("a/" + name)), ReadBytes(PathTo("b/" + name)))) << name;
}

TEST_F(SourceDates, OutputsCarryThatTime) {
    Make("1000000000", "XST-9", "a");
    for (const std::string name : {"r.pdf", "plan.pdf", "c.pdf"})
        EXPECT_THAT(ReadBytes(PathTo("a/" + name)), HasSubstr("/CreationDate (D:20010909014640Z)")) << name;
    for (const std::string name : {"a/c.xlsx", "a/s.xlsx"})
        EXPECT_THAT(Part(name, "docProps/core.xml"), HasSubstr(">2001-09-09T01:46:40Z<")) << name;
    const CliAnswer text = RunProgram("/bin/sh", {"-c", "pdftotext -layout a/r.pdf -"}, Folder.string());
    EXPECT_THAT(text.out, HasSubstr("1:46:40 AM"));
}

TEST_F(SourceDates, WhatIsNoTimeIsPassedOver) {
    for (const char* const seconds : {"", "soon", "-1", "1e9", "99999999999999"}) {
        ::setenv("SOURCE_DATE_EPOCH", seconds, 1);
        EXPECT_EQ(Run({"plan", "--force", "-o", "p.pdf", "p.TKL"}).status, 0);
        EXPECT_THAT(ReadBytes(PathTo("p.pdf")), HasSubstr("/CreationDate (D:20")) << seconds;
        EXPECT_THAT(ReadBytes(PathTo("p.pdf")), Not(HasSubstr("/CreationDate (D:2001"))) << seconds;
    }
}

}  // namespace
}  // namespace tarvokol
