// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/program_name.h"

#include "core/platform/platform.h"
#include "core/platform/special_folders.h"
#include "core/runtime/text.h"

namespace tarvokol {

std::string ProgramName() {
    const std::string path = Platform.Folders->ProgramFile();
    const std::size_t separator = path.find_last_of("/\\");
    const std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
    const std::size_t dot = name.find('.', 1);  // a dot that begins the name begins no extension
    return name.substr(0, dot);
}

std::string ProgramNameUpper() {
    return UpperCase(ProgramName());
}

}  // namespace tarvokol
