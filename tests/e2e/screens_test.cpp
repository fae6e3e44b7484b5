// SPDX-License-Identifier: GPL-3.0-or-later
// Small screens, large ones, and those of a desktop that draws everything twice as large.
#include <ostream>

#include <gmock/gmock.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

struct ScreenAndScale {
    std::string screen;
    std::string scale;
};

std::ostream& operator<<(std::ostream& out, const ScreenAndScale& screen) {
    return out << screen.screen << " at " << screen.scale;
}

class ScreenTest : public DesktopTest {
  protected:
    std::string ProjectPath() const { return PathTo("panel.TKL"); }
    std::string Caption() const { return "TARVO-KOL: " + ProjectPath(); }

    void StartWithProject() {
        WriteSettings("", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\nDimensionLines=1\r\n");
        WriteBytes(
            ProjectPath(),
            "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n"
            "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n");
        Start({ProjectPath()});
        ExpectWindow(Caption());
    }

    // The window stands on the screen with its frame, to the last pixel.
    static bool IsWhole() {
        const Place frame = FramePlace(), screen = ScreenPlace();
        return frame.width > 0 && frame.x >= 0 && frame.y >= 0 && frame.x + frame.width <= screen.width &&
               frame.y + frame.height <= screen.height;
    }

    void ExpectWhole() const {
        EXPECT_TRUE(Eventually(IsWhole)) << Front().title << ": " << FramePlace().x << ", " << FramePlace().y
                                         << ", " << FramePlace().width << " x " << FramePlace().height;
    }
};

class NarrowScreen : public ScreenTest, public testing::WithParamInterface<ScreenAndScale> {
  protected:
    NarrowScreen() {
        Screen = GetParam().screen;
        Scale = GetParam().scale;
    }

    int Pixels(int of_the_program) const { return of_the_program * std::stoi(Scale); }
};

TEST_P(NarrowScreen, ShowsThePlanAndTheHelpWhole) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    ExpectWhole();
    PressTo("alt+v", kPlan);
    EXPECT_TRUE(Eventually([this] { return ActivePlace().height == ActivePlace().width + Pixels(34); }));
    ExpectWhole();
    EXPECT_GT(ActivePlace().width, Pixels(480));
    PressTo("Escape", "Parameters");
    PressTo("F1", "Project parameters - TARVO-KOL Help");
    ExpectWhole();
    PressTo("Escape", "Parameters");
    PressTo("Escape", Caption());
}

// What every menu opens; what is in front then is left by Escape.
TEST_P(NarrowScreen, ShowsEveryWindowOfTheMenusWhole) {
    StartWithProject();
    for (const char* way : {"alt+f v Return", "ctrl+b", "alt+i d", "alt+o Return", "alt+o Down Right Return",
                            "alt+o Down Down Right Return", "alt+u s", "alt+u o", "alt+u u", "alt+u f",
                            "alt+h r", "alt+h d", "alt+h Up Up Return", "alt+h a"}) {
        SCOPED_TRACE(way);
        PressToBeside(way, Caption());
        ExpectWhole();
        PressTo("Escape", Caption());
    }
    EXPECT_TRUE(Program.IsRunning());
}

// With every page, and the size that the window takes of itself.
TEST_P(NarrowScreen, ShowsTheStudiesWhole) {
    const std::string caption = "panel.TKL \u2013 TARVO-KOL Studies";
    WriteBytes(ProjectPath(), Project("10"));
    Program.Path = TARVOKOL_STUDIES;
    Start({ProjectPath()});
    ExpectWindow(caption);
    for (const char* page : {"alt+a", "alt+i", "alt+b", "alt+c"}) {
        SCOPED_TRACE(page);
        Press(page);
        ExpectWhole();
    }
    EXPECT_EQ(PressToEnd("ctrl+q"), 0);
}

INSTANTIATE_TEST_SUITE_P(Screens, NarrowScreen,
                         testing::Values(ScreenAndScale{"1024x600", "1"}, ScreenAndScale{"1920x1200", "2"}),
                         [](const auto& place) { return place.index == 0 ? "Small" : "TwiceAsLarge"; });

class HugeScreen : public ScreenTest {
  protected:
    HugeScreen() { Screen = "3840x2160"; }
};

// Twips of a wide window have no room in 16 bits: the window goes on all the same.
TEST_F(HugeScreen, DrawsThePlanInAsMuchOfItAsTheUserGives) {
    StartWithProject();
    PressTo("ctrl+e", "Parameters");
    PressTo("alt+v", kPlan);
    for (const int side : {2000, 2400, 3000}) {
        SCOPED_TRACE(side);
        OutputOf("xdotool getactivewindow windowsize " + std::to_string(side) + " " +
                 std::to_string(side + 34));
        EXPECT_TRUE(Eventually([&] {
            return ActivePlace().width == side && ActivePlace().height == side + 34;
        })) << ActivePlace().width
            << " x " << ActivePlace().height;
        ASSERT_TRUE(Program.IsRunning());
        ExpectWindow(kPlan);
    }
    PressTo("Escape", "Parameters");
    PressTo("Escape", Caption());
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
}

}  // namespace
}  // namespace tarvokol
