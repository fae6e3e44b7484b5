// SPDX-License-Identifier: GPL-3.0-or-later
// What the page of the map asks for and what comes of it: a figure over two fields, or the factors over one.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "core/engine/panel.h"
#include "core/studies/curves_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/study_observer.h"
#include "core/studies/sweep_study.h"
#include "studies/model/field_range.h"

namespace tarvokol {

// A field and where it is looked at.
struct StudyAxis {
    PanelField field = PanelField::WebThickness;
    FieldRange range;

    bool operator==(const StudyAxis&) const = default;
};

struct MapRequest {
    StudyAxis x;
    std::optional<StudyAxis> y;  // nothing: curves over x
    const StudyFigure* figure = &kStudyFigures.front();

    bool operator==(const MapRequest&) const = default;
};

// A picture, or in words why there is none; nothing of both where the observer ended it.
using MapOutcome = std::variant<std::monostate, MapPicture, CurvesPicture, std::string>;

// "WebThickness=5:15/241", of a count "NumberHoles=2:15:1": the values of an axis as the command line reads them.
std::string ValuesOfAxis(const StudyAxis& axis);

// Of the request for a panel. Raises StudyRefusal for a range that leads nowhere.
SweepRequest SweepOf(const MapRequest& request, const Panel& panel);

// The figures of the curves: of a factor all three.
std::span<const StudyFigure> CurvesOfFigure(const StudyFigure& figure);

// Calculates the picture, on so many threads. Raises nothing.
MapOutcome CalculateMapStudy(const MapRequest& request, const Panel& panel, const std::string& title,
                             unsigned threads, StudyObserver& observer);

// The line of the command line that draws the same picture of the project's file.
std::string CommandOfMap(const MapRequest& request, const std::string& project_path);

// A path as one word of a shell's line.
std::string QuotedForShell(const std::string& text);

}  // namespace tarvokol
