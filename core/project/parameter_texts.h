// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the parameters dialog's boxes: how they are read back, and what the dialog shows beside them. The dialog and
// the command line share them.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/panel_texts.h"

namespace tarvokol {

// Reads the texts into a record by the numeric parse; spacing, angle, center distances and the spare single
// stay.
void StoreParameterTexts(const ParameterTexts& texts, PanelInputs& record);

// Reads the texts into `PreviewRecord`, with spacing and angle of `ProjectRecord` and the pitches derived.
void LoadPreviewFromTexts(const ParameterTexts& texts);

// The two fields under "Calculated data"; empty where a single cannot hold the value.
std::string PanelWidthText(const ParameterTexts& texts);
std::string ExtractionRatioText(const ParameterTexts& texts);

// What the change handler of the box "Number of holes" makes of a text.
struct HolesVerdict {
    bool single_one = false;   // a 1: the box is to show "10" with the 0 selected
    bool refused = false;      // outside 1 to 20: the last text is to be put back
    int16_t scroll_value = 0;  // value for the scroll bar, 0 to leave it
};
HolesVerdict VerdictOnHoles(const std::string& text);

// The same with the message of a text that is refused.
HolesVerdict JudgeHolesText(const std::string& text);

// The text that the box shows once the dialog has loaded a project of so many holes. FaultsOfLoadedHoles (panel_texts.h)
// tells what is said on the way.
std::string LoadedHolesText(int16_t number_holes);

// The text that the box shows once the dialog has loaded a project of so many holes; out-of-range numbers
// give their messages on the way.
std::string HolesTextAfterLoad(int16_t number_holes);

}  // namespace tarvokol
