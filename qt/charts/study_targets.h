// SPDX-License-Identifier: GPL-3.0-or-later
// The targets of a factor on the plots of a risk study.
#pragma once

#include <vector>

#include <qcustomplot.h>

#include "core/studies/spread_picture.h"

namespace tarvokol {

// Dashed lines across a box whose axis at the bottom is the factor, with their names above the frame; makes room for them.
void AddStudyTargets(QCustomPlot& plot, QCPAxisRect& box, std::vector<SpreadTarget> targets);

}  // namespace tarvokol
