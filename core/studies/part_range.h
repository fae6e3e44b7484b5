// SPDX-License-Identifier: GPL-3.0-or-later
// How the rows or samples of a study are shared out among parts.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tarvokol {

// `count` rows or samples from number `first` on, counted from 0.
struct PartRange {
    std::uint64_t first = 0;
    std::uint64_t count = 0;

    // Part `part` of `parts`, from 1, of `total`: each is in one part, in its order; the first parts have one more than the
    // others where they do not divide, and the last ones none where there are more parts.
    static constexpr PartRange Of(std::uint64_t total, std::uint64_t part, std::uint64_t parts) {
        const std::uint64_t each = total / parts;
        const std::uint64_t longer = total % parts;
        return {(part - 1) * each + std::min(part - 1, longer), each + (part <= longer ? 1 : 0)};
    }
};

}  // namespace tarvokol
