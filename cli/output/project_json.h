// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "cli/output/json.h"
#include "core/project/project_file.h"

namespace tarvokol::cli {

// A project, and the units of its figures in a unit system, 0 English or 1 Metric.
JsonMembers ProjectJson(const ProjectDocument& document);
JsonMembers ProjectUnitsJson(int16_t unit_system);

}  // namespace tarvokol::cli
