// SPDX-License-Identifier: GPL-3.0-or-later
// The panels of a map: one at any place of it, or all over a grid.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "core/studies/contour_lines.h"
#include "core/studies/map_places.h"
#include "core/studies/picture_parts.h"
#include "core/studies/row_risk.h"
#include "core/studies/study_observer.h"
#include "core/studies/sweep_study.h"

namespace tarvokol {

// One panel at a time, by its place on the map.
class MapPanel {
  public:
    // `risk` draws the samples of a figure that is a probability. Raises what RowRisk raises.
    MapPanel(const Panel& project, const StudyFigure& figure, PanelField x, PanelField y,
             const RowRiskRequest& risk);

    // The figure of the panel at a place; NaN where it has none.
    double FigureAt(const GridPoint& place);

    // True where there is one; of a probability where the panel itself is not refused.
    bool HasFigureAt(const GridPoint& place);

    // How far the figure lies above the panel's own target; below 0 it misses it.
    double MarginAt(const GridPoint& place);

  private:
    const StudyFigure& figure_;
    PanelField x_;
    PanelField y_;
    PanelEvaluator panel_;
    std::optional<RowRisk> risk_;
};

// What has become of the panels of a grid.
struct MapGrid {
    ValueGrid figures;
    std::uint64_t refused = 0;  // of the places that were asked for
    bool has_refused = false;   // of all places: some are refused, or
    bool has_unsolved = false;  // have no suggested size
    std::string message;        // of the first panel without the figure
};

// Calculates the panels over the two lists of places, with their samples where the figure is a probability; false if the observer ended it early.
bool CalculateMap(const Panel& project, const StudyFigure& figure, const MapPlaces& x, const MapPlaces& y,
                  const RowRiskRequest& risk, unsigned threads, StudyObserver& observer, MapGrid& map);

}  // namespace tarvokol
