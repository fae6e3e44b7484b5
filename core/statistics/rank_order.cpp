// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/rank_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

#include "core/runtime/no_number.h"
#include "core/statistics/sort_key.h"

namespace tarvokol {
namespace {

using Word = std::uint64_t;

constexpr int kWordBits = 64;

void Check(const CheckPoint& check) {
    if (check) check();
}

// Sorts words in place that differ in bits `low` to `top` - 1 alone, leaving the order of those that do not differ there
// open: by eight bits in place while they are many, then through a small second array.
class WordSort {
  public:
    WordSort(int low, const CheckPoint& check) : low_(low), check_(check) {}

    void Sort(std::span<Word> words, int top) {
        if (top <= low_ || words.size() < 2) return;
        if (words.size() <= kFew) {
            Check(check_);
            return SortFew(words, top);
        }
        const int shift = std::max(top - kByte, low_);
        Deal(words, shift, (Word{1} << (top - shift)) - 1);
        const auto ends = ends_of_;
        std::size_t first = 0;
        for (const std::size_t end : ends) {
            Sort(words.subspan(first, end - first), shift);
            first = end;
        }
    }

  private:
    static constexpr int kByte = 8;
    static constexpr std::size_t kDigits = std::size_t{1} << kByte;
    static constexpr std::size_t kFew = 1 << 17;
    static constexpr int kSmallBits = 11;
    static constexpr int kSpareBits = 4;
    static constexpr std::size_t kVeryFew = 48;
    static constexpr std::size_t kAhead = 24;  // words: three lines of the cache

    // Brings each word into its digit's part of the array; `ends_of_` are the ends of the parts.
    void Deal(std::span<Word> words, int shift, Word mask) {
        std::array<std::size_t, kDigits> next{};
        for (const Word word : words) ++next[(word >> shift) & mask];
        std::size_t sum = 0;
        for (std::size_t digit = 0; digit < kDigits; ++digit) {
            sum += std::exchange(next[digit], sum);
            ends_of_[digit] = sum;
        }
        for (std::size_t digit = 0; digit < kDigits; ++digit)
            while (next[digit] < ends_of_[digit]) {
                Word word = words[next[digit]];
                for (std::size_t of = (word >> shift) & mask; of != digit; of = (word >> shift) & mask) {
                    // Each part is a stream of its own, more than the processor foresees by itself.
                    __builtin_prefetch(words.data() + next[of] + kAhead, 1);
                    std::swap(word, words[next[of]++]);
                }
                words[next[digit]++] = word;
            }
    }

    // Two passes of a radix sort by about as many leading bits as tell the words apart; what they leave lies in short runs.
    void SortFew(std::span<Word> words, int top) {
        if (words.size() <= kVeryFew) return SortVeryFew(words);
        const int digit =
            std::min((static_cast<int>(std::bit_width(words.size())) + kSpareBits) / 2, kSmallBits);
        const int shift = std::max(top - 2 * digit, low_);
        if (moved_.size() < words.size()) moved_.resize(words.size());
        const std::span<Word> moved = std::span(moved_).first(words.size());
        PassBy(words, moved, shift, digit);
        PassBy(moved, words, shift + digit, digit);
        if (shift == low_) return;
        for (std::size_t first = 0; first < words.size();) {
            const Word lead = words[first] >> shift;
            std::size_t end = first + 1;
            while (end < words.size() && words[end] >> shift == lead) ++end;
            if (end - first > 1) SortVeryFew(words.subspan(first, end - first));
            first = end;
        }
    }

    static void SortVeryFew(std::span<Word> words) {
        constexpr std::size_t kInsertions = 16;
        if (words.size() > kInsertions) return std::sort(words.begin(), words.end());
        for (std::size_t i = 1; i < words.size(); ++i) {
            const Word word = words[i];
            std::size_t place = i;
            for (; place > 0 && words[place - 1] > word; --place) words[place] = words[place - 1];
            words[place] = word;
        }
    }

    void PassBy(std::span<const Word> from, std::span<Word> to, int shift, int digit) {
        const Word mask = (Word{1} << digit) - 1;
        std::fill_n(places_.begin(), mask + 1, 0U);
        for (const Word word : from) ++places_[(word >> shift) & mask];
        std::uint32_t sum = 0;
        for (std::size_t i = 0; i <= mask; ++i) sum += std::exchange(places_[i], sum);
        for (const Word word : from) to[places_[(word >> shift) & mask]++] = word;
    }

    int low_;
    const CheckPoint& check_;
    std::array<std::size_t, kDigits> ends_of_{};
    std::array<std::uint32_t, std::size_t{1} << kSmallBits> places_{};
    std::vector<Word> moved_;
};

// The keys of the lowest and the highest value. Several are looked for side by side: each comparison waits for the one
// before it. A comparison with a NaN is false and leaves what stands.
struct Extent {
    Word lowest = 0;
    Word highest = 0;
    std::size_t count = 0;  // of values that are no NaN
};
Extent ExtentOf(std::span<const double> values) {
    constexpr std::size_t kSide = 8;
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    std::array<double, kSide> lowest{};
    std::array<double, kSide> highest{};
    std::array<std::size_t, kSide> counts{};
    lowest.fill(kInfinity);
    highest.fill(-kInfinity);
    const auto take = [&](std::size_t side, double value) {
        lowest[side] = value < lowest[side] ? value : lowest[side];
        highest[side] = value > highest[side] ? value : highest[side];
        counts[side] += std::isnan(value) ? 0 : 1;
    };
    std::size_t i = 0;
    for (; i + kSide <= values.size(); i += kSide)
        for (std::size_t side = 0; side < kSide; ++side) take(side, values[i + side]);
    for (; i < values.size(); ++i) take(0, values[i]);
    Extent extent;
    for (const std::size_t count : counts) extent.count += count;
    if (extent.count == 0) return extent;
    extent.lowest = SortKey(*std::min_element(lowest.begin(), lowest.end()));
    extent.highest = SortKey(*std::max_element(highest.begin(), highest.end()));
    return extent;
}

// Of the deviations of two lists, block by block and in four sums side by side: each addition waits for the one before it.
double SumOfProducts(const SampleRanks& x, const SampleRanks& y) {
    constexpr std::size_t kBlock = 4096;
    constexpr std::size_t kSide = 4;
    const auto product = [&](std::size_t i) {
        return x.ranks[i] == 0 ? 0.0 : (x.ranks[i] - x.mean) * (y.ranks[i] - y.mean);
    };
    const std::size_t size = x.ranks.size();
    double sum = 0;
    for (std::size_t first = 0; first < size; first += kBlock) {
        const std::size_t end = std::min(size, first + kBlock);
        std::array<double, kSide> parts{};
        std::size_t i = first;
        for (; i + kSide <= end; i += kSide)
            for (std::size_t side = 0; side < kSide; ++side) parts[side] += product(i + side);
        for (; i < end; ++i) parts[0] += product(i);
        sum += (parts[0] + parts[1]) + (parts[2] + parts[3]);
    }
    return sum;
}

// Where a share of sorted values ends, in places from 0.
double PositionOf(double share, std::size_t count) {
    return share * static_cast<double>(count - 1);
}

// Between the two values beside a position.
double Between(double low, double high, double position) {
    return low + (position - std::floor(position)) * (high - low);
}

// A value at a place of the order, and who wants it.
struct Wanted {
    std::size_t place = 0;
    double* value = nullptr;
};

// Finds values by their places: counts the values in cells of like keys, and looks into the cells that matter, and no copy of
// all is made.
class PlaceFinder {
  public:
    PlaceFinder(std::span<const double> values, const CheckPoint& check) : values_(values), check_(check) {}

    // Among the values whose keys differ from `low` in the lower `bits` alone; places count from the lowest of them, rising.
    void Find(Word low, int bits, std::span<const Wanted> wanted) {
        Check(check_);
        const bool whole = marked_.empty();
        const int shift = std::max(bits - kCellBits, 0);
        const std::size_t cells = std::size_t{1} << (bits - shift);
        std::vector<std::uint32_t> counts(cells);
        for (const double value : values_) {
            const Word cell = CellOf(value, low, shift);
            if (cell < cells) ++counts[cell];
        }
        if (whole) {
            low_ = low;
            shift_ = shift;
            marked_.resize(cells + 1);  // the last for what lies in no cell
        }
        std::size_t below = 0;
        std::size_t cell = 0;
        for (std::size_t i = 0; i < wanted.size();) {
            while (wanted[i].place >= below + counts[cell]) below += counts[cell++];
            if (whole) marked_[cell] = 1;
            std::vector<Wanted> here;
            for (; i < wanted.size() && wanted[i].place < below + counts[cell]; ++i)
                here.push_back({wanted[i].place - below, wanted[i].value});
            LookInto(low + (Word{cell} << shift), shift, counts[cell], here);
        }
    }

    // Puts the values of the cells that were small into their order.
    void Finish() {
        std::vector<std::vector<double>> found(small_.size());
        for (const double value : values_) {
            if (marked_[std::min<Word>(CellOf(value, low_, shift_), marked_.size() - 1)] == 0) continue;
            const Word key = SortKey(value);
            // Cells are few and rise.
            const auto after = std::upper_bound(small_.begin(), small_.end(), key,
                                                [](Word k, const SmallCell& one) { return k < one.low; });
            if (after == small_.begin()) continue;
            const auto& one = *(after - 1);
            if ((key - one.low) >> one.bits == 0)
                found[static_cast<std::size_t>(after - 1 - small_.begin())].push_back(value);
        }
        for (std::size_t i = 0; i < small_.size(); ++i) {
            std::sort(found[i].begin(), found[i].end());
            for (const Wanted& one : small_[i].wanted) *one.value = found[i][one.place];
        }
    }

  private:
    static constexpr int kCellBits = 16;
    static constexpr std::uint32_t kSmall = 1 << 15;

    struct SmallCell {
        Word low = 0;
        int bits = 0;
        std::vector<Wanted> wanted;
    };

    // Beyond all cells for a NaN.
    static Word CellOf(double value, Word low, int shift) {
        return std::isnan(value) ? ~Word{0} : (SortKey(value) - low) >> shift;
    }

    void LookInto(Word low, int bits, std::uint32_t count, std::vector<Wanted>& wanted) {
        if (bits == 0)
            for (const Wanted& one : wanted) *one.value = ValueOfKey(low);
        else if (count <= kSmall)
            small_.push_back({low, bits, std::move(wanted)});
        else
            Find(low, bits, wanted);
    }

    std::span<const double> values_;
    const CheckPoint& check_;
    std::vector<SmallCell> small_;
    // The cells of all values, and those that somebody looks into.
    Word low_ = 0;
    int shift_ = 0;
    std::vector<std::uint8_t> marked_;
};

}  // namespace

RankOrder::RankOrder(BigArray<double> values, const CheckPoint& check) {
    const Extent extent = ExtentOf(values);
    count_ = extent.count;
    index_bits_ = static_cast<int>(std::bit_width(values.size()));
    const int bits = static_cast<int>(std::bit_width(extent.highest - extent.lowest));
    const int left_out = std::max(0, bits - (kWordBits - index_bits_));
    if (values.size() <= kFew)
        EnterFew(std::move(values), extent.lowest, left_out);
    else
        EnterMany(std::move(values), extent.lowest, left_out);
    WordSort(index_bits_, check)
        .Sort(std::span(entries_.data(), count_), index_bits_ + std::max(bits - left_out, 0));
    if (has_alikes_) SortAlikes();
}

void RankOrder::EnterFew(BigArray<double> values, Word lowest, int left_out) {
    values_ = std::move(values);
    has_alikes_ = left_out > 0;
    entries_ = BigArray<Word>(count_);
    std::size_t sound = 0;
    for (std::size_t i = 0; i < values_.size(); ++i)
        if (!std::isnan(values_[i]))
            entries_[sound++] = ((SortKey(values_[i]) - lowest) >> left_out) << index_bits_ | i;
}

void RankOrder::EnterMany(BigArray<double> values, Word lowest, int left_out) {
    const std::size_t size = values.size();
    entries_ = std::move(values).template As<Word>(
        [&](double value) { return std::isnan(value) ? ~Word{0} : (SortKey(value) - lowest) >> left_out; });
    std::size_t sound = 0;
    for (std::size_t i = 0; i < size; ++i)
        if (entries_[i] != ~Word{0}) entries_[sound++] = entries_[i] << index_bits_ | i;
}

// Puts neighbours with the same leading bits into their order; there are few of them.
void RankOrder::SortAlikes() {
    const auto are_alike = [this](std::size_t one, std::size_t other) {
        return (entries_[one] ^ entries_[other]) >> index_bits_ == 0;
    };
    const auto value_of = [this](Word entry) { return values_[entry & ((Word{1} << index_bits_) - 1)]; };
    for (std::size_t first = 0; first + 1 < count_; ++first) {
        if (!are_alike(first, first + 1)) continue;
        std::size_t end = first + 2;
        while (end < count_ && are_alike(first, end)) ++end;
        std::sort(&entries_[first], entries_.begin() + end,
                  [&](Word a, Word b) { return std::pair(value_of(a), a) < std::pair(value_of(b), b); });
        first = end - 1;
    }
}

SampleRanks RanksOf(const RankOrder& order, std::size_t values, const CheckPoint& check) {
    Check(check);
    // Doubled ranks of more values than this need more than 32 bits.
    const int left_out = order.size() > std::size_t{1} << 31 ? 1 : 0;
    SampleRanks result;
    result.ranks = BigArray<std::uint32_t>(values);
    result.mean = static_cast<double>((order.size() + 1) >> left_out);
    if (order.size() < values) std::fill(result.ranks.begin(), result.ranks.end(), 0U);
    order.ForEachRank([&](std::uint32_t index, std::uint64_t doubled) {
        result.ranks[index] = static_cast<std::uint32_t>(doubled >> left_out);
    });
    result.squares = SumOfProducts(result, result);
    return result;
}

double RankCorrelation(const SampleRanks& x, const SampleRanks& y) {
    const double spread = std::sqrt(x.squares * y.squares);
    return spread > 0.0 ? std::clamp(SumOfProducts(x, y) / spread, -1.0, 1.0) : kNoNumber;
}

std::vector<double> QuantilesOf(const RankOrder& order, std::span<const double> shares) {
    std::vector<double> quantiles;
    quantiles.reserve(shares.size());
    for (const double share : shares) {
        if (order.size() == 0) {
            quantiles.push_back(kNoNumber);
            continue;
        }
        const std::size_t last = order.size() - 1;
        const double position = PositionOf(share, order.size());
        const auto below = static_cast<std::size_t>(position);
        quantiles.push_back(
            Between(order.ValueAt(below), order.ValueAt(std::min(below + 1, last)), position));
    }
    return quantiles;
}

std::vector<double> QuantilesOf(std::span<const double> values, std::span<const double> shares,
                                const CheckPoint& check) {
    const Extent extent = ExtentOf(values);
    if (extent.count == 0) return std::vector<double>(shares.size(), kNoNumber);
    // The neighbours of each position, and the places by which they are looked for.
    std::vector<double> found(2 * shares.size());
    std::vector<Wanted> wanted;
    const auto position_of = [&](double share) { return PositionOf(share, extent.count); };
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const auto below = static_cast<std::size_t>(position_of(shares[i]));
        wanted.push_back({below, &found[2 * i]});
        wanted.push_back({std::min(below + 1, extent.count - 1), &found[2 * i + 1]});
    }
    std::sort(wanted.begin(), wanted.end(),
              [](const Wanted& a, const Wanted& b) { return a.place < b.place; });
    PlaceFinder finder(values, check);
    finder.Find(extent.lowest, static_cast<int>(std::bit_width(extent.highest - extent.lowest)), wanted);
    finder.Finish();
    std::vector<double> quantiles;
    quantiles.reserve(shares.size());
    for (std::size_t i = 0; i < shares.size(); ++i)
        quantiles.push_back(Between(found[2 * i], found[2 * i + 1], position_of(shares[i])));
    return quantiles;
}

}  // namespace tarvokol
