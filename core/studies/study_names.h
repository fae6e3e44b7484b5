// SPDX-License-Identifier: GPL-3.0-or-later
// The names by which a request asks for fields and figures.
#pragma once

#include <string_view>

#include "core/engine/panel_fields.h"
#include "core/studies/study_figures.h"

namespace tarvokol {

// The field or the figure of a name in any letter case. An unknown one raises StudyRefusal, which lists the known ones.
PanelField RequiredField(std::string_view name);
const StudyFigure& RequiredFigure(std::string_view name);

}  // namespace tarvokol
