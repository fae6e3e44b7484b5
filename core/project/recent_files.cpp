// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/recent_files.h"

#include <utility>

#include "core/messages/command_guard.h"
#include "core/platform/main_window_services.h"
#include "core/platform/platform.h"
#include "core/project/file_names.h"
#include "core/project/lifecycle.h"
#include "core/project/project_state.h"
#include "core/settings/configuration.h"
#include "core/settings/main_settings.h"
#include "core/settings/recent_file_settings.h"

namespace tarvokol {
namespace {

constexpr int16_t kMostFiles = 4;

std::string CaptionOf(const std::string& short_name, const std::string& path) {
    return ShortRecentFiles == 1 ? short_name : path;
}

// Every file of the arrays has its entry in the menu, also where the list was switched on after the start-up. An entry
// that is there keeps its caption; a gap has none and does not show.
void EnterMissingCaptions() {
    MainWindowServices& window = *Platform.MainWindow;
    for (int i = 1; i <= MaxLastFiles; ++i)
        if (!LastFile[i].empty() && window.RecentCaption(i).empty())
            window.SetRecentCaption(i, CaptionOf(LastFile[i], LastFileLong[i]));
}

// Number of the entry with this caption, 0 for none.
int FindCaption(const std::string& caption) {
    for (int i = 1; i <= MaxLastFiles; ++i)
        if (Platform.MainWindow->RecentCaption(i) == caption) return i;
    return 0;
}

// The found entry changes places with the first; those between stay.
void SwapWithFirst(int found) {
    MainWindowServices& window = *Platform.MainWindow;
    const std::string caption = window.RecentCaption(found);
    window.SetRecentCaption(found, window.RecentCaption(1));
    window.SetRecentCaption(1, caption);
    std::swap(LastFile[found], LastFile[1]);
    std::swap(LastFileLong[found], LastFileLong[1]);
    std::swap(LastFileMode[found], LastFileMode[1]);
}

// Moves every entry one place down; the last one falls out.
void ShiftDown() {
    MainWindowServices& window = *Platform.MainWindow;
    for (int i = MaxLastFiles - 1; i >= 1; --i) {
        window.SetRecentCaption(i + 1, window.RecentCaption(i));
        LastFile[i + 1] = LastFile[i];
        LastFileLong[i + 1] = LastFileLong[i];
        LastFileMode[i + 1] = LastFileMode[i];
    }
}

void EnterFirst(const std::string& caption, const std::string& short_name) {
    MainWindowServices& window = *Platform.MainWindow;
    if (MaxLastFiles < kMostFiles) ++MaxLastFiles;
    ShiftDown();
    window.SetRecentCaption(1, caption);
    LastFile[1] = short_name;
    LastFileLong[1] = ProjectFileName;
    LastFileMode[1] = ProjectFileMode;
    window.ShowRecentSeparator();
    SaveSettings(section::FileMenu);
}

}  // namespace

void UpdateRecentFiles() {
    const std::string short_name = FileNameOf(ProjectFileName, 0);
    const std::string caption = CaptionOf(short_name, ProjectFileName);
    if (KeepFileNames == 0) return;
    EnterMissingCaptions();
    const int found = FindCaption(caption);
    if (found == 0) {
        EnterFirst(caption, short_name);
        return;
    }
    SwapWithFirst(found);
    LastFileLong[1] = ProjectFileName;
    Platform.MainWindow->ShowRecentSeparator();
}

void LoadRecentFileMenu() {
    RecentListShown = flag::No;
    if (KeepFileNames != 1) return;
    for (int i = 1; i <= MaxLastFiles; ++i) {
        if (LastFile[i].empty()) continue;
        Platform.MainWindow->SetRecentCaption(i, CaptionOf(LastFile[i], LastFileLong[i]));
        RecentListShown = flag::Yes;
    }
}

std::string RecentFileName(int index) {
    return LastFileLong[index];
}

void RecentFileCommand(int index) {
    if (index < 0) return;
    CommandGuard guard(DialogCancelled);
    guard([] { PreviousFileName = ProjectFileName; });
    guard([index] { ProjectFileName = RecentFileName(index); });
    if (!guard.Left()) LoadProjFileCommand();
}

}  // namespace tarvokol
