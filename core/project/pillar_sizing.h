// SPDX-License-Identifier: GPL-3.0-or-later
// What the Size button does with the texts of its dialog.
#pragma once

#include <functional>
#include <string>

#include "core/engine/engine.h"
#include "core/engine/panel_texts.h"

namespace tarvokol {

// The raw results of the Size button, single precision, inches (-1 on failure), and the texts of its two
// fields.
struct SuggestedSizes {
    float SuggestedWeb = 0;
    float SuggestedBarrier = 0;
    std::string txtSugWeb;
    std::string txtSugBarrier;
};

// What stands beside the two fields in a metric project, whose labels elsewhere say metres; empty in an
// English one, whose suggestions are feet as everything else.
std::string SuggestedUnitNote(int unit_system);
std::string SuggestedUnitNote();

// What the button does once the short test has passed: fills the solver's block from the texts and sizes the
// web, then the barrier. `show_web` is called between the two with the web's text, since each value shows as
// soon as it is found, and `told` is given each outcome before that. A blank abutment angle raises "Type mismatch".
SuggestedSizes SuggestPillarSizes(Units units, const ParameterTexts& texts, SizingParameters& block,
                                  const std::function<void(const SizingOutcome&)>& told,
                                  const std::function<void(const std::string&)>& show_web = {});

// The same for the open project, on the program's block, with the message of a size that is not found.
SuggestedSizes SuggestPillarSizes(const ParameterTexts& texts,
                                  const std::function<void(const std::string&)>& show_web = {});

}  // namespace tarvokol
