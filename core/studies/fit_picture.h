// SPDX-License-Identifier: GPL-3.0-or-later
// Measured values beside the distributions that were fitted to them: a histogram with densities, and the values against the
// quantiles of the best one.
#pragma once

#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "core/studies/fit_study.h"
#include "core/studies/picture_parts.h"

namespace tarvokol {

struct FitCurve {
    std::string name;  // "weibull, BIC 308.62"
    std::vector<GridPoint> density;
};

struct FitPicture {
    std::string title;
    std::vector<std::string> words;
    PictureAxis values;   // what the bars and the curves span
    PictureAxis density;  // per unit of the values
    std::vector<double>
        bars;  // densities of the measured values, in equal steps from `first_bar` to `last_bar`
    double first_bar = 0;
    double last_bar = 1;
    std::vector<FitCurve> curves;  // the best first
    PictureAxis quantiles;         // of the best distribution
    PictureAxis measured;
    std::vector<GridPoint> pairs;  // quantile and measured value of the same rank, in rising order
};

// The picture of values that have been fitted; `column` is their title with its unit.
FitPicture FitPictureOf(const FitRequest& request, const FitResult& result, const std::string& title,
                        const std::string& column);

}  // namespace tarvokol
