// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/recovery_copy.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/messages/history_log.h"
#include "core/project/file_conversion.h"
#include "core/project/lifecycle.h"
#include "core/settings/configuration.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecoveryCopy : public ProjectTest {
  protected:
    RecoveryCopy() {
        std::filesystem::create_directory(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        ProjectExtension = FileExtension = "TKL";
        DisplayHistoryWin = 1;
        KeepFileNames = ShowInputScreenOnLoad = 0;
        ProjectFileName = PathTo("ridge.TKL");
        FillRecord();
        ProjectTitle = "Ridge Panel 4";
        ProjectDescription = "Upper seam,\r\nnorth";
        ProjectSaved = ProjectEmpty = 0;
    }
    ~RecoveryCopy() override { DropRecoveryCopy(); }

    // As the name of a copy tells it: the process and the tick of the system at which it began.
    static std::string Run() {
        std::ifstream file("/proc/self/stat");
        const std::string state((std::istreambuf_iterator<char>(file)), {});
        std::istringstream words(state.substr(state.rfind(')') + 2));
        std::string word;
        for (int i = 0; i < 20; ++i) words >> word;
        return std::to_string(::getpid()) + "-" + word;
    }

    std::string OwnPath() const { return PathTo("temp/~unsaved ridge " + Run() + ".TKL"); }

    // What a copy holds of the project, without the note at its end.
    static std::string ProjectIn(const std::string& path) {
        const std::string bytes = ReadBytes(path);
        return bytes.substr(0, bytes.find("##Unsaved##"));
    }

    std::vector<std::string> Copies() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    const std::string& Log() const { return Host.MainWindow.History; }
};

TEST_F(RecoveryCopy, HoldsTheProjectAsItStandsAndChangesNothing) {
    KeepRecoveryCopy();
    EXPECT_EQ(RecoveryCopyPath(), OwnPath());
    EXPECT_EQ(ProjectIn(OwnPath()), Joined(FileLines("Ridge Panel 4", {"Upper seam,", "north"})));
    EXPECT_EQ(ProjectDescription, "Upper seam,\r\nnorth");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectFileName, PathTo("ridge.TKL"));
    EXPECT_EQ(Log(), "");
    EXPECT_THAT(Messages(), IsEmpty());
    ProjectDescription += "\r\n";  // as after a read
    KeepRecoveryCopy();
    EXPECT_EQ(ProjectIn(OwnPath()), Joined(FileLines("Ridge Panel 4", {"Upper seam,", "north"})));
}

TEST_F(RecoveryCopy, OpensLikeAnyProject) {
    KeepRecoveryCopy();
    FileNew(true, true);
    ProjectFileName = OwnPath();
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectTitle, "Ridge Panel 4");
    EXPECT_EQ(ProjectDescription, "Upper seam,\r\nnorth\r\n");
    EXPECT_EQ(ProjectRecord.NumberHoles, 12);
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
}

TEST_F(RecoveryCopy, IsRewrittenByTheNextStore) {
    KeepRecoveryCopy();
    ProjectRecord.NumberHoles = 7;
    KeepRecoveryCopy();
    EXPECT_EQ(Copies().size(), 1u);
    EXPECT_NE(ReadBytes(OwnPath()).find("17\r\n 7 \r\n90\r\n"), std::string::npos);
}

TEST_F(RecoveryCopy, FollowsTheNameOfTheProject) {
    KeepRecoveryCopy();
    ProjectFileName = "Untitled";
    KeepRecoveryCopy();
    EXPECT_THAT(Copies(), ElementsAre("~unsaved Untitled " + Run() + ".TKL"));
}

TEST_F(RecoveryCopy, OfAProjectThatIsACopyItselfHasItsPlainName) {
    ProjectFileName = PathTo("temp/~unsaved north ridge 1.TKL");
    WriteBytes(ProjectFileName, "left behind");
    KeepRecoveryCopy();
    EXPECT_EQ(RecoveryCopyPath(), PathTo("temp/~unsaved north ridge " + Run() + ".TKL"));
    EXPECT_EQ(ReadBytes(ProjectFileName), "left behind");
}

TEST_F(RecoveryCopy, NeverReplacesOneThatWasLeftBehind) {
    WriteBytes(OwnPath(), "left behind by a run of the same number");
    KeepRecoveryCopy();
    EXPECT_EQ(ReadBytes(OwnPath()), "left behind by a run of the same number");
    EXPECT_EQ(RecoveryCopyPath(), PathTo("temp/~unsaved ridge " + Run() + ".2.TKL"));
}

TEST_F(RecoveryCopy, ALongNameIsCut) {
    ProjectFileName = PathTo(std::string(200, 'r') + ".TKL");
    KeepRecoveryCopy();
    EXPECT_EQ(RecoveryCopyPath(), PathTo("temp/~unsaved " + std::string(40, 'r') + " " + Run() + ".TKL"));
}

TEST_F(RecoveryCopy, IsDroppedOnRequest) {
    KeepRecoveryCopy();
    DropRecoveryCopy();
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_EQ(RecoveryCopyPath(), "");
    DropRecoveryCopy();
}

TEST_F(RecoveryCopy, IsDroppedByASave) {
    KeepRecoveryCopy();
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(RecoveryCopyPath(), "");
    EXPECT_FALSE(std::filesystem::exists(OwnPath()));
}

TEST_F(RecoveryCopy, StaysWhenTheSaveFails) {
    KeepRecoveryCopy();
    ProjectFileName = PathTo("none/ridge.TKL");
    EXPECT_FALSE(FileMenuSave(false));
    EXPECT_TRUE(std::filesystem::exists(OwnPath()));
}

TEST_F(RecoveryCopy, IsDroppedWhenTheSaveBeforeAnOpenIsRefused) {
    KeepRecoveryCopy();
    PreviousFileName = ProjectFileName;
    Provide(Joined(FileLines("Other", {""})));
    Host.Messages.Answers = {7};
    EXPECT_TRUE(FileOpen());
    EXPECT_THAT(Copies(), IsEmpty());
}

// A save was asked for and did not come about; the next project's copy is another one.
TEST_F(RecoveryCopy, OfAProjectWhoseSaveWasCancelledBeforeAnOpenStays) {
    ProjectFileName = "Untitled";
    KeepRecoveryCopy();
    const std::string kept = RecoveryCopyPath(), content = ReadBytes(kept);
    PreviousFileName = ProjectFileName;
    Provide(Joined(FileLines("Other", {""})));
    Host.Messages.Answers = {6};
    Host.Dialogs.FileAnswers = {""};
    EXPECT_TRUE(FileOpen());
    EXPECT_EQ(RecoveryCopyPath(), "");
    MarkProjectChanged();
    EXPECT_EQ(ReadBytes(kept), content);
    EXPECT_EQ(Copies().size(), 2u);
    EXPECT_TRUE(FileMenuSave(false));
    EXPECT_EQ(ReadBytes(kept), content);
    EXPECT_THAT(Copies(),
                ElementsAre(::testing::StartsWith("~bak_"), ::testing::StartsWith("~unsaved Untitled ")));
}

TEST_F(RecoveryCopy, OfAProjectWhoseSaveFailedBeforeAnOpenStays) {
    PreviousFileName = ProjectFileName = PathTo("none/ridge.TKL");
    KeepRecoveryCopy();
    const std::string kept = RecoveryCopyPath(), content = ReadBytes(kept);
    Provide(Joined(FileLines("Other", {""})));
    Host.Messages.Answers = {6};
    EXPECT_TRUE(FileOpen());
    ProjectFileName = PathTo("other/ridge.TKL");  // of the same name
    MarkProjectChanged();
    EXPECT_NE(RecoveryCopyPath(), kept);
    DropRecoveryCopy();
    EXPECT_EQ(ReadBytes(kept), content);
}

// New asks nothing, so nobody has said that the work is not wanted.
TEST_F(RecoveryCopy, StaysWhenANewProjectIsBegun) {
    KeepRecoveryCopy();
    const std::string kept = RecoveryCopyPath(), content = ReadBytes(kept);
    FileNew(true, true);
    MarkProjectChanged();
    DropRecoveryCopy();
    EXPECT_EQ(ReadBytes(kept), content);
}

TEST_F(RecoveryCopy, IsMadeWhateverExtensionIsSet) {
    for (const std::string& extension :
         {std::string("a/b"), std::string("a\\b"), std::string(254, 'x'), std::string("/")}) {
        FileExtension = extension;
        KeepRecoveryCopy();
        EXPECT_EQ(RecoveryCopyPath(), OwnPath()) << extension;
        EXPECT_TRUE(std::filesystem::exists(OwnPath()));
        DropRecoveryCopy();
    }
    FileExtension = std::string(32, 'x');
    KeepRecoveryCopy();
    EXPECT_THAT(RecoveryCopyPath(), ::testing::EndsWith("." + std::string(32, 'x')));
}

TEST_F(RecoveryCopy, HasNoMoreRightsThanItsProject) {
    WriteBytes(ProjectFileName, Joined(FileLines("Ridge", {""})));
    ASSERT_EQ(::chmod(ProjectFileName.c_str(), 0600), 0);
    EXPECT_TRUE(ReadProjectFile());
    for (const char* name : {"ridge.TKL", "Untitled"}) {  // the second after a file dialog was cancelled
        ProjectFileName = name == std::string("Untitled") ? name : PathTo(name);
        KeepRecoveryCopy();
        struct stat status {};
        ASSERT_EQ(::stat(RecoveryCopyPath().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600u);
    }
}

TEST_F(RecoveryCopy, IsWrittenByAConversion) {
    ConvertTargetUnits = 1;
    ConvertProject();
    EXPECT_EQ(RecoveryCopyPath(), PathTo("temp/~unsaved Metric_ridge " + Run() + ".TKL"));
    EXPECT_EQ(ReadBytes(RecoveryCopyPath()).find("TARVOKOL_101\r\n 1 \r\nRidge Panel 4\r\n"), 0u);
}

TEST_F(RecoveryCopy, WithoutATemporaryFolderNothingIsKept) {
    TempDataFolder = "";
    KeepRecoveryCopy();
    ReportRecoveryCopies();
    EXPECT_EQ(RecoveryCopyPath(), "");
    EXPECT_EQ(UnsavedWorkPath(), "");
    EXPECT_EQ(Log(), "");
}

TEST_F(RecoveryCopy, AFailureIsALineOfTheHistory) {
    TempDataFolder = PathTo("gone/");
    KeepRecoveryCopy();
    EXPECT_EQ(Log(), "1. Unsaved project cannot be kept: " + PathTo("gone/~unsaved ridge ") + Run() +
                         ".TKL: Path not found\r\n");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(RecoveryCopyPath(), "");
}

TEST_F(RecoveryCopy, AFolderThatTakesNoFileIsToldInABox) {
    TempDataFolder = PathTo("gone/");
    TellIfUnprotected();
    ASSERT_THAT(Messages(),
                ElementsAre("Unsaved work is not protected: no copy of it can be kept in " + PathTo("gone/") +
                            ": Path not found.\r\nWhat is not saved is lost if the program ends early."));
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    TempDataFolder = PathTo("temp/");
    {
        const FailingFiles fault(
            {.folder = PathTo("temp"), .at = 1, .error = EACCES, .kind = FaultKind::Forever});
        TellIfUnprotected();
    }
    EXPECT_THAT(Messages().back(), ::testing::HasSubstr(PathTo("temp/") + ": Permission denied.\r\n"));
}

TEST_F(RecoveryCopy, AFolderThatTakesFilesIsLeftAsItWas) {
    TellIfUnprotected();
    EXPECT_THAT(Copies(), IsEmpty());
    TempDataFolder = "";  // the command line keeps nothing
    TellIfUnprotected();
    EXPECT_THAT(Messages(), IsEmpty());
}

// Every call on files made to fail in turn: what stands in the folder is the old copy or the new one, never a
// part.
TEST_F(RecoveryCopy, AFullDiskLeavesTheOldCopyWhole) {
    const std::string before = ProjectFileText();
    KeepRecoveryCopy();
    ProjectRecord.NumberHoles = 7;
    const std::string after = ProjectFileText();
    for (const FaultKind kind : {FaultKind::Once, FaultKind::Forever, FaultKind::Full, FaultKind::Half}) {
        for (long at = 1;; ++at) {
            ASSERT_LT(at, kMostCalls);
            for (const std::string& name : Copies())  // what could not be taken away any more
                if (PathTo("temp/" + name) != OwnPath()) std::filesystem::remove(PathTo("temp/" + name));
            WriteBytes(OwnPath(), before);
            std::string failed;
            {
                const FailingFiles fault({.folder = PathTo("temp"), .at = at, .kind = kind});
                KeepRecoveryCopy();
                failed = fault.Failed();
            }
            const std::string found = ProjectIn(OwnPath());
            EXPECT_TRUE(found == before || found == after) << at << failed << found;
            if (failed.empty()) break;
        }
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RecoveryCopy, TheEndByAnErrorFindsUnsavedWorkKept) {
    EXPECT_EQ(UnsavedWorkPath(), OwnPath());
    EXPECT_TRUE(std::filesystem::exists(OwnPath()));
    DropRecoveryCopy();
    ProjectSaved = 255;
    EXPECT_EQ(UnsavedWorkPath(), "");
}

// Another run of the program with the same project, which lives until the object ends it as a crash would.
class OtherRun {
  public:
    OtherRun() {
        int ready[2];
        if (::pipe(ready) != 0) std::abort();
        process_ = ::fork();
        if (process_ == 0) {
            KeepRecoveryCopy();
            const char byte = 'k';
            if (::write(ready[1], &byte, 1) == 1)
                for (;;) ::pause();
            ::_exit(1);
        }
        char byte = 0;
        told_ = ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
        ::close(ready[1]);
    }
    OtherRun(const OtherRun&) = delete;
    OtherRun& operator=(const OtherRun&) = delete;
    ~OtherRun() { Kill(); }

    bool Told() const { return told_; }
    pid_t Process() const { return process_; }

    // The name of its copy, which is the only one of that process.
    std::string CopyIn(const std::string& folder) const {
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().string().find(" " + std::to_string(process_) + "-") != std::string::npos)
                return entry.path().string();
        return "";
    }

    void Kill() {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = 0;
    }

  private:
    pid_t process_ = 0;
    bool told_ = false;
};

TEST_F(RecoveryCopy, OfARunThatWasKilledIsToldAtTheNextStartAndStays) {
    OtherRun other;
    ASSERT_TRUE(other.Told());
    const std::string path = other.CopyIn(PathTo("temp"));
    EXPECT_THAT(path, ::testing::ContainsRegex("/~unsaved ridge " + std::to_string(other.Process()) +
                                               "-[0-9]+\\.TKL$"));
    other.Kill();
    ReportRecoveryCopies();
    EXPECT_EQ(Log(), "1. Unsaved project of an earlier run: " + path + "\r\n");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(ProjectIn(path), Joined(FileLines("Ridge Panel 4", {"Upper seam,", "north"})));
}

TEST_F(RecoveryCopy, OfARunThatLivesIsItsOwn) {
    const OtherRun other;
    ASSERT_TRUE(other.Told());
    KeepRecoveryCopy();
    ReportRecoveryCopies();
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(Copies().size(), 2u);
    DropRecoveryCopy();
    EXPECT_EQ(Copies().size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(other.CopyIn(PathTo("temp"))));
}

// As on some file systems of networks: the process's number and start in the name tell whether it lives.
TEST_F(RecoveryCopy, WhereNothingCanBeLockedTheNameTellsWhoLives) {
    const FailingFiles no_locks({.folder = PathTo("temp"), .missing = {{"flock", ENOLCK}}});
    OtherRun other;
    ASSERT_TRUE(other.Told());
    const std::string path = other.CopyIn(PathTo("temp"));
    EXPECT_THAT(AbandonedCopies(), IsEmpty());
    // The number alone would take a later process for the one that wrote it.
    const std::string of_another = PathTo("temp/~unsaved ridge " + std::to_string(::getppid()) + "-1.TKL");
    WriteBytes(of_another, "left behind");
    ASSERT_EQ(AbandonedCopies().size(), 1u);
    EXPECT_EQ(AbandonedCopies()[0].path, of_another);
    other.Kill();
    EXPECT_EQ(AbandonedCopies().size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(RecoveryCopy, TakesUpWhatStandsTypedAndGivesItBack) {
    KeepTypedTexts({"frmTARVOParm", {{"txtHeight", "4,5 = \xc2\xb0 %"}, {"Text2", "a\r\nb"}}});
    const CopyNote note = NoteOf(ReadBytes(OwnPath()));
    EXPECT_EQ(note.project, PathTo("ridge.TKL"));
    EXPECT_EQ(note.typed.dialog, "frmTARVOParm");
    ASSERT_EQ(note.typed.boxes.size(), 2u);
    EXPECT_EQ(note.typed.boxes[0].second, "4,5 = \xc2\xb0 %");
    EXPECT_EQ(note.typed.boxes[1].second, "a\r\nb");
    EXPECT_EQ(ProjectIn(OwnPath()), Joined(FileLines("Ridge Panel 4", {"Upper seam,", "north"})));
    DropTypedTexts();  // the project itself is unsaved
    EXPECT_EQ(NoteOf(ReadBytes(OwnPath())).typed.dialog, "");
}

TEST_F(RecoveryCopy, OfNothingButTypedTextsGoesWithThem) {
    ProjectSaved = 255;
    KeepTypedTexts({"frmTARVODesc", {{"Text1", "North"}}});
    EXPECT_TRUE(std::filesystem::exists(OwnPath()));
    DropTypedTexts();
    EXPECT_THAT(Copies(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
