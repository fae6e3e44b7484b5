// SPDX-License-Identifier: GPL-3.0-or-later
// What the pictures of studies show, as records that know no way of drawing: curves over one field, a map over two, the
// spread of the factors of a risk study. Places and values stand in the project's units.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_figures.h"
#include "core/studies/sweep_study.h"

namespace tarvokol {

// What stands on every picture.
struct PictureTitles {
    std::string title;
    std::string x;  // with its unit
    std::string y;
};

struct StudyCurve {
    std::string name;
    std::vector<double> y;  // one per place on x; NaN leaves a gap
};

// A value to be reached.
struct StudyTarget {
    std::string name;
    double value = 0;
};

struct CurvesPicture {
    PictureTitles titles;
    bool whole_x = false;   // places between whole numbers mean nothing
    std::vector<double> x;  // rising
    std::vector<StudyCurve> curves;
    std::vector<StudyTarget> targets;  // level lines
    bool any_refused = false;          // a panel of it was refused by the check
};

struct MapLevel {
    double value = 0;
    std::vector<GridLine> lines;
};

struct MapPicture {
    PictureTitles titles;
    bool whole_x = false;
    bool whole_y = false;
    std::string value_name;
    ValueGrid grid;                     // rising places; NaN where a panel has no such figure
    std::vector<MapLevel> levels;       // lines of equal value, but for the target's
    std::optional<double> constant;     // the value of a map that has but one
    std::optional<StudyTarget> target;  // of a figure that is held against one
    LevelCut at_target;                 // its line, and what lies below it
    std::vector<GridLine> without;      // outlines of the panels without a value
    std::optional<GridPoint> project;   // where the project itself lies on the map
    bool any_refused = false;           // a panel of it was refused by the check
};

// A target of a factor, and what its label says of the samples below it.
struct SpreadTarget {
    double value = 0;
    std::string label;
    bool has_line = true;  // false where each sample has a target of its own
};

// One factor of a risk study: its histogram and the share of samples below each value.
struct SpreadPanel {
    std::string name;
    std::vector<double> sorted;  // the samples, rising
    std::vector<SpreadTarget> targets;
};

struct SpreadPicture {
    std::string title;
    std::vector<SpreadPanel> panels;  // one below the other
    std::vector<std::string> notes;   // how the samples were drawn
};

// The curves of these figures over the only axis of the request, each place once and rising. Nothing if the observer ended
// the study early. Raises StudyRefusal where no panel has any of the figures.
std::optional<CurvesPicture> CurvesOf(const SweepRequest& request, std::span<const StudyFigure> figures,
                                      const std::string& title, StudyObserver& observer);

// The map of a figure over the two axes of the request: the first from left to right. Between the places of an axis as many
// more are calculated as the picture can show, but for numbers of holes; the target's line is found by the calculation
// itself. Nothing if the observer ended the study early. Raises StudyRefusal where no panel has the figure.
std::optional<MapPicture> MapOf(const SweepRequest& request, const StudyFigure& figure,
                                const std::string& title, StudyObserver& observer);

// Finds lines and areas of a map whose grid and target are given; `crossing` serves the target's line, the others run
// straight from place to place.
void FindLevels(MapPicture& picture, const CrossingBetween& crossing = LinearCrossing);

// The spread of the factors. Raises StudyRefusal where every sample was refused.
SpreadPicture SpreadOf(const RiskRequest& request, const RiskResult& result, const std::string& title);

}  // namespace tarvokol
