// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

class QPlainTextEdit;

namespace tarvokol {

// Prepares a text box for a report page: fixed pitch, for reading only, as wide as the report's longest line.
void MakePageBox(QPlainTextEdit& box);

// Pages `first` to `last` of `OutputBuffers`, with nothing between them.
std::string JoinPages(int first, int last);

// Puts a text on the clipboard in place of what stands there.
void CopyToClipboard(const std::string& text);

}  // namespace tarvokol
