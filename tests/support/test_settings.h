// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers by which the environment makes a random test longer or another one.
#pragma once

#include <cstdlib>

namespace tarvokol {

inline int NumberFrom(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::atoi(text);
}

}  // namespace tarvokol
