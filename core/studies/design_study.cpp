// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/design_study.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <utility>

#include "core/engine/panel.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/design_curve.h"
#include "core/studies/level_search.h"
#include "core/studies/picture_parts.h"
#include "core/studies/sample_passes.h"
#include "core/studies/shortage.h"
#include "core/studies/study_watch.h"

namespace tarvokol {
namespace {

constexpr int kPlaces = 9;  // of the first look over the range

// "5 %".
std::string PercentText(double share) {
    return RoundedText(100.0 * share, kFigureDigits) + " %";
}

// "12.5 ft".
std::string ValueText(double value, const char* unit) {
    return RoundedText(value, kFigureDigits) + (*unit == '\0' ? "" : std::string(" ") + unit);
}

std::pair<double, double> RangeOf(PanelField field, const Panel& panel) {
    constexpr double kTimes = 10.0;
    constexpr double kFlattest = 1.0;
    constexpr double kSteepest = 89.0;
    if (IsWholeField(field)) return {1.0, MaxHoles};
    if (field == PanelField::AbutmentAngle) return {kFlattest, kSteepest};
    const double own = ValueOfField(panel, field);
    return {own / kTimes, own * kTimes};
}

// One value after the other, each in a panel that has those found before it.
class DesignRun {
  public:
    DesignRun(const DesignRequest& request, StudyObserver& observer)
        : request_(request),
          panel_(request.risk.panel),
          watch_(observer, Samples(), Samples()),
          passes_(request.risk, watch_) {}

    DesignResult Run() {
        DesignResult result;
        std::vector<DesignDemand> demands = request_.demands;
        std::sort(demands.begin(), demands.end(),
                  [](const DesignDemand& a, const DesignDemand& b) { return a.field < b.field; });
        std::vector<AskedTarget> targets;
        for (const DesignDemand& demand : demands) {
            result.found.push_back(Find(demand));
            StoreInField(panel_, demand.field, result.found.back().used);
            targets.push_back(demand.target);
        }
        const PassResult last = passes_.Count(panel_, targets);
        for (std::size_t i = 0; i < demands.size(); ++i)
            result.found[i].after = {result.found[i].used, last.below[i], last.refused};
        result.any = last.any;
        result.refused = last.refused;
        watch_.Finish();
        return result;
    }

  private:
    // About as many samples as a study of one demand calculates.
    std::uint64_t Samples() const {
        constexpr std::uint64_t kPasses = 60;
        return kPasses * request_.risk.samples * request_.demands.size();
    }

    FoundValue Find(const DesignDemand& demand) {
        demand_ = &demand;
        points_.clear();
        if (!(demand.low < demand.high))
            throw StudyRefusal(NameOfField(demand.field),
                               "the project's own value leads to no range to search; name one");
        const std::vector<double> places = PlacesOf(demand);
        RequireMoving(places);
        for (const double place : places) At(place);
        FoundValue found;
        found.demand = demand;
        found.falls = RequireOneCrossing();
        found.before = Measured(ValueOfField(panel_, demand.field));
        found.value = Crossing(&Share::value);
        const double low = Crossing(&Share::low);
        const double high = Crossing(&Share::high);
        found.low = std::min(low, high);
        found.high = std::max(low, high);
        found.used = request_.step > 0.0 && !IsWholeField(demand.field)
                         ? SafeMultiple(found.value, request_.step, found.falls)
                         : found.value;
        found.curve = Curve(found);
        return found;
    }

    // Evenly on a scale of ratios, so that small widths have their share; all of a count.
    static std::vector<double> PlacesOf(const DesignDemand& demand) {
        std::vector<double> places;
        if (IsWholeField(demand.field)) {
            for (double place = std::ceil(demand.low); place <= demand.high; ++place) places.push_back(place);
            return places;
        }
        const bool ratios = demand.low > 0.0;
        const double first = ratios ? PortableLog(demand.low) : demand.low;
        const double last = ratios ? PortableLog(demand.high) : demand.high;
        places.push_back(demand.low);
        for (int i = 1; i < kPlaces - 1; ++i) {
            const double place = first + (last - first) * i / (kPlaces - 1);
            places.push_back(ratios ? PortableExp(place) : place);
        }
        places.push_back(demand.high);
        return places;
    }

    const DesignPoint& At(double value) {
        const auto known = points_.find(value);
        if (known != points_.end()) return known->second;
        return points_.emplace(value, Measured(value)).first->second;
    }
    DesignPoint Measured(double value) {
        Panel panel = panel_;
        StoreInField(panel, demand_->field, value);
        const PassResult pass = passes_.Count(panel, {&demand_->target, 1});
        return {value, pass.below[0], pass.refused};
    }

    // How much more likely than demanded the factor lies below its target, as normal quantiles tell it, which are nearly straight
    // over a width; above 0 where the demand is missed.
    double Score(const DesignPoint& point, double Share::*end) const {
        const double least = 0.25 / request_.risk.samples;
        const double share = point.below.*end;
        const double score =
            NormalQuantile(std::clamp(share, least, 1.0 - least)) - NormalQuantile(demand_->probability);
        if (share > demand_->probability) return std::max(score, std::numeric_limits<double>::min());
        return std::min(score, 0.0);
    }
    bool IsMet(const DesignPoint& point, double Share::*end = &Share::value) const {
        return !(point.below.*end > demand_->probability);
    }

    void RequireMoving(const std::vector<double>& places) const {
        PanelEvaluator panel(panel_, false);
        std::vector<double> factors;
        for (const double place : places) {
            panel.Set(demand_->field, place);
            const PanelFigures& figures = panel.Evaluate();
            if (!figures.refused) factors.push_back(figures.*kStudyFigures[demand_->target.factor].value);
        }
        const bool same = std::all_of(factors.begin(), factors.end(),
                                      [&](double factor) { return factor == factors.front(); });
        if (same && factors.size() > 1)
            throw StudyRefusal(NameOfField(demand_->field),
                               std::string("does not move ") + kStudyFigures[demand_->target.factor].name);
    }

    const char* Unit() const { return UnitOfField(demand_->field, panel_.units); }
    std::string DemandText() const {
        return std::string(kStudyFigures[demand_->target.factor].name) + " < " +
               RoundedText(demand_->target.target, kFigureDigits);
    }
    std::string PointText(const DesignPoint& point) const {
        return PercentText(point.below.value) + " at " + ValueText(point.value, Unit());
    }
    std::string RangeText() const {
        return "from " + RoundedText(demand_->low, kFigureDigits) + " to " + ValueText(demand_->high, Unit());
    }

    // True where the probability falls as the value rises.
    bool RequireOneCrossing() const {
        std::vector<const DesignPoint*> after;  // the first point after each crossing
        for (auto point = std::next(points_.begin()); point != points_.end(); ++point)
            if (IsMet(point->second) != IsMet(std::prev(point)->second)) after.push_back(&point->second);
        if (after.size() == 1) return IsMet(*after.front());
        const char* const name = NameOfField(demand_->field);
        const auto by_share = [](const auto& a, const auto& b) {
            return a.second.below.value < b.second.below.value;
        };
        const std::string demanded = PercentText(demand_->probability);
        if (!after.empty()) {
            std::string text = RangeText() + " the probability of " + DemandText() + " crosses " + demanded +
                               " " + std::to_string(after.size()) + " times (near";
            for (const DesignPoint* point : after) text += ' ' + ValueText(point->value, Unit()) + ',';
            text.back() = ')';
            throw NoSuchValue(name, text + "; name a range with one of them");
        }
        if (IsMet(points_.begin()->second)) {
            const DesignPoint& worst = std::max_element(points_.begin(), points_.end(), by_share)->second;
            throw NoSuchValue(name, RangeText() + " the probability of " + DemandText() + " is never above " +
                                        demanded + "; it is at most " + PointText(worst));
        }
        const DesignPoint& best = std::min_element(points_.begin(), points_.end(), by_share)->second;
        throw NoSuchValue(name, RangeText() + " the probability of " + DemandText() +
                                    " does not come down to " + demanded + "; it is at least " +
                                    PointText(best));
    }

    // Where an end of the probability's interval meets the demand; an end of the range where it does not within it.
    double Crossing(double Share::*end) {
        // The points in the order in which the demand is missed first and met last.
        std::vector<const DesignPoint*> points;
        for (const auto& [value, point] : points_) points.push_back(&point);
        if (!IsMet(*points.back())) std::reverse(points.begin(), points.end());
        const auto met = std::find_if(points.begin(), points.end(),
                                      [&](const DesignPoint* point) { return IsMet(*point, end); });
        if (met == points.end()) return points.back()->value;
        if (met == points.begin()) return points.front()->value;
        if (IsWholeField(demand_->field)) return (*met)->value;
        const DesignPoint& before = **std::prev(met);
        constexpr double kFine = 1e-6;
        constexpr double kCoarse = 1e-5;
        const double tolerance = std::fabs((*met)->value) * (end == &Share::value ? kFine : kCoarse);
        return MetPlace([&](double value) { return Score(At(value), end); },
                        {before.value, Score(before, end)}, {(*met)->value, Score(**met, end)}, tolerance);
    }

    std::vector<DesignPoint> Curve(const FoundValue& found) {
        std::vector<DesignPoint> known;
        for (const auto& [value, point] : points_) known.push_back(point);
        std::vector<DesignPoint> curve;
        for (const double place : CurvePlaces(found, known)) curve.push_back(At(place));
        return curve;
    }

    const DesignRequest& request_;
    Panel panel_;  // with what was found so far
    StudyWatch watch_;
    SamplePasses passes_;
    const DesignDemand* demand_ = nullptr;
    std::map<double, DesignPoint> points_;  // what is known of it, by values
};

DesignDemand& DemandOf(DesignRequest& request, PanelField field) {
    for (DesignDemand& demand : request.demands)
        if (demand.field == field) return demand;
    throw StudyRefusal("the field is not sought");
}

}  // namespace

void DesignRequest::AddDemand(PanelField field, const StudyFigure& factor, double target,
                              double probability) {
    About(NameOfField(field), [&] {
        constexpr double kFewest = 10.0;
        for (const RandomField& one : risk.fields)
            if (one.field == field) throw StudyRefusal("a field that is drawn cannot be sought");
        for (const DesignDemand& other : demands)
            if (other.field == field) throw StudyRefusal("the field is sought twice");
        if (!factor.IsFactor())
            throw StudyRefusal(std::string(factor.name) + " is no stability factor; " + KnownFactors());
        if (!(target > 0.0)) throw StudyRefusal("the target must be above 0");
        if (!(probability > 0.0 && probability < 1.0))
            throw StudyRefusal("the probability must lie between 0 and 100 %, both left out");
        if (std::min(probability, 1.0 - probability) * risk.samples < kFewest)
            throw StudyRefusal("a probability of " + PercentText(probability) +
                               " is decided by fewer than ten samples; take more of them");
        const auto [low, high] = RangeOf(field, risk.panel);
        const auto number = static_cast<std::size_t>(&factor - kStudyFigures.data());
        demands.push_back({field, {number, target}, probability, low, high});
    });
}

void DesignRequest::SetRange(PanelField field, double low, double high) {
    About(NameOfField(field), [&] {
        DesignDemand& demand = DemandOf(*this, field);
        if (!(low < high)) throw StudyRefusal("LO must be below HI");
        const bool whole = low == std::floor(low) && high == std::floor(high);
        if (!FitsField(field, low) || !FitsField(field, high) || (IsWholeField(field) && !whole))
            throw StudyRefusal("the field cannot hold this range");
        demand.low = low;
        demand.high = high;
    });
}

void DesignRequest::SetStep(double width) {
    if (!(width > 0.0)) throw StudyRefusal("the step must be above 0");
    step = width;
}

std::optional<DesignResult> RunDesign(const DesignRequest& request, StudyObserver& observer) {
    return WithinMemory("take fewer samples",
                        [&] { return UnlessEnded([&] { return DesignRun(request, observer).Run(); }); });
}

DesignResult RunDesign(const DesignRequest& request) {
    StudyObserver nobody;
    return *RunDesign(request, nobody);
}

}  // namespace tarvokol
