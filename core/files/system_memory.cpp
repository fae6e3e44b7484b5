// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/system_memory.h"

#include <cstdlib>
#include <limits>
#include <string>

#include "core/files/whole_file.h"

namespace tarvokol {

std::uint64_t AvailableMemory() {
    constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
    constexpr std::size_t kLongestReport = 65536;
    const std::string label = "MemAvailable:";
    std::string report;
    if (ReadWholeFile("/proc/meminfo", kLongestReport, report) != ReadOutcome::Read) return kUnknown;
    const std::size_t at = report.find(label);
    if (at == std::string::npos) return kUnknown;
    return std::strtoull(report.c_str() + at + label.size(), nullptr, 10) * 1024;
}

}  // namespace tarvokol
