// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/map_panels.h"

#include <cmath>
#include <memory>
#include <vector>

#include "core/runtime/no_number.h"
#include "core/studies/row_run.h"

namespace tarvokol {
namespace {

// Puts the rows of a piece into the grid, in the thread that calculates them: no two rows have a place in common.
class GridTaker : public RowTaker {
  public:
    GridTaker(const StudyFigure& figure, const MapPlaces& x, const MapPlaces& y, bool x_first,
              ValueGrid& figures)
        : figure_(figure), x_(x), y_(y), x_first_(x_first), figures_(figures) {}

    void Take(const StudyRow& row) override {
        const std::size_t i = row.places[x_first_ ? 0 : 1];
        const std::size_t j = row.places[x_first_ ? 1 : 0];
        const double value = ShownFigure(figure_, row.figures);
        figures_.values[j * x_.Count() + i] = std::isfinite(value) ? value : kNoNumber;
        if (row.figures.refused && x_.IsGiven(i) && y_.IsGiven(j)) ++refused;
        if (std::isfinite(value)) return;
        if (message.empty()) message = row.figures.message;
        // A solver that fails leaves its own mark; whatever else is missing was refused by a check.
        (row.figures.*figure_.value < 0.0 ? has_unsolved : has_refused) = true;
    }

    std::uint64_t refused = 0;
    bool has_refused = false;
    bool has_unsolved = false;
    std::string message;

  private:
    const StudyFigure& figure_;
    const MapPlaces& x_;
    const MapPlaces& y_;
    bool x_first_;
    ValueGrid& figures_;
};

class GridObserver : public RowObserver {
  public:
    GridObserver(const StudyFigure& figure, const MapPlaces& x, const MapPlaces& y, bool x_first,
                 StudyObserver& observer, MapGrid& map)
        : figure_(figure), x_(x), y_(y), x_first_(x_first), observer_(observer), map_(map) {}

    std::unique_ptr<RowTaker> Begin(std::uint64_t) override {
        return std::make_unique<GridTaker>(figure_, x_, y_, x_first_, map_.figures);
    }
    bool End(RowTaker& taker) override {
        const auto& taken = static_cast<const GridTaker&>(taker);
        map_.refused += taken.refused;
        map_.has_refused = map_.has_refused || taken.has_refused;
        map_.has_unsolved = map_.has_unsolved || taken.has_unsolved;
        if (map_.message.empty()) map_.message = taken.message;
        return true;
    }
    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        return observer_.Progress(done, total);
    }

  private:
    const StudyFigure& figure_;
    const MapPlaces& x_;
    const MapPlaces& y_;
    bool x_first_;
    StudyObserver& observer_;
    MapGrid& map_;
};

}  // namespace

MapPanel::MapPanel(const Panel& project, const StudyFigure& figure, PanelField x, PanelField y,
                   const RowRiskRequest& risk)
    : figure_(figure), x_(x), y_(y), panel_(project, figure.NeedsSizes()) {
    if (figure.IsProbability()) risk_.emplace(risk, project, std::vector<PanelField>{x, y});
}

double MapPanel::FigureAt(const GridPoint& place) {
    panel_.Set(x_, place.x);
    panel_.Set(y_, place.y);
    PanelFigures with_risk;
    return ShownFigure(figure_, FiguresOf(panel_, risk_, with_risk));
}

bool MapPanel::HasFigureAt(const GridPoint& place) {
    if (!risk_) return std::isfinite(FigureAt(place));
    panel_.Set(x_, place.x);
    panel_.Set(y_, place.y);
    return !panel_.Evaluate().refused;
}

double MapPanel::MarginAt(const GridPoint& place) {
    const double figure = FigureAt(place);
    return figure - TargetOfFigure(figure_, panel_.Inputs());
}

bool CalculateMap(const Panel& project, const StudyFigure& figure, const MapPlaces& x, const MapPlaces& y,
                  const RowRiskRequest& risk, unsigned threads, StudyObserver& observer, MapGrid& map) {
    map.figures.x = x.Values();
    map.figures.y = y.Values();
    map.figures.values.resize(x.Count() * y.Count());
    // The last field runs fastest, and a panel of another depth alone is the one that is calculated soonest.
    const bool x_first = x.Field() != PanelField::DepthCover;
    SweepRequest request;
    request.panel = project;
    request.sizes = figure.NeedsSizes();
    request.threads = threads;
    if (figure.IsProbability()) request.risk = risk;
    for (const MapPlaces* places : {x_first ? &x : &y, x_first ? &y : &x})
        request.AddAxis(ValueAxis::List(places->Field(), places->Values()));
    GridObserver rows(figure, x, y, x_first, observer, map);
    return RunSweep(request, rows);
}

}  // namespace tarvokol
