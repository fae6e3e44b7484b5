// SPDX-License-Identifier: GPL-3.0-or-later
// Two programs that run at the same time, with one file of settings and one folder of example projects.
#include <sys/wait.h>
#include <unistd.h>

#include "core/messages/history_log.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

class TwoPrograms : public SettingsTest {
  protected:
    // The work of both, side by side; each gives back how often something was wrong.
    template <typename Work>
    void ExpectNothingWrong(const Work& work) {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(work("second") == 0 && Messages().empty() ? 0 : 1);
        EXPECT_EQ(work("first"), 0);
        EXPECT_EQ(Messages(), std::vector<std::string>());
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }

    std::vector<std::string> NamesOfData() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "data"))
            names.push_back(entry.path().filename().string());
        return names;
    }
};

// A key that is missing in what is read would be seen by its value: that of a missing one is another.
TEST_F(TwoPrograms, ReadWholeSettingsWhoeverHasSavedThem) {
    MaxDisplaySize = 8192;
    SaveSettings(section::All);
    ExpectNothingWrong([](const std::string& own) {
        int wrong = 0;
        for (int turn = 0; turn < 100; ++turn) {
            GraphTitle = ExternalEditor = own + " " + std::to_string(turn);
            SaveSettings(section::All);
            const bool read = ReadSettings(RangeRepair::KeepInMemory);
            const bool whole = GraphTitle == ExternalEditor && SymbolSize == 5 && MaxDisplaySize == 8192;
            wrong += read && whole ? 0 : 1;
        }
        return wrong;
    });
    EXPECT_EQ(NamesOfData(), std::vector<std::string>{"TARVOKOL.INI"});
}

TEST_F(TwoPrograms, CopyWholeExamples) {
    std::string lines, copied;
    for (int line = 0; line < 2000; ++line) {
        lines += "line " + std::to_string(line) + "\n";
        copied += "line " + std::to_string(line) + "\r\n";
    }
    WriteBytes(PathTo("app/A.TKL"), lines);
    const std::string copy = PathTo("data/A.TKL");
    ExpectNothingWrong([&](const std::string&) {
        int wrong = 0;
        for (int turn = 0; turn < 60; ++turn) {
            std::error_code gone;
            std::filesystem::remove(copy, gone);
            CopyExampleFiles();
            const std::string bytes = ReadBytes(copy);  // empty where the other has just taken it away
            wrong += bytes.empty() || bytes == copied ? 0 : 1;
        }
        return wrong;
    });
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(copy), copied);
    EXPECT_EQ(NamesOfData(), std::vector<std::string>{"A.TKL"});
}

}  // namespace
}  // namespace tarvokol
