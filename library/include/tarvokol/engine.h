// SPDX-License-Identifier: GPL-3.0-or-later
// The whole calculation: panels in, factors, loads, sizes and curves out.
#pragma once

#include "core/engine/engine.h"        // IWYU pragma: export
#include "core/engine/panel_fields.h"  // IWYU pragma: export
