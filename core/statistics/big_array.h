// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for millions of numbers.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include <sys/mman.h>

namespace tarvokol {

// A fixed number of numbers whose values are not set at first: whoever makes it writes all of them. A large one lies
// in large pages where the system has them, so that using it first does not take longer than filling it.
template <typename Number>
class BigArray {
    static_assert(std::is_arithmetic_v<Number>);

  public:
    using value_type = Number;
    using iterator = Number*;
    using const_iterator = const Number*;

    BigArray() = default;

    // Raises std::bad_alloc.
    explicit BigArray(std::size_t size) : numbers_(Allocate(size)), size_(size) {}
    BigArray(BigArray&& other) noexcept
        : numbers_(std::move(other.numbers_)), size_(std::exchange(other.size_, 0)) {}
    BigArray& operator=(BigArray&& other) noexcept {
        numbers_ = std::move(other.numbers_);
        size_ = std::exchange(other.size_, 0);
        return *this;
    }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Number* data() { return numbers_.get(); }
    const Number* data() const { return numbers_.get(); }
    Number* begin() { return data(); }
    Number* end() { return data() + size_; }
    const Number* begin() const { return data(); }
    const Number* end() const { return data() + size_; }
    Number& operator[](std::size_t i) { return numbers_[i]; }
    const Number& operator[](std::size_t i) const { return numbers_[i]; }

    // Other numbers of the same size, made one by one of these, in their memory.
    template <typename Other, typename Convert>
    BigArray<Other> As(Convert convert) && {
        static_assert(sizeof(Other) == sizeof(Number));
        for (std::size_t i = 0; i < size_; ++i) {
            const Other other = convert(numbers_[i]);
            std::memcpy(&numbers_[i], &other, sizeof other);
        }
        BigArray<Other> others;
        others.size_ = std::exchange(size_, 0);
        others.numbers_.reset(reinterpret_cast<Other*>(numbers_.release()));
        return others;
    }

  private:
    template <typename Other>
    friend class BigArray;

    static constexpr std::size_t kLargePage = std::size_t{2} << 20;

    struct Release {
        void operator()(Number* numbers) const { std::free(numbers); }
    };
    using Memory = std::unique_ptr<Number[], Release>;

    static Memory Allocate(std::size_t size) {
        if (size > (SIZE_MAX - kLargePage) / sizeof(Number)) throw std::bad_alloc();
        const std::size_t bytes = (size * sizeof(Number) + kLargePage - 1) / kLargePage * kLargePage;
        const bool large = bytes > kLargePage;
        void* memory = large ? std::aligned_alloc(kLargePage, bytes) : std::malloc(size * sizeof(Number));
        if (memory == nullptr && size > 0) throw std::bad_alloc();
        // A wish: a system that does not grant it gives ordinary pages.
        if (large) ::madvise(memory, bytes, MADV_HUGEPAGE);
        return Memory(static_cast<Number*>(memory));
    }

    Memory numbers_;
    std::size_t size_ = 0;
};

}  // namespace tarvokol
