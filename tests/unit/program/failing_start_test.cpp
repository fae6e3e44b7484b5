// SPDX-License-Identifier: GPL-3.0-or-later
// A start of the program, and a later save of its settings, with every file operation failing in turn: the
// program runs on with the settings that it would have had, and no file is half there.
#include <filesystem>

#include "core/messages/history_log.h"
#include "core/program/start_up.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/ini_file.h"
#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

using ::testing::AnyOf;
using ::testing::Eq;

constexpr FaultKind kKinds[] = {FaultKind::Once, FaultKind::Forever, FaultKind::Half, FaultKind::Full};
constexpr int kErrors[] = {ENOSPC, EIO, EACCES};

constexpr long kStep = 9;

const std::string kExample = "TARVOKOL_101\r\nan example\r\n";

class FailingStart : public CoreTest {
  protected:
    FailingStart() {
        std::filesystem::create_directory(Folder / "app");
        WriteBytes(PathTo("app/A.TKL"), kExample);
        WriteBytes(PathTo("app/B.TKL"), kExample);
        Host.Folders.Program = PathTo("app/tarvokol");
        Host.Folders.DocumentsFolder = Folder.string();
    }
    ~FailingStart() override { ResetProgram(); }

    std::string Ini() const { return PathTo("MyOLTEK/TARVOKOL.INI"); }

    // A start as after an end: nothing is left of the run before but its files.
    void Start() {
        ResetProgram();
        Main("", {[] {}, [] {}, [] {}, [] {}, [] { return false; }});
    }

    // A user's first start, on a disk that has nothing of the program.
    void Forget() const { std::filesystem::remove_all(Folder / "MyOLTEK"); }

    // Every setting as it stands in memory, as a file's text.
    std::string SettingsInMemory() {
        const std::string path = IniPath;
        IniPath = PathTo("probe.ini");
        std::filesystem::remove(IniPath);
        for (int selector = section::First; selector <= section::Last; ++selector) SaveSettings(selector);
        std::string text = ReadBytes(IniPath);
        IniPath = path;
        text.erase(0, text.find("[Settings]"));
        // The folders are those of the data, or of the program where those could not be made.
        for (const std::string& folder : {PathTo("MyOLTEK/"), PathTo("app/")}) {
            for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
                text.replace(at, folder.size(), "FOLDER/");
        }
        return text;
    }

    void ExpectExamplesWholeOrMissing() const {
        for (const std::string name : {"A.TKL", "B.TKL"})
            EXPECT_THAT(ReadBytes(PathTo("MyOLTEK/" + name)), AnyOf(Eq(""), Eq(kExample)));
    }

    // The first kind fails at every operation, the others at every so many, another one first each time.
    static bool IsEvery(FaultKind kind, int error) { return kind == FaultKind::Once && error == ENOSPC; }
    static long StepOf(FaultKind kind, int error) { return IsEvery(kind, error) ? 1 : kStep; }
    long FirstOf(FaultKind kind, int error) { return IsEvery(kind, error) ? 1 : 1 + turn_++ % kStep; }

    // A file that could not be taken away stays, and another name is tried the next time.
    void RemoveLeftovers() const {
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "MyOLTEK")) {
            const std::string extension = entry.path().extension().string();
            const bool known = entry.path() == Ini() || extension == ".TKL" || entry.is_directory();
            if (!known || entry.path().filename().string().starts_with("~"))
                std::filesystem::remove(entry.path());
        }
    }

    // Prepares, then starts with the N-th operation failing, for every N, and judges each time.
    template <typename Prepare, typename Start, typename Judge>
    void ForEveryFailure(Prepare prepare, Start start, Judge judge) {
        long cases = 0;
        for (const FaultKind kind : kKinds)
            for (const int error : kErrors)
                for (long at = FirstOf(kind, error);; at += StepOf(kind, error)) {
                    ASSERT_LT(at, kMostCalls);
                    std::string failed;
                    int raised = 0;
                    prepare();
                    {
                        const FailingFiles fault(
                            {.folder = Folder.string(), .at = at, .error = error, .kind = kind});
                        raised = RaisedError([&] { start(); });
                        failed = fault.Failed();
                    }
                    if (failed.empty()) break;
                    ++cases;
                    SCOPED_TRACE(failed + " " + std::to_string(at) + ", kind " +
                                 std::to_string(static_cast<int>(kind)) + ", error " + std::to_string(error));
                    EXPECT_EQ(raised, 0);
                    judge();
                    if (HasFailure()) return;
                }
        std::printf("%ld failures\n", cases);
        EXPECT_GE(cases, 25);
    }

  private:
    long turn_ = 0;
};

TEST_F(FailingStart, OfANewUserHasTheSettingsOfANewFile) {
    Start();
    const std::string file = ReadBytes(Ini());
    Start();
    const std::string settings = SettingsInMemory();
    Forget();
    ForEveryFailure([this] { Forget(); }, [this] { Start(); },
                    [&] {
                        EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
                        EXPECT_TRUE(SettingsInMemory() == settings);
                        EXPECT_TRUE(ReadBytes(Ini()).empty() || ReadBytes(Ini()) == file);
                        ExpectExamplesWholeOrMissing();
                        Start();  // on a disk that is well again
                        EXPECT_TRUE(ReadBytes(Ini()) == file);
                        EXPECT_TRUE(SettingsInMemory() == settings);
                        EXPECT_EQ(ReadBytes(PathTo("MyOLTEK/A.TKL")), kExample);
                        EXPECT_EQ(ReadBytes(PathTo("MyOLTEK/B.TKL")), kExample);
                    });
}

TEST_F(FailingStart, LeavesAUsersFileAlone) {
    Start();
    const std::string of_new_file = SettingsInMemory();
    PutIniString("TARVOKOLOptions", "PlotRangeMax", "80", Ini());
    PutIniString("Elsewhere", "Kept", "yes", Ini());
    const std::string file = ReadBytes(Ini());
    Start();
    const std::string of_user = SettingsInMemory();
    ASSERT_NE(of_user, of_new_file);
    const auto prepare = [this] {
        RemoveLeftovers();
        std::filesystem::remove(PathTo("MyOLTEK/A.TKL"));
    };
    ForEveryFailure(
        prepare, [this] { Start(); },
        [&] {
            EXPECT_TRUE(ReadBytes(Ini()) == file);
            const std::string settings = SettingsInMemory();
            EXPECT_TRUE(settings == of_user || settings == of_new_file);
            ExpectExamplesWholeOrMissing();
        });
}

TEST_F(FailingStart, SavedSettingsAreOldOrNewAndAFailureIsLogged) {
    Start();
    DisplayHistoryWin = 1;
    const auto save = [](float range) {
        OptionsRecord.PlotRangeMax = range;
        SaveSettings(section::All);
    };
    save(80);
    const std::string changed = ReadBytes(Ini());
    save(100);
    const std::string old = ReadBytes(Ini());
    ASSERT_NE(old, changed);
    ForEveryFailure([this] { RemoveLeftovers(); }, [&] { save(80); },
                    [&] {
                        const bool is_new = ReadBytes(Ini()) == changed;
                        EXPECT_TRUE(is_new || ReadBytes(Ini()) == old) << ReadBytes(Ini());
                        EXPECT_TRUE(is_new || Host.MainWindow.History.find("Settings cannot be saved, ") !=
                                                  std::string::npos);
                        EXPECT_TRUE(Host.Messages.Shown.empty());
                        EXPECT_EQ(OptionsRecord.PlotRangeMax, 80.0f);
                        save(80);
                        EXPECT_TRUE(ReadBytes(Ini()) == changed);
                        save(100);
                        Host.MainWindow.History.clear();
                        state::Configuration.SaveFailureTold = false;
                    });
}

}  // namespace
}  // namespace tarvokol
