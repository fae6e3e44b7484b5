// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/left_copies.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/project/lifecycle.h"
#include "core/project/recovery_copy.h"
#include "core/settings/configuration.h"
#include "core/settings/program_settings.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class LeftCopies : public ProjectTest {
  protected:
    LeftCopies() {
        std::filesystem::create_directory(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        ProjectExtension = FileExtension = "TKL";
        KeepFileNames = ShowInputScreenOnLoad = 0;
        Provide(Joined(FileLines("Ridge", {"Upper seam"})));
        EXPECT_TRUE(ReadProjectFile());
    }
    ~LeftCopies() override { DropRecoveryCopy(); }

    // A run that changes the project and is killed.
    template <typename Change>
    void Crash(const Change& change) {
        const pid_t process = ::fork();
        if (process == 0) {
            change();
            ::raise(SIGKILL);
        }
        ::waitpid(process, nullptr, 0);
    }

    static void SetTime(const std::string& path, long seconds) {
        const timespec times[2] = {{1714564800 + seconds, 0}, {1714564800 + seconds, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
};

TEST_F(LeftCopies, TellWhoseTheyAreAndWhatIsNewer) {
    Crash([] {
        ProjectTitle = "Ridge North";
        ProjectRecord.Height = 7.5;
        ProjectRecord.NumberHoles = 9;
        ProjectRecord.SFWeb = 1.5f;
        MarkProjectChanged();
    });
    const auto copies = CopiesLeftBehind();
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].project, PathTo("panel.TKL"));
    EXPECT_EQ(copies[0].newer, "title, extraction height, number of holes, factor for webs");
    EXPECT_TRUE(copies[0].typed.boxes.empty());
}

TEST_F(LeftCopies, TellWhereTheFileIsGoneOrWasSavedLater) {
    Crash([] { MarkProjectChanged(); });
    SetTime(CopiesLeftBehind()[0].path, 0);
    SetTime(ProjectFileName, 60);
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    EXPECT_EQ(CopiesLeftBehind()[0].newer, "nothing; the file was saved later: 2024-05-01 12:01:00");
    std::filesystem::remove(ProjectFileName);
    EXPECT_EQ(CopiesLeftBehind()[0].newer, "the file is gone");
    WriteBytes(ProjectFileName, "garbage");
    SetTime(ProjectFileName, -60);
    EXPECT_EQ(CopiesLeftBehind()[0].newer, "the file cannot be read");
}

TEST_F(LeftCopies, OpenAsTheUnsavedStateOfTheirProject) {
    Crash([] {
        ProjectRecord.Height = 7.5;
        MarkProjectChanged();
        KeepTypedTexts({"frmTARVOParm", {{"txtHeight", "8,25"}}});
    });
    FileNew(true, true);
    auto copies = CopiesLeftBehind();
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].newer, "extraction height, typed and not yet OK");
    ASSERT_TRUE(OpenLeftCopy(copies[0]));
    EXPECT_EQ(ProjectFileName, PathTo("panel.TKL"));
    EXPECT_EQ(ProjectRecord.Height, 7.5);
    EXPECT_TRUE(HasUnsavedChanges());
    EXPECT_FALSE(std::filesystem::exists(copies[0].path));
    EXPECT_THAT(ReadBytes(RecoveryCopyPath()), HasSubstr("Box txtHeight=8,25\r\n"));
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(DocumentOfBytes(ReadBytes(PathTo("panel.TKL")))->inputs.Height, 7.5);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LeftCopies, OfAProjectWithoutAFileAskForOneWhenSaved) {
    Crash([] {
        FileNew(true, true);
        ProjectTitle = "New";
        MarkProjectChanged();
    });
    const auto copies = CopiesLeftBehind();
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].project, "Untitled");
    EXPECT_EQ(copies[0].newer, "never saved");
    ASSERT_TRUE(OpenLeftCopy(copies[0]));
    Host.Dialogs.FileAnswers = {PathTo("new.TKL")};
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(DocumentOfBytes(ReadBytes(PathTo("new.TKL")))->title, "New");
}

TEST_F(LeftCopies, ThreeHundredAreListedOnceAndTheNewestFirst) {
    for (int i = 0; i < 300; ++i) {
        const std::string path = PathTo("temp/~unsaved p " + std::to_string(i) + "-1.TKL");
        WriteBytes(path, Joined(FileLines(std::to_string(i), {""})));
        SetTime(path, i);
    }
    const auto copies = CopiesLeftBehind();
    ASSERT_EQ(copies.size(), 300u);
    EXPECT_THAT(copies.front().path, HasSubstr("p 299-1"));
    EXPECT_THAT(copies.back().path, HasSubstr("p 0-1"));
    EXPECT_THAT(CopiesLeftBehind(), IsEmpty());  // another start, while the first one asks
}

TEST_F(LeftCopies, AreTakenAwayOnRequestAndDamagedOnesAreNotOffered) {
    WriteBytes(PathTo("temp/~unsaved p 1-1.TKL"), "left behind");
    EXPECT_THAT(CopiesLeftBehind(), IsEmpty());
    Crash([] { MarkProjectChanged(); });
    const auto copies = CopiesLeftBehind();
    ASSERT_EQ(copies.size(), 1u);
    RemoveLeftCopy(copies[0]);
    EXPECT_FALSE(std::filesystem::exists(copies[0].path));
    EXPECT_TRUE(std::filesystem::exists(PathTo("temp/~unsaved p 1-1.TKL")));
}

}  // namespace
}  // namespace tarvokol
