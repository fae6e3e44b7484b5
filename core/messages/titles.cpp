// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/titles.h"

namespace tarvokol {

void SetMessageTitles(int index) {
    const std::string& prefix = DialogPrefix[index];
    MessageTitle = "Message";
    RangeErrorTitle = prefix + "Range Error";
    RangeWarningTitle = prefix + "Range Warning";
    InvalidCharTitle = prefix + "Invalid Character";
    ErrorTitle = prefix + "Error";
    LogicErrorTitle = prefix + "Logic Error";
}

}  // namespace tarvokol
