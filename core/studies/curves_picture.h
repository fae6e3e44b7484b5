// SPDX-License-Identifier: GPL-3.0-or-later
// Curves of figures over one field of a project, with their targets.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "core/studies/picture_parts.h"
#include "core/studies/study_observer.h"
#include "core/studies/sweep_study.h"

namespace tarvokol {

struct StudyCurve {
    std::string name;
    std::vector<double> y;  // one for each place on x; NaN leaves a gap
};

// What is to be reached: level, but for a target that is the field on x itself.
struct TargetLine {
    std::string name;  // "Target SFWeb 1.6"
    GridLine line;     // from end to end of x
};

struct CurvesPicture {
    std::string title;
    PictureAxis x;
    PictureAxis y;  // with room round all that is to be seen
    std::vector<double> places;
    std::vector<StudyCurve> curves;
    std::vector<TargetLine> targets;  // equal ones once, with all their names
    std::uint64_t refused = 0;        // panels that have no figures
    std::string note;  // of those, where there are some; of probabilities what they are made of
};

// Calculates the curves of some figures over the one axis of the request, its values in rising order, each once; nothing
// if the observer ended it early. Raises StudyRefusal for a request of another number of axes and for too many panels;
// NothingToShow where no panel has any of the figures.
std::optional<CurvesPicture> CurvesOf(const SweepRequest& request, std::span<const StudyFigure> figures,
                                      const std::string& title, StudyObserver& observer);

// The most places of a curve.
constexpr std::uint64_t kMostCurvePlaces = 1000000;

}  // namespace tarvokol
