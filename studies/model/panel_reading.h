// SPDX-License-Identifier: GPL-3.0-or-later
// What can be read off a panel at a glance: its figures, which of them miss their targets, and what it is refused for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "core/studies/field_digits.h"
#include "core/studies/panel_figures.h"
#include "core/studies/study_figures.h"

namespace tarvokol {

// In the words of the check; a refusal of what no field holds (crosscuts) has none.
struct PanelRefusal {
    std::optional<PanelField> field;
    std::string message;
};

struct PanelReading {
    PanelFigures figures;  // with the suggested sizes
    std::optional<PanelRefusal> refusal;
};

// Calculates all six figures of a panel as the command line does, and tests it as the parameters dialog does before it
// becomes a project. Raises nothing.
PanelReading ReadPanel(const Panel& panel);

// True of a factor that lies below what it is held against.
bool MissesTarget(const StudyFigure& figure, const PanelFigures& figures, const PanelInputs& panel);

// The figure with its unit for people, "-" where the panel has none: "1.64227", "62.5 percent".
std::string FigureInWords(const StudyFigure& figure, const PanelFigures& figures);

// For a report: a line for each field, then one for each figure: "Depth of cover: 120 ft", "Webs ONLY: 1.4, below 1.6".
std::vector<std::string> LinesOfPanel(const Panel& panel, const PanelReading& reading);

// All six in one line: "Overall 1.6, Webs ONLY 1.4 (below 1.6), ...", and why one is missing.
std::string FiguresInWords(const PanelFigures& figures, const PanelInputs& panel);

}  // namespace tarvokol
