// SPDX-License-Identifier: GPL-3.0-or-later
// The studies in a real window: a design by the mouse and by the keyboard alone, sliders dragged, files dropped, cells pasted,
// a project that changes meanwhile.
#include <gmock/gmock.h>

#include "tests/e2e/reader_desktop.h"

namespace tarvokol {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kProgram = " \u2013 TARVO-KOL Studies";

class Studies : public ReaderTest {
  protected:
    Studies() {
        Program.Path = TARVOKOL_STUDIES;
        Reading = "tarvokol-studies";
    }
    ~Studies() override { Reading = "tarvokol"; }

    std::string ProjectPath() const { return PathTo("bench.TKL"); }

    void StartWithProject() {
        std::filesystem::copy_file(std::string(TARVOKOL_EXAMPLES) + "/Contour_Bench_Shallow.TKL",
                                   ProjectPath());
        Start({ProjectPath()});
        ExpectWindow("bench.TKL" + kProgram);
    }

    static void ExpectBox(const std::string& name, const std::string& text) {
        EXPECT_TRUE(Eventually([&] {
            return testing::Matches(
                Contains(AllOf(StartsWith("text\t" + name + "\t"), EndsWith("\t" + text))))(Lines());
        })) << text
            << " in " << name << ": " << testing::PrintToString(Lines());
    }

    static void TypeInto(const std::string& box, const std::string& text) {
        ClickOn("text", box);
        Press("ctrl+a");
        Type(text);
    }

    // Takes what stands in the middle of `from` along to the middle of `to`, in steps as a hand does.
    static void Drag(const Place& from, const Place& to) {
        const auto middle = [](const Place& place, double share, const Place& other) {
            const int x = place.x + place.width / 2, y = place.y + place.height / 2;
            const int other_x = other.x + other.width / 2, other_y = other.y + other.height / 2;
            return std::to_string(x + static_cast<int>(share * (other_x - x))) + " " +
                   std::to_string(y + static_cast<int>(share * (other_y - y)));
        };
        std::string steps = "mousemove " + middle(from, 0, to) + " sleep 0.2 mousedown 1 sleep 0.2";
        for (int step = 1; step <= 10; ++step)
            steps += " mousemove " + middle(from, step / 10.0, to) + " sleep 0.05";
        OutputOf("xdotool " + steps + " sleep 0.2 mouseup 1");
    }

    std::string TextOfPdf(const std::string& name) const {
        return OutputOf("pdftotext -layout '" + PathTo(name) + "' - 2>/dev/null");
    }

    void ExpectPrinted(const std::string& name, const std::string& text) const {
        EXPECT_TRUE(Eventually([&] { return TextOfPdf(name).find(text) != std::string::npos; }))
            << TextOfPdf(name);
    }
};

TEST_F(Studies, ADesignByTheMouseIsFoundSavedAndPrinted) {
    StartWithProject();
    TypeInto("Depth of cover (ft)", "250");
    ExpectWindow("bench.TKL*" + kProgram);
    TypeInto("Web thickness (ft)", "7.5");
    ClickOn("page tab", "Risk");
    ClickOn("push button", "Which Width?");
    ClickOn("push button", "Take Width");
    ClickOn("menu item", "File");
    ClickOn("menu item", "Print...");
    ExpectWindow("Print");
    TypeInto("Output file:", PathTo("risk.pdf"));
    ClickOn("push button", "Print");
    ExpectPrinted("risk.pdf", "Tamsin Ridge Mine, Bench 3 contour panel");
    ExpectPrinted("risk.pdf", "lognormal");
    ClickOn("menu item", "File");
    ClickOn("menu item", "Save");
    ExpectWindow("bench.TKL" + kProgram);
    EXPECT_THAT(ReadBytes(ProjectPath()), HasSubstr("\r\n250\r\n"));
    EXPECT_EQ(PressToEnd("ctrl+q"), 0);
}

TEST_F(Studies, ADesignByTheKeyboardAloneIsFoundSavedAndPrinted) {
    StartWithProject();
    Press("Tab Tab Tab Tab ctrl+a");  // from the height past its range and slider
    Type("250");
    ExpectBox("Depth of cover (ft)", "250");
    Press("Tab Tab Tab Tab Tab Tab Tab Tab ctrl+a");
    Type("7.5");
    ExpectBox("Web thickness (ft)", "7.5");
    PressUntil("alt+i",
               [] { return testing::Matches(Contains(HasSubstr("Spread of the factors")))(Lines()); });
    PressTo("ctrl+p", "Print");
    Press("alt+f ctrl+a");
    Type(PathTo("risk.pdf"));
    Press("Return");
    ExpectPrinted("risk.pdf", "lognormal");
    PressTo("ctrl+s", "bench.TKL" + kProgram);
    EXPECT_THAT(ReadBytes(ProjectPath()), AllOf(HasSubstr("\r\n250\r\n"), HasSubstr("\r\n7.5\r\n")));
    EXPECT_EQ(PressToEnd("ctrl+q"), 0);
}

TEST_F(Studies, ADragOfASliderIsFollowedAndIsOneChange) {
    StartWithProject();
    const Place handle = PlaceOf("slider", "Depth of cover, slider");
    Place end = handle;
    end.x += handle.width;
    Drag(handle, end);
    ExpectBox("Depth of cover (ft)", "180");  // the upper end of half to one and a half times 120
    PressTo("ctrl+z", "bench.TKL" + kProgram);
    ExpectBox("Depth of cover (ft)", "120");
    EXPECT_EQ(PressToEnd("ctrl+q"), 0);
}

TEST_F(Studies, AProjectThatIsDroppedIsOpened) {
    Start();
    ExpectWindow("Untitled" + kProgram);
    std::filesystem::copy_file(std::string(TARVOKOL_EXAMPLES) + "/Metric_Deep_Panel.TKL",
                               PathTo("dropped.TKL"));
    Servant manager;
    ASSERT_TRUE(manager.Start({TARVOKOL_DRAG_SOURCE, PathTo("dropped.TKL")}));
    ExpectWindow("Drag source");
    const Place source = ActivePlace();
    Drag(source, PlaceOf("page tab", "Compare"));
    EXPECT_TRUE(Eventually([] {
        return !OutputOf("xdotool search --name 'dropped.TKL' 2>/dev/null").empty();
    })) << testing::PrintToString(Lines());
}

TEST_F(Studies, ATableIsPastedFromASpreadsheet) {
    StartWithProject();
    PressUntil("alt+b", [] { return testing::Matches(Contains(StartsWith("table\t")))(Lines()); });
    OutputOf(
        "printf 'Hole\\tDepthCover\\nTR-1\\t130\\nTR-2\\t240\\n' | xclip -i -selection clipboard >/dev/null "
        "2>&1");
    ClickOn("table", "Table of panels");
    Press("ctrl+v");
    EXPECT_TRUE(Eventually([] {
        const auto lines = Lines();
        return testing::Matches(
            AllOf(Contains(StartsWith("table cell\tTR-2")), Contains(StartsWith("table cell\t240"))))(lines);
    })) << testing::PrintToString(Lines());
}

TEST_F(Studies, AProjectThatChangesMeanwhileIsTold) {
    StartWithProject();
    std::string bytes = ReadBytes(ProjectPath());
    const std::size_t depth = bytes.find("\r\n120\r\n");
    ASSERT_NE(depth, std::string::npos);
    WriteBytes(ProjectPath(), bytes.replace(depth, 7, "\r\n130\r\n"));
    EXPECT_TRUE(Eventually([] {
        return testing::Matches(Contains(HasSubstr("has been changed by somebody else")))(Lines());
    })) << testing::PrintToString(Lines());
    EXPECT_TRUE(Program.IsRunning());
}

}  // namespace
}  // namespace tarvokol
