// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/special_folders.h"

namespace tarvokol {

// The folders of the desktop session.
class SystemFolders : public SpecialFolders {
  public:
    std::string ProgramFile() const override;
    // Makes the documents folder where the account has neither that nor a desktop folder; where that fails, the home
    // folder stands for it.
    std::optional<std::string> Documents() const override;
    std::optional<std::string> Desktop() const override;
    std::string Temporary() const override;
};

}  // namespace tarvokol
