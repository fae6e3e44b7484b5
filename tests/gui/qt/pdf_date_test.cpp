// SPDX-License-Identifier: GPL-3.0-or-later
// Dates and numbers as the writers of several releases put them into a PDF file.
#include "qt/session/pdf_date.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

class PdfDate : public ::testing::Test {
  protected:
    PdfDate() { setenv("SOURCE_DATE_EPOCH", "1000000000", 1); }
    ~PdfDate() override { unsetenv("SOURCE_DATE_EPOCH"); }

    static std::string Settled(const std::string& bytes) {
        QByteArray pdf = QByteArray::fromStdString(bytes);
        SettleDateOfPdf(pdf);
        return pdf.toStdString();
    }

    static std::string WithNumber(const std::string& number, const std::string& content) {
        return "<rdf:Description xmpMM:DocumentID=\"uuid:" + number + "\" xmpMM:VersionID=\"1\"/>" + content;
    }
};

TEST_F(PdfDate, StandsInEveryEntryAndNothingMoves) {
    EXPECT_EQ(
        Settled("/CreationDate (D:20261122134059+09'00')\n/ModDate (D:20261122134059Z)\n/Trapped /False"),
        "/CreationDate (D:20010909014640Z)      \n/ModDate (D:20010909014640Z)\n/Trapped /False");
}

TEST_F(PdfDate, StandsInTheAttributesOfTheDescription) {
    EXPECT_EQ(
        Settled("<a xmp:CreateDate=\"2026-11-22T13:40:59+00:00\" "
                "xmp:ModifyDate=\"2026-11-22T13:40:59+00:00\" xmp:MetadataDate=\"2026-11-22T13:40:59Z\"/>"),
        "<a xmp:CreateDate=\"2001-09-09T01:46:40Z\"      "
        "xmp:ModifyDate=\"2001-09-09T01:46:40Z\"      xmp:MetadataDate=\"2001-09-09T01:46:40Z\"/>");
}

TEST_F(PdfDate, AnEntryWithoutRoomStaysAsItIs) {
    for (const std::string text :
         {"/ModDate (D:2026)", "/ModDate (D:20261122134059", "xmp:ModifyDate=\"2026-11-22\""})
        EXPECT_EQ(Settled(text), text);
}

TEST_F(PdfDate, TheNumberIsThatOfTheContent) {
    const std::string one = "f1d6b9c3-9f1e-4bb2-8f0a-0123456789ab",
                      other = "0e2c4f6a-1b3d-4a5c-9e7f-ba9876543210";
    const std::string settled = Settled(WithNumber(one, "web"));
    EXPECT_EQ(settled, Settled(WithNumber(other, "web")));
    EXPECT_EQ(settled.size(), WithNumber(one, "web").size());
    const auto number = [](const std::string& bytes) { return bytes.substr(bytes.find("uuid:") + 5, 36); };
    EXPECT_NE(number(settled), number(Settled(WithNumber(one, "barrier"))));
    // Its fifth kind is that of a number made of a name.
    EXPECT_EQ(number(settled)[14], '5');
}

TEST_F(PdfDate, TheTrailerHasTheSameNumberByTheDigitsOfItsBytes) {
    const std::string settled = Settled(WithNumber("f1d6b9c3-9f1e-4bb2-8f0a-0123456789ab",
                                                   "/ID [ <66316436623963332d396631652d346262322d386630612d"
                                                   "303132333435363738396162> ]"));
    const QByteArray number = QByteArray::fromStdString(settled.substr(settled.find("uuid:") + 5, 36));
    EXPECT_NE(number, "f1d6b9c3-9f1e-4bb2-8f0a-0123456789ab");
    EXPECT_NE(settled.find("/ID [ <" + number.toHex().toStdString() + "> ]"), std::string::npos);
}

TEST_F(PdfDate, WhatIsNoNumberStaysAsItIs) {
    const std::string text = WithNumber("of this document", "web");
    EXPECT_EQ(Settled(text), text);
}

TEST_F(PdfDate, WithoutATimeTheFileStaysAsItIs) {
    unsetenv("SOURCE_DATE_EPOCH");
    const std::string text =
        WithNumber("f1d6b9c3-9f1e-4bb2-8f0a-0123456789ab", "/ModDate (D:20261122134059Z)");
    EXPECT_EQ(Settled(text), text);
}

}  // namespace
}  // namespace tarvokol
