// SPDX-License-Identifier: GPL-3.0-or-later
// What a design study has found: for people, as a JSON object, and its curves as CSV.
#pragma once

#include <string>

#include "cli/output/json.h"
#include "core/studies/design_study.h"

namespace tarvokol::cli {

std::string DesignText(const DesignRequest& request, const DesignResult& result, const std::string& title);

// `file` is the path of the project as given.
JsonMembers DesignJson(const DesignRequest& request, const DesignResult& result, const std::string& file);

// One row for each place of each curve.
std::string DesignCsv(const DesignRequest& request, const DesignResult& result);

}  // namespace tarvokol::cli
