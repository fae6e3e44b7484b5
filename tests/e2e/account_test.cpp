// SPDX-License-Identifier: GPL-3.0-or-later
// Accounts that no desktop has set up: fresh ones, those of a container or a server.
#include <cstdlib>

#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Account : public DesktopTest {
  protected:
    void SetUp() override {
        DesktopTest::SetUp();
        std::filesystem::remove(Folder / "Documents");
    }

    void ConfirmDisclaimer() const {
        ExpectWindow(kDisclaimer);
        PressTo("Return", kReminder);
    }

    // The folder below which the settings, the examples and the unsaved project must lie.
    void ExpectDataIn(const std::string& folder) const {
        EXPECT_THAT(ReadBytes(folder + "/TARVOKOL.INI"), HasSubstr("[Settings]\r\n"));
        EXPECT_TRUE(std::filesystem::exists(folder + "/Contour_Bench_Shallow.TKL"));
        std::vector<std::string> copies;
        for (const auto& entry : std::filesystem::directory_iterator(folder + "/Temp"))
            copies.push_back(entry.path().filename().string());
        EXPECT_THAT(copies, ::testing::ElementsAre(StartsWith("~unsaved Untitled ")));
    }

    static std::string ProgramFolder() {
        return std::filesystem::path(TARVOKOL_PROGRAM).parent_path().string() + "/";
    }
};

TEST_F(Account, WithoutDocumentsGetsTheFolder) {
    Start();
    ConfirmDisclaimer();
    PressTo("Return", kMain);
    TypeNewProject();
    ExpectDataIn(PathTo("Documents/MyOLTEK"));
    EXPECT_FALSE(std::filesystem::exists(ProgramFolder() + "TARVOKOL.INI"));
}

TEST_F(Account, WhoseDocumentsCannotBeMadeHasItsDataInTheHomeFolder) {
    WriteBytes(PathTo("Documents"), "a file in the way");
    Start();
    ConfirmDisclaimer();
    PressTo("Return", kMain);
    TypeNewProject();
    ExpectDataIn(PathTo("MyOLTEK"));
    EXPECT_FALSE(std::filesystem::exists(ProgramFolder() + "TARVOKOL.INI"));
}

// The folder of processes takes no file, not even from root; that of the program is made to refuse, too.
TEST_F(Account, ThatNothingCanBeWrittenForIsToldOnce) {
    std::filesystem::create_directory(Folder / "program");
    std::filesystem::copy_file(TARVOKOL_PROGRAM, Folder / "program/tarvokol");
    Program.Path = PathTo("program/tarvokol");
    Program.Home = "/proc/self";
    setenv("LD_PRELOAD", TARVOKOL_FAILING_FILES, 1);
    setenv("TARVOKOL_FAULT_FOLDER", PathTo("program/").c_str(), 1);
    setenv("TARVOKOL_FAULT_AT", "1", 1);
    setenv("TARVOKOL_FAULT_ERROR", std::to_string(EROFS).c_str(), 1);
    setenv("TARVOKOL_FAULT_KIND", "forever", 1);
    Start();
    unsetenv("LD_PRELOAD");
    ConfirmDisclaimer();
    PressTo("Return", "Tarvo Panel Stability Evaluation - KOL");
    PressTo("Return", kMain);
    TypeNewProject();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder / "program"), {}), 1);
}

}  // namespace
}  // namespace tarvokol
