// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/viewer_copy.h"

#include <chrono>
#include <string>
#include <thread>

#include "core/files/file_lock.h"
#include "core/settings/folders.h"

namespace tarvokol {
namespace {

// Held as long as this program, whose viewer may look at the copy at any time.
FileLock OwnCopy;

// Programs choose and copy one after the other. One that holds the folder for longer than that is not waited for.
FileLock TurnOf(const std::string& folder) {
    constexpr int kTries = 100;
    constexpr std::chrono::milliseconds kPause(10);
    FileLock turn(folder);
    for (int i = 0; i < kTries && turn.HeldElsewhere(); ++i) {
        std::this_thread::sleep_for(kPause);
        turn = FileLock(folder);
    }
    return turn;
}

std::string FreePath() {
    for (int number = 1;; ++number) {
        std::string path = TempDataFolder;
        path += "~tmpbr";
        if (number > 1) path += std::to_string(number);
        path += ".tmp";
        if (!FileLock(path).HeldElsewhere()) return path;
    }
}

}  // namespace

std::string CopyForViewer(const std::string& source) {
    const FileLock turn = TurnOf(TempDataFolder);
    OwnCopy = FileLock();
    const std::string copy = FreePath();
    if (!CopyTextFile(source, copy)) return "";
    OwnCopy = FileLock(copy);
    return copy;
}

}  // namespace tarvokol
