// SPDX-License-Identifier: GPL-3.0-or-later
// The curve of a probability over the value that a design study has found, as a picture.
#pragma once

#include <string>

#include "core/studies/curves_picture.h"
#include "core/studies/design_study.h"

namespace tarvokol {

// The probability, with both ends of its 95 % interval where they are far enough apart to be seen; the demand is the target.
CurvesPicture DesignCurveOf(const DesignRequest& request, const FoundValue& found, const std::string& title);

}  // namespace tarvokol
