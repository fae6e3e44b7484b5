// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of few colours in a PDF.
#pragma once

#include "pdf_file.h"

namespace tarvokol {

// Pictures that QPdfWriter has written as three bytes per dot become palettes and one byte per dot, exactly, where they have
// at most 256 colours. Others stay as they are.
void GivePalettes(PdfFile& file);

}  // namespace tarvokol
