// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of a study as text. Wherever people or other programs write them, a number is one to its last
// character.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarvokol {

// The whole text as a number with a decimal point: an optional sign, digits, an optional exponent. Nothing
// for any other text, and for a number beyond the range of a double.
std::optional<double> WholeNumber(std::string_view text);

// The number of a text; any other text raises StudyRefusal.
double RequiredNumber(std::string_view text);

// What is wrong with a text that is no number, and what to do.
std::string WhyNoNumber(const std::string& text);

// Room for the shortest digits of any number, its sign and exponent included.
constexpr std::size_t kLongestNumber = 24;

// Writes the shortest digits that read back the same, nothing for a NaN, into room for kLongestNumber characters.
// Returns the place after them.
char* WriteShortest(char* place, double value);

// Adds the same digits.
void AppendShortest(std::string& text, double value);

}  // namespace tarvokol
