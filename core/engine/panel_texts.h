// SPDX-License-Identifier: GPL-3.0-or-later
// A panel as texts: what stands in the boxes of the parameters dialog, and what the texts are refused for. Nothing is shown
// here; the dialog, the command line and the studies say the same of the same texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"

namespace tarvokol {

struct ParameterTexts {
    std::string txtHeight;
    std::string txtDepthCover;
    std::string txtHoleWidth;
    std::string txtWebThickness;
    std::string txtBarrierPillarWidth;
    std::string txtNumberHoles;
    std::string txtCoalStrength;
    std::string txtUnitWeight;
    std::string txtAbutmentAngleActiveGob;
    std::string txtSFWeb;
    std::string txtSFBarrier;
};

// The texts as the boxes are filled from a panel; `txtNumberHoles` still stands as the plain number.
ParameterTexts TextsOfRecord(const PanelInputs& record);

// The first test that the texts fail.
struct FieldRefusal {
    PanelField field;
    std::string message;
};

// What the full test refuses, which stands before the texts become a project, and the short one, which stands before sizing.
std::optional<FieldRefusal> RefusalOfTexts(const ParameterTexts& texts);
std::optional<FieldRefusal> RefusalOfSizing(const ParameterTexts& texts);

// What a number of holes is refused for, empty for one that is taken; and what is said of a project of so many holes while
// its box is filled.
std::string HolesFault(const std::string& text);
std::vector<std::string> FaultsOfLoadedHoles(int16_t number_holes);

}  // namespace tarvokol
