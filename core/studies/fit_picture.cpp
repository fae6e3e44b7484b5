// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/fit_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarvokol {
namespace {

constexpr int kSteps = 240;  // of a curve
constexpr double kRoomAbove = 1.12;

// As many bars as the root of the values, within what can be read.
void FillBars(FitPicture& picture, const std::vector<double>& sorted) {
    constexpr double kFewest = 5.0;
    constexpr double kMost = 40.0;
    const auto count = static_cast<double>(sorted.size());
    const double bars = std::clamp(std::ceil(std::sqrt(count)), kFewest, kMost);
    picture.first_bar = sorted.front();
    picture.last_bar = sorted.back();
    picture.bars.assign(static_cast<std::size_t>(bars), 0.0);
    const double step = (picture.last_bar - picture.first_bar) / bars;
    for (const double value : sorted) {
        const double bar = std::min(std::floor((value - picture.first_bar) / step), bars - 1.0);
        picture.bars[static_cast<std::size_t>(bar)] += 1.0 / (count * step);
    }
}

FitCurve CurveOf(const DistributionFit& fit, const PictureAxis& x) {
    FitCurve curve{fit.name + ", BIC " + RoundedText(fit.bic, kShareDigits), {}};
    curve.density.reserve(kSteps + 1);
    for (int i = 0; i <= kSteps; ++i) {
        const double value = x.low + (x.high - x.low) * i / kSteps;
        curve.density.push_back({value, fit.distribution->Density(value)});
    }
    return curve;
}

// Of no density a peak that would press the bars flat.
double HighestOf(const FitPicture& picture) {
    constexpr double kOfBars = 3.0;
    const double bars = *std::max_element(picture.bars.begin(), picture.bars.end());
    double highest = bars;
    for (const FitCurve& curve : picture.curves)
        for (const GridPoint& point : curve.density)
            if (std::isfinite(point.y)) highest = std::max(highest, point.y);
    return std::min(highest, kOfBars * bars) * kRoomAbove;
}

// What is beyond the box is left to its edge.
void CutCurves(FitPicture& picture) {
    for (FitCurve& curve : picture.curves)
        for (GridPoint& point : curve.density) point.y = std::min(point.y, picture.density.high);
}

void FillPairs(FitPicture& picture, const std::vector<double>& sorted, const DistributionFit& best) {
    picture.pairs.reserve(sorted.size());
    const auto count = static_cast<double>(sorted.size());
    for (std::size_t i = 0; i < sorted.size(); ++i)
        picture.pairs.push_back(
            {best.distribution->Quantile((static_cast<double>(i) + 0.5) / count), sorted[i]});
    double low = std::min(picture.pairs.front().x, picture.pairs.front().y);
    double high = std::max(picture.pairs.back().x, picture.pairs.back().y);
    Widen(low, high);
    picture.quantiles.low = picture.measured.low = low;
    picture.quantiles.high = picture.measured.high = high;
}

}  // namespace

FitPicture FitPictureOf(const FitRequest& request, const FitResult& result, const std::string& title,
                        const std::string& column) {
    std::vector<double> sorted = request.values;
    std::sort(sorted.begin(), sorted.end());
    const DistributionFit& best = result.fits.front();
    FitPicture picture;
    picture.title = title;
    picture.words.push_back(std::to_string(sorted.size()) + " measured values; best by BIC: " + best.text);
    picture.values = {column, sorted.front(), sorted.back(), false};
    const double beyond = 0.15 * (sorted.back() - sorted.front());
    picture.values.low -= beyond;
    picture.values.high += beyond;
    FillBars(picture, sorted);
    picture.curves.reserve(result.fits.size());
    for (const DistributionFit& fit : result.fits) picture.curves.push_back(CurveOf(fit, picture.values));
    picture.density = {"Density", 0.0, HighestOf(picture), false};
    CutCurves(picture);
    picture.quantiles.title = "Quantile of " + best.text;
    picture.measured.title = "Measured " + column;
    FillPairs(picture, sorted, best);
    return picture;
}

}  // namespace tarvokol
