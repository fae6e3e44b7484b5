// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_figures.h"

#include <limits>

#include "core/runtime/text.h"

namespace tarvokol {

const StudyFigure* FigureNamed(std::string_view name) {
    for (const StudyFigure& figure : kStudyFigures)
        if (EqualIgnoringCase(name, figure.name)) return &figure;
    return nullptr;
}

std::string KnownFigures() {
    std::string known;
    for (const StudyFigure& figure : kStudyFigures)
        known += (known.empty() ? "" : ", ") + std::string(figure.name);
    return "the figures are " + known;
}

double TargetOfFigure(const StudyFigure& figure, const PanelInputs& panel) {
    if (!figure.IsFactor()) return std::numeric_limits<double>::quiet_NaN();
    return figure.target ? ValueOfField(panel, *figure.target) : 1.0;
}

}  // namespace tarvokol
