// SPDX-License-Identifier: GPL-3.0-or-later
// The description of the program's project, in its records.
#pragma once

#include <cstdint>

#include "core/project/description_text.h"

namespace tarvokol {

// The format level that every reading sets.
constexpr int16_t PresentFormatLevel = 50;

// WrappedDescription of `ProjectDescription`, in place, by way of the scratch file where there is one. Its errors
// are asked about, never raised; a description that could not pass through the file stays as it is.
void ReformatDescription();

// ReadDescriptionBlock of an open file to `ProjectDescription`. `formatFlag` 0 reads the five lines of an older
// format.
void ReadDescription(int fileNumber, int formatFlag);

}  // namespace tarvokol
