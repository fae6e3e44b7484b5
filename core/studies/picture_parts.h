// SPDX-License-Identifier: GPL-3.0-or-later
// What the pictures of studies have in common. A picture is a record: what is to be seen stands in it, in the units of
// its axes; whoever draws it chooses how it looks, and nothing else.
#pragma once

#include <optional>
#include <string>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/study_figures.h"

namespace tarvokol {

struct PictureAxis {
    std::string title;  // with its unit
    double low = 0;
    double high = 1;
    bool whole = false;  // counts: nothing is to be read off between whole numbers
};

// A request that makes sense, but not one of its panels has the figure that is to be seen.
class NothingToShow : public StudyRefusal {
  public:
    // What the first of them says.
    explicit NothingToShow(const std::string& message)
        : StudyRefusal("nothing to draw: no panel has a value" +
                       (message.empty() ? "" : " (" + message + ")")) {}
};

// "Depth of cover (ft)", "Extraction ratio (percent)", "Number of holes".
std::string TitleWithUnit(PanelField field, Units units);
std::string TitleWithUnit(const StudyFigure& figure);

// A range that leaves some room round its values: 4 % below them and 6 % above, a fifth of the value round a single one.
void Widen(double& low, double& high);

// What a picture says of a factor's target: "Target SFWeb 1.6"; for the whole panel "Target 1".
std::string TargetInWords(const StudyFigure& figure, const PanelInputs& panel);

// The figure of a row, nothing (NaN) for one that a panel does not have, the size of a solver that failed included.
double ShownFigure(const StudyFigure& figure, const PanelFigures& row);

// A number for people: at most so many significant digits, "-" for NaN.
std::string RoundedText(double value, int digits);
constexpr int kFigureDigits = 6;
constexpr int kShareDigits = 5;  // of what samples tell: more would tell of the samples, not of the panel

}  // namespace tarvokol
