// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <iostream>
#include <map>

#include "cli/commands/commands.h"
#include "cli/output/json.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/unit_calculator.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

const std::map<std::string, Quantity>& Quantities() {
    static const std::map<std::string, Quantity> names{{"length", Quantity::Length},
                                                       {"load", Quantity::Load},
                                                       {"load-grad", Quantity::LoadGrad},
                                                       {"stress", Quantity::Stress},
                                                       {"stress-grad", Quantity::StressGrad}};
    return names;
}

// Index of the unit by its option caption or by the caption of its box.
int UnitIndex(Quantity quantity, const std::string& unit) {
    for (const auto* captions : {&UnitCaptions(quantity), &UnitBoxCaptions(quantity)}) {
        const auto found = std::find(captions->begin(), captions->end(), unit);
        if (found != captions->end()) return static_cast<int>(found - captions->begin());
    }
    std::string known;
    for (const std::string& caption : UnitCaptions(quantity)) known += (known.empty() ? "" : ", ") + caption;
    throw UsageError{"UNIT: " + unit + " is none of " + known};
}

}  // namespace

int RunUnits(bool json, const std::string& quantity_name, const std::string& unit, const std::string& value) {
    const Quantity quantity = Quantities().at(quantity_name);
    const int index = UnitIndex(quantity, unit);
    const auto number = WholeNumber(value);
    if (!number) throw UsageError{"VALUE: " + WhyNoNumber(value)};
    try {
        const std::vector<double> values = ConvertUnits(quantity, index, *number);
        Json object;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string& caption = UnitBoxCaptions(quantity)[i];
            const std::string text = GeneralText(values[i]);
            object[caption] = text;
            if (!json) std::cout << caption << ": " << text << '\n';
        }
        if (json) std::cout << JsonLine(object);
        return exit_status::Done;
    } catch (const RunTimeError& error) {
        if (json)
            std::cout << JsonLine(Json{{"error", {{"number", error.number}, {"text", error.text}}}});
        else
            std::cerr << value << ": " << error.text << '\n';
        return exit_status::Refused;
    }
}

}  // namespace tarvokol::cli
