// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/distributions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "core/statistics/distribution_kinds.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

std::vector<KindFacts> AllKinds() {
    std::vector<KindFacts> all;
    for (const auto& some : {NormalKinds(), BoundedKinds(), SkewedKinds(), ListedKinds()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

const std::vector<KindFacts>& Kinds() {
    static const std::vector<KindFacts> kinds = AllKinds();
    return kinds;
}

std::string FormOf(const KindFacts& kind) {
    return std::string(kind.name) + ':' + std::string(kind.form);
}

// A number that belongs to no unit: a share of the project's own figure would make no sense.
double PlainNumber(std::string_view word, std::string_view text) {
    if (text.ends_with('%')) throw StudyRefusal(std::string(word) + " is a plain number, not a percentage");
    return RequiredNumber(text);
}

bool IsPlain(std::string_view word) {
    return word == "SHAPE" || word == "A" || word == "B";
}

}  // namespace

std::string Written(std::string name, Figures figures) {
    for (const double figure : figures) AppendShortest(name += ':', figure);
    return name;
}

std::string WithUnit(double figure, const std::string& unit) {
    std::string text;
    AppendShortest(text, figure);
    return unit.empty() ? text : text + ' ' + unit;
}

std::string MeanAndDeviation(const char* name, double mean, double deviation, const std::string& unit) {
    return std::string(name) + ", mean " + WithUnit(mean, unit) + ", standard deviation " +
           WithUnit(deviation, unit);
}

double ShareBelowConstant(double constant, double figure) {
    return figure < constant ? 0.0 : 1.0;
}
double DensityOfConstant(double constant, double figure) {
    return figure == constant ? std::numeric_limits<double>::infinity() : 0.0;
}

double RequiredShape(const char* name, double shape) {
    constexpr double kLeast = 0.1;
    constexpr double kMost = 10000.0;
    if (!(shape >= kLeast && shape <= kMost))
        throw StudyRefusal(std::string(name) + " must lie between 0.1 and 10000");
    return shape;
}

std::vector<std::string_view> Split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0;;) {
        const std::size_t next = text.find(mark, at);
        parts.push_back(text.substr(at, next - at));
        if (next == std::string_view::npos) return parts;
        at = next + 1;
    }
}

double NumberOrShare(std::string_view text, double whole) {
    constexpr double kPercent = 100.0;
    if (!text.ends_with('%')) return RequiredNumber(text);
    const double share = RequiredNumber(text.substr(0, text.size() - 1)) * whole / kPercent;
    if (!std::isfinite(share)) throw StudyRefusal('"' + std::string(text) + "\" is too large");
    return share;
}

std::vector<double> FiguresOf(std::string_view form, const DistributionText& text) {
    const std::vector<std::string_view> words = Split(form, ':');
    const std::vector<std::string_view> parts = Split(text.figures, ':');
    std::vector<double> figures;
    if (parts.size() != words.size()) return figures;
    figures.reserve(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        const double whole = words[i] == "SD" ? figures.back() : text.base;
        figures.push_back(IsPlain(words[i]) ? PlainNumber(words[i], parts[i])
                                            : NumberOrShare(parts[i], whole));
    }
    return figures;
}

void Distribution::FillQuantiles(std::span<const double> shares, std::span<double> figures) const {
    for (std::size_t i = 0; i < shares.size(); ++i) figures[i] = Quantile(shares[i]);
}

void Distribution::FillFromNormal(std::span<const double> z, std::span<double> figures) const {
    // Beyond these neither tail has a share that a double tells from 0 or 1.
    constexpr double kLeast = 0x1p-1022;
    constexpr double kMost = 1.0 - 0x1p-53;
    for (std::size_t i = 0; i < z.size(); ++i)
        figures[i] = Quantile(std::min(std::max(NormalShare(z[i]), kLeast), kMost));
}

DistributionPtr ParseDistribution(std::string_view text, double base, const ColumnReader& columns) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    for (const KindFacts& kind : Kinds()) {
        if (text.substr(0, colon) != kind.name) continue;
        const std::string_view figures = text.substr(std::min(colon + 1, text.size()));
        if (DistributionPtr read = kind.read({figures, base, columns})) return read;
        throw StudyRefusal('"' + std::string(text) + "\" is no distribution; write " + FormOf(kind));
    }
    throw StudyRefusal('"' + std::string(text) + "\" is no distribution; write " + KnownDistributions());
}

std::string KnownDistributions() {
    const std::vector<KindFacts>& kinds = Kinds();
    std::string known;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (i > 0) known += i + 1 < kinds.size() ? ", " : " or ";
        known += FormOf(kinds[i]);
    }
    return known;
}

}  // namespace tarvokol
