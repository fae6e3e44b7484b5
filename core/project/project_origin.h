// SPDX-License-Identifier: GPL-3.0-or-later
// The file of which the open project is the content: where it lies, and what it held when it was read or written last.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "core/files/file_image.h"
#include "core/files/text_input.h"

namespace tarvokol {

// A project file of more bytes is nothing that this program has written.
constexpr std::size_t kLargestProject = 2 * kLongestText;

struct ProjectOriginValues {
    std::string path;    // whole, behind all links; empty for a project that was never read or saved
    std::string folder;  // in which the user found it, with a separator at its end
    FileImage image;
};
namespace state {
inline ProjectOriginValues Origin;
}

// The project was read from, or written to, `path`, and this is what the file held then.
void NoteOrigin(const std::string& path, const FileImage& image);

// The project comes from no file.
void ForgetOrigin();

// The whole path of a project that has lost its folder, as after a cancelled file dialog or a conversion: the name in the
// folder that the project comes from, or in the data folder where it comes from none. A path stays as it is.
std::string PathFromOrigin(const std::string& name);

// The file that the project in memory comes from, to which its copies owe their rights; `ProjectFileName` where it comes
// from none.
std::string OriginPath();

// The times of the last change of a file, in seconds since 1970.
struct ForeignChange {
    std::int64_t as_read = 0;
    std::int64_t at_present = 0;
};

// Set if `path` is the project's own file and somebody else has changed its content since. A file that is gone holds
// nothing that could be lost.
std::optional<ForeignChange> ForeignChangeOf(const std::string& path);

}  // namespace tarvokol
