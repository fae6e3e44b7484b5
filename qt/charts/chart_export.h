// SPDX-License-Identifier: GPL-3.0-or-later
// The curve table as a picture file, drawn as the graph windows draw it.
#pragma once

#include <string>

#include "core/graphics/graph_setup.h"

namespace tarvokol {

// Draws the curve table, with titles and styles from the graph settings, to a .png, .svg or .pdf file; the
// path's extension chooses. `index` is the graph of the family. Another extension raises "Invalid procedure
// call or argument", a failed write the error of the file system.
void ExportChart(GraphFamily family, int index, const std::string& path);

}  // namespace tarvokol
