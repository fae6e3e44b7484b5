// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace tarvokol {

// What a file is that was given as a table and is none, with what to do: "a workbook, no table; save its sheet as CSV". It is known by its
// first bytes, up to the first line feed. Empty for what may be a table.
std::string WhyNoTable(std::string_view first_bytes);

}  // namespace tarvokol
