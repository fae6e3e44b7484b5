// SPDX-License-Identifier: GPL-3.0-or-later
// The spread of the factors of a risk study: how often each lies where, and how likely below its targets.
#pragma once

#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "core/studies/picture_parts.h"
#include "core/studies/risk_study.h"

namespace tarvokol {

struct SpreadTarget {
    std::string name;  // "target 1.6"
    double value = 0;
};

// One factor.
struct SpreadPanel {
    PictureAxis x;                      // what the bars span
    std::vector<double> bars;           // shares of all sound samples, in equal steps over x
    std::vector<GridPoint> below;       // the share of samples below a value, from end to end of x
    std::vector<SpreadTarget> targets;  // those on x, each value once
    std::vector<std::string> words;     // the probabilities
};

struct SpreadPicture {
    std::string title;
    std::vector<std::string> words;   // distributions, samples and seed
    std::vector<SpreadPanel> panels;  // one below the other
};

// "In situ coal strength lognormal, mean 900 psi, standard deviation 135 psi".
std::string InWords(const RandomField& field, Units units);

// "Extraction height and Depth of cover correlated by 0.5".
std::string InWords(const FieldCorrelation& pair);

// "0.45 (0.44 to 0.46)", the probability with its 95 % interval; "less than 0.0037" where no sample shows anything.
std::string InWords(const Share& share);

// " (Latin hypercube)", " (independent)".
const char* MethodInWords(bool latin);

// "100000 samples (Latin hypercube), seed 1, 0 refused".
std::string SamplingInWords(const RiskRequest& request, const RiskResult& result);

// The picture of a study that has been run with its samples kept. Raises NothingToShow where every sample was refused.
SpreadPicture SpreadOf(const RiskRequest& request, const RiskResult& result, const std::string& title);

}  // namespace tarvokol
