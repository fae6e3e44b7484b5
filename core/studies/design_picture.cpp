// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/design_picture.h"

#include <algorithm>

#include "core/studies/picture_parts.h"
#include "core/studies/study_figures.h"

namespace tarvokol {
namespace {

constexpr int kFoundDigits = 5;

std::string NoteOf(const DesignRequest& request, const FoundValue& found) {
    const std::string unit = UnitOfField(found.demand.field, request.risk.panel.units);
    const std::string after = unit.empty() ? "" : " " + unit;
    return std::string(TitleOfField(found.demand.field)) + (found.falls ? " at least " : " at most ") +
           RoundedText(found.value, kFoundDigits) + after + " (" + RoundedText(found.low, kFoundDigits) +
           " to " + RoundedText(found.high, kFoundDigits) + after + " with 95 % confidence)";
}

// An interval that is narrower than the symbols of its curves would hide them.
bool IsSeen(const FoundValue& found, double height) {
    constexpr double kSymbols = 0.03;
    return std::any_of(found.curve.begin(), found.curve.end(), [&](const DesignPoint& point) {
        return point.below.high - point.below.low > kSymbols * height;
    });
}

}  // namespace

CurvesPicture DesignCurveOf(const DesignRequest& request, const FoundValue& found, const std::string& title) {
    const StudyFigure& factor = kStudyFigures[found.demand.target.factor];
    CurvesPicture picture;
    picture.title = title;
    picture.note = NoteOf(request, found);
    picture.x.title = TitleWithUnit(found.demand.field, request.risk.panel.units);
    picture.x.whole = IsWholeField(found.demand.field);
    picture.y.title = std::string("Probability of \"") + factor.legend + "\" below " +
                      RoundedText(found.demand.target.target, kFigureDigits);
    StudyCurve low{"95 % interval, from", {}};
    StudyCurve high{"to", {}};
    StudyCurve share{"probability", {}};
    double highest = found.demand.probability;
    for (const DesignPoint& point : found.curve) {
        picture.places.push_back(point.value);
        share.y.push_back(point.below.value);
        low.y.push_back(point.below.low);
        high.y.push_back(point.below.high);
        highest = std::max(highest, point.below.high);
    }
    picture.x.low = picture.places.empty() ? found.value : picture.places.front();
    picture.x.high = picture.places.empty() ? found.value : picture.places.back();
    Widen(picture.x.low, picture.x.high);
    picture.y.high = highest;
    Widen(picture.y.low, picture.y.high);
    picture.y.low = 0;
    picture.curves = {share};
    if (IsSeen(found, picture.y.high)) picture.curves.insert(picture.curves.end(), {low, high});
    const double level = found.demand.probability;
    picture.targets = {{"at most " + RoundedText(100.0 * level, kFigureDigits) + " %",
                        {{picture.x.low, level}, {picture.x.high, level}}}};
    return picture;
}

}  // namespace tarvokol
