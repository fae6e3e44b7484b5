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
    // Where the window itself begins: xdotool adds the frame once more.
    const auto off_centre = [] {
        const std::string frame = OutputOf("xprop -id $(xdotool getactivewindow) _NET_FRAME_EXTENTS");
        int left = 0, right = 0, top = 0, bottom = 0;
        const std::size_t at = frame.find('=');
        if (at == std::string::npos ||
            std::sscanf(frame.c_str() + at + 1, "%d, %d, %d, %d", &left, &right, &top, &bottom) != 4)
            return 1000;
        const int screen = std::atoi(OutputOf("xdotool getdisplaygeometry | cut -d' ' -f2").c_str());
        const int y = std::atoi(
            OutputOf("xwininfo -id $(xdotool getactivewindow) | sed -n 's/.*upper-left Y: *//p' | head -1")
                .c_str());
        return std::abs(2 * y - top + ActivePlace().height + bottom - screen) / 2;
    };
    EXPECT_TRUE(Eventually([&] { return off_centre() <= 2; })) << off_centre();
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
