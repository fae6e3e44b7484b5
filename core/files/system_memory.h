// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarvokol {

// Bytes of memory that the system can still give without making others swap; the greatest number where it does not say.
std::uint64_t AvailableMemory();

}  // namespace tarvokol
