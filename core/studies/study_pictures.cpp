// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_pictures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/runtime/numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Steps of an axis that a picture can show: about three pixels each.
constexpr std::size_t kShownSteps = 240;

constexpr int kLevels = 12;

// Halvings until a crossing is known to far below a pixel.
constexpr int kHalvings = 24;

std::string WithUnit(const std::string& title, const std::string& unit) {
    return unit.empty() ? title : title + " (" + unit + ")";
}

std::string AxisTitle(PanelField field, const Panel& panel) {
    return WithUnit(TitleOfField(field), UnitOfField(field, panel.units));
}

std::vector<double> RisingPlaces(const ValueAxis& axis) {
    std::vector<double> places(axis.Count());
    for (std::uint64_t i = 0; i < axis.Count(); ++i) places[i] = axis[i];
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

// With as many places in between as a picture can show. A panel has no half holes.
std::vector<double> ShownPlaces(const ValueAxis& axis) {
    const std::vector<double> places = RisingPlaces(axis);
    const std::size_t steps = places.size() - 1;
    if (IsWholeField(axis.Field()) || steps == 0 || steps >= kShownSteps) return places;
    const std::size_t parts = (kShownSteps + steps - 1) / steps;
    std::vector<double> shown;
    for (std::size_t i = 0; i < steps; ++i)
        for (std::size_t part = 0; part < parts; ++part)
            shown.push_back(places[i] + (places[i + 1] - places[i]) * static_cast<double>(part) /
                                            static_cast<double>(parts));
    shown.push_back(places.back());
    return shown;
}

std::optional<StudyTarget> TargetOf(const StudyFigure& figure, const Panel& panel) {
    if (!figure.IsFactor()) return std::nullopt;
    const std::string name = figure.target ? std::string("Target ") + NameOfField(*figure.target) : "Target";
    return StudyTarget{name, TargetOfFigure(figure, panel)};
}

// NaN for a size that the solver did not find.
double ShownValue(const StudyFigure& figure, const PanelFigures& figures) {
    const double value = figures.*figure.value;
    return figure.NeedsSizes() && value < 0 ? kNone : value;
}

// Hands rows on, and asks somebody else whether to go on.
class WatchedRows : public RowsInOrder {
  public:
    WatchedRows(StudyObserver& observer, std::function<void(const StudyRow&)> take)
        : RowsInOrder([this, take = std::move(take)](const StudyRow& row) {
              take(row);
              if (message_.empty()) message_ = row.figures.message;
              any_refused_ = any_refused_ || row.figures.refused;
              return true;
          }),
          observer_(observer) {}

    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        return observer_.Progress(done, total);
    }

    // The first message of a row.
    const std::string& Message() const { return message_; }

    bool AnyRefused() const { return any_refused_; }

  private:
    StudyObserver& observer_;
    std::string message_;
    bool any_refused_ = false;
};

[[noreturn]] void RefuseNothingToDraw(const std::string& message) {
    throw StudyRefusal("nothing to draw: no panel has a value" +
                       (message.empty() ? "" : " (" + message + ")"));
}

bool HasNoValue(const std::vector<double>& values) {
    return std::none_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

// The request over these places instead of its own.
SweepRequest Over(const SweepRequest& request, const std::vector<std::vector<double>>& places) {
    SweepRequest shown = request;
    for (std::size_t i = 0; i < places.size(); ++i)
        shown.axes[i] = ValueAxis::List(request.axes[i].Field(), places[i]);
    return shown;
}

// Finds where the figure passes a level by calculating panels in between.
class CrossingFinder {
  public:
    CrossingFinder(const SweepRequest& request, const StudyFigure& figure)
        : panel_(request.panel, figure.NeedsSizes()),
          x_(request.axes[0].Field()),
          y_(request.axes[1].Field()),
          figure_(figure) {}

    GridPoint operator()(const GridPoint& from, const GridPoint& to, double from_value, double to_value,
                         double level) {
        if (IsWholeField(from.x != to.x ? x_ : y_))
            return LinearCrossing(from, to, from_value, to_value, level);
        GridPoint low = from;
        GridPoint high = to;
        for (int i = 0; i < kHalvings; ++i) {
            const GridPoint middle{(low.x + high.x) / 2, (low.y + high.y) / 2};
            const double value = ValueAt(middle);
            if (!std::isfinite(value)) return LinearCrossing(from, to, from_value, to_value, level);
            ((value < level) == (from_value < level) ? low : high) = middle;
        }
        return high;
    }

  private:
    double ValueAt(const GridPoint& place) {
        panel_.Set(x_, place.x);
        panel_.Set(y_, place.y);
        return ShownValue(figure_, panel_.Evaluate());
    }

    PanelEvaluator panel_;
    PanelField x_;
    PanelField y_;
    const StudyFigure& figure_;
};

std::optional<GridPoint> PlaceOfProject(const SweepRequest& request, const ValueGrid& grid) {
    const GridPoint place{ValueOfField(request.panel, request.axes[0].Field()),
                          ValueOfField(request.panel, request.axes[1].Field())};
    const bool inside = place.x >= grid.x.front() && place.x <= grid.x.back() && place.y >= grid.y.front() &&
                        place.y <= grid.y.back();
    return inside ? std::optional(place) : std::nullopt;
}

std::optional<double> OnlyValue(const ValueGrid& grid) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const double value : grid.values)
        if (std::isfinite(value)) {
            low = std::min(low, value);
            high = std::max(high, value);
        }
    constexpr double kSame = 1e-12;
    return high - low <= kSame * std::fabs(high) ? std::optional(high) : std::nullopt;
}

// Three digits, of a probability as small as it may be.
std::string Percent(double share) {
    const double percent = share * 100;
    if (!(percent > 0) || percent >= 100) return GeneralText(percent) + " %";
    const double unit = std::pow(10.0, std::floor(std::log10(percent)) - 2);
    return GeneralText(std::round(percent / unit) * unit) + " %";
}

std::string LabelOf(const BelowTarget& below) {
    const std::string target =
        below.own_target ? "its own target, each sample" : GeneralText(static_cast<float>(below.target));
    return "below " + target + ": " + Percent(below.share.value) + " (" + Percent(below.share.low) + " to " +
           Percent(below.share.high) + ")";
}

std::vector<std::string> NotesOf(const RiskRequest& request, const RiskResult& result) {
    std::string samples = std::to_string(request.samples) + " samples, " +
                          (request.latin ? "Latin hypercube" : "independent draws") + ", seed " +
                          std::to_string(request.seed);
    if (result.refused > 0) samples += "; " + std::to_string(result.refused) + " refused, not shown";
    std::vector<std::string> notes{samples};
    for (const RandomField& field : request.fields)
        notes.push_back(AxisTitle(field.field, request.panel) + ": " + field.distribution->Text());
    return notes;
}

}  // namespace

std::optional<CurvesPicture> CurvesOf(const SweepRequest& request, std::span<const StudyFigure> figures,
                                      const std::string& title, StudyObserver& observer) {
    const PanelField field = request.axes[0].Field();
    CurvesPicture picture;
    const bool alone = figures.size() == 1;
    picture.titles = {title, AxisTitle(field, request.panel),
                      alone ? WithUnit(figures[0].title, figures[0].unit) : "Stability factor"};
    picture.whole_x = IsWholeField(field);
    picture.x = RisingPlaces(request.axes[0]);
    for (const StudyFigure& figure : figures) picture.curves.push_back({figure.legend, {}});
    WatchedRows rows(observer, [&](const StudyRow& row) {
        for (std::size_t i = 0; i < figures.size(); ++i)
            picture.curves[i].y.push_back(ShownValue(figures[i], row.figures));
    });
    if (!RunSweep(Over(request, {picture.x}), rows)) return std::nullopt;
    picture.any_refused = rows.AnyRefused();
    if (std::all_of(picture.curves.begin(), picture.curves.end(),
                    [](const StudyCurve& curve) { return HasNoValue(curve.y); }))
        RefuseNothingToDraw(rows.Message());
    for (const StudyFigure& figure : figures)
        if (const auto target = TargetOf(figure, request.panel)) picture.targets.push_back(*target);
    return picture;
}

void FindLevels(MapPicture& picture, const CrossingBetween& crossing) {
    picture.without = OutlinesWithoutValue(picture.grid);
    picture.constant = OnlyValue(picture.grid);
    if (picture.target) picture.at_target = CutAtLevel(picture.grid, picture.target->value, crossing);
    if (picture.constant) return;
    for (const double level : RoundLevels(picture.grid, kLevels)) {
        if (picture.target && std::fabs(level - picture.target->value) < 1e-9) continue;
        MapLevel lines{level, ContourLines(picture.grid, level)};
        if (!lines.lines.empty()) picture.levels.push_back(std::move(lines));
    }
}

std::optional<MapPicture> MapOf(const SweepRequest& request, const StudyFigure& figure,
                                const std::string& title, StudyObserver& observer) {
    MapPicture picture;
    picture.titles = {title, AxisTitle(request.axes[0].Field(), request.panel),
                      AxisTitle(request.axes[1].Field(), request.panel)};
    picture.whole_x = IsWholeField(request.axes[0].Field());
    picture.whole_y = IsWholeField(request.axes[1].Field());
    picture.value_name = WithUnit(figure.title, figure.unit);
    picture.target = TargetOf(figure, request.panel);
    ValueGrid& grid = picture.grid;
    grid.x = ShownPlaces(request.axes[0]);
    grid.y = ShownPlaces(request.axes[1]);
    grid.values.resize(grid.x.size() * grid.y.size());
    WatchedRows rows(observer, [&](const StudyRow& row) {
        grid.values[row.places[1] * grid.x.size() + row.places[0]] = ShownValue(figure, row.figures);
    });
    if (!RunSweep(Over(request, {grid.x, grid.y}), rows)) return std::nullopt;
    picture.any_refused = rows.AnyRefused();
    if (HasNoValue(grid.values)) RefuseNothingToDraw(rows.Message());
    FindLevels(picture, CrossingFinder(request, figure));
    picture.project = PlaceOfProject(request, grid);
    return picture;
}

SpreadPicture SpreadOf(const RiskRequest& request, const RiskResult& result, const std::string& title) {
    if (result.refused == request.samples)
        RefuseNothingToDraw(result.refusals.empty() ? "" : result.refusals.front());
    SpreadPicture picture;
    picture.title = title;
    picture.notes = NotesOf(request, result);
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        SpreadPanel panel;
        panel.name = kStudyFigures[factor].title;
        for (const double value : result.factors[factor])
            if (!std::isnan(value)) panel.sorted.push_back(value);
        std::sort(panel.sorted.begin(), panel.sorted.end());
        for (const BelowTarget& below : result.risk[factor].below)
            panel.targets.push_back({below.target, LabelOf(below), !below.own_target});
        picture.panels.push_back(std::move(panel));
    }
    return picture;
}

}  // namespace tarvokol
