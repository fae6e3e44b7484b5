// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/map_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/runtime/numbers.h"
#include "core/studies/map_panels.h"
#include "core/studies/map_places.h"
#include "core/studies/probability_lines.h"

namespace tarvokol {
namespace {

constexpr int kMostLevels = 12;

// Steps across a map: of a hand's width on paper, each is shorter than a millimetre.
constexpr std::size_t kFinestSteps = 240;

// Each panel of probabilities is thousands of panels, and between neighbours they change as normal scores do.
constexpr std::size_t kStepsOfProbability = 60;

// Half and half again so often: a place on an edge is known to a millionth of it, the end of what is refused to what a
// double can tell.
constexpr int kHalvingsOfEdge = 20;
constexpr int kHalvingsOfRefusal = 40;

// Changes between refused and calculated panels that are looked for along one axis.
constexpr std::size_t kMostRefusalEdges = 4;

// The place at which `is_first` changes between two ends, to the last halving: the first end's side and the other's.
template <typename Test>
std::pair<double, double> ChangeBetween(double first, double second, int halvings, Test is_first) {
    for (int halving = 0; halving < halvings; ++halving) {
        const double middle = first + (second - first) / 2;
        (is_first(middle) ? first : second) = middle;
    }
    return {first, second};
}

class MapMaker {
  public:
    MapMaker(const SweepRequest& request, const StudyFigure& figure)
        : request_(request),
          figure_(figure),
          x_(PlacesOf(request, 0)),
          y_(PlacesOf(request, 1)),
          panel_(request.panel, figure, x_.Field(), y_.Field(), request.risk) {}

    std::optional<MapPicture> Make(StudyObserver& observer) {
        const std::size_t steps = figure_.IsProbability() ? kStepsOfProbability : kFinestSteps;
        x_.Divide(std::min<std::size_t>(steps, kMostMapPanels / y_.Count()));
        y_.Divide(std::min<std::size_t>(steps, kMostMapPanels / x_.Count()));
        DivideWhereRefusalBegins();
        if (!CalculateMap(request_.panel, figure_, x_, y_, request_.risk, request_.threads, observer, map_))
            return std::nullopt;
        if (std::none_of(map_.figures.values.begin(), map_.figures.values.end(),
                         [](double value) { return std::isfinite(value); }))
            throw NothingToShow(map_.message);
        MapPicture picture;
        picture.x = AxisOf(x_);
        picture.y = AxisOf(y_);
        picture.figure = TitleWithUnit(figure_);
        AddWithout(picture);
        if (figure_.IsFactor()) AddTarget(picture);
        if (figure_.IsProbability())
            AddProbabilities(picture);
        else
            AddLevels(picture);
        AddProject(picture);
        picture.refused = map_.refused;
        picture.grid = std::move(map_.figures);
        return picture;
    }

  private:
    static MapPlaces PlacesOf(const SweepRequest& request, std::size_t axis) {
        if (request.axes.size() != 2)
            throw StudyRefusal("a map is drawn over two fields, not " + std::to_string(request.axes.size()));
        const std::string few = "a map needs two different values or more of each field";
        for (const ValueAxis& one : request.axes)
            if (one.Count() < 2) throw StudyRefusal(few);
        if (request.Rows() > kMostMapPanels)
            throw StudyRefusal("a map of more than " + std::to_string(kMostMapPanels) +
                               " panels; give larger steps");
        MapPlaces places(request.axes[axis]);
        if (places.Count() < 2) throw StudyRefusal(few);
        return places;
    }

    PictureAxis AxisOf(const MapPlaces& places) const {
        return {TitleWithUnit(places.Field(), request_.panel.units), places.Values().front(),
                places.Values().back(), places.IsWhole()};
    }

    // What is refused mostly ends at one value of a field; with places on both sides of it the map ends there, too.
    void DivideWhereRefusalBegins() {
        const auto at_x = [](double along, double other) { return GridPoint{along, other}; };
        const auto at_y = [](double along, double other) { return GridPoint{other, along}; };
        const std::vector<double> x = ChangesAlong(x_, y_, at_x);
        const std::vector<double> y = ChangesAlong(y_, x_, at_y);
        for (const double value : x) x_.Insert(value);
        for (const double value : y) y_.Insert(value);
    }

    template <typename Place>
    std::vector<double> ChangesAlong(const MapPlaces& axis, const MapPlaces& other, Place place) {
        std::vector<double> changes;
        if (axis.IsWhole()) return changes;
        const std::vector<double>& along = axis.Values();
        for (const double across :
             {other.Values().front(), other.Values()[other.Count() / 2], other.Values().back()}) {
            const auto has_figure = [&](double value) { return panel_.HasFigureAt(place(value, across)); };
            bool before = has_figure(along.front());
            for (std::size_t i = 1; i < along.size() && changes.size() < 2 * kMostRefusalEdges; ++i) {
                const bool here = has_figure(along[i]);
                if (here != before) {
                    const auto [first, second] =
                        ChangeBetween(along[i - 1], along[i], kHalvingsOfRefusal,
                                      [&](double value) { return has_figure(value) == before; });
                    changes.push_back(first);
                    changes.push_back(second);
                }
                before = here;
            }
        }
        return changes;
    }

    void AddWithout(MapPicture& picture) const {
        picture.without = OutlinesWithoutValue(map_.figures);
        if (!picture.without.empty())
            picture.why_without = !map_.has_unsolved  ? "refused"
                                  : !map_.has_refused ? "no solution"
                                                      : "refused or no solution";
    }

    // The target of a place that is a target itself; else the project's for all.
    double TargetAt(double x, double y) const {
        Panel panel = request_.panel;
        if (figure_.target == x_.Field()) StoreInField(panel, x_.Field(), x);
        if (figure_.target == y_.Field()) StoreInField(panel, y_.Field(), y);
        return TargetOfFigure(figure_, panel);
    }
    bool TargetVaries() const { return figure_.target == x_.Field() || figure_.target == y_.Field(); }

    void AddTarget(MapPicture& picture) {
        ValueGrid margins = map_.figures;
        const double target = TargetAt(x_.Values().front(), y_.Values().front());
        for (std::size_t j = 0; j < y_.Count(); ++j)
            for (std::size_t i = 0; i < x_.Count(); ++i)
                margins.values[j * x_.Count() + i] -=
                    TargetVaries() ? TargetAt(x_.Values()[i], y_.Values()[j]) : target;
        LevelCut cut =
            CutAtLevel(margins, 0.0,
                       [this](const GridPoint& from, const GridPoint& to, double first, double second,
                              double level) { return TargetBetween(from, to, first, second, level); });
        picture.target.lines = std::move(cut.lines);
        picture.below = std::move(cut.below);
        picture.target_name = TargetInWords(figure_, request_.panel);
        picture.target.text = RoundedText(target, kFigureDigits);
        if (TargetVaries()) {
            picture.target.text = NameOfField(*figure_.target);
            picture.target_name = "Target " + picture.target.text;
        }
        if (picture.below.empty()) picture.note = picture.target_name + ": no panel of the map lies below it";
    }

    // Between two numbers of holes there is no panel to be calculated.
    GridPoint TargetBetween(const GridPoint& from, const GridPoint& to, double first, double second,
                            double level) {
        const GridPoint linear = LinearCrossing(from, to, first, second, level);
        if ((from.x != to.x ? x_ : y_).IsWhole()) return linear;
        const auto at = [&](double share) {
            return GridPoint{from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
        };
        const bool above = first >= level;
        const auto [share, beyond] = ChangeBetween(0.0, 1.0, kHalvingsOfEdge, [&](double one) {
            return (panel_.MarginAt(at(one)) >= level) == above;
        });
        return at(share + (beyond - share) / 2);
    }

    void AddLevels(MapPicture& picture) const {
        constexpr double kAlike = 1e-9;
        const double target =
            figure_.IsFactor() && !TargetVaries() ? TargetOfFigure(figure_, request_.panel) : NAN;
        const std::vector<double> levels = RoundLevels(map_.figures, kMostLevels);
        for (const double level : levels) {
            if (std::abs(level - target) <= kAlike * std::abs(target)) continue;
            MapLevel drawn{GeneralText(level), ContourLines(map_.figures, level)};
            if (!drawn.lines.empty()) picture.levels.push_back(std::move(drawn));
        }
        if (levels.empty()) picture.remark = ConstantInWords(picture);
    }

    void AddProbabilities(MapPicture& picture) const {
        picture.note = InWords(request_.risk, request_.panel, {x_.Field(), y_.Field()});
        picture.levels = ProbabilityLines(map_.figures, request_.risk.samples);
        if (picture.levels.empty())
            picture.remark = std::string(figure_.title) + ' ' + ProbabilityRange(map_.figures) +
                             (picture.without.empty() ? " all over the map" : " wherever there is one");
    }

    // The figure that all panels have in common.
    std::string ConstantInWords(const MapPicture& picture) const {
        const auto one = std::find_if(map_.figures.values.begin(), map_.figures.values.end(),
                                      [](double value) { return std::isfinite(value); });
        const std::string unit = figure_.unit;
        return std::string(figure_.title) + " " + RoundedText(*one, kFigureDigits) +
               (unit.empty() ? "" : " " + unit) +
               (picture.without.empty() ? " all over the map" : " wherever there is one");
    }

    void AddProject(MapPicture& picture) {
        const GridPoint place{ValueOfField(request_.panel, x_.Field()),
                              ValueOfField(request_.panel, y_.Field())};
        const auto within = [](double value, const PictureAxis& axis) {
            return value >= axis.low && value <= axis.high;
        };
        if (!within(place.x, picture.x) || !within(place.y, picture.y)) return;
        const double figure = panel_.FigureAt(place);
        picture.project = {place, FigureInWords(figure)};
    }

    std::string FigureInWords(double figure) const {
        if (!std::isfinite(figure)) return "refused";
        return figure_.IsProbability() ? ProbabilityText(figure, request_.risk.samples)
                                       : RoundedText(figure, kFigureDigits);
    }

    const SweepRequest& request_;
    const StudyFigure& figure_;
    MapPlaces x_;
    MapPlaces y_;
    MapPanel panel_;
    MapGrid map_;
};

}  // namespace

std::optional<MapPicture> MapOf(const SweepRequest& request, const StudyFigure& figure,
                                const std::string& title, StudyObserver& observer) {
    std::optional<MapPicture> picture = MapMaker(request, figure).Make(observer);
    if (picture) picture->title = title;
    return picture;
}

}  // namespace tarvokol
