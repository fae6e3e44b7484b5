// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/value_axis.h"

#include <cmath>
#include <utility>

#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

// Of a step: how near LAST must be to be taken.
constexpr double kNearEnough = 0.5e-6;

constexpr double kMostValues = 9.0e15;  // whole numbers are exact up to here

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
        axis.RequireWholeHoles();
        return axis;
    });
}

ValueAxis ValueAxis::List(PanelField field, std::vector<double> values) {
    return About(NameOfField(field), [&] {
        if (values.empty()) throw StudyRefusal("no values");
        ValueAxis axis(field);
        axis.list_ = std::move(values);
        axis.count_ = axis.list_.size();
        axis.RequireWholeHoles();
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
    if (steps < -kNearEnough)
        throw StudyRefusal(std::string(first) + " to " + std::string(last) + " by steps of " +
                           std::string(step) + " never arrives; turn the range or the sign of the step");
    if (!(steps < kMostValues)) throw StudyRefusal("too many steps; give a larger step");
    count_ = static_cast<std::uint64_t>(std::floor(steps + kNearEnough)) + 1;
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

// A panel has no half holes. The first values tell: a range of whole numbers starts whole and steps whole.
void ValueAxis::RequireWholeHoles() const {
    if (!IsWholeField(field_)) return;
    const auto whole = [this](double value) { return FitsField(field_, value); };
    bool all =
        list_.empty() ? whole(first_) && (count_ == 1 || whole(step_)) && whole((*this)[count_ - 1]) : true;
    for (const double value : list_) all = all && whole(value);
    if (!all) throw StudyRefusal("the number of holes must be a whole number");
}

}  // namespace tarvokol
