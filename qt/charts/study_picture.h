// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of studies as files.
#pragma once

#include <QImage>
#include <QSize>
#include <string>
#include <variant>

#include "core/studies/curves_picture.h"
#include "core/studies/fit_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/spread_picture.h"
#include "core/studies/tornado_study.h"

class QPainter;

namespace tarvokol {

// Draws the picture into a file of the kind that the path's extension names (.png, .svg, .pdf). Needs the
// application object. Raises the run-time errors of writing; "Invalid procedure call or argument" for another
// extension.
void WriteStudyPicture(const CurvesPicture& picture, const std::string& path);
void WriteStudyPicture(const MapPicture& picture, const std::string& path);
void WriteStudyPicture(const SpreadPicture& picture, const std::string& path);
void WriteStudyPicture(const FitPicture& picture, const std::string& path);
void WriteStudyPicture(const TornadoPicture& picture, const std::string& path);

// Whichever a window shows, or none. Of none nothing is written, and the image is null.
using AnyStudyPicture = std::variant<std::monostate, MapPicture, CurvesPicture, SpreadPicture>;
void WriteStudyPicture(const AnyStudyPicture& picture, const std::string& path);

// Pixels: how large the picture is drawn in a file; of none it is empty.
QSize SizeOfStudyPicture(const AnyStudyPicture& picture);

// Draws it at that size with a painter whose units are pixels. Raises "Device I/O error".
void PaintStudyPicture(const AnyStudyPicture& picture, QPainter& painter);

// The image that the .png file holds, for the clipboard.
QImage ImageOfStudyPicture(const AnyStudyPicture& picture);

}  // namespace tarvokol
