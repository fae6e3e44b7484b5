// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/value_axis.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/study_names.h"

namespace tarvokol {
namespace {

// Of a step: how near LAST must be to be taken.
constexpr double kWholeStep = 0.5e-6;

constexpr double kMostValues = 9.0e15;  // whole numbers are exact up to here

// A decimal: `digits` x 10 ^ -`places`.
struct Decimal {
    double digits = 0;
    int places = 0;
};

double PowerOfTen(int power) {
    double value = 1.0;
    for (; power > 0; --power) value *= 10.0;
    return value;
}

// Of a text that is a number. Nothing where its digits are more than a double has, or its exponent is far from 0.
std::optional<Decimal> DecimalOf(std::string_view text) {
    constexpr double kMostDigits = 1e15;
    constexpr int kFarExponent = 30;
    Decimal decimal;
    bool after_point = false;
    std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    for (; at < text.size() && text[at] != 'e' && text[at] != 'E'; ++at) {
        if (text[at] == '.') {
            after_point = true;
            continue;
        }
        decimal.digits = decimal.digits * 10.0 + (text[at] - '0');
        decimal.places += after_point ? 1 : 0;
        if (decimal.digits > kMostDigits) return std::nullopt;
    }
    if (at < text.size()) {
        const double exponent = RequiredNumber(text.substr(at + 1));
        if (std::fabs(exponent) > kFarExponent) return std::nullopt;
        decimal.places -= static_cast<int>(exponent);
    }
    if (decimal.places < -kFarExponent) return std::nullopt;
    if (text.starts_with('-')) decimal.digits = -decimal.digits;
    return decimal;
}

constexpr const char* kForms = "write FIRST:LAST:STEP, FIRST:LAST/COUNT or V1,V2,V3";

}  // namespace

ValueAxis ValueAxis::Parse(PanelField field, std::string_view values) {
    return About(NameOfField(field), [&] {
        if (values.empty()) throw StudyRefusal(std::string("no values; ") + kForms);
        ValueAxis axis(field);
        if (values.find(':') == std::string_view::npos)
            axis.ReadList(values);
        else
            axis.ReadRange(values);
        axis.RequireFitting();
        return axis;
    });
}

ValueAxis ValueAxis::List(PanelField field, std::vector<double> values) {
    return About(NameOfField(field), [&] {
        if (values.empty()) throw StudyRefusal("no values");
        ValueAxis axis(field);
        axis.list_ = std::move(values);
        axis.count_ = axis.list_.size();
        axis.RequireFitting();
        return axis;
    });
}

void ValueAxis::ReadRange(std::string_view range) {
    const std::size_t colon = range.find(':');
    const std::string_view first = range.substr(0, colon);
    const std::string_view rest = range.substr(colon + 1);
    const std::size_t mark = rest.find_first_of(":/");
    if (mark == std::string_view::npos)
        throw StudyRefusal('"' + std::string(range) + "\" has no step; " + kForms);
    if (rest[mark] == ':')
        ReadSteps(first, rest.substr(0, mark), rest.substr(mark + 1));
    else
        ReadCount(first, rest.substr(0, mark), rest.substr(mark + 1));
}

void ValueAxis::ReadSteps(std::string_view first, std::string_view last, std::string_view step) {
    first_ = RequiredNumber(first);
    step_ = RequiredNumber(step);
    const double end = RequiredNumber(last);
    if (step_ == 0.0) throw StudyRefusal("a step of 0 never arrives; give one other than 0");
    const double steps = (end - first_) / step_;
    if (steps < -kWholeStep)
        throw StudyRefusal(std::string(first) + " to " + std::string(last) + " by steps of " +
                           std::string(step) + " never arrives; turn the range or the sign of the step");
    if (!(steps < kMostValues)) throw StudyRefusal("too many steps; give a larger step");
    count_ = static_cast<std::uint64_t>(std::floor(steps + kWholeStep)) + 1;
    CountInDecimals(first, step, "");
}

void ValueAxis::ReadCount(std::string_view first, std::string_view last, std::string_view count) {
    first_ = RequiredNumber(first);
    const double end = RequiredNumber(last);
    const double values = RequiredNumber(count);
    if (!(values >= 1.0) || values != std::floor(values) || values > kMostValues)
        throw StudyRefusal('"' + std::string(count) + "\" is not a count of 1 or more");
    count_ = static_cast<std::uint64_t>(values);
    step_ = count_ > 1 ? (end - first_) / (values - 1.0) : 0.0;
    if (!std::isfinite(step_)) throw StudyRefusal("the range is too wide");
    if (count_ > 1) CountInDecimals(first, "", last);
}

void ValueAxis::ReadList(std::string_view list) {
    for (std::string_view rest = list;;) {
        const std::size_t comma = rest.find(',');
        list_.push_back(RequiredNumber(rest.substr(0, comma)));
        if (comma == std::string_view::npos) break;
        rest.remove_prefix(comma + 1);
    }
    count_ = list_.size();
}

// Whole numbers below 2^53 are exact, and so are their sums: one division at the end rounds, once. Either the step is given
// or the last value, which then stands `count_` - 1 steps from the first.
void ValueAxis::CountInDecimals(std::string_view first, std::string_view step, std::string_view last) {
    constexpr double kExact = 0x1p53;
    constexpr int kExactPower = 22;  // of 10, as a double
    const auto a = DecimalOf(first);
    const auto b = DecimalOf(step.empty() ? last : step);
    if (!a || !b) return;
    const int places = std::max({a->places, b->places, 0});
    if (places > kExactPower) return;
    const double steps = static_cast<double>(count_ - 1);
    const double parts = step.empty() ? steps : 1.0;
    const double start = a->digits * PowerOfTen(places - a->places);
    const double other = b->digits * PowerOfTen(places - b->places);
    const Decimals made{start * parts, step.empty() ? other - start : other, PowerOfTen(places) * parts};
    const double farthest = std::fabs(made.first) + steps * std::fabs(made.step);
    if (farthest < kExact && made.divisor < kExact && std::fabs(start) + std::fabs(other) < kExact)
        decimal_ = made;
}

// A panel has no half holes, and no factor beyond a single. The ends tell of a range: one of whole numbers starts whole and
// steps whole.
void ValueAxis::RequireFitting() const {
    const auto fits = [this](double value) { return FitsField(field_, value); };
    bool all = true;
    if (list_.empty())
        all = fits((*this)[0]) && fits((*this)[count_ - 1]) &&
              (count_ == 1 || !IsWholeField(field_) || fits(step_));
    for (const double value : list_) all = all && fits(value);
    if (all) return;
    throw StudyRefusal(FaultOfUnfit(field_));
}

}  // namespace tarvokol
