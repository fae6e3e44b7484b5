// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/nearest_word.h"

#include <algorithm>

#include "core/runtime/text.h"

namespace tarvokol {

std::size_t StepsBetween(const std::string& a, const std::string& b) {
    std::vector<std::vector<std::size_t>> steps(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) steps[i][0] = i;
    for (std::size_t j = 0; j <= b.size(); ++j) steps[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, changed});
            const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (exchanged) steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
        }
    }
    return steps[a.size()][b.size()];
}

std::string NearestWord(const std::string& word, const std::vector<std::string>& known) {
    constexpr std::size_t kLongest = 64;  // no word of ours is half as long
    constexpr std::size_t kLettersAStep = 3;
    if (word.empty() || word.size() > kLongest) return "";
    const std::string given = UpperCase(word);
    for (const std::string& name : known)
        if (UpperCase(name).starts_with(given)) return name;
    std::string nearest;
    std::size_t fewest = 0;
    for (const std::string& name : known) {
        const std::size_t steps = StepsBetween(given, UpperCase(name));
        const std::size_t most =
            std::max<std::size_t>(1, std::max(given.size(), name.size()) / kLettersAStep);
        if (steps > most || (!nearest.empty() && steps >= fewest)) continue;
        nearest = name;
        fewest = steps;
    }
    return nearest;
}

}  // namespace tarvokol
