// SPDX-License-Identifier: GPL-3.0-or-later
// Wrapping adds line ends and nothing else: the pieces together are the line, none is longer than 60 columns.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/project/description.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

void Require(bool fact) {
    if (!fact) std::abort();
}

void TryLine(std::string line) {
    // A description's line holds no line feed.
    line = ReplaceAll(line, "\n", "_");
    std::string wrapped = line;
    int count = 0;
    WrapLongLine(wrapped, count);
    std::string joined;
    int pieces = 0;
    for (std::size_t start = 0; start < wrapped.size();) {
        const std::size_t feed = wrapped.find('\n', start);
        const bool last = feed == std::string::npos;
        const std::string piece = wrapped.substr(start, last ? std::string::npos : feed - 1 - start);
        Require(!piece.empty() && Length(piece) <= 60);
        joined += piece;
        ++pieces;
        start = last ? wrapped.size() : feed + 1;
    }
    Require(joined == line && count == pieces + 1);
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvokol::TryLine(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
