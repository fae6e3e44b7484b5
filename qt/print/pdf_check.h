// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// True if a PDF file was written to its last byte: its end mark stands at the end, and its table of objects leads to
// each of them. Bytes that got lost on the way would move what lies behind them.
bool PdfIsWhole(const std::string& path);

}  // namespace tarvokol
