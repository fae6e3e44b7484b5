// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/curve_table.h"

#include <new>
#include <stdexcept>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

void CurveTable::Allocate(long rows, int columns) {
    if (rows < 1 || columns < 1) Raise(error_number::SubscriptOutOfRange);
    try {
        values_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), 0.0f);
    } catch (const std::bad_alloc&) {
        Raise(error_number::OutOfMemory);
    } catch (const std::length_error&) {
        Raise(error_number::OutOfMemory);
    }
    rows_ = rows;
    columns_ = columns;
}

std::size_t CurveTable::Offset(int column, long row) const {
    if (column < 0 || column >= columns_ || row < 1 || row > rows_) Raise(error_number::SubscriptOutOfRange);
    return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
}

}  // namespace tarvokol
