// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>

namespace tarvokol {

// In the place of a figure that cannot be told.
inline constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

}  // namespace tarvokol
