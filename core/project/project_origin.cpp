// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_origin.h"

#include <filesystem>

#include "core/files/file_system.h"
#include "core/project/project_state.h"
#include "core/runtime/text.h"
#include "core/settings/main_settings.h"

namespace tarvokol {

void NoteOrigin(const std::string& path, const FileImage& image) {
    const std::string folder = std::filesystem::absolute(path).parent_path().string();
    state::Origin = {WholePath(path), WithSeparator(folder), image};
}

void ForgetOrigin() {
    state::Origin = {};
}

std::string PathFromOrigin(const std::string& name) {
    if (name.find_first_of("/\\") != std::string::npos) return name;
    return (state::Origin.folder.empty() ? WithSeparator(DataPath) : state::Origin.folder) + name;
}

std::string OriginPath() {
    return state::Origin.path.empty() ? ProjectFileName : state::Origin.path;
}

std::optional<ForeignChange> ForeignChangeOf(const std::string& path) {
    if (state::Origin.path.empty() || WholePath(path) != state::Origin.path) return std::nullopt;
    const auto present = ImageOf(path, kLargestProject);
    if (!present || HoldTheSame(*present, state::Origin.image)) return std::nullopt;
    return ForeignChange{state::Origin.image.changed, present->changed};
}

}  // namespace tarvokol
