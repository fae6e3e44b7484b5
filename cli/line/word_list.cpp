// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/word_list.h"

namespace tarvokol::cli {

std::string Listed(const std::vector<std::string>& words, const char* divider) {
    std::string listed;
    for (const std::string& word : words) listed += (listed.empty() ? "" : divider) + word;
    return listed;
}

}  // namespace tarvokol::cli
