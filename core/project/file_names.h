// SPDX-License-Identifier: GPL-3.0-or-later
// The name in a path.
#pragma once

#include <string>

namespace tarvokol {

// The name after the last separator of a path; with `dropExtension` not 0 the text before the name's first
// ".", unless that is its first character. A remainder that ends in a separator gives a message.
std::string FileNameOf(const std::string& path, int dropExtension);

}  // namespace tarvokol
