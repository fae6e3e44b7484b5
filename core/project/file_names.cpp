// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/file_names.h"

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"

namespace tarvokol {
namespace {

constexpr const char* kSeparators = "\\/";

// What stands after the last separator that is not at the very end.
std::string LastElement(const std::string& path) {
    if (path.size() < 2) return path;
    const std::size_t separator = path.find_last_of(kSeparators, path.size() - 2);
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

}  // namespace

std::string FileNameOf(const std::string& path, int dropExtension) {
    const std::string name = LastElement(path);
    if (name.find_first_of(kSeparators) != std::string::npos) {
        Notify("Error in filename: " + name, box_style::Plain, ErrorTitle);
        return "";
    }
    const std::size_t point = name.find('.');
    if (dropExtension == 0 || point == std::string::npos || point == 0) return name;
    return name.substr(0, point);
}

}  // namespace tarvokol
