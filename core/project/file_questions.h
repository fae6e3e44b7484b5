// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is asked about the project's file, beside what the commands ask.
#pragma once

#include <string>

namespace tarvokol {

enum class SaveChoice { Save, SaveAs, Cancel };

// Save, unless somebody else has changed the file since it was read or saved: then the user chooses.
SaveChoice AskAboutForeignChange(const std::string& project);

// Opens a copy of a project under the project's own name and as unsaved. False if it is no project, which is told. Raises the
// errors of the files.
bool OpenCopy(const std::string& copy, const std::string& project);

// After a project could not be opened, and that was told: names its newest good copy and opens it if the user wants that,
// under the project's own name and as unsaved, so that a save mends the file. False where there is no copy or it is not
// wanted. Raises the errors of the files.
bool OfferKeptCopy(const std::string& project);

}  // namespace tarvokol
