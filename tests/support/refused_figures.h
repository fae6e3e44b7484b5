// SPDX-License-Identifier: GPL-3.0-or-later
// What is said of a figure of a panel that makes no sense, in the order in which the check looks at them.
#pragma once

#include "core/engine/panel.h"
#include "core/engine/panel_check.h"

namespace tarvokol {

struct RefusedFigure {
    double PanelInputs::*figure;
    PanelTest test;
    const char* words;
};
inline constexpr RefusedFigure kRefusedFigures[] = {
    {&PanelInputs::Height, PanelTest::Height, "Invalid entry height"},
    {&PanelInputs::DepthCover, PanelTest::DepthCover, "Invalid depth of cover"},
    {&PanelInputs::CrosscutAngle, PanelTest::CrosscutAngle, "Invalid crosscut angle"},
    {&PanelInputs::HoleWidth, PanelTest::HoleWidth, "Invalid entry width"},
    {&PanelInputs::CrosscutSpacing, PanelTest::CrosscutSpacing, "Invalid crosscut spacing"},
    {&PanelInputs::WebThickness, PanelTest::WebThickness, "Invalid Web thickness"},
    {&PanelInputs::BarrierPillarWidth, PanelTest::BarrierPillarWidth, "Invalid barrier pillar width"},
    {&PanelInputs::CoalStrength, PanelTest::CoalStrength, "Invalid coal strength"},
    {&PanelInputs::UnitWeight, PanelTest::UnitWeight, "Invalid unit weight"},
    {&PanelInputs::AbutmentAngle, PanelTest::AbutmentAngle, "Invalid abutment angle"}};

}  // namespace tarvokol
