// Fixed arrays whose elements are numbered from 1, as the trade numbers its pillars.
#pragma once

#include <array>
#include <cstddef>

#include "runtime/run_time_error.h"

namespace tarvokol {

// Elements 1 to N of T. An index outside raises "Subscript out of range".
template <typename T, std::size_t N>
class OneBased {
  public:
    T& operator[](long index) { return elements_[Offset(index)]; }
    const T& operator[](long index) const { return elements_[Offset(index)]; }

    static constexpr long First() { return 1; }
    static constexpr long Last() { return static_cast<long>(N); }

    void Fill(const T& value) { elements_.fill(value); }

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

    bool operator==(const OneBased&) const = default;

  private:
    static std::size_t Offset(long index) {
        if (index < 1 || index > Last()) Raise(error_number::SubscriptOutOfRange);
        return static_cast<std::size_t>(index - 1);
    }

    std::array<T, N> elements_{};
};

// Elements 0 to N of T, for the tables whose first row is numbered 0.
template <typename T, std::size_t N>
class ZeroBased {
  public:
    T& operator[](long index) { return elements_[Offset(index)]; }
    const T& operator[](long index) const { return elements_[Offset(index)]; }

    static constexpr long First() { return 0; }
    static constexpr long Last() { return static_cast<long>(N); }

    void Fill(const T& value) { elements_.fill(value); }

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

  private:
    static std::size_t Offset(long index) {
        if (index < 0 || index > Last()) Raise(error_number::SubscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }

    std::array<T, N + 1> elements_{};
};

}  // namespace tarvokol
