// SPDX-License-Identifier: GPL-3.0-or-later
// What a user may have meant with a word that is none of those known.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvokol {

// Steps from one word to the other: a letter added, dropped or changed, or two neighbours exchanged. The time grows with
// the product of the lengths.
std::size_t StepsBetween(const std::string& a, const std::string& b);

// The known word that is nearest to the one given: one that begins with it, else the one reached by the
// fewest letters added, dropped, changed or exchanged with their neighbour. Upper and lower case are the
// same. Empty where more than a third of the letters differ.
std::string NearestWord(const std::string& word, const std::vector<std::string>& known);

}  // namespace tarvokol
