// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/failure.h"

#include <iostream>

#include "cli/line/options.h"
#include "cli/output/said_lines.h"

namespace tarvokol::cli {

JsonMembers FailureMembers(const std::string& file, const std::vector<std::string>& messages) {
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", false);
    object.Add("messages", messages);
    return object;
}

int TellFailureOf(const std::string& file, const std::string& why, bool json) {
    if (!json) {
        Say(why);
        return exit_status::Refused;
    }
    JsonMembers object = FailureMembers(file, {why});
    object.Add("schema", kSchemaVersion);
    std::cout << object.Line();
    return exit_status::Refused;
}

}  // namespace tarvokol::cli
