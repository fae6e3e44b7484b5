// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_figures.h"

#include <limits>

#include "core/runtime/text.h"

namespace tarvokol {
namespace {

std::string NamesOf(std::span<const StudyFigure> figures) {
    std::string names;
    for (const StudyFigure& figure : figures) names += (names.empty() ? "" : ", ") + std::string(figure.name);
    return names;
}

}  // namespace

const StudyFigure* FigureNamed(std::string_view name) {
    for (const StudyFigure& figure : kStudyFigures)
        if (EqualIgnoringCase(name, figure.name)) return &figure;
    return nullptr;
}

const StudyFigure* ProbabilityNamed(std::string_view name) {
    for (const StudyFigure& figure : kRowProbabilities)
        if (EqualIgnoringCase(name, figure.name) ||
            EqualIgnoringCase("P(" + std::string(name) + ")", figure.name))
            return &figure;
    return nullptr;
}

std::string KnownFigures() {
    return "the figures are " + NamesOf(kStudyFigures);
}

std::string KnownFactors() {
    return "the factors are " + NamesOf(FactorFigures());
}

double TargetOfFigure(const StudyFigure& figure, const PanelInputs& panel) {
    if (!figure.IsFactor()) return std::numeric_limits<double>::quiet_NaN();
    return figure.target ? ValueOfField(panel, *figure.target) : 1.0;
}

}  // namespace tarvokol
