// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/shell.h"

namespace tarvokol {

// The desktop session: documents and addresses open with the programs that the user has chosen for them.
class DesktopShell : public Shell {
  public:
    int OpenDocument(const std::string& target, const std::string& working_folder) override;

    // Raises "File not found" if neither the viewer nor a text viewer of the desktop can be started.
    void StartViewer(const std::string& viewer, const std::string& file) override;
};

}  // namespace tarvokol
