// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a written workbook back by the entries of its zip file.
#pragma once

#include <cstddef>
#include <map>
#include <regex>
#include <string>

#include <gtest/gtest.h>
#include <zlib.h>

namespace tarvokol {

inline unsigned Number(const std::string& bytes, std::size_t at, int size) {
    unsigned value = 0;
    for (int i = size - 1; i >= 0; --i) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

inline std::string Inflate(const std::string& packed, std::size_t size) {
    std::string plain(size, '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = static_cast<uInt>(size);
    EXPECT_EQ(inflateInit2(&stream, -MAX_WBITS), Z_OK);
    EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
    inflateEnd(&stream);
    return plain;
}

// The entries of a zip file by its central directory.
inline std::map<std::string, std::string> Unzip(const std::string& bytes) {
    std::map<std::string, std::string> entries;
    const std::size_t end = bytes.rfind("PK\x05\x06");
    if (end == std::string::npos) return entries;
    std::size_t at = Number(bytes, end + 16, 4);
    for (unsigned left = Number(bytes, end + 10, 2); left > 0; --left) {
        const unsigned method = Number(bytes, at + 10, 2), packed = Number(bytes, at + 20, 4);
        const unsigned size = Number(bytes, at + 24, 4), name = Number(bytes, at + 28, 2);
        const std::size_t local = Number(bytes, at + 42, 4);
        const std::size_t data = local + 30 + Number(bytes, local + 26, 2) + Number(bytes, local + 28, 2);
        const std::string content = bytes.substr(data, packed);
        entries[bytes.substr(at + 46, name)] = method == 0 ? content : Inflate(content, size);
        at += 46 + name + Number(bytes, at + 30, 2) + Number(bytes, at + 32, 2);
    }
    return entries;
}

// The cells of a sheet, as they are written.
inline std::map<std::string, std::string> Cells(const std::string& xlsx, int number = 1) {
    std::map<std::string, std::string> cells;
    const std::string sheet = Unzip(xlsx)["xl/worksheets/sheet" + std::to_string(number) + ".xml"];
    const std::regex cell("<c r=\"([A-Z]+[0-9]+)\"[^>]*>(?:<is><t[^>]*>|<v>)([^<]*)<");
    for (std::sregex_iterator it(sheet.begin(), sheet.end(), cell), last; it != last; ++it)
        cells[(*it)[1]] = (*it)[2];
    return cells;
}

}  // namespace tarvokol
