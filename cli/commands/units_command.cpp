// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <iostream>
#include <map>

#include "cli/commands/commands.h"
#include "cli/output/json.h"
#include "cli/output/said_lines.h"
#include "core/runtime/nearest_word.h"
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
    throw UsageError{"UNIT: \"" + unit + "\" is none of " + known +
                     DidYouMean(NearestWord(unit, UnitCaptions(quantity)))};
}

// The boxes of the quantity, a line each or as an object.
void Print(Quantity quantity, const std::vector<double>& values, bool json) {
    JsonMembers object;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string& caption = UnitBoxCaptions(quantity)[i];
        const std::string text = GeneralText(values[i]);
        object.Add(caption, text);
        if (!json) std::cout << caption << ": " << text << '\n';
    }
    if (json) std::cout << object.Line();
}

class Units : public Command {
  public:
    std::string Name() const override { return "units"; }
    std::string Summary() const override { return "The unit calculator"; }
    bool TakesNumbers() const override { return true; }
    std::string Footer() const override;

    void Describe(CommandOptions& options) override {
        AddSettings(options, options_, ResultOf::Command);
        options.Text({.spelling = "QUANTITY",
                      .help = "length, load, load-grad, stress or stress-grad",
                      .required = true,
                      .choices = {"length", "load", "load-grad", "stress", "stress-grad"}},
                     quantity_);
        options.Text({.spelling = "UNIT", .help = "The unit of VALUE: one of those below", .required = true},
                     unit_);
        options.Text({.spelling = "VALUE", .help = "What would be typed", .required = true}, value_);
    }

    int Run(HeadlessPlatform& /*host*/) override {
        const Quantity quantity = Quantities().at(quantity_);
        const int index = UnitIndex(quantity, unit_);
        const auto number = WholeNumber(value_);
        if (!number) throw UsageError{"VALUE: " + WhyNoNumber(value_)};
        try {
            Print(quantity, ConvertUnits(quantity, index, *number), options_.json);
            return exit_status::Done;
        } catch (const RunTimeError& error) {
            if (options_.json)
                std::cout << ErrorMember(error.number, error.text).Line();
            else
                SayOf(value_, error.text);
            return exit_status::Refused;
        }
    }

  private:
    std::string quantity_;
    std::string unit_;
    std::string value_;
};

std::string Units::Footer() const {
    std::string footer;
    for (const auto& [name, quantity] : Quantities()) {
        footer += (footer.empty() ? "Units of " : "\nUnits of ") + name + ":";
        const char* divider = " ";
        for (const std::string& caption : UnitBoxCaptions(quantity)) {
            footer += divider + caption;
            divider = ", ";
        }
    }
    return footer;
}

}  // namespace

std::unique_ptr<Command> UnitsCommand() {
    return std::make_unique<Units>();
}

}  // namespace tarvokol::cli
