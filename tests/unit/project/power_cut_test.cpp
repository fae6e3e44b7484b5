// SPDX-License-Identifier: GPL-3.0-or-later
// A power cut at any moment of a save, by replay: the writes, renames and syncs of a save are recorded, and every state that
// a disk may show after each of them is looked at.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "core/project/kept_copy.h"
#include "core/project/lifecycle.h"
#include "core/project/recovery_copy.h"
#include "core/settings/configuration.h"
#include "core/settings/program_settings.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using Kind = FileStep::Kind;
using Tree = std::map<std::string, std::string>;  // content by path

// How much of what was written and not yet brought to the disk stands there: nothing, half of it, all.
enum class Unsynced { None, Half, All };

// What a disk holds. A change of names is certain once its folder was brought to the disk; those after it may stand there up to
// any one of them. The content of a file is certain as far as the file was brought to the disk.
class Disk {
  public:
    explicit Disk(const std::string& folder) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (!entry.is_regular_file()) continue;
            struct stat status {};
            EXPECT_EQ(::stat(entry.path().c_str(), &status), 0);
            const auto [number, is_new] = numbers_.try_emplace(status.st_ino, files_.size());
            start_[entry.path().string()] = number->second;
            if (!is_new) continue;  // another name of a file
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(file)), {});
            files_.push_back({bytes, bytes});
        }
    }

    void Take(const FileStep& step) {
        switch (step.kind) {
            case Kind::Create:
                numbers_[step.file] = files_.size();
                files_.push_back({});
                names_.push_back({step, files_.size() - 1, false});
                break;
            case Kind::Write:
                FileOf(step).present += step.bytes;
                break;
            case Kind::Truncate:
                FileOf(step).present.resize(step.size);
                // That it is shorter may come to the disk at once.
                FileOf(step).certain.resize(std::min<std::size_t>(FileOf(step).certain.size(), step.size));
                break;
            case Kind::Sync:
                FileOf(step).certain = FileOf(step).present;
                break;
            case Kind::SyncFolder:
                for (Change& change : names_)
                    change.certain |= std::filesystem::path(change.step.path).parent_path() == step.path;
                break;
            default:
                names_.push_back({step, numbers_.at(step.file), false});
        }
    }

    // All states that it may show now.
    std::vector<Tree> States() const {
        std::vector<Tree> states;
        for (std::size_t names = 0; names <= names_.size(); ++names)
            for (const Unsynced unsynced : {Unsynced::None, Unsynced::Half, Unsynced::All})
                states.push_back(State(names, unsynced));
        return states;
    }

  private:
    struct File {
        std::string certain;
        std::string present;
    };
    struct Change {
        FileStep step;
        std::size_t file;
        bool certain;
    };

    File& FileOf(const FileStep& step) { return files_[numbers_.at(step.file)]; }

    static std::string Content(const File& file, Unsynced unsynced) {
        if (unsynced == Unsynced::All) return file.present;
        if (unsynced == Unsynced::None) return file.certain;
        return file.present.substr(0, (file.certain.size() + file.present.size()) / 2);
    }

    Tree State(std::size_t names, Unsynced unsynced) const {
        std::map<std::string, std::size_t> paths = start_;
        for (std::size_t i = 0; i < names_.size(); ++i) {
            if (i >= names && !names_[i].certain) continue;
            const FileStep& step = names_[i].step;
            if (step.kind == Kind::Rename || step.kind == Kind::Remove) paths.erase(step.path);
            if (step.kind == Kind::Create) paths[step.path] = names_[i].file;
            if (step.kind == Kind::Rename || step.kind == Kind::Link) paths[step.to] = names_[i].file;
        }
        Tree tree;
        for (const auto& [path, file] : paths) tree[path] = Content(files_[file], unsynced);
        return tree;
    }

    std::map<std::string, std::size_t> start_;
    std::map<std::uint64_t, std::size_t> numbers_;
    std::vector<File> files_;
    std::vector<Change> names_;
};

class PowerCut : public ProjectTest {
  protected:
    PowerCut() {
        std::filesystem::create_directories(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        FileExtension = ProjectExtension = "TKL";
        Provide(ProjectOf("old"));
        EXPECT_TRUE(ReadProjectFile());
        FillRecord();
        ProjectDescription = "Lower seam\r\nNorth";
    }
    ~PowerCut() override { DropRecoveryCopy(); }

    static std::string ProjectOf(const std::string& title) {
        return Joined(FileLines(title, {"Lower seam", "North"}));
    }

    // An OK in a dialog, then Save: the steps of the second are recorded.
    std::vector<FileStep> StepsOfSave(const std::string& title, Disk& disk) {
        ProjectTitle = title;
        MarkProjectChanged();
        disk = Disk(Folder.string());
        const FailingFiles record({.folder = Folder.string(), .record = true});
        EXPECT_TRUE(FileMenuSave(false));
        return record.Steps();
    }

    bool HoldsUnsaved(const Tree& tree, const std::string& title) const {
        return std::any_of(tree.begin(), tree.end(), [&](const auto& file) {
            return file.first.find("/~unsaved ") != std::string::npos &&
                   file.second.starts_with(ProjectOf(title));
        });
    }

    // Beside the project; the copies of earlier contents are on the disk of the temporary data.
    bool IsKeptBeside(const Tree& tree, const std::string& content) const {
        return std::any_of(tree.begin(), tree.end(), [&](const auto& file) {
            return file.first.starts_with(PathTo("~bak_")) && file.second == content;
        });
    }

    // The project is the old one, with the new one beside it, or the new one; and the kept copies are whole.
    bool IsSafe(const Tree& tree, const std::string& before, const std::string& after) const {
        const auto project = tree.find(PathTo("panel.TKL"));
        if (project == tree.end()) return false;
        const bool is_new = project->second == ProjectOf(after);
        if (!is_new && (project->second != ProjectOf(before) || !HoldsUnsaved(tree, after))) return false;
        return std::all_of(tree.begin(), tree.end(), [](const auto& file) {
            return file.first.find("/~bak_") == std::string::npos ||
                   file.second.ends_with("\r\n1.6\r\n2\r\n0.25\r\n");
        });
    }
};

TEST_F(PowerCut, LosesNothingAtAnyStepOfASave) {
    std::string before = "old";
    long states = 0, steps_of_all = 0;
    for (const char* after : {"one", "two", "three"}) {
        Disk disk(Folder.string());
        const auto steps = StepsOfSave(after, disk);
        ASSERT_GE(steps.size(), 8u);
        steps_of_all += static_cast<long>(steps.size());
        for (std::size_t i = 0; i <= steps.size(); ++i) {
            for (const Tree& tree : disk.States()) {
                ++states;
                EXPECT_TRUE(IsSafe(tree, before, after)) << "save of " << after << ", before step " << i;
            }
            if (i < steps.size()) disk.Take(steps[i]);
        }
        for (const Tree& tree : disk.States()) EXPECT_EQ(tree.at(PathTo("panel.TKL")), ProjectOf(after));
        before = after;
    }
    std::printf("%ld states of a disk after %ld steps, 0 lost\n", states, steps_of_all);
    EXPECT_GE(states, 200);
}

// A project with a second name is emptied and written where it is, which no disk does at once: until that is certain what it
// held is whole beside it.
TEST_F(PowerCut, LosesNothingWhereTheProjectIsWrittenInPlace) {
    std::filesystem::create_directory(Folder / "names");
    std::filesystem::create_hard_link(PathTo("panel.TKL"), Folder / "names" / "second.TKL");
    Disk disk(Folder.string());
    const auto steps = StepsOfSave("one", disk);
    long emptied = 0;
    for (std::size_t i = 0; i <= steps.size(); ++i) {
        for (const Tree& tree : disk.States()) {
            const std::string& project = tree.at(PathTo("panel.TKL"));
            const bool whole = project == ProjectOf("old") || project == ProjectOf("one");
            if (!whole) ++emptied;
            EXPECT_TRUE(whole || IsKeptBeside(tree, ProjectOf("old"))) << "before step " << i;
            EXPECT_EQ(tree.at(PathTo("names/second.TKL")), project);
        }
        if (i < steps.size()) disk.Take(steps[i]);
    }
    EXPECT_GE(emptied, 10);
    for (const Tree& tree : disk.States()) EXPECT_EQ(tree.at(PathTo("panel.TKL")), ProjectOf("one"));
}

// A save that does without the syncs is one that this test finds out.
TEST_F(PowerCut, WithoutSyncsIsFoundOut) {
    Disk disk(Folder.string());
    bool lost = false;
    for (const FileStep& step : StepsOfSave("one", disk)) {
        if (step.kind != Kind::Sync && step.kind != Kind::SyncFolder) disk.Take(step);
        for (const Tree& tree : disk.States()) lost = lost || !IsSafe(tree, "old", "one");
    }
    EXPECT_TRUE(lost);
}

}  // namespace
}  // namespace tarvokol
