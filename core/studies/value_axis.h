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

    // Value number i, from 0, in the project's units.
    double operator[](std::uint64_t i) const {
        return list_.empty() ? first_ + static_cast<double>(i) * step_ : list_[i];
    }

  private:
    explicit ValueAxis(PanelField field) : field_(field) {}

    void ReadRange(std::string_view range);
    void ReadSteps(std::string_view first, std::string_view last, std::string_view step);
    void ReadCount(std::string_view first, std::string_view last, std::string_view count);
    void ReadList(std::string_view list);
    void RequireWholeHoles() const;

    PanelField field_;
    double first_ = 0;
    double step_ = 0;
    std::uint64_t count_ = 0;
    std::vector<double> list_;
};

}  // namespace tarvokol
