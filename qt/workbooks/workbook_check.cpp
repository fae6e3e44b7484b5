// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/workbook_check.h"

#include <QByteArray>
#include <QXmlStreamReader>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include <zlib.h>

#include "core/files/whole_file.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLargestWorkbook = std::size_t{1024} * 1024 * 1024;

// The parts of a file in the ZIP format: its directory stands at the end, each entry leads to the packed bytes.
constexpr std::string_view kDirectoryEnd{"PK\x05\x06", 4};
constexpr std::string_view kDirectoryEntry{"PK\x01\x02", 4};
constexpr std::size_t kDirectoryEndSize = 22;
constexpr std::size_t kDirectoryEntrySize = 46;
constexpr std::size_t kLocalHeaderSize = 30;

constexpr qsizetype kPiece = 65536;  // bytes unpacked at once

struct Part {
    std::size_t packed_size = 0;
    std::size_t size = 0;
    std::uint32_t check_sum = 0;
    std::size_t header = 0;  // where the part begins
    std::string name;
};

class Archive {
  public:
    explicit Archive(std::string_view bytes) : bytes_(bytes) {}

    // Reads the entry of the directory at `at` and moves it past the entry; nothing if there is none.
    std::optional<Part> NextPart(std::size_t& at) const {
        if (at + kDirectoryEntrySize > bytes_.size() || bytes_.substr(at, 4) != kDirectoryEntry)
            return std::nullopt;
        Part part;
        part.check_sum = static_cast<std::uint32_t>(Number(at + 16, 4));
        part.packed_size = Number(at + 20, 4);
        part.size = Number(at + 24, 4);
        part.header = Number(at + 42, 4);
        const std::size_t name_size = Number(at + 28, 2);
        if (at + kDirectoryEntrySize + name_size > bytes_.size()) return std::nullopt;
        part.name = bytes_.substr(at + kDirectoryEntrySize, name_size);
        at += kDirectoryEntrySize + name_size + Number(at + 30, 2) + Number(at + 32, 2);
        return part;
    }

    // The number of parts, and where the directory of them begins.
    bool FindDirectory(std::size_t& parts, std::size_t& start) const {
        const std::size_t end = bytes_.rfind(kDirectoryEnd);
        if (end == std::string_view::npos || end + kDirectoryEndSize > bytes_.size()) return false;
        parts = Number(end + 10, 2);
        start = Number(end + 16, 4);
        return true;
    }

    // Hands a part's bytes to `take` as they unpack; false if they are not what the directory says.
    bool Unpack(const Part& part, const std::function<void(const QByteArray&)>& take) const {
        if (part.header + kLocalHeaderSize > bytes_.size()) return false;
        const std::size_t start =
            part.header + kLocalHeaderSize + Number(part.header + 26, 2) + Number(part.header + 28, 2);
        if (start + part.packed_size > bytes_.size()) return false;
        std::string packed(bytes_.substr(start, part.packed_size));
        z_stream stream{};
        if (::inflateInit2(&stream, -MAX_WBITS) != Z_OK) return false;
        stream.next_in = reinterpret_cast<Bytef*>(packed.data());
        stream.avail_in = static_cast<uInt>(packed.size());
        uLong sum = 0;
        std::size_t size = 0;
        int result = Z_OK;
        while (result == Z_OK) {
            QByteArray piece(kPiece, '\0');
            stream.next_out = reinterpret_cast<Bytef*>(piece.data());
            stream.avail_out = static_cast<uInt>(piece.size());
            result = ::inflate(&stream, Z_NO_FLUSH);
            piece.truncate(piece.size() - static_cast<qsizetype>(stream.avail_out));
            sum = ::crc32(sum, reinterpret_cast<const Bytef*>(piece.constData()),
                          static_cast<uInt>(piece.size()));
            size += static_cast<std::size_t>(piece.size());
            take(piece);
        }
        ::inflateEnd(&stream);
        return result == Z_STREAM_END && size == part.size && sum == part.check_sum;
    }

  private:
    // A number of so many bytes, the lowest first.
    std::size_t Number(std::size_t at, std::size_t count) const {
        std::size_t value = 0;
        for (std::size_t i = count; i-- > 0;)
            value = value * 256 + static_cast<unsigned char>(bytes_[at + i]);
        return value;
    }

    std::string_view bytes_;
};

// Counts the cells of an XML part that comes in pieces.
class CellCounter {
  public:
    void Add(const QByteArray& piece) {
        reader_.addData(piece);
        while (!reader_.atEnd())
            if (reader_.readNext() == QXmlStreamReader::StartElement && reader_.name() == QStringLiteral("c"))
                ++cells_;
    }

    // Nothing if the part is not well formed to its end.
    std::optional<std::size_t> Cells() const {
        if (reader_.hasError()) return std::nullopt;
        return cells_;
    }

  private:
    QXmlStreamReader reader_;
    std::size_t cells_ = 0;
};

std::optional<std::size_t> CellsOf(const Archive& archive, const Part& part) {
    CellCounter counter;
    if (!archive.Unpack(part, [&](const QByteArray& piece) { counter.Add(piece); })) return std::nullopt;
    return counter.Cells();
}

}  // namespace

bool WorkbookIsWhole(const std::string& path, std::size_t cells) {
    std::string bytes;
    if (ReadWholeFile(path, kLargestWorkbook, bytes) != ReadOutcome::Read) return false;
    const Archive archive(bytes);
    std::size_t parts = 0, at = 0, found = 0;
    if (!archive.FindDirectory(parts, at)) return false;
    for (std::size_t i = 0; i < parts; ++i) {
        const std::optional<Part> part = archive.NextPart(at);
        const std::optional<std::size_t> in_part = part ? CellsOf(archive, *part) : std::nullopt;
        if (!in_part) return false;
        if (part->name.starts_with("xl/worksheets/")) found += *in_part;
    }
    return found == cells;
}

}  // namespace tarvokol
