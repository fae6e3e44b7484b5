// SPDX-License-Identifier: GPL-3.0-or-later
// What the page of the map asks for and what comes of it: a figure over two fields, or the factors over one.
#pragma once

#include <span>
#include <string>
#include <variant>
#include <vector>

#include "core/engine/panel.h"
#include "core/studies/curves_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/study_observer.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

// A picture, or in words why there is none; nothing of both where the observer ended it.
using MapOutcome = std::variant<std::monostate, MapPicture, CurvesPicture, std::string>;

// The figures of the curves: of a factor all three.
std::span<const StudyFigure> CurvesOfFigure(const StudyFigure& figure);

// Calculates the picture, on so many threads. Raises nothing.
MapOutcome CalculateMapStudy(const MapRequest& request, const Panel& panel, const std::string& title,
                             unsigned threads, StudyObserver& observer);

// The line of the command line that draws the same picture of the project's file.
std::string CommandOfMap(const MapRequest& request, const std::string& project_path);

// A line for a shell: program and command, the project's path, the words after it.
std::string ShellLine(const std::string& command, const std::string& path,
                      const std::vector<std::string>& words);

// A text as one word of a shell's line.
std::string QuotedForShell(const std::string& text);

}  // namespace tarvokol
