// SPDX-License-Identifier: GPL-3.0-or-later
// Saves of the desktop that are ended by signals, and programs that save at the same time.
#include <array>
#include <cstdlib>
#include <map>
#include <random>

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/files/unfinished_files.h"
#include "core/project/kept_copy.h"
#include "core/project/lifecycle.h"
#include "core/project/recovery_copy.h"
#include "core/settings/configuration.h"
#include "core/settings/program_settings.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

// The project's file and what stands in the temporary data folder, to begin again from.
struct FilesOfASave {
    std::string project;
    std::map<std::string, std::string> copies;
};

// Fewer in a quick run; the long ones say so in the environment.
long WantedSaves(const char* variable, long otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::atol(text);
}

class KilledSaves : public ProjectTest {
  protected:
    KilledSaves() {
        std::filesystem::create_directories(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        DescTempPath = PathTo("temp/~tmpdesc.tmp");
        FileExtension = ProjectExtension = "TKL";
        Provide(ProjectOf("old"));
        FillRecord();
        ProjectDescription = "Lower seam\r\nNorth";
    }

    static std::string ProjectOf(const std::string& title) {
        return Joined(FileLines(title, {"Lower seam", "North"}));
    }

    FilesOfASave Files() const {
        FilesOfASave files{ReadBytes(ProjectFileName), {}};
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            files.copies[entry.path().string()] = ReadBytes(entry.path().string());
        return files;
    }

    void Restore(const FilesOfASave& files) const {
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            std::filesystem::remove(entry.path());
        WriteBytes(ProjectFileName, files.project);
        for (const auto& [path, bytes] : files.copies) WriteBytes(path, bytes);
    }

    // An OK in a dialog, then Save, in a process of its own, which ends by SIGKILL at the file operation of that number;
    // false if it had no so many.
    bool SaveKilledAt(long operation, const std::string& title) {
        ProjectTitle = title;
        const pid_t child = ::fork();
        if (child == 0) {
            MarkProjectChanged();
            const FailingFiles fault({.folder = Folder.string(), .at = operation, .kind = FaultKind::Kill});
            ::_exit(FileMenuSave(false) ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status);
    }

    bool UnsavedStateIsKept(const std::string& title) const {
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            if (entry.path().filename().string().starts_with("~unsaved ") &&
                ReadBytes(entry.path().string()).starts_with(ProjectOf(title)))
                return true;
        return false;
    }

    // The file is the old project or the new one, and the new one is in its file or beside the old one.
    bool IsLost(const std::string& old_title, const std::string& new_title) const {
        const std::string bytes = ReadBytes(ProjectFileName);
        return bytes != ProjectOf(new_title) &&
               (bytes != ProjectOf(old_title) || !UnsavedStateIsKept(new_title));
    }

    long Residues() const {
        long count = 0;
        for (const char* folder : {"", "temp"})
            for (const auto& entry : std::filesystem::directory_iterator(Folder / folder))
                count += entry.path().filename().string().starts_with(".tarvokol-") ? 1 : 0;
        return count;
    }
};

// The next session saves over what the kill left, and is killed in its turn.
TEST_F(KilledSaves, LoseNothingAtAnyFileOperationOfTwoSessions) {
    const long step = WantedSaves("TARVOKOL_KILLS", 0) == 0 ? 8 : 1;
    long kills = 0, lost = 0;
    const FilesOfASave start{ProjectOf("old"), {}};
    bool killed = true;
    for (long first = 1; killed; ++first) {
        Restore(start);
        killed = SaveKilledAt(first, "new");
        kills += killed;
        lost += IsLost("old", "new");
        EXPECT_FALSE(IsLost("old", "new")) << "killed at operation " << first;
        const FilesOfASave left = Files();
        const std::string title = left.project == ProjectOf("old") ? "old" : "new";
        for (long second = 1 + first % step; SaveKilledAt(second, "newer"); second += step) {
            ++kills;
            lost += IsLost(title, "newer");
            EXPECT_FALSE(IsLost(title, "newer")) << "killed at operation " << first << ", then at " << second;
            Restore(left);
        }
    }
    std::printf("%ld kills at file operations of a save, %ld lost\n", kills, lost);
    EXPECT_EQ(lost, 0);
    EXPECT_GE(kills, 60);
    RemoveResidues(Folder.string());
    RemoveResidues(TempDataFolder);
    EXPECT_EQ(Residues(), 0);
}

// All that end a process from outside, the one that nothing can answer among them as often as the others together.
constexpr std::array kSignals{SIGKILL, SIGTERM, SIGKILL, SIGHUP,  SIGKILL, SIGINT,  SIGKILL,
                              SIGQUIT, SIGKILL, SIGPIPE, SIGKILL, SIGALRM, SIGKILL, SIGUSR1,
                              SIGKILL, SIGUSR2, SIGKILL, SIGXCPU, SIGKILL, SIGXFSZ};

// Changes and saves over and over until somebody ends the process.
[[noreturn]] void SaveForEver() {
    for (int i = 0;; ++i) {
        ProjectTitle = i % 2 == 0 ? "one" : "two";
        MarkProjectChanged();
        FileMenuSave(false);
    }
}

TEST_F(KilledSaves, LoseNothingAtAnyMoment) {
    const long kills = WantedSaves("TARVOKOL_KILLS", 40);
    std::mt19937 random(7);
    long broken_off = 0;
    for (long i = 0; i < kills; ++i) {
        const pid_t child = ::fork();
        if (child == 0) SaveForEver();
        ::usleep(random() % 20000);
        ::kill(child, kSignals[static_cast<std::size_t>(i) % kSignals.size()]);
        ::waitpid(child, nullptr, 0);
        broken_off += Residues() > 0 ? 1 : 0;
        const std::string bytes = ReadBytes(ProjectFileName);
        ASSERT_TRUE(bytes == ProjectOf("old") || bytes == ProjectOf("one") || bytes == ProjectOf("two"))
            << "kill " << i << ": " << bytes;
        for (const std::string& copy : KeptCopies(ProjectFileName)) {
            const std::string kept = ReadBytes(copy);
            ASSERT_TRUE(kept == ProjectOf("old") || kept == ProjectOf("one") || kept == ProjectOf("two"));
        }
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            if (entry.path().filename().string().starts_with("~unsaved "))
                std::filesystem::remove(entry.path());
        RemoveResidues(Folder.string());
        RemoveResidues(TempDataFolder);
        ASSERT_EQ(Residues(), 0);
    }
    std::printf("%ld kills, %ld in the middle of a file, 0 lost\n", kills, broken_off);
}

// Two programs save a project each and one in common, with one folder for their copies and their scratch.
class ProgramsAtOnce : public KilledSaves {
  protected:
    // Number of saves of which something was wrong.
    int SaveFor(long seconds, const std::string& own) {
        const std::string own_path = PathTo(own + ".TKL"), shared = PathTo("panel.TKL");
        const std::time_t end = std::time(nullptr) + seconds;
        int wrong = 0;
        for (saves_ = 0; std::time(nullptr) <= end && saves_ < 1000000; ++saves_) {
            ProjectDescription = own + " " + std::to_string(saves_);
            ProjectTitle = own;
            ProjectFileName = saves_ % 4 == 0 ? shared : own_path;
            MarkProjectChanged();
            // The box about a change of somebody else's is not what is asked for here.
            const bool saved = FileSave();
            DropRecoveryCopy();
            const std::string bytes = ReadBytes(ProjectFileName);
            const std::string expected = Joined(FileLines(own, {own + " " + std::to_string(saves_)}));
            const bool right = ProjectFileName == shared ? IsWhole(bytes) : bytes == expected;
            wrong += saved && right ? 0 : 1;
        }
        return wrong;
    }

    static bool IsWhole(const std::string& bytes) {
        return bytes.starts_with("TARVOKOL_101\r\n 0 \r\n") && bytes.ends_with("\r\n1.6\r\n2\r\n0.25\r\n");
    }

    long saves_ = 0;
};

TEST_F(ProgramsAtOnce, EachSaveWhatIsTheirs) {
    const long seconds = WantedSaves("TARVOKOL_SECONDS", 1);
    const pid_t child = ::fork();
    if (child == 0) ::_exit(SaveFor(seconds, "second") == 0 && Messages().empty() ? 0 : 1);
    EXPECT_EQ(SaveFor(seconds, "first"), 0);
    EXPECT_EQ(Messages(), std::vector<std::string>());
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::printf("%ld saves of the first program, 0 wrong\n", saves_);
    EXPECT_GE(saves_, 8);
    EXPECT_EQ(Residues(), 0);
}

}  // namespace
}  // namespace tarvokol
