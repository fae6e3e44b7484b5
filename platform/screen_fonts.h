#pragma once

#include <string>
#include <vector>

namespace tarvokol {

class ScreenFonts {
  public:
    virtual ~ScreenFonts() = default;

    // All font families of the screen, in the system's order. A family that the system maps to one of the same
    // metrics counts as present.
    virtual std::vector<std::string> Names() const = 0;
};

}  // namespace tarvokol
