// SPDX-License-Identifier: GPL-3.0-or-later
// A sample's figures in the fields of a panel.
#pragma once

#include <cstddef>

#include "core/runtime/run_time_error.h"
#include "core/studies/panel_figures.h"

namespace tarvokol {

// Sets all fields; false where one cannot hold its figure. `figure_of(i)` is that of `fields[i].field`.
template <typename Fields, typename FigureOf>
bool SetDrawnFields(PanelEvaluator& panel, const Fields& fields, const FigureOf& figure_of) {
    try {
        for (std::size_t i = 0; i < fields.size(); ++i) panel.Set(fields[i].field, figure_of(i));
    } catch (const RunTimeError&) {
        return false;
    }
    return true;
}

}  // namespace tarvokol
