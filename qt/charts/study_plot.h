// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of studies as plots of the chart library, in all that does not depend on the format of the file. In the style
// of the graph windows; every difference shows in black and white, too. Nothing is drawn beyond the edge of the plot and
// cut off there: a format that cuts nothing shows the same.
#pragma once

#include <QSize>

#include "core/studies/curves_picture.h"
#include "core/studies/fit_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/spread_picture.h"
#include "core/studies/tornado_study.h"

class QCustomPlot;

namespace tarvokol {

// Fills a new plot; it keeps what it needs of the picture.
void ComposeStudyPlot(QCustomPlot& plot, const CurvesPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const MapPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const SpreadPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const FitPicture& picture);
void ComposeStudyPlot(QCustomPlot& plot, const TornadoPicture& picture);

// Pixels: how large the picture is drawn in a file.
QSize StudyPictureSize(const CurvesPicture& picture);
QSize StudyPictureSize(const MapPicture& picture);
QSize StudyPictureSize(const SpreadPicture& picture);
QSize StudyPictureSize(const FitPicture& picture);
QSize StudyPictureSize(const TornadoPicture& picture);

}  // namespace tarvokol
