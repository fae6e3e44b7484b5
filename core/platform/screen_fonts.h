// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

class ScreenFonts {
  public:
    virtual ~ScreenFonts() = default;

    // All font families of the screen, in the system's order. A family that the system maps to one of the
    // same metrics counts as present.
    virtual std::vector<std::string> Names() const = 0;

    // The one of `Names` that is `family`, letter case apart; empty if none is. Start-up asks for one family,
    // and to look at all of them takes time.
    virtual std::string NameLike(const std::string& family) const = 0;
};

}  // namespace tarvokol
