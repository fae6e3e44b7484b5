// SPDX-License-Identifier: GPL-3.0-or-later
// What only a real window shows: focus, activation, and the window manager's hand on edges and places.
#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

const std::string kMain = "TARVO-KOL";
const std::string kBrowser = "View Source Files";
const std::string kPlan = "View Plan";

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
        Press("ctrl+e");
        ExpectWindow("Parameters");
        Press("alt+v");
        ExpectWindow(kPlan);
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
    Press("ctrl+b");
    ExpectWindow(kBrowser);
    Press("alt+p ctrl+a");
    Type("r");
    ExpectWindowBeside(kBrowser);  // no file of that name
    Press("Escape");
    ExpectWindow(kBrowser);
    Type("*.T L");
    Press("Return");
    ExpectWindow(kBrowser);
    Press("Escape");
    ExpectWindow(kMain);
    EXPECT_THAT(ReadBytes(DataFile("TARVOKOL.INI")), HasSubstr("BrowseDefaultFilter=r*.T L\r\n"));
}

TEST_F(Windows, TheSecondOfTwoBoxesStandsAboveItsForm) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\n");
    Start();
    ExpectWindow(kMain);
    Press("ctrl+b");
    ExpectWindow(kBrowser);
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
    const std::string first = OutputOf("xdotool getactivewindow");
    Press("Return");  // Retry
    ASSERT_TRUE(Eventually([&] {
        const std::string now = OutputOf("xdotool getactivewindow 2>/dev/null");
        return !now.empty() && now != first && ActivePlace().width < form.width;
    }));
    expect_centred();
}

TEST_F(Windows, EveryDragOfThePlanEndsInASquare) {
    StartWithProject();
    OpenPlan();
    for (const int by : {80, -120, 160, -40, 40, -160, 120}) {
        SCOPED_TRACE(by);
        const int before = ActivePlace().width;
        DragRightEdge(by);
        ASSERT_TRUE(Eventually([&] { return ActivePlace().width != before; }));
        ExpectSquare();
        EXPECT_NEAR(ActivePlace().width, before + by, 12);
    }
    Press("Escape");
    ExpectWindow("Parameters");
}

TEST_F(Windows, ASizeThatTheUserGaveIsKeptForTheNextOpening) {
    StartWithProject();
    OpenPlan();
    const int before = ActivePlace().width;
    DragRightEdge(-80);
    ASSERT_TRUE(Eventually([&] { return ActivePlace().width < before - 60; }));
    ExpectSquare();
    const int chosen = ActivePlace().width;
    Press("Escape");
    ExpectWindow("Parameters");
    Press("alt+v");
    ExpectWindow(kPlan);
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
    Press("alt+o Down Right Return");
    ExpectWindow("Graph");
    std::string before = PictureOfWindow();
    for (const char* key : {"Right", "Right", "Down"}) {
        Press(key);
        EXPECT_TRUE(Eventually([&] { return PictureOfWindow() != before; })) << key;
        before = PictureOfWindow();
    }
    Press("alt+f x");
    ExpectWindow(Caption());
    OpenPlan();
    before = PictureOfWindow();
    Press("Right");
    EXPECT_TRUE(Eventually([&] { return PictureOfWindow() != before; }));
    Press("Escape");
    ExpectWindow("Parameters");
}

TEST_F(Windows, ACommaIsAnsweredByANoteThatLeavesTheKeyboardAlone) {
    StartWithProject();
    Press("ctrl+e");
    ExpectWindow("Parameters");
    Press("alt+h ctrl+a");
    const auto windows = [] { return OutputOf("xdotool search --onlyvisible --class tarvokol | wc -l"); };
    const std::string before = windows();
    Type("9,5");
    EXPECT_TRUE(Eventually([&] { return windows() != before; }));
    ExpectWindow("Parameters");
    Press("Return");
    ExpectWindow(Caption());
    Press("ctrl+s");
    EXPECT_TRUE(Eventually([this] {
        return ReadBytes(ProjectPath()).find("##EndDesc##\r\n10\r\n100\r\n9\r\n10\r\n20\r\n") !=
               std::string::npos;
    })) << ReadBytes(ProjectPath());
}

}  // namespace
}  // namespace tarvokol
