// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol::cli {

// Prints a text through the print engine into a PDF file: header and page number on every page. Raises the
// errors of the printer and of the file.
void PrintTextToPdf(const std::string& path, const std::string& text);

}  // namespace tarvokol::cli
