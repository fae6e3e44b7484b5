// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/figure_range.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/engine/engine.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// Powers of ten above and below 1 that no figure of a panel comes near; the bare number of a pillar without
// end is 1E+6.
constexpr double kFarthestPower = 12.0;

struct Figure {
    double power;  // of ten, above or below 1
    std::string message;
};

Figure FigureOf(double value, const std::string& message) {
    return {value == 0.0 ? 0.0 : std::fabs(std::log10(std::fabs(value))), message};
}

Figure TestedFigure(double value, PanelTest test) {
    return FigureOf(value, Refusal{test}.Message());
}

// The figure that is farthest from 1.
Figure FarthestFigure(const PanelInputs& panel) {
    const std::vector<Figure> figures{TestedFigure(panel.Height, PanelTest::Height),
                                      TestedFigure(panel.DepthCover, PanelTest::DepthCover),
                                      TestedFigure(panel.CrosscutAngle, PanelTest::CrosscutAngle),
                                      TestedFigure(panel.HoleWidth, PanelTest::HoleWidth),
                                      TestedFigure(panel.CrosscutSpacing, PanelTest::CrosscutSpacing),
                                      TestedFigure(panel.WebThickness, PanelTest::WebThickness),
                                      TestedFigure(panel.BarrierPillarWidth, PanelTest::BarrierPillarWidth),
                                      TestedFigure(panel.CoalStrength, PanelTest::CoalStrength),
                                      TestedFigure(panel.UnitWeight, PanelTest::UnitWeight),
                                      TestedFigure(panel.AbutmentAngle, PanelTest::AbutmentAngle),
                                      FigureOf(panel.SFWeb, "Invalid Stability Factor for webs"),
                                      FigureOf(panel.SFBarrier, "Invalid Stability Factor for barriers")};
    return *std::max_element(figures.begin(), figures.end(),
                             [](const Figure& a, const Figure& b) { return a.power < b.power; });
}

bool IsOfFigures(const RunTimeError& error) {
    return error.number == error_number::Overflow || error.number == error_number::DivisionByZero ||
           error.number == error_number::InvalidCall;
}

void RefuseHoles(const PanelInputs& panel) {
    Notify("Invalid number of Holes: " + GeneralText(panel.NumberHoles) + ". A panel has 1 to " +
               GeneralText(MaxHoles) + " holes.",
           box_style::Plain);
}

}  // namespace

bool DoneWithinRange(const PanelInputs& panel, const std::function<void()>& work) {
    if (panel.NumberHoles > MaxHoles) {
        RefuseHoles(panel);
        return false;
    }
    try {
        work();
        return true;
    } catch (const RunTimeError& error) {
        if (error.number == error_number::SubscriptOutOfRange && panel.NumberHoles < 1) {
            RefuseHoles(panel);
            return false;
        }
        const Figure farthest = FarthestFigure(panel);
        if (!IsOfFigures(error) || farthest.power < kFarthestPower) throw;
        Notify(farthest.message, box_style::Plain);
        return false;
    }
}

}  // namespace tarvokol
