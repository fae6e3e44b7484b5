// SPDX-License-Identifier: GPL-3.0-or-later
// Figures and probabilities of uncertain panels for people.
#pragma once

#include <string>
#include <vector>

#include "core/statistics/probability_interval.h"

namespace tarvokol::cli {

// With blanks up to a column.
std::string Padded(const std::string& text, int width);
// The same with the blanks in front.
std::string AtRight(const std::string& text, int width);

// Five significant digits, "-" for NaN: more would tell of the samples, not of the panel.
std::string Short(double value);

// A probability of which no sample shows anything is known by its bound alone: "below 3.7e-05".
std::string ProbabilityWord(const Share& share);

// "replicates", "exact"; "-" without a sample.
std::string KindWord(const Share& share);

// "0.2989 (0.29889 to 0.29897, replicates)".
std::string ShareInWords(const Share& share);

// What the words for the kinds of these intervals mean, one line each; of Latin hypercubes or independent draws.
std::string KindsText(const std::vector<Share>& shares, bool latin);

}  // namespace tarvokol::cli
