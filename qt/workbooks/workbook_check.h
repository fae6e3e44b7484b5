// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

namespace tarvokol {

// True if a workbook file can be read back to its end: every part unpacks, every XML part is well formed, and the sheets
// hold `cells` cells.
bool WorkbookIsWhole(const std::string& path, std::size_t cells);

}  // namespace tarvokol
