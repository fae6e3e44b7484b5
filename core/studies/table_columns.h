// SPDX-License-Identifier: GPL-3.0-or-later
// What the columns of a table of panels mean.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/engine/panel_fields.h"

namespace tarvokol {

// A column sets a field, or is carried along where it names none; or it is refused in a few words.
struct ColumnMeaning {
    std::optional<PanelField> field;
    std::string refusal;
};

// The title names a field in any letter case, alone or as our outputs write it, with its unit: "DepthCover (ft)". Another unit is refused, and so is a title that is nearly a field's name or title, since the
// field would keep the project's value without a word: "CoalStrenght", "Depth of cover", "Depth".
ColumnMeaning MeaningOfColumn(std::string_view title, Units units);

}  // namespace tarvokol
