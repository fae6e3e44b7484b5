// SPDX-License-Identifier: GPL-3.0-or-later
// Distributions of single values: a list with their probabilities, and measured ones.
#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "core/statistics/distribution_kinds.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

// A value and the share of all figures that are not above it.
struct ListedValue {
    double value = 0;
    double share = 0;  // its own
    double up_to = 0;
};

// Values in rising order, no two of them the same.
class ListedFigures : public Distribution {
  public:
    double Quantile(double share) const override {
        const auto found =
            std::lower_bound(values_.begin(), values_.end(), share,
                             [](const ListedValue& one, double wanted) { return one.up_to < wanted; });
        return found == values_.end() ? values_.back().value : found->value;
    }
    double ShareBelow(double figure) const override {
        const auto above =
            std::upper_bound(values_.begin(), values_.end(), figure,
                             [](double one, const ListedValue& other) { return one < other.value; });
        return above == values_.begin() ? 0.0 : std::prev(above)->up_to;
    }
    double Density(double figure) const override {
        const bool drawn = std::any_of(values_.begin(), values_.end(),
                                       [figure](const ListedValue& one) { return one.value == figure; });
        return drawn ? std::numeric_limits<double>::infinity() : 0.0;
    }
    double Mean() const override {
        double sum = 0.0;
        for (const ListedValue& one : values_) sum += one.share * one.value;
        return sum;
    }
    double StandardDeviation() const override {
        const double mean = Mean();
        double sum = 0.0;
        for (const ListedValue& one : values_) sum += one.share * ((one.value - mean) * (one.value - mean));
        return std::sqrt(sum);
    }
    bool IsContinuous() const override { return false; }
    std::string Text() const override { return text_; }

  protected:
    // Of values with shares that add up to 1; the same ones become one.
    ListedFigures(std::vector<ListedValue> values, std::string text)
        : values_(std::move(values)), text_(std::move(text)) {
        std::stable_sort(values_.begin(), values_.end(),
                         [](const ListedValue& a, const ListedValue& b) { return a.value < b.value; });
        std::size_t kept = 0;
        for (const ListedValue& one : values_) {
            if (kept > 0 && values_[kept - 1].value == one.value)
                values_[kept - 1].share += one.share;
            else
                values_[kept++] = one;
        }
        values_.resize(kept);
        double sum = 0.0;
        for (ListedValue& one : values_) one.up_to = sum += one.share;
        values_.back().up_to = 1.0;
    }

    const std::vector<ListedValue>& Values() const { return values_; }

  private:
    std::vector<ListedValue> values_;
    std::string text_;
};

class List : public ListedFigures {
  public:
    static constexpr const char* kName = "list";
    static constexpr const char* kForm = "V1@P1,V2@P2,...";

    static DistributionPtr Read(const DistributionText& text) {
        std::vector<ListedValue> values;
        std::string written = kName;
        double sum = 0.0;
        for (const std::string_view part : Split(text.figures, ',')) {
            const std::size_t at = part.find('@');
            if (at == std::string_view::npos) return nullptr;
            ListedValue one{NumberOrShare(part.substr(0, at), text.base),
                            NumberOrShare(part.substr(at + 1), 1.0)};
            if (!(one.share > 0.0 && one.share <= 1.0))
                throw StudyRefusal("each probability of a list must be above 0 and at most 1");
            sum += one.share;
            AppendShortest(written += values.empty() ? ':' : ',', one.value);
            AppendShortest(written += '@', one.share);
            values.push_back(one);
        }
        constexpr double kRounding = 1e-9;
        if (std::fabs(sum - 1.0) > kRounding)
            throw StudyRefusal("the probabilities of a list must add up to 1, not to " + WithUnit(sum, ""));
        for (ListedValue& one : values) one.share /= sum;
        return std::make_shared<const List>(std::move(values), std::move(written));
    }

    List(std::vector<ListedValue> values, std::string text)
        : ListedFigures(std::move(values), std::move(text)) {}

    std::string InWords(const std::string& unit) const override {
        std::string words;
        for (const ListedValue& one : Values()) {
            constexpr double kPercent = 100.0;
            // As many digits as tell the shares of a list that was written by hand.
            const double percent = std::round(one.share * kPercent * 1e6) / 1e6;
            words +=
                (words.empty() ? "" : ", ") + WithUnit(one.value, unit) + " (" + WithUnit(percent, "%") + ')';
        }
        return words;
    }
};

class Measured : public ListedFigures {
  public:
    static constexpr const char* kName = "data";
    static constexpr const char* kForm = "FILE.csv:COLUMN";

    static DistributionPtr Read(const DistributionText& text) {
        const std::size_t colon = PlaceOfColon(text.figures);
        if (colon == std::string_view::npos || colon == 0 || colon + 1 == text.figures.size()) return nullptr;
        const std::string file(text.figures.substr(0, colon));
        const std::string column(text.figures.substr(colon + 1));
        if (!text.columns) throw StudyRefusal("measured values cannot be read here");
        return std::make_shared<const Measured>(text.columns(file, column), file, column);
    }

    Measured(const std::vector<double>& figures, const std::string& file, const std::string& column)
        : ListedFigures(EquallyLikely(figures), std::string(kName) + ':' + file + ':' + column),
          words_(std::to_string(figures.size()) + " measured values (" + column + " of " + file + ")") {}

    std::string InWords(const std::string& unit) const override {
        return words_ + ", mean " + WithUnit(Mean(), unit) + ", standard deviation " +
               WithUnit(StandardDeviation(), unit);
    }

  private:
    // The one after ".csv", since a path may have others; without one the last.
    static std::size_t PlaceOfColon(std::string_view text) {
        constexpr std::string_view kEnd = ".csv:";
        const std::size_t end = text.find(kEnd);
        return end == std::string_view::npos ? text.rfind(':') : end + kEnd.size() - 1;
    }

    static std::vector<ListedValue> EquallyLikely(const std::vector<double>& figures) {
        std::vector<ListedValue> values;
        values.reserve(figures.size());
        for (const double figure : figures)
            values.push_back({figure, 1.0 / static_cast<double>(figures.size())});
        return values;
    }

    std::string words_;
};

}  // namespace

std::vector<KindFacts> ListedKinds() {
    return {{List::kName, List::kForm, List::Read}, {Measured::kName, Measured::kForm, Measured::Read}};
}

}  // namespace tarvokol
