// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of studies: curves over one field, a map over two, the spread of the factors of a risk study. In
// the style of the graph windows; every difference shows in black and white, too.
#pragma once

#include <string>
#include <vector>

#include "core/studies/contour_lines.h"

namespace tarvokol {

// What stands on every picture.
struct PictureTitles {
    std::string title;
    std::string x;  // with its unit
    std::string y;
};

struct StudyCurve {
    std::string name;
    std::vector<double> y;  // one a place on x; NaN leaves a gap
};

// A value to be reached.
struct StudyTarget {
    std::string name;
    double value = 0;
};

struct CurvesPicture {
    PictureTitles titles;
    std::vector<double> x;
    std::vector<StudyCurve> curves;
    std::vector<StudyTarget> targets;  // level lines
};

// Lines of equal value with their values on them; the target's is bold, and below it the map is grey.
struct MapPicture {
    PictureTitles titles;
    std::string value_name;
    ValueGrid grid;
    StudyTarget target;
};

// One factor of a risk study: its histogram and the share of samples below each value.
struct SpreadPanel {
    std::string name;
    std::vector<double> sorted;  // the samples, rising
    std::vector<StudyTarget> targets;
};

struct SpreadPicture {
    std::string title;
    std::vector<SpreadPanel> panels;  // one below the other
};

// Draws the picture into a file of the kind that the path's extension names (.png, .svg, .pdf). Needs the
// application object. Raises the run-time errors of writing; "Invalid procedure call or argument" for another
// extension.
void WriteStudyPicture(const CurvesPicture& picture, const std::string& path);
void WriteStudyPicture(const MapPicture& picture, const std::string& path);
void WriteStudyPicture(const SpreadPicture& picture, const std::string& path);

}  // namespace tarvokol
