// SPDX-License-Identifier: GPL-3.0-or-later
// Workbooks that are whole and such as lost something, made by hand.
#include "qt/workbooks/workbook_check.h"

#include <string>
#include <vector>

#include <zlib.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

std::string Number(std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

std::string Deflated(const std::string& plain) {
    std::string packed(plain.size() + 100, '\0');
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY), Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.data()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

struct Entry {
    std::string name;
    std::string content;
    long size_off = 0;  // what the directory says of the size, less what it is
    unsigned crc_off = 0;
    std::string local_extra = "";
    std::string directory_extra = "";
    std::string remark = "";
};

// An archive of the entries; `parts_off` more of them than there are.
std::string Zip(const std::vector<Entry>& entries, const std::string& remark = "", int parts_off = 0) {
    std::string bytes, directory;
    for (const Entry& entry : entries) {
        const std::string packed = Deflated(entry.content);
        const std::size_t sum = crc32(0, reinterpret_cast<const Bytef*>(entry.content.data()),
                                      static_cast<uInt>(entry.content.size())) +
                                entry.crc_off;
        const std::string sums = Number(sum, 4) + Number(packed.size(), 4) +
                                 Number(entry.content.size() + static_cast<std::size_t>(entry.size_off), 4) +
                                 Number(entry.name.size(), 2);
        directory += "PK\x01\x02" + Number(20, 2) + Number(20, 2) + Number(0, 2) + Number(8, 2) +
                     Number(0, 4) + sums + Number(entry.directory_extra.size(), 2) +
                     Number(entry.remark.size(), 2) + Number(0, 2) + Number(0, 2) + Number(0, 4) +
                     Number(bytes.size(), 4) + entry.name + entry.directory_extra + entry.remark;
        bytes += "PK\x03\x04" + Number(20, 2) + Number(0, 2) + Number(8, 2) + Number(0, 4) + sums +
                 Number(entry.local_extra.size(), 2) + entry.name + entry.local_extra + packed;
    }
    const std::size_t count = entries.size() + static_cast<std::size_t>(parts_off);
    return bytes + directory + "PK\x05\x06" + Number(0, 4) + Number(entries.size(), 2) + Number(count, 2) +
           Number(directory.size(), 4) + Number(bytes.size(), 4) + Number(remark.size(), 2) + remark;
}

const Entry kSheet{"xl/worksheets/sheet1.xml", "<s><row><c r='A1'>1</c><c r='B1'/><cols/><v>c</v></row></s>"};
const Entry kStyles{"xl/styles.xml", "<s><c/><c/><c/></s>"};

class WorkbookCheck : public CoreTest {
  protected:
    bool IsWhole(const std::string& bytes, std::size_t cells) {
        WriteBytes(PathTo("book.xlsx"), bytes);
        return WorkbookIsWhole(PathTo("book.xlsx"), cells);
    }
};

TEST_F(WorkbookCheck, CountsTheCellsOfTheSheetsAlone) {
    EXPECT_TRUE(IsWhole(Zip({kSheet}), 2));
    EXPECT_FALSE(IsWhole(Zip({kSheet}), 3));
    EXPECT_FALSE(IsWhole(Zip({kSheet}), 1));
    EXPECT_TRUE(IsWhole(Zip({kStyles, kSheet, kStyles}), 2));
    EXPECT_TRUE(IsWhole(Zip({kSheet, kStyles, {"xl/worksheets/sheet2.xml", "<s><c/></s>"}}), 3));
    EXPECT_TRUE(IsWhole(Zip({}), 0));
    EXPECT_FALSE(IsWhole(Zip({}), 1));
}

// What a packer may put between the parts.
TEST_F(WorkbookCheck, PassesOverExtraFieldsAndRemarks) {
    Entry wordy = kSheet;
    wordy.local_extra = std::string(9, 'e');
    wordy.directory_extra = std::string(5, 'd');
    wordy.remark = "a remark";
    EXPECT_TRUE(IsWhole(Zip({wordy, kStyles, wordy}, "made by hand"), 4));
    wordy.directory_extra = std::string(300, 'd');
    wordy.local_extra = std::string(700, 'e');
    EXPECT_TRUE(IsWhole(Zip({wordy, wordy}), 4));
    wordy.directory_extra.clear();
    wordy.remark = std::string(600, 'r');
    EXPECT_TRUE(IsWhole(Zip({wordy, wordy}), 4));
}

TEST_F(WorkbookCheck, ReadsLargePartsInPieces) {
    std::string large = "<s>";
    for (int cell = 0; cell < 30000; ++cell)
        large += "<c r='A" + std::to_string(cell * 7919 % 100000) + "'/>";
    large += "</s>";
    ASSERT_GT(large.size(), 5 * 65536u);
    const Entry sheet{"xl/worksheets/sheet1.xml", large};
    EXPECT_TRUE(IsWhole(Zip({sheet}), 30000));
    EXPECT_FALSE(IsWhole(Zip({sheet}), 29999));
    // Of one piece to the byte.
    const Entry piece{"xl/worksheets/sheet1.xml", "<s><c/>" + std::string(65536 - 11, ' ') + "</s>"};
    ASSERT_EQ(piece.content.size(), 65536u);
    EXPECT_TRUE(IsWhole(Zip({piece}), 1));
}

TEST_F(WorkbookCheck, APartThatIsNotWhatTheDirectorySaysIsRefused) {
    Entry other = kSheet;
    other.size_off = 1;
    EXPECT_FALSE(IsWhole(Zip({other}), 2));
    other.size_off = -1;
    EXPECT_FALSE(IsWhole(Zip({other}), 2));
    other = kSheet;
    other.crc_off = 1;
    EXPECT_FALSE(IsWhole(Zip({other}), 2));
    EXPECT_FALSE(IsWhole(Zip({other, kSheet}), 4));
}

TEST_F(WorkbookCheck, ASheetThatIsNotWellFormedIsRefused) {
    EXPECT_FALSE(IsWhole(Zip({{"xl/worksheets/sheet1.xml", "<s><c/><c/></t>"}}), 2));
    EXPECT_FALSE(IsWhole(Zip({kSheet, {"docProps/app.xml", "<s"}}), 2));
}

TEST_F(WorkbookCheck, MorePartsThanThereAreAreMissed) {
    EXPECT_FALSE(IsWhole(Zip({kSheet}, "", 1), 2));
    EXPECT_TRUE(IsWhole(Zip({kStyles, kSheet}, "", -1), 0));
}

TEST_F(WorkbookCheck, EveryCutIsNoticed) {
    const std::string whole = Zip({kSheet, kStyles});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(IsWhole(whole.substr(0, size), 2)) << size;
    for (const std::size_t lost : {30u, 60u, 100u})  // a block in the middle
        EXPECT_FALSE(IsWhole(whole.substr(0, 40) + whole.substr(40 + lost), 2)) << lost;
}

// Sizes, sums and places of the parts, and what is packed: one wrong byte.
TEST_F(WorkbookCheck, EveryWrongByteThatMattersIsNoticed) {
    const std::string whole = Zip({kSheet});
    const std::size_t directory = whole.find("PK\x01\x02");
    const std::size_t end = whole.find("PK\x05\x06");
    const auto noticed = [&](std::size_t at) {
        std::string wrong = whole;
        wrong[at] = static_cast<char>(wrong[at] ^ 0x41);
        return !IsWhole(wrong, 2);
    };
    for (std::size_t at = 30 + kSheet.name.size(); at < directory; ++at) EXPECT_TRUE(noticed(at)) << at;
    for (const std::size_t at :
         {0, 1, 2, 3, 16, 17, 18, 19, 21, 22, 23, 24, 25, 26, 27, 28, 29, 42, 43, 44, 45})
        EXPECT_TRUE(noticed(directory + at)) << at;
    for (const std::size_t at : {0, 1, 2, 3, 10, 11, 16, 17, 18, 19}) EXPECT_TRUE(noticed(end + at)) << at;
}

TEST_F(WorkbookCheck, ThereIsNoWorkbookInAFileOfAnotherKind) {
    EXPECT_FALSE(IsWhole("", 0));
    EXPECT_FALSE(IsWhole("no archive", 0));
    EXPECT_FALSE(WorkbookIsWhole(PathTo("missing.xlsx"), 0));
}

}  // namespace
}  // namespace tarvokol
