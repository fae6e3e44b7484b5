// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/field_range.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr double kLargestAngle = 90.0;
constexpr double kMostSteps = 500.0;

// A common panel, in the order of the fields: where a new project starts to look.
constexpr std::array<double, kPanelFields.size()> kEnglish{10, 300, 10, 10, 40, 10, 900, 162, 21, 1.6, 2};
constexpr std::array<double, kPanelFields.size()> kMetric{3, 90, 3, 3, 12, 10, 6, 25, 21, 1.6, 2};

FieldRange RangeOfHoles(double value) {
    const double low = std::clamp(std::floor(value / 2), 1.0, MaxHoles - 1.0);
    return {low, std::clamp(std::ceil(value * 1.5), low + 1, static_cast<double>(MaxHoles))};
}

}  // namespace

FieldRange ProposedRange(PanelField field, double value, Units units) {
    if (!(value > 0.0))
        value = (units == Units::English ? kEnglish : kMetric)[static_cast<std::size_t>(field)];
    if (IsWholeField(field)) return RangeOfHoles(value);
    // The digits of a single, and not those that it has as a double.
    if (std::holds_alternative<float PanelInputs::*>(FactsOf(field).place))
        value = NumericParse(GeneralText(static_cast<float>(value)));
    FieldRange range{ThroughText(value / 2), ThroughText(std::min(value * 1.5, 1e300))};
    if (field == PanelField::AbutmentAngle && value < kLargestAngle)
        range.high = std::min(range.high, kLargestAngle);
    return range;
}

FieldScale::FieldScale(PanelField field, const FieldRange& range) {
    if (!IsWholeField(field)) {
        const double finest = (range.high - range.low) / kMostSteps;
        const int power = static_cast<int>(std::floor(std::log10(finest)));
        (power < 0 ? divisor_ : factor_) = std::pow(10.0, std::abs(power));
        for (const double mantissa : {1.0, 2.0, 5.0, 10.0}) {
            mantissa_ = mantissa;
            if (mantissa * factor_ / divisor_ >= finest) break;
        }
    }
    const double step = mantissa_ * factor_ / divisor_;
    // An end that is itself a round value counts, whatever the division has left in its last digits.
    constexpr double kNear = 1e-6;
    constexpr double kMostNumber = 1e15;
    first_ = static_cast<long>(std::clamp(std::ceil(range.low / step - kNear), -kMostNumber, kMostNumber));
    last_ = static_cast<long>(std::clamp(std::floor(range.high / step + kNear), -kMostNumber, kMostNumber));
    last_ = std::max(first_, last_);
}

double FieldScale::Value(long i) const {
    return static_cast<double>(i) * mantissa_ * factor_ / divisor_;
}

long FieldScale::Nearest(double value) const {
    const double step = mantissa_ * factor_ / divisor_;
    const double number = std::round(value / step);
    if (!(number > static_cast<double>(first_))) return first_;
    if (number >= static_cast<double>(last_)) return last_;
    return static_cast<long>(number);
}

}  // namespace tarvokol
