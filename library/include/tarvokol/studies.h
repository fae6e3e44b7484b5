// SPDX-License-Identifier: GPL-3.0-or-later
// Many panels at a time: every combination of values, a table's rows, and figures that are known within bounds.
#pragma once

#include "core/statistics/study_refusal.h"  // IWYU pragma: export
#include "core/studies/risk_parts.h"        // IWYU pragma: export
#include "core/studies/risk_study.h"        // IWYU pragma: export
#include "core/studies/sweep_study.h"       // IWYU pragma: export
#include "core/studies/table_study.h"       // IWYU pragma: export
