// SPDX-License-Identifier: GPL-3.0-or-later
// The range over which a field is moved by its slider and drawn on a map, and the round values in it.
#pragma once

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

// From half to one and a half times the value; of a field that has none yet, of a common panel's. A number of holes stays
// within 1 to 20, an abutment angle below 90 degrees.
FieldRange ProposedRange(PanelField field, double value, Units units);

// Round values, 200 to 500 of them over a range; those of a count are its whole numbers.
class FieldScale {
  public:
    FieldScale(PanelField field, const FieldRange& range);

    // The numbers of the first and the last value within the range.
    long First() const { return first_; }
    long Last() const { return last_; }

    // Value number i, the double next to its decimal.
    double Value(long i) const;

    // The number of the value that is next to this one, within the range.
    long Nearest(double value) const;

  private:
    double mantissa_ = 1;  // the step is mantissa_ / divisor_ x factor_
    double divisor_ = 1;
    double factor_ = 1;
    long first_ = 0;
    long last_ = 1;
};

}  // namespace tarvokol
