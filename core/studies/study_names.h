// SPDX-License-Identifier: GPL-3.0-or-later
// The names by which a request asks for fields and figures, and the words for a value that a field does not take.
#pragma once

#include <string_view>

#include "core/engine/panel_fields.h"
#include "core/studies/study_figures.h"

namespace tarvokol {

// The field or the figure of a name in any letter case. An unknown one raises StudyRefusal, which lists the known ones.
PanelField RequiredField(std::string_view name);
const StudyFigure& RequiredFigure(std::string_view name);

// What is wrong with a value that a field cannot hold (see FitsField).
constexpr const char* FaultOfUnfit(PanelField field) {
    return IsWholeField(field) ? "the number of holes must be a whole number"
                               : "a value cannot be stored in this field";
}

}  // namespace tarvokol
