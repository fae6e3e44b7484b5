// SPDX-License-Identifier: GPL-3.0-or-later
// A map of a figure over two fields of a project: lines of equal value, the line and the region of its target.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "core/studies/picture_parts.h"
#include "core/studies/study_observer.h"
#include "core/studies/sweep_study.h"

namespace tarvokol {

// Lines of one value.
struct MapLevel {
    std::string text;  // the value, for the lines' labels
    std::vector<GridLine> lines;
};

// The project's own place on the map.
struct MapPoint {
    GridPoint place;
    std::string text;  // its figure; "refused" where it has none
};

struct MapPicture {
    std::string title;
    PictureAxis x;
    PictureAxis y;
    std::string figure;  // "Stability factor "Webs ONLY"", with its unit
    std::vector<MapLevel> levels;

    // The target of the figure: its line and what lies below it. What is not in the map is empty.
    std::string target_name;  // "Target SFWeb 1.6"; without a number where it differs from place to place
    MapLevel target;
    std::vector<GridLine> below;

    // Panels without the figure, and why they have none: "refused".
    std::vector<GridLine> without;
    std::string why_without;

    std::optional<MapPoint> project;
    std::string note;    // of a target that no panel misses; of probabilities what they are made of
    std::string remark;  // of a figure that all panels have in common, so that no line shows it

    ValueGrid grid;             // the figures that the map was made of
    std::uint64_t refused = 0;  // panels of the request, not of the finer grid, that have no figures
};

// The most panels of a map.
constexpr std::uint64_t kMostMapPanels = 4000000;

// Calculates the map of a figure, or of a probability (see kRowProbabilities and SweepRequest::risk), over the two axes of the request, the first from left to right; nothing if the observer
// ended it early. The axes are taken in rising order, each value once; coarse steps are divided until 240 lie across the
// map, those of a count at its whole numbers, so that its lines bend as the figure does (of probabilities, whose lines are those of
// 1, 5, 10, 25 and 50 %, until 60 do). The target's line is found by
// calculating panels between two neighbours on both sides of it, and so is where the panels begin to be refused. Same
// request, same bits, on any number of threads. Raises StudyRefusal for a request of another number of axes, an axis with
// fewer than two different values, and too many panels; NothingToShow where no panel has the figure.
std::optional<MapPicture> MapOf(const SweepRequest& request, const StudyFigure& figure,
                                const std::string& title, StudyObserver& observer);

}  // namespace tarvokol
