// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of studies as plots of the chart library, in all that does not depend on the format of the file.
#pragma once

#include "core/studies/study_pictures.h"

class QCustomPlot;

namespace tarvokol {

// Fills a new plot and lays it out; its size is kPictureSize when it is drawn.
void ComposeStudyPlot(QCustomPlot& plot, const CurvesPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const MapPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const SpreadPicture& picture);

}  // namespace tarvokol
