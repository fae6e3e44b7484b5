// SPDX-License-Identifier: GPL-3.0-or-later
// What a command says of a file that it cannot answer.
#pragma once

#include <string>
#include <vector>

#include "cli/output/json.h"

namespace tarvokol::cli {

// The members of its object but the last one, "schema".
JsonMembers FailureMembers(const std::string& file, const std::vector<std::string>& messages);

// A line on standard error, with `json` an object on standard output instead; the status of a refusal.
int TellFailureOf(const std::string& file, const std::string& why, bool json);

}  // namespace tarvokol::cli
