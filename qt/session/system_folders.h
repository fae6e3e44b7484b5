// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/special_folders.h"

namespace tarvokol {

// The folders of the desktop session.
class SystemFolders : public SpecialFolders {
  public:
    std::string ProgramFile() const override;
    std::optional<std::string> Documents() const override;
    std::optional<std::string> Desktop() const override;
    std::string Temporary() const override;
};

}  // namespace tarvokol
