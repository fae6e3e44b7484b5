// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and text. No locale is ever consulted: "." separates the decimals, always.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvokol {

// The numeric parse: the longest leading number of the text, blanks skipped wherever they stand; a text without
// one gives 0. Sign, digits, point, exponent marked by E or D in either case. A number beyond the range of a
// double raises "Overflow"; one too small gives 0.
double NumericParse(std::string_view text);

// The same for a test of what a user typed: a number beyond the range of a double gives the infinity of its sign,
// which lies outside every range on that side.
double UnboundedParse(std::string_view text);

// The strict conversion: the whole text, blanks around it left out, must be a number; else "Type mismatch".
double StrictNumber(std::string_view text);

// General form: at most 15 significant digits for a double and 7 for a single, no trailing zeros, "0.5" with its
// leading zero; below 1E-4 and from 1E+15 (single: 1E+7) the exponent form "1.25E-05".
std::string GeneralText(double value);
std::string GeneralText(float value);
std::string GeneralText(int value);

// A whole number with a place for its sign before it: " 15", "-3".
std::string SignedText(long value);

// The value under a picture of "#", "0", "." and an optional "E+00": rounded from the 15-digit decimal, halves
// away from zero. The point of the picture is always written; a value that rounds to zero carries no minus sign.
std::string PictureText(double value, std::string_view picture);

// value after a trip through its general text, which holds 15 significant digits.
double ThroughText(double value);

}  // namespace tarvokol
