// SPDX-License-Identifier: GPL-3.0-or-later
// The places of a map's axis: those that were asked for, and as many between them as its lines need.
#pragma once

#include <cstddef>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/studies/value_axis.h"

namespace tarvokol {

class MapPlaces {
  public:
    // The values of the axis in rising order, each once.
    explicit MapPlaces(const ValueAxis& axis);

    PanelField Field() const { return field_; }
    bool IsWhole() const { return IsWholeField(field_); }
    const std::vector<double>& Values() const { return values_; }
    std::size_t Count() const { return values_.size(); }

    // True of a value that was asked for.
    bool IsGiven(std::size_t i) const { return given_[i]; }

    // Divides the steps evenly, so that `intervals` or more lie across; those of a count at its whole numbers.
    void Divide(std::size_t intervals);

    // Adds a value between two others.
    void Insert(double value);

  private:
    PanelField field_;
    std::vector<double> values_;
    std::vector<bool> given_;
};

}  // namespace tarvokol
