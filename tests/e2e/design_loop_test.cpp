// SPDX-License-Identifier: GPL-3.0-or-later
// A user's ways through the program, in a real window.
#include <functional>
#include <set>
#include <utility>

#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kParameters = "Parameters";

std::set<std::string> ProjectsIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".TKL") names.insert(entry.path().filename().string());
    return names;
}

class DesignLoop : public DesktopTest {
  protected:
    // Starts with a project open, the dialog off; its caption holds the path.
    void StartWithProject() {
        WriteSettings("DisplayHistoryWin=1\r\nKeepFileNames=1\r\n",
                      "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n");
        WriteBytes(ProjectPath(), Project("10"));
        Start({ProjectPath()});
        ExpectWindow(Caption());
    }
    std::string ProjectPath() const { return PathTo("panel.TKL"); }
    std::string Caption() const { return kMain + ": " + ProjectPath(); }

    void ChangeHeight(const std::string& height) {
        PressTo("ctrl+e", kParameters);
        Press("ctrl+a");
        Type(height);
        PressTo("Return", Caption());
    }

    void ShowResults() { PressTo("alt+o Return", kResults); }

    // Answers one box after another above the window of that title, until that has the keyboard again and the work is done.
    void AnswerUntil(const std::string& keys, const std::string& title, const std::function<bool()>& done) {
        constexpr int kMostBoxes = 5;
        for (int boxes = 0; boxes < kMostBoxes; ++boxes) {
            FrontWindow front;
            ASSERT_TRUE(Eventually([&] {
                front = Front();
                return !front.id.empty() && (front.title != title || done());
            })) << front.title;
            if (front.title == title) return;
            PressUntil(keys, [&] { return Front().id != front.id; });
        }
        FAIL() << "more boxes than known of; active: " << Front().title;
    }

    // Leaves the window `from` by these keys until `to` has the keyboard. A box that comes up late, as the one that no program
    // for workbooks was found, is answered on the way.
    void LeaveTo(const std::string& keys, const std::string& from, const std::string& to) {
        constexpr int kMostBoxes = 5;
        for (int boxes = 0; boxes < kMostBoxes; ++boxes) {
            FrontWindow front;
            ASSERT_TRUE(Eventually([&] {
                front = Front();
                return !front.id.empty();
            }));
            if (front.title == to) return;
            PressUntil(front.title == from ? keys : "Return", [&] {
                const std::string now = Front().id;
                return !now.empty() && now != front.id;
            });
        }
        FAIL() << "more boxes than known of; active: " << Front().title;
    }

    // The first whole file with that ending below the home folder, empty if there is none. What is not yet whole has a name
    // with a point before it, and comes and goes.
    std::string WrittenFile(const std::string& ending) const {
        std::error_code gone;
        for (std::filesystem::recursive_directory_iterator entry(Folder, gone), end; !gone && entry != end;
             entry.increment(gone)) {
            const std::filesystem::path& path = entry->path();
            if (path.extension() == ending && !path.filename().string().starts_with("."))
                return path.string();
        }
        return "";
    }

    void ExpectFile(const std::string& path, const std::string& bytes) {
        EXPECT_TRUE(Eventually([&] { return std::filesystem::exists(path) && ReadBytes(path) == bytes; }))
            << (std::filesystem::exists(path) ? ReadBytes(path) : "missing: " + path);
    }
};

TEST_F(DesignLoop, TheFirstStartMakesTheSettingsAndExamplesAndTheSecondIsSilent) {
    Start();
    ExpectWindow(kDisclaimer);
    EXPECT_THAT(ReadBytes(DataFile("TARVOKOL.INI")), HasSubstr("[Version]\r\nINIFileVersion=050924\r\n"));
    Press("Tab Tab space");
    PressTo("Return", kReminder);
    Press("Tab Tab space");
    PressTo("Return", kMain);
    const std::string settings = ReadBytes(DataFile("TARVOKOL.INI"));
    EXPECT_THAT(settings, HasSubstr("\r\nShowDisclaim=0\r\n"));
    EXPECT_THAT(settings, HasSubstr("\r\nRemindAnnualUpdates=0\r\n"));
    EXPECT_THAT(settings, HasSubstr("\r\nMaxDisplaySize=2048\r\n"));
    EXPECT_EQ(ProjectsIn(Folder / "Documents/MyOLTEK"), ProjectsIn(TARVOKOL_EXAMPLES));
    EXPECT_EQ(PressToEnd("alt+f x"), 0);

    Start();
    ExpectWindow(kMain);
    EXPECT_EQ(OutputOf("xdotool search --onlyvisible --name 'for TARVOKOL' 2>/dev/null"), "");
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
}

TEST_F(DesignLoop, AFirstStartThatEndsAtTheDisclaimerLeavesWholeSettings) {
    Start();
    ExpectWindow(kDisclaimer);
    Program.Kill();
    EXPECT_THAT(ReadBytes(DataFile("TARVOKOL.INI")), HasSubstr("\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\n"
                                                               "DefaultAbutment=21\r\n"));
}

TEST_F(DesignLoop, EditsCalculatesCopiesAndSavesUnderANewName) {
    StartWithProject();
    ChangeHeight("7.5");
    ShowResults();
    ExpectCopied("alt+c", "Webs ONLY");
    ExpectCopied("alt+r alt+c", "Upper seam.");
    PressTo("Escape", Caption());

    PressToBeside("alt+f a", Caption());
    Press("ctrl+a");
    Type(PathTo("deeper.TKL"));
    PressTo("Return", kMain + ": " + PathTo("deeper.TKL"));
    ExpectFile(PathTo("deeper.TKL"), Project("7.5"));
    EXPECT_EQ(ReadBytes(ProjectPath()), Project("10"));
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
    EXPECT_THAT(ReadBytes(DataFile("TARVOKOL.INI")),
                HasSubstr("LastFileLong1=" + PathTo("deeper.TKL") + "\r\n"));
}

TEST_F(DesignLoop, ANewProjectIsTypedFieldByFieldCalculatedAndSaved) {
    WriteSettings("", "ShowInputScreenOnLoad=1\r\n");
    Start();
    ExpectWindow(kMain);
    TypeNewProject();
    ShowResults();
    ExpectCopied("alt+y", "Barrier Pillar");
    PressTo("Escape", kMain + ": Untitled");
    PressToBeside("ctrl+s", kMain + ": Untitled");
    Press("ctrl+a");
    Type(PathTo("typed"));
    PressTo("Return", kMain + ": " + PathTo("typed.TKL"));
    const std::string bytes = ReadBytes(PathTo("typed.TKL"));
    EXPECT_EQ(bytes.substr(bytes.find("##EndDesc##")),
              "##EndDesc##\r\n10\r\n100\r\n10\r\n10\r\n20\r\n 5 "
              "\r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n");
}

// No mouse from an empty project to a saved file, a printed report and an exported curve.
TEST_F(DesignLoop, TheKeyboardAloneLeadsFromAnEmptyProjectToFileReportAndCurve) {
    WriteSettings("", "ShowInputScreenOnLoad=1\r\nAskOfficeInstall=1\r\n");
    Start();
    ExpectWindow(kMain);
    PressTo("ctrl+n", kParameters);
    // The letters of the labels lead to the boxes, in any order.
    const std::pair<const char*, const char*> fields[] = {{"alt+b", "20"}, {"alt+e", "10"}, {"alt+d", "100"},
                                                          {"alt+h", "10"}, {"alt+w", "10"}, {"alt+n", "5"}};
    for (const auto& [letter, value] : fields) {
        Press(letter);
        Type(value);
    }
    PressTo("Return", kMain + ": Untitled");
    PressToBeside("ctrl+s", kMain + ": Untitled");
    Press("ctrl+a");
    Type(PathTo("keys"));
    PressTo("Return", kMain + ": " + PathTo("keys.TKL"));
    EXPECT_THAT(ReadBytes(PathTo("keys.TKL")),
                HasSubstr("##EndDesc##\r\n10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n"));

    ShowResults();
    PressTo("alt+a", "Print");
    AnswerUntil("Return", kResults, [this] { return !WrittenFile(".pdf").empty(); });
    EXPECT_EQ(ReadBytes(WrittenFile(".pdf")).substr(0, 5), "%PDF-");
    PressTo("Escape", kMain + ": " + PathTo("keys.TKL"));

    PressTo("alt+o Down Right Return", "Graph");
    PressToBeside("alt+f Down Return", "Graph");
    AnswerUntil("Return", "Graph", [this] { return !WrittenFile(".xlsx").empty(); });
    EXPECT_EQ(ReadBytes(WrittenFile(".xlsx")).substr(0, 2), "PK");
    LeaveTo("alt+f x", "Graph", kMain + ": " + PathTo("keys.TKL"));
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
    // A system without any starter of documents says so of the workbook; nothing else is said.
    const std::string no_starter = "Unable to detect a launcher for 'file://" + WrittenFile(".xlsx") + "'\n";
    EXPECT_THAT(Program.ErrorOutput(), AnyOf("", no_starter));
}

TEST_F(DesignLoop, CopiesThePlanAsAPicture) {
    StartWithProject();
    ShowResults();
    PressTo("alt+v", "View Plan");
    PressUntil("ctrl+c", [] {
        return OutputOf("timeout 5 xclip -selection clipboard -o -t TARGETS 2>/dev/null").find("image/png") !=
               std::string::npos;
    });
    EXPECT_EQ(OutputOf("timeout 5 xclip -selection clipboard -o -t image/png").substr(0, 8),
              "\x89PNG\r\n\x1a\n");
    PressTo("alt+f x", kResults);
    PressTo("Escape", Caption());
}

TEST_F(DesignLoop, ExitWithUnsavedWorkCanBeCancelledAndThenSaves) {
    StartWithProject();
    ChangeHeight("8.25");
    PressToBeside("alt+f x", Caption());
    PressTo("Escape", Caption());
    EXPECT_TRUE(Program.IsRunning());
    EXPECT_EQ(ReadBytes(ProjectPath()), Project("10"));
    PressToBeside("alt+f x", Caption());
    EXPECT_EQ(PressToEnd("alt+y"), 0);
    EXPECT_EQ(ReadBytes(ProjectPath()), Project("8.25"));
}

TEST_F(DesignLoop, ExitWithoutSavingLeavesTheFileAlone) {
    StartWithProject();
    ChangeHeight("8.25");
    PressToBeside("alt+f x", Caption());
    EXPECT_EQ(PressToEnd("alt+n"), 0);
    EXPECT_EQ(ReadBytes(ProjectPath()), Project("10"));
    EXPECT_THAT(ProjectsIn(DataFile("Temp")), IsEmpty());
}

TEST_F(DesignLoop, AKilledRunLeavesItsUnsavedProjectWhichTheNextStartListsAndOpens) {
    StartWithProject();
    ChangeHeight("7.5");
    const std::set<std::string> copies = ProjectsIn(DataFile("Temp"));
    ASSERT_EQ(copies.size(), 1u);
    const std::string copy = DataFile("Temp/" + *copies.begin());
    EXPECT_THAT(*copies.begin(), StartsWith("~unsaved panel "));
    Program.Kill();
    EXPECT_THAT(ReadBytes(copy), StartsWith(Project("7.5")));
    EXPECT_EQ(ReadBytes(ProjectPath()), Project("10"));

    Start({ProjectPath()});
    ExpectWindow("Unsaved projects of earlier runs");
    PressTo("Return", Caption() + "*");
    ShowResults();
    ExpectCopied("alt+r alt+c", "7.5");
}

TEST_F(DesignLoop, TheEndByAnErrorSaysWhereTheUnsavedProjectIs) {
    WriteSettings("DisplayHistoryWin=1\r\n", "ShowInputScreenOnLoad=0\r\n");
    const std::string path = PathTo(std::string(80, 'p') + ".TKL");
    WriteBytes(path, Project("10"));
    const std::string caption = kMain + ": " + path.substr(0, 10) + "..." + path.substr(path.size() - 37);
    Start({path});
    ExpectWindow(caption);
    PressTo("ctrl+e", kParameters);
    Press("ctrl+a");
    Type("7.5");
    PressTo("Return", caption);
    PressToBeside("alt+o Return", caption);
    const std::set<std::string> copies = ProjectsIn(DataFile("Temp"));
    ASSERT_EQ(copies.size(), 1u);
    const std::string copy = DataFile("Temp/" + *copies.begin());
    EXPECT_THAT(Program.ErrorOutput(),
                HasSubstr("Run-time error '5':\r\n\r\nInvalid procedure call or argument\r\n\r\n"
                          "The unsaved project is kept in: " +
                          copy + "\n"));
    EXPECT_EQ(PressToEnd("Return"), 1);
    EXPECT_THAT(ReadBytes(copy), StartsWith(Project("7.5")));
}

TEST_F(DesignLoop, PreviewOfAnEmptyProjectAsksFirst) {
    WriteSettings("DisplayHistoryWin=1\r\n", "ShowInputScreenOnLoad=0\r\n");
    Start();
    ExpectWindow(kMain);
    PressToBeside("alt+f v Return", kMain);  // two entries have the letter
    PressTo("alt+n", kMain);
    ExpectCopied("alt+u p", "Current file is empty. Continue?");
    PressToBeside("alt+f v Return", kMain);
    PressTo("alt+y", "Print Preview");
}

TEST_F(DesignLoop, AMissingFileOnTheCommandLineEndsTheProgram) {
    WriteSettings();
    Start({PathTo("none.TKL")});
    ExpectWindow("Tarvo Panel Stability Evaluation - KOL");
    EXPECT_TRUE(Program.IsRunning());
    EXPECT_EQ(PressToEnd("Return"), 1);
    EXPECT_THAT(Program.ErrorOutput(),
                HasSubstr("Run-time error '53':\r\n\r\nFile not found: " + PathTo("none.TKL")));
}

}  // namespace
}  // namespace tarvokol
