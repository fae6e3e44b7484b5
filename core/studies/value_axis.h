// SPDX-License-Identifier: GPL-3.0-or-later
// The values that a study gives to one field.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/engine/panel_fields.h"

namespace tarvokol {

// A field and its values, in the order in which they are taken: a counted range, or a list.
class ValueAxis {
  public:
    // Reads "FIRST:LAST:STEP", "FIRST:LAST/COUNT" or "V1,V2,V3". Steps are counted from FIRST; LAST is taken where it
    // is hit within half a millionth of a step. Raises StudyRefusal for anything else.
    static ValueAxis Parse(PanelField field, std::string_view values);

    // These values. Raises StudyRefusal for none, and for a number of holes that is not whole.
    static ValueAxis List(PanelField field, std::vector<double> values);

    PanelField Field() const { return field_; }
    std::uint64_t Count() const { return count_; }

    // Value number i, from 0, in the project's units. Of a range it is the decimal that first value, step and count say: 0.3
    // for number 2 of 0.1:1:0.1.
    double operator[](std::uint64_t i) const {
        if (!list_.empty()) return list_[i];
        if (decimal_.divisor != 0.0)
            return (decimal_.first + static_cast<double>(i) * decimal_.step) / decimal_.divisor;
        return first_ + static_cast<double>(i) * step_;
    }

  private:
    explicit ValueAxis(PanelField field) : field_(field) {}

    void ReadRange(std::string_view range);
    void ReadSteps(std::string_view first, std::string_view last, std::string_view step);
    void ReadCount(std::string_view first, std::string_view last, std::string_view count);
    void ReadList(std::string_view list);
    void CountInDecimals(std::string_view first, std::string_view step, std::string_view last);
    void RequireFitting() const;

    PanelField field_;
    double first_ = 0;
    double step_ = 0;
    std::uint64_t count_ = 0;
    std::vector<double> list_;

    // The same range in whole numbers, whose quotients are the doubles next to what the decimals say; a divisor of 0 where
    // they are too large for that.
    struct Decimals {
        double first = 0;
        double step = 0;
        double divisor = 0;
    };
    Decimals decimal_;
};

}  // namespace tarvokol
