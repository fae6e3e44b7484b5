// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/share_words.h"

#include <algorithm>

#include "core/statistics/hypercube.h"
#include "core/studies/picture_parts.h"

namespace tarvokol::cli {

namespace {

std::string RoomBeside(const std::string& text, int width) {
    return std::string(text.size() < static_cast<std::size_t>(width) ? width - text.size() : 0, ' ');
}

}  // namespace

std::string Padded(const std::string& text, int width) {
    return text + RoomBeside(text, width);
}

std::string AtRight(const std::string& text, int width) {
    return RoomBeside(text, width) + text;
}

std::string Short(double value) {
    return RoundedText(value, kShareDigits);
}

std::string ProbabilityWord(const Share& share) {
    constexpr int kBoundDigits = 2;
    if (share.value == 0.0) return "below " + RoundedText(share.high, kBoundDigits);
    if (share.value == 1.0) return "above " + Short(share.low);
    return Short(share.value);
}

std::string KindWord(const Share& share) {
    if (share.kind == IntervalKind::None) return "-";
    return share.kind == IntervalKind::Exact ? "exact" : "replicates";
}

std::string ShareInWords(const Share& share) {
    if (share.kind == IntervalKind::None) return "-";
    return ProbabilityWord(share) + " (" + Short(share.low) + " to " + Short(share.high) + ", " +
           KindWord(share) + ")";
}

std::string KindsText(const std::vector<Share>& shares, bool latin) {
    const auto some_are = [&](IntervalKind kind) {
        return std::any_of(shares.begin(), shares.end(),
                           [&](const Share& share) { return share.kind == kind; });
    };
    std::string text;
    if (some_are(IntervalKind::Replicates))
        text += "replicates: Student's interval of the scatter of " + std::to_string(kHypercubes) +
                " independent hypercubes\n";
    if (some_are(IntervalKind::Exact))
        text += latin ? "exact: Clopper and Pearson's interval of the counts, where there are too few hits "
                        "or misses\n"
                      : "exact: Clopper and Pearson's interval of the counts\n";
    return text;
}

}  // namespace tarvokol::cli
