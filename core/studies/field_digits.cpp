// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/field_digits.h"

#include <variant>

#include "core/statistics/study_numbers.h"

namespace tarvokol {

std::string DigitsOfField(const PanelInputs& panel, PanelField field) {
    if (std::holds_alternative<float PanelInputs::*>(FactsOf(field).place)) return TextOfField(panel, field);
    std::string digits;
    AppendShortest(digits, ValueOfField(panel, field));
    return digits;
}

}  // namespace tarvokol
