// SPDX-License-Identifier: GPL-3.0-or-later
// What the results viewer tells the forms that it was opened from and that it opens.
#pragma once

#include <cstdint>

namespace tarvokol {

// 2 from the load of the results viewer until the parameters dialog is active again, else 1.
namespace results_return {
constexpr int16_t Normal = 1;
constexpr int16_t FromViewer = 2;
}  // namespace results_return
// Written by desktop/input/frmTARVOParm and desktop/output/frmResTxtPlt.
inline int16_t ResultsReturn = results_return::Normal;

}  // namespace tarvokol
