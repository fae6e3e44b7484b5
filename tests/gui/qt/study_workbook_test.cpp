// SPDX-License-Identifier: GPL-3.0-or-later
// The workbook of a study, read back by the entries of the zip file.
#include "qt/workbooks/study_workbook.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "core/runtime/run_time_error.h"
#include "tests/gui/qt/comma_locale.h"
#include "tests/gui/qt/workbook_reading.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class StudyWorkbookTest : public CoreTest {
  protected:
    // The words with which the work is refused; empty if it is not.
    template <typename Work>
    static std::string RefusalOf(Work work) {
        try {
            work();
        } catch (const RunTimeError& error) {
            return error.text;
        }
        return "";
    }

    // Two titles over two rows, of which the second has gaps.
    static void Fill(RowSheet& sheet) {
        sheet.AddTitles({"Height (ft)", "State"});
        sheet.AddNumber(12.5);
        sheet.AddText("stable");
        sheet.EndRow();
        sheet.AddNumber(NAN);
        sheet.AddText("");
        sheet.AddNumber(-1.0 / 12.0);
        sheet.EndRow();
        sheet.AddText("end");
        sheet.Finish();
    }
    std::map<std::string, std::string> Written() {
        StudyWorkbook book(PathTo("study.xlsx"));
        Fill(book);
        return Cells(ReadBytes(PathTo("study.xlsx")));
    }
};

TEST_F(StudyWorkbookTest, RowsFollowOneAnotherUnderTheirTitles) {
    const std::map<std::string, std::string> expected{
        {"A1", "Height (ft)"},          {"B1", "State"}, {"A2", "12.5"}, {"B2", "stable"},
        {"C3", "-0.08333333333333333"}, {"A4", "end"}};
    EXPECT_EQ(Written(), expected);
}

TEST_F(StudyWorkbookTest, TheTitlesAreBoldAndStayInView) {
    Written();
    auto entries = Unzip(ReadBytes(PathTo("study.xlsx")));
    const std::string sheet = entries["xl/worksheets/sheet1.xml"];
    EXPECT_NE(
        sheet.find("<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"),
        std::string::npos);
    EXPECT_NE(sheet.find("<c r=\"A1\" s=\"1\""), std::string::npos);
    EXPECT_NE(sheet.find("<c r=\"B1\" s=\"1\""), std::string::npos);
    EXPECT_EQ(sheet.find("<c r=\"A2\" s="), std::string::npos);
    EXPECT_NE(entries["xl/styles.xml"].find("<b/>"), std::string::npos);
}

TEST_F(StudyWorkbookTest, ADecimalCommaOfTheDesktopDoesNotReachIt) {
    const CommaLocale comma(Folder);
    ASSERT_TRUE(comma.Holds());
    StudyWorkbook book(PathTo("study.xlsx"));
    for (int row = 0; row < 3; ++row) {
        book.AddNumber(0.5 + row);
        book.EndRow();
    }
    book.AddText("end");
    book.Finish();
    const auto cells = Cells(ReadBytes(PathTo("study.xlsx")));
    EXPECT_EQ(cells.at("A1"), "0.5");
    EXPECT_EQ(cells.at("A3"), "2.5");
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%.1f", 12.5);
    EXPECT_STREQ(text.data(), "12,5");  // the desktop's own again
}

TEST_F(StudyWorkbookTest, ACellBeyondTheSheetIsAnError) {
    StudyWorkbook book(PathTo("study.xlsx"));
    for (int column = 0; column < 16384; ++column) book.AddNumber(NAN);
    EXPECT_EQ(RaisedError([&book] { book.AddNumber(1); }), 5);
    EXPECT_EQ(RaisedError([&book] { book.AddText("1"); }), 5);
    EXPECT_EQ(RefusalOf([&book] { book.AddNumber(1); }), "row 1 has more columns than the 16384 of a sheet");
}

TEST_F(StudyWorkbookTest, EveryDigitReadsBack) {
    StudyWorkbook book(PathTo("study.xlsx"));
    for (const double value :
         {0.1 + 0.2, 1.0 / 3, static_cast<double>(0.1F), 1e300, 5e-324, -1e-5, 1234567890123456.0})
        book.AddNumber(value);
    book.AddNumber(INFINITY);
    book.EndRow();
    book.Finish();
    const std::map<std::string, std::string> expected{{"A1", "0.30000000000000004"},
                                                      {"B1", "0.3333333333333333"},
                                                      {"C1", "0.10000000149011612"},
                                                      {"D1", "1e+300"},
                                                      {"E1", "5e-324"},
                                                      {"F1", "-1e-05"},
                                                      {"G1", "1234567890123456"}};
    EXPECT_EQ(Cells(ReadBytes(PathTo("study.xlsx"))), expected);
}

TEST_F(StudyWorkbookTest, TextsReadBackToTheByte) {
    StudyWorkbook book(PathTo("study.xlsx"));
    book.AddText(" <a> & \"b\"\r\n\tc ");
    book.AddText("_x0041_ _x004_ x0041_");
    book.Finish();
    const auto cells = Cells(ReadBytes(PathTo("study.xlsx")));
    EXPECT_EQ(cells.at("A1"), " &lt;a&gt; &amp; \"b\"&#13;\n\tc ");
    EXPECT_EQ(cells.at("B1"), "_x005F_x0041_ _x004_ x0041_");
}

TEST_F(StudyWorkbookTest, WhatNoCellHoldsIsRefusedByItsPlace) {
    StudyWorkbook book(PathTo("study.xlsx"));
    book.AddTitles({"Height (ft)", "Remark"});
    book.AddNumber(3);
    const auto refusal = [&book](const std::string& text) { return RefusalOf([&] { book.AddText(text); }); };
    const std::string place = "row 2, column \"Remark\": ";
    EXPECT_EQ(refusal("a\x01z"), place + "the character U+0001 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal(std::string("a\0z", 3)),
              place + "the character U+0000 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal("\xEF\xBF\xBF"), place + "the character U+FFFF cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal("\xFF"), place + "a byte that is no UTF-8 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal(std::string(32768, 'x')),
              place + "32768 characters are more than the 32767 of a cell of a workbook");
    std::string pairs;
    for (int i = 0; i < 16384; ++i) pairs += "\xF0\x9F\x98\x80";
    EXPECT_EQ(refusal(pairs), place + "32768 characters are more than the 32767 of a cell of a workbook");
    EXPECT_EQ(refusal(std::string(32767, 'x')), "");
    EXPECT_EQ(RefusalOf([this] {
                  StudyWorkbook titled(PathTo("titled.xlsx"));
                  titled.AddTitles({"Height", "a\x1F"});
              }),
              "row 1, column 2: the character U+001F cannot stand in a cell of a workbook");
    EXPECT_EQ(RefusalOf([this] {
                  StudyWorkbook wide(PathTo("wide.xlsx"));
                  wide.AddTitles(std::vector<std::string>(16385, "x"));
              }),
              "16385 columns are more than the 16384 of a sheet");
}

TEST_F(StudyWorkbookTest, TheExtentOfTheSheetIsTold) {
    Written();
    EXPECT_NE(
        Unzip(ReadBytes(PathTo("study.xlsx")))["xl/worksheets/sheet1.xml"].find("<dimension ref=\"A1:C4\"/>"),
        std::string::npos);
}

TEST_F(StudyWorkbookTest, AFolderThatIsGoneRaisesItsError) {
    EXPECT_EQ(RaisedError([this] {
                  StudyWorkbook book(PathTo("gone/study.xlsx"));
                  Fill(book);
              }),
              76);
}

TEST_F(StudyWorkbookTest, OneThatIsGivenUpLeavesNothing) {
    { StudyWorkbook book(PathTo("study.xlsx")); }
    EXPECT_TRUE(std::filesystem::is_empty(Folder));
}

}  // namespace
}  // namespace tarvokol
