// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_file.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ProjectFile : public ProjectTest {
  protected:
    std::string Saved() {
        ProjectFileName = PathTo("saved.TKL");
        EXPECT_TRUE(FileSave());
        return ReadBytes(ProjectFileName);
    }

    int ErrorOfReading(const std::string& bytes) {
        Provide(bytes);
        return RaisedError([] { ReadProjectFile(); });
    }
};

TEST_F(ProjectFile, IsWrittenLineByLine) {
    FillRecord();
    ProjectTitle = "Panel 7, \"North\"";
    ProjectDescription = "First, line\r\nSecond";
    EXPECT_EQ(Saved(), Joined(FileLines("Panel 7, \"North\"", {"First, line", "Second"})));
}

TEST_F(ProjectFile, OfAnUntouchedProjectHoldsZerosAndLeavesItEmpty) {
    EXPECT_EQ(Saved(),
              "TARVOKOL_101\r\n 0 \r\n\r\n##StartDesc##\r\n\r\n##EndDesc##\r\n"
              "0\r\n0\r\n0\r\n0\r\n0\r\n 0 \r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectRecord.NumberHoles, 1);
}

TEST_F(ProjectFile, ReadsBackWhatWasWritten) {
    FillRecord();
    UnitSystem = 1;
    ProjectTitle = "  Panel 7, \"North\" ";
    ProjectDescription = "First, line\r\nSecond";
    Saved();
    ProjectRecord = PanelInputs{};
    UnitSystem = 0;
    ProjectTitle = ProjectDescription = "";
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectTitle, "  Panel 7, \"North\" ");
    EXPECT_EQ(ProjectDescription, "First, line\r\nSecond\r\n");
    EXPECT_EQ(ProjectRecord.Height, 4.5);
    EXPECT_EQ(ProjectRecord.DepthCover, 250);
    EXPECT_EQ(ProjectRecord.HoleWidth, 11.5);
    EXPECT_EQ(ProjectRecord.WebThickness, 5.25);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 17);
    EXPECT_EQ(ProjectRecord.NumberHoles, 12);
    EXPECT_EQ(ProjectRecord.CrosscutAngle, 90);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 1000000);
    EXPECT_EQ(ProjectRecord.CoalStrength, 900);
    EXPECT_EQ(ProjectRecord.UnitWeight, 162);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 21);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.6f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.0f);
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
}

TEST_F(ProjectFile, FinishedReadingSetsTheFlagsAndThePointer) {
    Provide(Joined(FileLines("t", {"d"})));
    ProjectSaved = 0;
    Host.MainWindow.Pointer = MousePointer::Hourglass;
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(FileFormatLevel, 50);
    EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Default);
    EXPECT_EQ(Host.MainWindow.History, "1. Opening: " + ProjectFileName + "\r\n");
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(ProjectFile, FinishedSavingLogsAndMarksTheProjectSaved) {
    ProjectSaved = 0;
    ProjectEmpty = 0;
    Saved();
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 0);
    EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Default);
    EXPECT_EQ(Host.MainWindow.History, "1. Saving: " + ProjectFileName + "\r\n");
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(ProjectFile, LosesTheCommasOfLaterLinesOnTheWay) {
    ProjectDescription = "a, b\r\nc, d";
    Saved();
    ReadProjectFile();
    EXPECT_EQ(ProjectDescription, "a, b\r\nc\r\nd\r\n");
}

TEST_F(ProjectFile, OfBlankDescriptionLinesReadsBackEmpty) {
    ProjectDescription = "\r\n   \r\n";
    EXPECT_THAT(Saved(), HasSubstr("##StartDesc##\r\n\r\n##EndDesc##\r\n"));
    ReadProjectFile();
    EXPECT_EQ(ProjectDescription, "");
}

TEST_F(ProjectFile, EndsTheDescriptionAtAnEndMarkWithinIt) {
    FillRecord();
    ProjectDescription = "a\r\n##EndDesc##\r\nb";
    Saved();
    ReadProjectFile();
    EXPECT_EQ(ProjectDescription, "a\r\n");
    EXPECT_EQ(ProjectRecord.Height, 0);      // the text "b"
    EXPECT_EQ(ProjectRecord.DepthCover, 0);  // the second mark
    EXPECT_EQ(ProjectRecord.HoleWidth, 4.5);
    EXPECT_EQ(ProjectRecord.NumberHoles, 5);  // 5.25
}

TEST_F(ProjectFile, HoldsNumbersInGeneralForm) {
    ProjectRecord.Height = 900.0 / 145.0377;
    ProjectRecord.DepthCover = 1e15;
    ProjectRecord.HoleWidth = -0.00001;
    ProjectRecord.CrosscutSpacing = 1000000;
    ProjectRecord.SFWeb = 1.6f;
    ProjectRecord.SFBarrier = 1e7f;
    ProjectRecord.NumberHoles = -5;
    EXPECT_EQ(Saved(),
              "TARVOKOL_101\r\n 0 \r\n\r\n##StartDesc##\r\n\r\n##EndDesc##\r\n"
              "6.20528317809783\r\n1E+15\r\n-1E-05\r\n0\r\n0\r\n-5 \r\n0\r\n1000000\r\n0\r\n0\r\n0\r\n"
              "1.6\r\n1E+07\r\n0\r\n");
}

TEST_F(ProjectFile, NumberTextOfTheRecord) {
    EXPECT_EQ(NumberToFileText(1.6f), "1.6");
    EXPECT_EQ(NumberToFileText(162.0 / 6.3663022639200495), "25.446482633743");
    EXPECT_EQ(NumberToFileText(0.1 + 0.2), "0.3");
}

TEST_F(ProjectFile, MendsAUnitSystemOutOfRange) {
    for (const char* units : {" 2 ", "-1 ", "7"}) {
        auto lines = FileLines("t", {"d"});
        lines[1] = units;
        Provide(Joined(lines));
        UnitSystem = 1;
        EXPECT_TRUE(ReadProjectFile());
        EXPECT_EQ(UnitSystem, 0) << units;
    }
}

TEST_F(ProjectFile, WithoutHolesReadsOne) {
    auto lines = FileLines("t", {"d"});
    lines[11] = " 0 ";
    Provide(Joined(lines));
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectRecord.NumberHoles, 1);
}

TEST_F(ProjectFile, TakesAnyOtherNumberOfHoles) {
    for (const auto& [text, holes] : {std::pair{" 21 ", 21}, {"-5 ", -5}, {"2.5", 2}, {"3.5", 4}, {"1", 1}}) {
        auto lines = FileLines("t", {"d"});
        lines[11] = text;
        Provide(Joined(lines));
        EXPECT_TRUE(ReadProjectFile());
        EXPECT_EQ(ProjectRecord.NumberHoles, holes);
    }
}

TEST_F(ProjectFile, OverflowsOnNumbersBeyondTheirTypes) {
    for (const auto& [line, text] :
         {std::pair{11, "1E300"}, {1, "70000"}, {6, "1E999"}, {17, "1E39"}, {11, "32768"}}) {
        auto lines = FileLines("t", {"d"});
        lines[static_cast<std::size_t>(line)] = text;
        EXPECT_EQ(ErrorOfReading(Joined(lines)), 6) << line << ": " << text;
    }
}

TEST_F(ProjectFile, ReadsTextInANumbersPlaceByItsLeadingNumber) {
    auto lines = FileLines("t", {"d"});
    lines[6] = "NaN";
    lines[7] = "12ft";
    lines[8] = "";
    lines[9] = "  7.5  ";
    lines[10] = "\"8\"";
    Provide(Joined(lines));
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectRecord.Height, 0);
    EXPECT_EQ(ProjectRecord.DepthCover, 12);
    EXPECT_EQ(ProjectRecord.HoleWidth, 0);
    EXPECT_EQ(ProjectRecord.WebThickness, 7.5);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 8);
}

TEST_F(ProjectFile, ReadsSeveralNumbersOfALine) {
    Provide("TARVOKOL_101\r\n0\r\nt\r\nd\r\n##EndDesc##\r\n1,2 3, 4\r\n5 6\r\n7,8,9,10,11,12,13,14\r\n");
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectRecord.WebThickness, 4);
    EXPECT_EQ(ProjectRecord.NumberHoles, 6);
    EXPECT_EQ(ProjectRecord.SpareSingle, 14.0f);
}

TEST_F(ProjectFile, ReadsBareLineFeedsAndIgnoresWhatFollows) {
    Provide(Joined(FileLines("t", {"d", "e"}), "\n") + "more\n");
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectTitle, "t");
    EXPECT_EQ(ProjectDescription, "d\r\ne\r\n");
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
}

TEST_F(ProjectFile, OfCarriageReturnsOnlyIsOneForeignLine) {
    Provide(Joined(FileLines("t", {"d"}), "\r"));
    EXPECT_FALSE(ReadProjectFile());
    EXPECT_THAT(Messages(), ElementsAre("Invalid file format"));
}

TEST_F(ProjectFile, RefusesEveryOtherMagic) {
    for (const char* magic :
         {"TARVOKOL_100", "tarvokol_101", "TARVOKOL_1011", "TARVOKOL_101x", "", "\xEF\xBB\xBFTARVOKOL_101"}) {
        auto lines = FileLines("t", {"d"});
        lines[0] = magic;
        Provide(Joined(lines));
        EXPECT_FALSE(ReadProjectFile()) << magic;
        EXPECT_EQ(Messages().back(), "Invalid file format");
    }
    EXPECT_EQ(Messages().size(), 6u);
}

TEST_F(ProjectFile, RefusesAForeignFileAndLeavesItOpen) {
    Provide("something else\r\nsecond\r\n");
    ProjectTitle = "before";
    Host.MainWindow.Pointer = MousePointer::Hourglass;
    EXPECT_FALSE(ReadProjectFile());
    EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Default);
    EXPECT_EQ(LineInput(1), "second");
    EXPECT_EQ(ProjectTitle, "before");
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(ReadBytes(ProjectFileName).substr(0, 12), "TARVOKOL_101");
}

TEST_F(ProjectFile, SaysInvalidFormatPlainlyUnderTheProgramsTitle) {
    Provide("x\r\n");
    ReadProjectFile();
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(ErrorTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_THAT(Host.MainWindow.History, HasSubstr("2. Message: Invalid file format\r\n"));
}

TEST_F(ProjectFile, AcceptsTheMagicBesideBlanksCommasAndQuotes) {
    for (const char* magic : {"  TARVOKOL_101  ", "\"TARVOKOL_101\"", "TARVOKOL_101,"}) {
        auto lines = FileLines("t", {"d"});
        lines[0] = magic;
        Provide(Joined(lines));
        EXPECT_TRUE(ReadProjectFile()) << magic;
    }
    Provide("TARVOKOL_101" + std::string(100, ' ') + Joined(FileLines("t", {"d"})).substr(12));
    EXPECT_TRUE(ReadProjectFile());
    Provide("TARVOKOL_101" + std::string(100, ' ') + "x" + Joined(FileLines("t", {"d"})).substr(12));
    EXPECT_FALSE(ReadProjectFile());
}

TEST_F(ProjectFile, ThatIsEmptyEndsBeforeItsMagic) {
    EXPECT_EQ(ErrorOfReading(""), 62);
    EXPECT_TRUE(Messages().empty());
    EXPECT_NE(FreeFile(), 1);
}

TEST_F(ProjectFile, CutOffBehindAnyLineRunsPastTheEnd) {
    const auto lines = FileLines("title", {"one", "two"});
    for (std::size_t count = 1; count < lines.size(); ++count) {
        ProjectEmpty = 255;
        ProjectRecord = PanelInputs{};
        ProjectTitle.clear();
        Host.MainWindow.Pointer = MousePointer::Hourglass;
        EXPECT_EQ(ErrorOfReading(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count)})),
                  62);
        EXPECT_EQ(ProjectEmpty, 255);
        EXPECT_EQ(ProjectTitle, count > 2 ? "title" : "");
        EXPECT_EQ(ProjectRecord.Height, count > 7 ? 4.5 : 0);
        EXPECT_EQ(ProjectRecord.SFBarrier, count > 19 ? 2.0f : 0.0f);
        EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Hourglass);
    }
}

TEST_F(ProjectFile, WithoutTheLastLineEndReadsWhole) {
    const std::string bytes = Joined(FileLines("t", {"d"}));
    Provide(bytes.substr(0, bytes.size() - 2));
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
}

TEST_F(ProjectFile, MissingFoldersAndForbiddenKindsRaiseTheirErrors) {
    const auto error_of = [](const std::string& path, bool (*action)()) {
        ProjectFileName = path;
        return RaisedError([action] { action(); });
    };
    EXPECT_EQ(error_of(PathTo("gone.TKL"), ReadProjectFile), 53);
    EXPECT_EQ(error_of(PathTo("gone/x.TKL"), ReadProjectFile), 76);
    EXPECT_EQ(error_of(Folder.string(), ReadProjectFile), 75);
    EXPECT_EQ(error_of(PathTo("gone/x.TKL"), FileSave), 76);
    EXPECT_EQ(error_of(Folder.string(), FileSave), 75);
}

// Everything is permitted to root, who runs this as somebody else.
void LeaveRoot(const std::filesystem::path& folder) {
    constexpr uid_t kNobody = 65534;
    if (::geteuid() != 0) return;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (::chown(entry.path().c_str(), kNobody, kNobody) != 0) std::_Exit(2);
    if (::chown(folder.c_str(), kNobody, kNobody) != 0 || ::setgroups(0, nullptr) != 0) std::_Exit(2);
    if (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0) std::_Exit(2);
}

TEST_F(ProjectFile, ThatMayNotBeReadOrWrittenRaisesPermissionDenied) {
    testing::FLAGS_gtest_death_test_style = "fast";
    const auto exit_with_errors = [this] {
        LeaveRoot(Folder);
        const int read = RaisedError([] { ReadProjectFile(); });
        const int save = RaisedError([] { FileSave(); });
        std::fprintf(stderr, "read %d, save %d", read, save);
        std::_Exit(0);
    };
    Provide(Joined(FileLines("t", {"d"})));
    std::filesystem::permissions(ProjectFileName, std::filesystem::perms::none);
    EXPECT_EXIT(exit_with_errors(), testing::ExitedWithCode(0), "read 70, save 70");
}

// Bringing it to the disk fails: the new file is not there, the old one is as it was.
TEST_F(ProjectFile, WhoseWayToTheDiskFailsIsAsItWas) {
    FillRecord();
    for (const char* before : {"", "the old content"}) {
        std::string failed;
        for (long at = 1; failed != "fsync"; ++at) {
            ASSERT_LT(at, 30);
            ProjectFileName = PathTo("new" + std::to_string(at) + ".TKL");
            if (*before != 0) WriteBytes(ProjectFileName, before);
            const FailingFiles fault({.folder = Folder.string(), .at = at, .error = EIO});
            RaisedError([] { FileSave(); });
            failed = fault.Failed();
        }
        EXPECT_EQ(ReadBytes(ProjectFileName), before);
        EXPECT_EQ(std::filesystem::exists(ProjectFileName), *before != 0);
    }
}

// What a save does to the records, it does once the file can be written, and not before.
TEST_F(ProjectFile, ThatCannotBeWrittenLeavesTheRecordsAsTheyWere) {
    FillRecord();
    ProjectRecord.NumberHoles = 0;
    ProjectDescription = "\r\none\r\n\r\ntwo";
    ProjectSaved = 0;
    ProjectFileName = PathTo("gone/x.TKL");
    EXPECT_EQ(RaisedError([] { FileSave(); }), 76);
    EXPECT_EQ(ProjectDescription, "\r\none\r\n\r\ntwo");
    EXPECT_EQ(ProjectRecord.NumberHoles, 0);
    EXPECT_EQ(ProjectSaved, 0);
    ProjectFileName = PathTo("full.TKL");
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
    }
    EXPECT_EQ(ProjectDescription, "one\r\ntwo");
    EXPECT_EQ(ProjectRecord.NumberHoles, 1);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_FALSE(std::filesystem::exists(ProjectFileName));
}

TEST_F(ProjectFile, ThatIsSavedElsewhereGivesNobodyMoreRights) {
    Provide(Joined(FileLines("t", {"d"})));
    ASSERT_EQ(::chmod(ProjectFileName.c_str(), 0600), 0);
    EXPECT_TRUE(ReadProjectFile());
    ProjectFileName = PathTo("elsewhere.TKL");
    EXPECT_TRUE(FileSave());
    struct stat status {};
    ASSERT_EQ(::stat(ProjectFileName.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(ProjectFile, OnAFullDiskRaisesDiskFullAndStaysUnsaved) {
    ProjectSaved = 0;
    ProjectFileName = PathTo("full.TKL");
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
        EXPECT_EQ(fault.Failed(), "write");
    }
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Hourglass);
    ProjectFileName = PathTo("good.TKL");
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(ProjectSaved, 255);
}

TEST_F(ProjectFile, IsNotTouchedByReading) {
    const std::string bytes = Joined(FileLines("t", {"d, e", "f, g"}));
    Provide(bytes);
    const auto time = std::filesystem::last_write_time(ProjectFileName);
    std::filesystem::permissions(ProjectFileName, std::filesystem::perms::owner_read);
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_EQ(ReadBytes(ProjectFileName), bytes);
    EXPECT_EQ(std::filesystem::last_write_time(ProjectFileName), time);
}

TEST_F(ProjectFile, KeepsTitleAndDescriptionInWindows1252WhereTheyFit) {
    ProjectTitle = "Fl\xC3\xB6z \xE2\x82\xAC";
    EXPECT_THAT(Saved(), HasSubstr("\r\nFl\xF6z \x80\r\n"));
    ReadProjectFile();
    EXPECT_EQ(ProjectTitle, "Fl\xC3\xB6z \xE2\x82\xAC");
}

TEST_F(ProjectFile, KeepsTextBeyondWindows1252InUtf8) {
    ProjectTitle = "\xE7\x9F\xBF\xE5\xB1\xB1 Fl\xC3\xB6z";
    EXPECT_THAT(Saved(), HasSubstr("\r\n\xE7\x9F\xBF\xE5\xB1\xB1 Fl\xC3\xB6z\r\n"));
    ReadProjectFile();
    EXPECT_EQ(ProjectTitle, "\xE7\x9F\xBF\xE5\xB1\xB1 Fl\xC3\xB6z");
}

TEST_F(ProjectFile, KeepsTextWhoseWindows1252BytesWouldPassForUtf8) {
    ProjectTitle = "\xC3\x83\xC2\xBC";  // two characters that are the bytes of one
    Saved();
    ReadProjectFile();
    EXPECT_EQ(ProjectTitle, "\xC3\x83\xC2\xBC");
}

TEST_F(ProjectFile, OfBinaryBytesIsRefused) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    Provide(bytes);
    EXPECT_FALSE(ReadProjectFile());
}

TEST_F(ProjectFile, WithATitleBeyondTheLongestTextRunsOutOfMemory) {
    EXPECT_EQ(ErrorOfReading("TARVOKOL_101\r\n0\r\n" + std::string(kLongestText + 1, 'x') + "\r\n"), 7);
}

}  // namespace
}  // namespace tarvokol
