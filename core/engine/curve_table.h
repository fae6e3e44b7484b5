// SPDX-License-Identifier: GPL-3.0-or-later
// The values of parametric curves.
#pragma once

#include <cstddef>
#include <vector>

namespace tarvokol {

// The curve table: column 0 holds x, column i the values of curve i; rows from 1.
class CurveTable {
  public:
    // Forgets all values; `rows` below 1 raises "Subscript out of range".
    void Allocate(long rows, int columns);

    // An index outside raises "Subscript out of range".
    float& operator()(int column, long row) { return values_[Offset(column, row)]; }
    const float& operator()(int column, long row) const { return values_[Offset(column, row)]; }

    long Rows() const { return rows_; }
    int Columns() const { return columns_; }

  private:
    std::size_t Offset(int column, long row) const;

    long rows_ = 0;
    int columns_ = 0;
    std::vector<float> values_;
};

}  // namespace tarvokol
