// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/range_fault.h"

#include "core/runtime/numbers.h"
#include "core/runtime/text.h"

namespace tarvokol {

std::string OutsideRangeMessage(const std::string& text, const std::string& low, const std::string& high) {
    return "Value '" + Trim(text) + "' is outside input range" + std::string(CrLf) +
           "Valid range is: " + low + "-" + high;
}

std::string RangeFault(const std::string& text, double low, double high) {
    if (IsBlank(text)) return "Blank field not allowed";
    const double value = UnboundedParse(text);
    if (value >= low && value <= high) return "";
    return OutsideRangeMessage(text, GeneralText(low), GeneralText(high));
}

}  // namespace tarvokol
