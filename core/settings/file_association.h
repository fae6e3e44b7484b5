// SPDX-License-Identifier: GPL-3.0-or-later
// The program as the handler of its project files, so that the desktop starts it with the file that is
// opened.
#pragma once

#include <string>

namespace tarvokol {

// Asks, and on Yes registers the setting's extension for the running program and logs what was registered.
void CreateFileAssociation();

// Registers the three facts, extension, document type and command line, and tells the user. `folder` ends in
// a separator; `ext` has no dot. Failures are not noticed.
void RegisterFileType(const std::string& folder, const std::string& name, const std::string& ext);

}  // namespace tarvokol
