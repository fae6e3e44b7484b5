// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// The liability text of the disclaimer window; `support_address` is the e-mail box for questions.
std::string DisclaimerText(const std::string& support_address);

}  // namespace tarvokol
