// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace tarvokol {

// The time that outputs carry instead of the present one: seconds since 1970, as SOURCE_DATE_EPOCH of the environment names
// them, by which the same work gives the same bytes on any day. Nothing where it is unset or no such number up to the year 9999.
std::optional<std::int64_t> SourceDate();

}  // namespace tarvokol
