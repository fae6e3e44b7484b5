// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/table_kind.h"

#include <array>

namespace tarvokol {
namespace {

struct Kind {
    std::string_view start;
    const char* words;
};

constexpr const char* kUtf16 = "text in UTF-16; save the table as CSV in UTF-8";
constexpr const char* kWorkbook = "a workbook, no table; save its sheet as CSV";

constexpr std::array<Kind, 13> kKinds{{{"PK\x03\x04", kWorkbook},
                                       {"PK\x05\x06", kWorkbook},
                                       {"\xD0\xCF\x11\xE0", kWorkbook},
                                       {"%PDF", "a PDF, no table"},
                                       {"\xFF\xFE", kUtf16},
                                       {"\xFE\xFF", kUtf16},
                                       {"\x1F\x8B", "a compressed file; unpack it"},
                                       {"\x89PNG", "a picture, no table"},
                                       {"\xFF\xD8\xFF", "a picture, no table"},
                                       {"{\"", "JSON, no table"},
                                       {"<?xml", "XML, no table; save it as CSV"},
                                       {"<!DOCTYPE", "a page of HTML, no table; save it as CSV"},
                                       {"<html", "a page of HTML, no table; save it as CSV"}}};

// Without a mark, every second byte of what is written in ASCII letters is 0.
bool IsUtf16WithoutMark(std::string_view bytes) {
    return bytes.size() > 1 && (bytes[0] == '\0') != (bytes[1] == '\0');
}

}  // namespace

std::string WhyNoTable(std::string_view first_bytes) {
    for (const Kind& kind : kKinds)
        if (first_bytes.starts_with(kind.start)) return kind.words;
    if (IsUtf16WithoutMark(first_bytes)) return kUtf16;
    if (first_bytes.find('\0') != std::string_view::npos) return "no text";
    return "";
}

}  // namespace tarvokol
