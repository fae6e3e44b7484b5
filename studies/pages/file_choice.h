// SPDX-License-Identifier: GPL-3.0-or-later
// The file dialogs as a window without errors asks them.
#pragma once

#include <string>

#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {

using FileDialog = std::string (CommonDialogs::*)(const FileDialogRequest& request);

// The file that the user names; empty if he cancels.
inline std::string ChosenFile(FileDialog dialog, const FileDialogRequest& request) {
    try {
        return (Platform.Dialogs->*dialog)(request);
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace tarvokol
