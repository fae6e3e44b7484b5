// SPDX-License-Identifier: GPL-3.0-or-later
// What a study cannot be done with, told to the user in one line.
#pragma once

#include <stdexcept>

namespace tarvokol {

// Wrong words for a study: an unknown field, a range that leads nowhere, a distribution that does not exist.
class StudyRefusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace tarvokol
