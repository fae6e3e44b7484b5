// SPDX-License-Identifier: GPL-3.0-or-later
// What the cell of a workbook can hold, and how it is written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvokol {

inline constexpr std::size_t kMostCellCharacters = 32767;  // as UTF-16 counts them

// Why no cell holds the UTF-8 text, in words that follow the name of the cell; empty if one does. XML has no control
// characters but the tabulator and the line ends, and neither U+FFFE nor U+FFFF.
std::string CellFault(std::string_view text);

// Appends the text as a cell's XML holds it, so that it reads back to the byte.
void AppendCellText(std::string& xml, std::string_view text);

}  // namespace tarvokol
