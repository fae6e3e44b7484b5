// SPDX-License-Identifier: GPL-3.0-or-later
// What only a real window shows: focus, activation, and the window manager's hand on edges and places.
#include <cstdlib>

#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

const std::string kBrowser = "View Source Files";

class Windows : public DesktopTest {
  protected:
    std::string ProjectPath() const { return PathTo("panel.TKL"); }
    std::string Caption() const { return kMain + ": " + ProjectPath(); }

    void StartWithProject(const std::string& options = "") {
        WriteSettings("", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n" + options);
        WriteBytes(
            ProjectPath(),
            "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n"
            "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n");
        Start({ProjectPath()});
        ExpectWindow(Caption());
    }

    void OpenPlan() {
        PressTo("ctrl+e", "Parameters");
        PressTo("alt+v", kPlan);
        ExpectSquare();
    }

    // The plan's client area is square below a menu bar of 34 pixels.
    static void ExpectSquare() {
        EXPECT_TRUE(Eventually([] { return ActivePlace().height == ActivePlace().width + 34; }))
            << ActivePlace().width << " x " << ActivePlace().height;
    }
};

TEST_F(Windows, APatternThatBeginsWithALetterIsTypedToItsEnd) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\n");
    Start();
    ExpectWindow(kMain);
    PressTo("ctrl+b", kBrowser);
    Press("alt+p ctrl+a");
    Type("r");
    ExpectWindowBeside(kBrowser);  // no file of that name
    PressTo("Escape", kBrowser);
    Type("*.T L");
    PressTo("Return", kBrowser);
    PressTo("Escape", kMain);
    EXPECT_THAT(ReadBytes(DataFile("TARVOKOL.INI")), HasSubstr("BrowseDefaultFilter=r*.T L\r\n"));
}

TEST_F(Windows, TheSecondOfTwoBoxesStandsAboveItsForm) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\n");
    Start();
    ExpectWindow(kMain);
    PressTo("ctrl+b", kBrowser);
    OutputOf("xdotool getactivewindow windowmove --sync 20 20");
    ASSERT_TRUE(Eventually([] { return ActivePlace().x < 40; }));
    const Place form = ActivePlace();
    Press("alt+p ctrl+a");
    Type("q");
    ExpectWindowBeside(kBrowser);
    const auto expect_centred = [&form] {
        EXPECT_TRUE(Eventually([&form] {
            const Place box = ActivePlace();
            return box.width < form.width && std::abs(box.x + box.width / 2 - form.x - form.width / 2) < 30;
        })) << ActivePlace().x
            << " + " << ActivePlace().width;
    };
    expect_centred();
    const std::string first = Front().id;
    PressUntil("Return", [&] {  // Retry
        const std::string now = Front().id;
        return !now.empty() && now != first && ActivePlace().width < form.width;
    });
    expect_centred();
}

TEST_F(Windows, EveryDragOfThePlanEndsInASquare) {
    StartWithProject();
    OpenPlan();
    for (const int by : {80, -120, 160, -40, 40, -160, 120}) {
        SCOPED_TRACE(by);
        const int before = ActivePlace().width;
        DragRightEdge(by);
        ASSERT_TRUE(Eventually([&] { return std::abs(ActivePlace().width - before - by) <= 12; }))
            << ActivePlace().width << ", before: " << before;
        ExpectSquare();
        EXPECT_NEAR(ActivePlace().width, before + by, 12);
    }
    PressTo("Escape", "Parameters");
}

TEST_F(Windows, ASizeThatTheUserGaveIsKeptForTheNextOpening) {
    StartWithProject();
    OpenPlan();
    const int before = ActivePlace().width;
    DragRightEdge(-80);
    ASSERT_TRUE(Eventually([&] { return ActivePlace().width < before - 60; }));
    ExpectSquare();
    const int chosen = ActivePlace().width;
    PressTo("Escape", "Parameters");
    PressTo("alt+v", kPlan);
    EXPECT_TRUE(Eventually([&] { return ActivePlace().width == chosen; })) << ActivePlace().width;
    ExpectSquare();
}

// What the active window shows, in short.
std::string PictureOfWindow() {
    return OutputOf("import -window $(xdotool getactivewindow) rgba:- 2>/dev/null | md5sum");
}

TEST_F(Windows, GraphAndPlanAnswerTheArrowKeysAtOnce) {
    if (OutputOf("command -v import").empty()) GTEST_SKIP() << "not installed: imagemagick";
    StartWithProject();
    PressTo("alt+o Down Right Return", "Graph");
    std::string before = PictureOfWindow();
    for (const char* key : {"Right", "Right", "Down"}) {
        PressUntil(key, [&] { return PictureOfWindow() != before; });
        before = PictureOfWindow();
    }
    PressTo("alt+f x", Caption());
    OpenPlan();
    before = PictureOfWindow();
    PressUntil("Right", [&] { return PictureOfWindow() != before; });
    PressTo("Escape", "Parameters");
}

TEST_F(Windows, ACommaIsAnsweredByANoteThatLeavesTheKeyboardAlone) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    Press("alt+h ctrl+a");
    Type("9,5");
    ExpectWindow("Parameters");
    PressTo("Return", Caption());
    PressUntil("ctrl+s", [this] {
        return ReadBytes(ProjectPath()).find("##EndDesc##\r\n10\r\n100\r\n9\r\n10\r\n20\r\n") !=
               std::string::npos;
    });
}

TEST_F(Windows, AFigureThatIsRefusedOnAnotherTabIsTypedAnew) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\n");
    Start();
    ExpectWindow(kMain);
    PressTo("alt+u o", "Options");
    Press("alt+w ctrl+a");
    Type("0.5");
    PressToBeside("Return", "Options");  // refused
    PressTo("Return", "Options");
    Type("1.7");
    PressTo("Return", kMain);
    const std::string settings = ReadBytes(DataFile("TARVOKOL.INI"));
    EXPECT_THAT(settings, HasSubstr("DefaultSFWeb=1.7\r\n"));
    EXPECT_THAT(settings, HasSubstr("AskOfficeInstall=1\r\n"));
}

// The frame counts: a form is no lower than its screen's middle by half a title bar.
TEST_F(Windows, AFormStandsInTheMiddleWithItsFrame) {
    StartWithProject();
    PressTo("alt+u o", "Options");
    EXPECT_TRUE(Eventually(StandsInTheMiddle)) << FramePlace().x << ", " << FramePlace().y;
}

// Whatever size the user gave it before.
TEST_F(Windows, AGraphOpensInItsOwnSizeInTheMiddle) {
    StartWithProject();
    PressTo("alt+o Down Right Return", "Graph");
    EXPECT_TRUE(Eventually(StandsInTheMiddle));
    const Place first = ActivePlace();
    OutputOf("xdotool getactivewindow windowsize 700 640 windowmove 10 10");
    EXPECT_TRUE(Eventually([] { return ActivePlace().width == 700 && FramePlace().x < 20; }));
    PressTo("Escape", Caption());
    PressTo("alt+o Down Right Return", "Graph");
    EXPECT_TRUE(Eventually(StandsInTheMiddle));
    EXPECT_EQ(ActivePlace().width, first.width);
    EXPECT_EQ(ActivePlace().height, first.height);
    EXPECT_EQ(first.width, 477);
    PressTo("Escape", Caption());
}

TEST_F(Windows, TheHelpComesBackWhereItWas) {
    StartWithProject();
    PressTo("F1", "TARVO-KOL Help");
    OutputOf("xdotool getactivewindow windowsize 600 500 windowmove 300 120");
    // Size and place are two requests: the window manager moves the frame until two looks agree.
    Place before;
    EXPECT_TRUE(Eventually([&before] {
        const Place last = before;
        before = FramePlace();
        return std::abs(before.x - 300) < 30 && std::abs(before.y - 120) < 40 && ActivePlace().width == 600 &&
               before.x == last.x && before.y == last.y;
    })) << before.x
        << ", " << before.y;
    PressTo("Escape", Caption());
    PressTo("F1", "TARVO-KOL Help");
    const auto is_there = [&] { return FramePlace().x == before.x && FramePlace().y == before.y; };
    EXPECT_TRUE(Eventually(is_there))
        << FramePlace().x << ", " << FramePlace().y << " for " << before.x << ", " << before.y;
    EXPECT_EQ(ActivePlace().width, 600);
    // Once more, from where it came back to: it does not wander.
    PressTo("Escape", Caption());
    PressTo("F1", "TARVO-KOL Help");
    EXPECT_TRUE(Eventually(is_there))
        << FramePlace().x << ", " << FramePlace().y << " for " << before.x << ", " << before.y;
}

// Of the desktops that name one, this is the one whose file tells.
TEST_F(Windows, TheFontThatTheDesktopNamesIsTheProgramsFont) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    const int plain = ActivePlace().width;
    PressTo("Escape", Caption());
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
    std::filesystem::create_directory(Folder / ".config");
    WriteBytes(PathTo(".config/kdeglobals"), "[General]\nfont=DejaVu Sans,16,-1,5,50,0,0,0,0,0\n");
    setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    setenv("KDE_SESSION_VERSION", "5", 1);
    Start({ProjectPath()});
    unsetenv("XDG_CURRENT_DESKTOP");
    unsetenv("KDE_SESSION_VERSION");
    ExpectWindow(Caption());
    PressTo("ctrl+e", "Parameters");
    EXPECT_TRUE(Eventually([&] { return ActivePlace().width > plain + 200; }))
        << ActivePlace().width << ", " << plain;
    PressTo("Escape", Caption());
}

TEST_F(Windows, AFormThatWaitsForAnotherOneHandsItTheKeyboard) {
    StartWithProject();
    const std::string main_window = Front().id;
    PressTo("ctrl+e", "Parameters");
    OutputOf("xdotool windowactivate " + main_window);
    ExpectWindow("Parameters");
    PressTo("Escape", Caption());
}

}  // namespace
}  // namespace tarvokol
