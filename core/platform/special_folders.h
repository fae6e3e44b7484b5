// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace tarvokol {

class SpecialFolders {
  public:
    virtual ~SpecialFolders() = default;

    // Full name of the running program's file.
    virtual std::string ProgramFile() const = 0;

    // The user's documents and desktop folders; nothing if the desktop does not tell.
    virtual std::optional<std::string> Documents() const = 0;
    virtual std::optional<std::string> Desktop() const = 0;

    virtual std::string Temporary() const = 0;
};

}  // namespace tarvokol
