// SPDX-License-Identifier: GPL-3.0-or-later
// What a risk study tells beside the spread of its samples.
#pragma once

#include <optional>
#include <vector>

#include "core/studies/rare_events.h"
#include "core/studies/sobol_study.h"
#include "core/studies/tornado_study.h"

namespace tarvokol::cli {

struct RiskExtras {
    std::optional<SobolResult> sobol;      // where it was asked for
    std::optional<TornadoResult> tornado;  // where it was asked for
    std::vector<RareEvent> rare;           // targets that few samples lie below
};

}  // namespace tarvokol::cli
