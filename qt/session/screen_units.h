// SPDX-License-Identifier: GPL-3.0-or-later
// The inch of the screen, by which everything that is drawn has its size.
#pragma once

namespace tarvokol {

inline constexpr int kPixelsPerInch = 96;
inline constexpr double kPointsPerInch = 72.0;
inline constexpr double kPixelsPerPoint = kPixelsPerInch / kPointsPerInch;

// Twentieths of a point, in which forms, printers and the plan's sheets are measured.
inline constexpr int kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = kTwipsPerInch / kPointsPerInch;
inline constexpr int TwipsPerPixel = kTwipsPerInch / kPixelsPerInch;

}  // namespace tarvokol
