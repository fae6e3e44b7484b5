// SPDX-License-Identifier: GPL-3.0-or-later
// A project's file that somebody else has changed, and one that cannot be opened.
#include "core/project/file_questions.h"

#include <ctime>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "core/platform/message_box.h"
#include "core/project/kept_copy.h"
#include "core/project/lifecycle.h"
#include "core/project/project_origin.h"
#include "core/project/recent_files.h"
#include "core/project/recovery_copy.h"
#include "core/settings/configuration.h"
#include "core/settings/program_settings.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FileQuestions : public ProjectTest {
  protected:
    FileQuestions() {
        std::filesystem::create_directory(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        IniPath = PathTo("TARVOKOL.INI");
        FileExtension = ProjectExtension = "TKL";
        ShowInputScreenOnLoad = 1;
        KeepFileNames = 1;
        MaxLastFiles = ShortRecentFiles = 0;
        ForgetOrigin();
        Provide(Old);
        ::setenv("TZ", "UTC", 1);
        ::tzset();
    }
    ~FileQuestions() override {
        DropRecoveryCopy();
        ForgetOrigin();
    }

    // 2024-05-01 12:00:00 and seconds after that.
    static void SetTime(const std::string& path, long seconds) {
        const timespec times[2] = {{1714564800 + seconds, 0}, {1714564800 + seconds, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    // Another program writes the file a minute after it was read.
    void ReadAndLetOthersWrite(const std::string& bytes) {
        SetTime(ProjectFileName, 0);
        ASSERT_TRUE(ReadProjectFile());
        WriteBytes(ProjectFileName, bytes);
        SetTime(ProjectFileName, 61);
        ProjectTitle = "mine";
        MarkProjectChanged();
    }

    std::string Title(const std::string& path) const {
        const auto document = DocumentOfBytes(ReadBytes(path));
        return document ? document->title : "";
    }

    const std::string Old = Joined(FileLines("old", {"Upper seam"}));
    const std::string Foreign = Joined(FileLines("of somebody else", {"Upper seam"}));
};

TEST_F(FileQuestions, AFileThatNobodyTouchedIsSavedWithoutAQuestion) {
    ASSERT_TRUE(ReadProjectFile());
    for (const char* title : {"a", "b"}) {
        ProjectTitle = title;
        EXPECT_TRUE(FileMenuSave(false));
        EXPECT_EQ(Title(ProjectFileName), title);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileQuestions, AForeignChangeIsAskedAboutWithBothTimes) {
    ReadAndLetOthersWrite(Foreign);
    Host.Messages.Answers = {box_result::Cancel};
    EXPECT_FALSE(FileMenuSave(false));
    EXPECT_EQ(ReadBytes(ProjectFileName), Foreign);
    EXPECT_TRUE(HasUnsavedChanges());
    EXPECT_NE(RecoveryCopyPath(), "");
    EXPECT_THAT(Messages(),
                ElementsAre(ProjectFileName +
                            " has been changed by somebody else since it was read or saved here.\r\n\r\n"
                            "Changed last, as known here: 2024-05-01 12:00:00\r\n"
                            "Changed last, on the disk: 2024-05-01 12:01:01\r\n\r\n"
                            "Save over it, or save as another file?"));
    const BoxRequest& box = Host.Messages.Shown[0];
    EXPECT_EQ(box.style, 291);
    EXPECT_EQ(box.title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_THAT(box.captions, ElementsAre("&Save", "Save &As", ""));
}

TEST_F(FileQuestions, SaveSavesOverAForeignChangeOnceAndKeepsIt) {
    ReadAndLetOthersWrite(Foreign);
    Host.Messages.Answers = {box_result::Yes};
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Title(ProjectFileName), "mine");
    EXPECT_EQ(ReadBytes(KeptCopyPath(ProjectFileName)), Foreign);
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(FileQuestions, SaveAsLeavesAForeignChangeAlone) {
    ReadAndLetOthersWrite(Foreign);
    const std::string theirs = ProjectFileName;
    Host.Messages.Answers = {box_result::No};
    Host.Dialogs.FileAnswers = {PathTo("mine.TKL")};
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(ReadBytes(theirs), Foreign);
    EXPECT_EQ(Title(PathTo("mine.TKL")), "mine");
    EXPECT_EQ(ProjectFileName, PathTo("mine.TKL"));
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(FileQuestions, SaveAsThatIsCancelledSavesNothing) {
    ReadAndLetOthersWrite(Foreign);
    Host.Messages.Answers = {box_result::No};
    EXPECT_FALSE(FileMenuSave(false));
    EXPECT_EQ(ReadBytes(PathTo("panel.TKL")), Foreign);
    EXPECT_TRUE(HasUnsavedChanges());
}

TEST_F(FileQuestions, WhatAddsNothingIsNotAskedAbout) {
    ReadAndLetOthersWrite(Old);  // the same content at another time
    EXPECT_TRUE(FileMenuSave(false));
    std::filesystem::remove(ProjectFileName);  // nothing to save over
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_THAT(Messages(), IsEmpty());
    WriteBytes(PathTo("other.TKL"), Foreign);  // the dialog has asked about it
    Host.Dialogs.FileAnswers = {PathTo("other.TKL")};
    EXPECT_TRUE(FileMenuSave(true));
    EXPECT_THAT(Messages(), IsEmpty());
}

// A change within one second, and through a link, is seen as well.
TEST_F(FileQuestions, AChangeIsSeenByItsContentAndThroughALink) {
    std::filesystem::create_symlink("panel.TKL", Folder / "link.TKL");
    ProjectFileName = PathTo("link.TKL");
    SetTime(PathTo("panel.TKL"), 0);
    ASSERT_TRUE(ReadProjectFile());
    std::string changed = Old;
    changed.replace(changed.find("250"), 3, "251");
    WriteBytes(PathTo("panel.TKL"), changed);
    SetTime(PathTo("panel.TKL"), 0);
    EXPECT_EQ(AskAboutForeignChange(PathTo("panel.TKL")), SaveChoice::Cancel);
    EXPECT_EQ(AskAboutForeignChange(ProjectFileName), SaveChoice::Cancel);
    EXPECT_EQ(Messages().size(), 2u);
}

TEST_F(FileQuestions, AProjectThatComesFromNoFileIsSavedAsTold) {
    ASSERT_TRUE(ReadProjectFile());
    FileNew(false, true);
    WriteBytes(ProjectFileName, Foreign);
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_THAT(Messages(), IsEmpty());
}

// A save over and over, and then a damaged file; the newest of its contents is offered after what is told.
class DamagedProject : public FileQuestions {
  protected:
    void SaveAndDamage(const std::string& damaged) {
        ASSERT_TRUE(ReadProjectFile());
        ProjectTitle = "newest";
        ASSERT_TRUE(FileSave());
        ASSERT_TRUE(FileSave());
        SetTime(KeptCopyPath(ProjectFileName), 5);
        WriteBytes(ProjectFileName, damaged);
        Path = ProjectFileName;
        FileNew(true, true);
        LastFileLong[1] = Path;
        MaxLastFiles = 1;
        Host.MainWindow.ParametersOpened = 0;
    }

    std::string Offer() const {
        return Path + " cannot be opened.\r\nIts newest whole copy is of 2024-05-01 12:00:05:\r\n" +
               KeptCopyPath(Path) + "\r\n\r\nOpen the copy? Save then writes it to the project's own file.";
    }

    std::string Path;
};

TEST_F(DamagedProject, IsAnsweredByItsCopyWhichASaveBringsBack) {
    SaveAndDamage(Old.substr(0, 70));
    Host.Messages.Answers = {box_result::Cancel, box_result::Yes};
    RecentFileCommand(1);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Input past end of file (62)", Offer()));
    EXPECT_EQ(Host.Messages.Shown[1].style, 36);
    EXPECT_EQ(ProjectFileName, Path);
    EXPECT_EQ(ProjectTitle, "newest");
    EXPECT_EQ(ProjectDescription, "Upper seam\r\n");
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
    EXPECT_TRUE(HasUnsavedChanges());
    EXPECT_FALSE(IsProjectEmpty());
    EXPECT_THAT(Host.MainWindow.Caption, EndsWith("*"));
    EXPECT_EQ(Host.MainWindow.ParametersOpened, 1);
    EXPECT_NE(RecoveryCopyPath(), "");
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Title(Path), "newest");
    EXPECT_EQ(RecoveryCopyPath(), "");
}

TEST_F(DamagedProject, OfAnotherFormatIsAnsweredAfterItsMessage) {
    SaveAndDamage("garbage\r\n");
    Host.Messages.Answers = {box_result::Ok, box_result::Yes};
    Host.Dialogs.FileAnswers = {Path};
    FileOpenCommand();
    EXPECT_THAT(Messages(), ElementsAre("Invalid file format", Offer()));
    EXPECT_EQ(ProjectTitle, "newest");
}

TEST_F(DamagedProject, ThatIsGoneIsAnsweredToo) {
    SaveAndDamage("");
    std::filesystem::remove(Path);
    Host.Messages.Answers = {box_result::Cancel, box_result::Yes};
    RecentFileCommand(1);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: File not found (53)", Offer()));
    EXPECT_EQ(ProjectTitle, "newest");
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Title(Path), "newest");
}

TEST_F(DamagedProject, StaysAsItIsWhereTheCopyIsNotWanted) {
    SaveAndDamage("garbage\r\n");
    Host.Messages.Answers = {box_result::Ok, box_result::No};
    RecentFileCommand(1);
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_TRUE(IsProjectEmpty());
    EXPECT_FALSE(HasUnsavedChanges());
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ReadBytes(Path), "garbage\r\n");
    EXPECT_THAT(RecoveryCopyPath(), "");
}

// The road on which the only good copy was once replaced: a refused file, two saves without a dialog.
TEST_F(DamagedProject, ThatIsSavedOverByAnEmptyOneTwiceKeepsItsCopies) {
    SaveAndDamage("garbage\r\n");
    Host.Messages.Answers = {box_result::Ok, box_result::No};
    RecentFileCommand(1);
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(Title(Path), "");
    EXPECT_EQ(Title(NewestGoodCopy(Path)), "newest");
    EXPECT_EQ(KeptCopies(Path).size(), 2u);
}

TEST_F(DamagedProject, WithoutACopyIsToldAsEver) {
    WriteBytes(PathTo("never.TKL"), "garbage");
    LastFileLong[1] = PathTo("never.TKL");
    MaxLastFiles = 1;
    RecentFileCommand(1);
    EXPECT_THAT(Messages(), ElementsAre("Invalid file format"));
}

}  // namespace
}  // namespace tarvokol
