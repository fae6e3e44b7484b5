// SPDX-License-Identifier: GPL-3.0-or-later
// PDF files that are whole and such as lost something, made by hand.
#include "qt/print/pdf_check.h"

#include <cstdio>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

// Objects, their table and the end mark; `moved` is added to the place of the second object in the table.
std::string PdfOf(const std::vector<std::string>& objects, int moved = 0, const std::string& rest = "") {
    const auto entry = [](std::size_t place, const char* version, char kind) {
        char text[32];
        std::snprintf(text, sizeof text, "%010zu %s %c \n", place, version, kind);
        return std::string(text);
    };
    std::string bytes = "%PDF-1.4\n";
    std::string table = entry(0, "65535", 'f');
    for (std::size_t i = 1; i <= objects.size(); ++i) {
        table += entry(bytes.size() + static_cast<std::size_t>(i == 2 ? moved : 0), "00000", 'n');
        bytes += std::to_string(i) + " 0 obj\n" + objects[i - 1] + "\nendobj\n";
    }
    const std::string start = std::to_string(bytes.size());
    return bytes + "xref\n0 " + std::to_string(objects.size() + 1) + "\n" + table + "trailer\n<< >>\n" +
           rest + "startxref\n" + start + "\n%%EOF\n";
}

class PdfCheck : public CoreTest {
  protected:
    bool IsWhole(const std::string& bytes) {
        WriteBytes(PathTo("a.pdf"), bytes);
        return PdfIsWhole(PathTo("a.pdf"));
    }
};

TEST_F(PdfCheck, AWholeFileLeadsToEachObject) {
    EXPECT_TRUE(IsWhole(PdfOf({"<< >>", "startxref", "(n 0 obj)"})));
    EXPECT_TRUE(IsWhole(PdfOf({std::string(12, 'x')})));
    EXPECT_TRUE(IsWhole(PdfOf(std::vector<std::string>(12, "<< >>"))));
    EXPECT_TRUE(IsWhole(PdfOf({})));
}

TEST_F(PdfCheck, AnObjectThatStandsElsewhereIsNoticed) {
    for (const int moved : {-10, -1, 1, 7, 100000})
        EXPECT_FALSE(IsWhole(PdfOf({"<< >>", "<< >>", "<< >>"}, moved))) << moved;
    EXPECT_FALSE(IsWhole(PdfOf({"<< >>", "<< >>"}, 1)));  // the last one
}

TEST_F(PdfCheck, EveryCutIsNoticed) {
    const std::string whole = PdfOf({"<< >>", "(text)"});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(IsWhole(whole.substr(0, size))) << size;
    for (std::size_t at = 0; at + 20 < whole.find("trailer"); ++at)
        EXPECT_FALSE(IsWhole(whole.substr(0, at) + whole.substr(at + 1))) << at;
}

// The last mark counts; what comes after it does not belong there.
TEST_F(PdfCheck, TheEndMarkStandsAtTheEnd) {
    EXPECT_FALSE(IsWhole(PdfOf({"<< >>"}) + "\n"));
    EXPECT_FALSE(IsWhole(PdfOf({"<< >>"}) + "x"));
    EXPECT_TRUE(IsWhole(PdfOf({"<< >>"}, 0, "startxref\n1\n")));
    std::string wrong = PdfOf({"<< >>"});
    wrong.replace(wrong.find("startxref"), 9, "startxxxx");
    EXPECT_FALSE(IsWhole(wrong));
    wrong = PdfOf({"<< >>"});
    wrong.replace(wrong.find("xref\n0 2"), 8, "xxxx\n0 2");
    EXPECT_FALSE(IsWhole(wrong));
}

// A table that promises more than stands there, or nothing.
TEST_F(PdfCheck, TheTableHoldsWhatItPromises) {
    std::string many = PdfOf({"<< >>"});
    many.replace(many.find("xref\n0 2"), 8, "xref\n0 9");
    EXPECT_FALSE(IsWhole(many));
    std::string none = PdfOf({"<< >>"});
    none.replace(none.find("xref\n0 2"), 8, "xref\n0 0");
    EXPECT_FALSE(IsWhole(none));
}

TEST_F(PdfCheck, ThereIsNoPdfWhereThereIsNoFile) {
    EXPECT_FALSE(PdfIsWhole(PathTo("missing.pdf")));
    EXPECT_FALSE(IsWhole(""));
    EXPECT_FALSE(IsWhole("startxref\n99999999\n%%EOF\n"));
}

}  // namespace
}  // namespace tarvokol
