// SPDX-License-Identifier: GPL-3.0-or-later
// The summary of a risk study as a JSON object.
#pragma once

#include <string>

#include "cli/commands/risk_extras.h"
#include "cli/output/json.h"
#include "core/studies/risk_study.h"

namespace tarvokol::cli {

// `file` is the path of the project as given.
JsonMembers RiskJson(const RiskRequest& request, const RiskResult& result, const std::string& file,
                     const RiskExtras& extras);

// The four members that tell a share: its value, the ends of its interval, and the kind of that.
void AddShare(JsonMembers& object, const Share& share);

}  // namespace tarvokol::cli
