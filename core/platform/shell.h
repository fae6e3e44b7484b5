// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// The desktop around the program.
class Shell {
  public:
    virtual ~Shell() = default;

    // Opens a document or an address with the program that the desktop associates with it. A result below 33 is a
    // failure.
    virtual int OpenDocument(const std::string& target, const std::string& working_folder) = 0;

    // Starts the viewer of a settings text, split like a command line (no shell is involved), on a file, and does not
    // wait. A program that this system does not have is replaced by the desktop's text viewer.
    virtual void StartViewer(const std::string& viewer, const std::string& file) = 0;
};

}  // namespace tarvokol
