// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <string>

#include "core/platform/screen_fonts.h"

namespace tarvokol {

// True if the system has the family, or maps it to one of the same metrics ("Courier New" to Liberation
// Mono).
bool FontIsPresent(const QString& family);

// The families whose characters are as wide as those of one that the program asks for by name; none for another one.
QStringList EquivalentsOf(const QString& family);

// The font families of the screen. The families that the program asks for by name follow at the end where
// they are present and the system does not list them itself.
class QtScreenFonts : public ScreenFonts {
  public:
    std::vector<std::string> Names() const override;
    std::string NameLike(const std::string& family) const override;

  private:
    // What was asked for: the toolkit does not see fonts that are installed while the program runs either.
    mutable std::map<std::string, std::string> names_;
};

}  // namespace tarvokol
