// SPDX-License-Identifier: GPL-3.0-or-later
// Fixed arrays whose elements carry the numbers of what they stand for: pillars and cases from 1, pages and rows
// of tables from 0.
#pragma once

#include <array>
#include <cstddef>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

// Elements FirstIndex to LastIndex of T. An index outside raises "Subscript out of range".
template <typename T, std::size_t FirstIndex, std::size_t LastIndex>
class IndexedArray {
  public:
    T& operator[](long index) { return elements_[Offset(index)]; }
    const T& operator[](long index) const { return elements_[Offset(index)]; }

    static constexpr long First() { return static_cast<long>(FirstIndex); }
    static constexpr long Last() { return static_cast<long>(LastIndex); }

    void Fill(const T& value) { elements_.fill(value); }

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

    bool operator==(const IndexedArray&) const = default;

  private:
    static std::size_t Offset(long index) {
        if (index < First() || index > Last()) Raise(error_number::SubscriptOutOfRange);
        return static_cast<std::size_t>(index - First());
    }

    std::array<T, LastIndex - FirstIndex + 1> elements_{};
};

// Elements 1 to N.
template <typename T, std::size_t N>
using OneBased = IndexedArray<T, 1, N>;

// Elements 0 to N, that is, N + 1 of them.
template <typename T, std::size_t N>
using ZeroBased = IndexedArray<T, 0, N>;

}  // namespace tarvokol
