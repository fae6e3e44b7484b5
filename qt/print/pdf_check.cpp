// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/print/pdf_check.h"

#include <cstddef>
#include <cstdlib>
#include <string_view>

#include "core/files/whole_file.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLargestPdf = std::size_t{1024} * 1024 * 1024;

// An entry of the table of objects: 10 digits of the place, a blank, 5 of the version, a blank, the kind, a line end.
constexpr std::size_t kEntrySize = 20;
constexpr std::size_t kKindColumn = 17;

// The number that stands at a place of the file; what is no digit ends it.
std::size_t NumberAt(const std::string& bytes, std::size_t at) {
    return std::strtoul(bytes.c_str() + at, nullptr, 10);
}

bool StandsAt(const std::string& bytes, std::size_t at, std::string_view text) {
    return at <= bytes.size() && std::string_view(bytes).substr(at).starts_with(text);
}

}  // namespace

bool PdfIsWhole(const std::string& path) {
    std::string bytes;
    if (ReadWholeFile(path, kLargestPdf, bytes) != ReadOutcome::Read) return false;
    constexpr std::string_view kStart = "startxref\n";
    constexpr std::string_view kTable = "xref\n0 ";
    const std::size_t start = bytes.rfind(kStart);
    if (start == std::string::npos || !bytes.ends_with("\n%%EOF\n")) return false;
    const std::size_t table = NumberAt(bytes, start + kStart.size());
    if (!StandsAt(bytes, table, kTable)) return false;
    const std::size_t objects = NumberAt(bytes, table + kTable.size());
    std::size_t entry = bytes.find('\n', table + kTable.size()) + 1;
    for (std::size_t i = 0; i < objects; ++i, entry += kEntrySize) {
        if (entry + kEntrySize > bytes.size()) return false;
        const char kind = bytes[entry + kKindColumn];
        if (kind == 'f') continue;
        if (kind != 'n' || !StandsAt(bytes, NumberAt(bytes, entry), std::to_string(i) + " 0 obj"))
            return false;
    }
    return objects > 0 && StandsAt(bytes, entry, "trailer");
}

}  // namespace tarvokol
