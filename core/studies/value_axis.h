// SPDX-License-Identifier: GPL-3.0-or-later
// The values that a study gives to one field.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/studies/study_fields.h"

namespace tarvokol {

// A field and its values, in the order in which they are taken: a counted range, or a list.
class ValueAxis {
  public:
    // Reads "FIELD=FIRST:LAST:STEP", "FIELD=FIRST:LAST/COUNT" or "FIELD=V1,V2,V3". Steps are counted from
    // FIRST; LAST is taken where it is hit within half a millionth of a step. Raises StudyRefusal for
    // anything else.
    static ValueAxis Parse(std::string_view text);

    StudyField Field() const { return field_; }
    std::uint64_t Count() const { return count_; }

    // Value number i, from 0, in the project's units.
    double operator[](std::uint64_t i) const {
        return list_.empty() ? first_ + static_cast<double>(i) * step_ : list_[i];
    }

  private:
    void ReadRange(std::string_view range, const std::string& what);
    void ReadSteps(std::string_view first, std::string_view last, std::string_view step,
                   const std::string& what);
    void ReadCount(std::string_view first, std::string_view last, std::string_view count,
                   const std::string& what);
    void ReadList(std::string_view list, const std::string& what);
    void RequireWholeHoles() const;

    StudyField field_ = StudyField::Height;
    double first_ = 0;
    double step_ = 0;
    std::uint64_t count_ = 0;
    std::vector<double> list_;
};

}  // namespace tarvokol
