// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_document.h"

#include <thread>

#include <gmock/gmock.h>

#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

// Values need no program around them; the records are there to show that nobody touches them.
class Document : public ProjectTest {
  protected:
    static std::string Bytes(const std::vector<std::string>& description = {"First, line"}) {
        return Joined(FileLines("Panel 7, \"North\"", description));
    }

    static int ErrorOf(const std::string& bytes) {
        return RaisedError([&bytes] { DocumentOfBytes(bytes); });
    }
};

TEST_F(Document, HoldsWhatTheBytesOfAFileSay) {
    auto lines = FileLines(" Panel 7, \"North\" ", {"First, line", "Second, line"});
    lines[1] = " 1 ";
    const auto document = DocumentOfBytes(Joined(lines));
    ASSERT_TRUE(document.has_value());
    EXPECT_EQ(document->unit_system, 1);
    EXPECT_EQ(document->title, " Panel 7, \"North\" ");
    EXPECT_EQ(document->description, "First, line\r\nSecond\r\nline\r\n");
    EXPECT_EQ(document->description_lines, 4);
    const PanelInputs& inputs = document->inputs;
    EXPECT_EQ(inputs.Height, 4.5);
    EXPECT_EQ(inputs.DepthCover, 250);
    EXPECT_EQ(inputs.HoleWidth, 11.5);
    EXPECT_EQ(inputs.WebThickness, 5.25);
    EXPECT_EQ(inputs.BarrierPillarWidth, 17);
    EXPECT_EQ(inputs.NumberHoles, 12);
    EXPECT_EQ(inputs.CrosscutAngle, 90);
    EXPECT_EQ(inputs.CrosscutSpacing, 1000000);
    EXPECT_EQ(inputs.CoalStrength, 900);
    EXPECT_EQ(inputs.UnitWeight, 162);
    EXPECT_EQ(inputs.AbutmentAngle, 21);
    EXPECT_EQ(inputs.SFWeb, 1.6f);
    EXPECT_EQ(inputs.SFBarrier, 2.0f);
    EXPECT_EQ(inputs.SpareSingle, 0.25f);
}

TEST_F(Document, LeavesTheOpenProjectAndTheUserAlone) {
    FillRecord();
    ProjectTitle = "open";
    ProjectDescription = "open\r\n";
    FileFormatLevel = 7;
    DocumentOfBytes(Bytes());
    DocumentOfBytes("something else\r\n");
    EXPECT_EQ(BytesOfDocument({}).size(), 95u);
    EXPECT_EQ(ProjectTitle, "open");
    EXPECT_EQ(ProjectDescription, "open\r\n");
    EXPECT_EQ(FileFormatLevel, 7);
    EXPECT_EQ(ProjectRecord.NumberHoles, 12);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(Host.MainWindow.History, "");
}

TEST_F(Document, OfWrittenBytesMakesTheSameBytes) {
    EXPECT_EQ(BytesOfDocument(*DocumentOfBytes(Bytes())), Bytes());
    EXPECT_EQ(BytesOfDocument(*DocumentOfBytes(Joined(FileLines("t", {"d"}), "\n"))),
              Joined(FileLines("t", {"d"})));
}

TEST_F(Document, IsWrittenWithItsDescriptionWrapped) {
    ProjectDocument document = *DocumentOfBytes(Bytes({""}));
    document.description = "a\r\n   \r\n" + std::string(44, 'x') + " " + std::string(16, 'y');
    EXPECT_EQ(BytesOfDocument(document), Bytes({"a", std::string(44, 'x') + " ", std::string(16, 'y')}));
    EXPECT_THAT(DocumentText(document), HasSubstr("a\r\n   \r\nxxxx"));
}

TEST_F(Document, WithoutHolesIsWrittenAsItIsAndReadAsOne) {
    ProjectDocument document;
    const std::string bytes = BytesOfDocument(document);
    EXPECT_EQ(bytes,
              "TARVOKOL_101\r\n 0 \r\n\r\n##StartDesc##\r\n\r\n##EndDesc##\r\n"
              "0\r\n0\r\n0\r\n0\r\n0\r\n 0 \r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    EXPECT_EQ(DocumentOfBytes(bytes)->inputs.NumberHoles, 1);
}

TEST_F(Document, KeepsEveryCharacterInTheSetThatHoldsIt) {
    ProjectDocument document = *DocumentOfBytes(Bytes());
    document.title = "Fl\xC3\xB6z \xE2\x82\xAC";
    EXPECT_THAT(BytesOfDocument(document), HasSubstr("\r\nFl\xF6z \x80\r\n"));
    EXPECT_EQ(DocumentOfBytes(BytesOfDocument(document))->title, document.title);
    document.description = "\xE7\x9F\xBF\xE5\xB1\xB1";
    EXPECT_THAT(BytesOfDocument(document), HasSubstr("\r\nFl\xC3\xB6z \xE2\x82\xAC\r\n"));
    EXPECT_EQ(DocumentOfBytes(BytesOfDocument(document))->title, document.title);
}

TEST_F(Document, IsNoneOfAnotherFormat) {
    for (const char* magic : {"TARVOKOL_100", "tarvokol_101", "TARVOKOL_1011", ""}) {
        auto lines = FileLines("t", {"d"});
        lines[0] = magic;
        EXPECT_FALSE(DocumentOfBytes(Joined(lines)).has_value()) << magic;
    }
}

TEST_F(Document, OfBytesThatEndEarlyOrHoldTooMuchRaisesTheErrorsOfAFile) {
    EXPECT_EQ(ErrorOf(""), 62);
    const auto lines = FileLines("title", {"one", "two"});
    for (std::size_t count = 1; count < lines.size(); ++count)
        EXPECT_EQ(ErrorOf(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count)})), 62);
    auto large = lines;
    large[7] = "1E999";
    EXPECT_EQ(ErrorOf(Joined(large)), 6);
    EXPECT_EQ(ErrorOf("TARVOKOL_101\r\n0\r\n" + std::string(kLongestText + 1, 'x') + "\r\n"), 7);
}

TEST_F(Document, OfRecordsIsTheProjectThatIsSaved) {
    FillRecord();
    UnitSystem = 1;
    ProjectTitle = "t";
    ProjectDescription = "d\r\n" + std::string(61, 'x');
    const std::string bytes = BytesOfDocument(DocumentOfRecords());
    ProjectFileName = PathTo("saved.TKL");
    FileSave();
    EXPECT_EQ(ReadBytes(ProjectFileName), bytes);
    ProjectDocument other = *DocumentOfBytes(Bytes());
    PutIntoRecords(other);
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectTitle, "Panel 7, \"North\"");
    EXPECT_EQ(ProjectDescription, "First, line\r\n");
    EXPECT_EQ(ProjectSaved, 255);
}

TEST_F(Document, ManyMayBeReadAndWrittenAtOnce) {
    std::vector<std::string> results(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < results.size(); ++i)
        threads.emplace_back([&results, i] {
            for (int turn = 0; turn < 200; ++turn)
                results[i] = BytesOfDocument(*DocumentOfBytes(Bytes({std::to_string(i)})));
        });
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < results.size(); ++i) EXPECT_EQ(results[i], Bytes({std::to_string(i)}));
}

}  // namespace
}  // namespace tarvokol
