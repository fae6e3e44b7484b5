// SPDX-License-Identifier: GPL-3.0-or-later
// What can be read off a panel at a glance: its figures, which of them miss their targets, and what it is refused for.
#pragma once

#include <optional>
#include <string>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
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

// The figure of a field with all digits that the project has; of a single those that are its own: "1.6".
std::string DigitsOfField(const PanelInputs& panel, PanelField field);

// True of a factor that lies below what it is held against.
bool MissesTarget(const StudyFigure& figure, const PanelFigures& figures, const PanelInputs& panel);

// The figure with its unit for people, "-" where the panel has none: "1.64227", "62.5 percent".
std::string FigureInWords(const StudyFigure& figure, const PanelFigures& figures);

// All six in one line: "Overall 1.6, Webs ONLY 1.4 (below 1.6), ...", and why one is missing.
std::string FiguresInWords(const PanelFigures& figures, const PanelInputs& panel);

}  // namespace tarvokol
