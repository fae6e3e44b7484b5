// SPDX-License-Identifier: GPL-3.0-or-later
// Who looks on while a study runs.
#pragma once

#include <cstdint>
#include <optional>

namespace tarvokol {

// Told of the progress of a study, in the thread that runs it.
class StudyObserver {
  public:
    virtual ~StudyObserver() = default;

    // So many rows or samples of `total` (nothing where it is not known) are done. Asked again and again; false ends the
    // study early.
    virtual bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) {
        static_cast<void>(done);
        static_cast<void>(total);
        return true;
    }
};

}  // namespace tarvokol
