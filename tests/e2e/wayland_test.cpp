// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a client of a Wayland compositor, which tells nobody where windows stand and places them
// itself. What the program asks of the compositor stands in its standard error: titles, and the windows that
// get the keyboard.
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/e2e/desktop.h"

namespace tarvokol {
namespace {

const std::string kSocket = "tarvokol-test";

// The text between two marks of a line, empty if the line lacks one.
std::string Between(const std::string& line, const std::string& before, const std::string& after) {
    const std::size_t first = line.find(before);
    if (first == std::string::npos) return "";
    const std::size_t start = first + before.size();
    const std::size_t end = line.find(after, start);
    return end == std::string::npos ? "" : line.substr(start, end - start);
}

// The talk of a client with its compositor, one request or event a line.
class Talk {
  public:
    explicit Talk(const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("["))
                Take(line);
            else
                warnings_ += line + "\n";
        }
    }

    // Title of the window that has the keyboard.
    std::string ActiveTitle() const {
        const auto found = titles_.find(active_);
        return found == titles_.end() ? "" : found->second;
    }
    // What is no talk but a complaint.
    const std::string& Warnings() const { return warnings_; }
    bool HasShown(const std::string& title) const { return shown_.contains(title); }
    int Selections() const { return selections_; }

  private:
    void Take(const std::string& line) {
        if (const std::string shell = Between(line, "get_xdg_surface(new id ", ","); !shell.empty()) {
            surfaces_[shell] = Between(line, ", ", ")");
            titles_.erase(surfaces_[shell]);  // of a window that is gone
        }
        if (const std::string window = Between(line, "get_toplevel(new id ", ")"); !window.empty())
            surfaces_[window] = surfaces_[Between(line, "-> ", ".get_toplevel")];
        if (const std::string title = Between(line, ".set_title(\"", "\")"); !title.empty())
            titles_[surfaces_[Between(line, "-> ", ".set_title")]] = title;
        if (const std::string surface = Between(line, ".enter(", ", array"); !surface.empty())
            active_ = surface.substr(surface.find(", ") + 2);
        if (const std::string surface = Between(line, "-> ", ".commit()"); titles_.contains(surface))
            shown_.insert(titles_[surface]);
        if (line.find(".set_selection(wl_data_source") != std::string::npos) ++selections_;
    }

    std::map<std::string, std::string> surfaces_;  // of windows, by the names of their roles
    std::map<std::string, std::string> titles_;    // by surface
    std::set<std::string> shown_;
    std::string active_;
    std::string warnings_;
    int selections_ = 0;
};

// A socket is there a moment before its owner listens.
bool Answers(const std::string& socket_path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socket_path.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    const int end = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers = connect(end, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(end);
    return answers;
}

class Wayland : public DesktopTest {
  protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped()) return;
        if (OutputOf("command -v weston").empty()) GTEST_SKIP() << "not installed: weston";
        std::filesystem::permissions(Folder, std::filesystem::perms::owner_all);
    }
    ~Wayland() override {
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        for (const char* name : {"WAYLAND_DISPLAY", "WAYLAND_DEBUG"}) unsetenv(name);
    }

    void StartUnder(const std::string& backend, const std::vector<std::string>& arguments) {
        setenv("XDG_RUNTIME_DIR", Folder.c_str(), 1);
        unsetenv("WAYLAND_DISPLAY");
        ASSERT_TRUE(compositor_.Start({"weston", "--backend=" + backend, "--use-pixman", "--no-config",
                                       "--idle-time=0", "--width=1100", "--height=850", "--socket=" + kSocket,
                                       "--log=" + PathTo("weston.log")}));
        ASSERT_TRUE(Eventually([this] { return Answers(Folder / kSocket); }));
        setenv("QT_QPA_PLATFORM", "wayland", 1);
        setenv("WAYLAND_DISPLAY", kSocket.c_str(), 1);
        setenv("WAYLAND_DEBUG", "1", 1);
        Start(arguments);
    }

    // The compositor's screen is a window on the tests' desktop, which hands its keys on.
    void GiveKeyboard() {
        ASSERT_TRUE(Eventually([] {
            OutputOf("xdotool search --onlyvisible --name 'Weston Compositor' windowactivate 2>/dev/null");
            return OutputOf("xdotool getactivewindow getwindowname 2>/dev/null").find("Weston") == 0;
        }));
    }

    Talk Heard() const { return Talk(Program.ErrorOutput()); }

    FrontWindow Front() const override {
        const std::string title = Heard().ActiveTitle();
        return {title, title};
    }

    // Copies by these keys; the program offers what it has copied.
    void Copy(const std::string& keys) const {
        const int before = Heard().Selections();
        PressUntil(keys, [&] { return Heard().Selections() > before; });
    }

  private:
    Servant compositor_;
};

TEST_F(Wayland, TheFirstWindowShowsUnderAHeadlessCompositor) {
    WriteSettings("", "ShowInputScreenOnLoad=0\r\n");
    StartUnder("headless-backend.so", {});
    EXPECT_TRUE(Eventually([this] { return Heard().HasShown(kMain); }));
    EXPECT_TRUE(Program.IsRunning());
    EXPECT_EQ(Heard().Warnings(), "");
}

TEST_F(Wayland, AProjectIsEditedCalculatedShownAndSavedWithoutAWarning) {
    WriteSettings("KeepFileNames=1\r\n", "ShowInputScreenOnLoad=0\r\nViewChildWindow=1\r\n");
    const std::string path = PathTo("panel.TKL");
    const std::string caption = kMain + ": " + path;
    WriteBytes(path, Project("10"));
    StartUnder("x11-backend.so", {path});
    EXPECT_TRUE(Eventually([&] { return Heard().HasShown(caption); }));
    GiveKeyboard();
    ExpectWindow(caption);

    PressTo("F1", "TARVO-KOL Help");
    PressTo("Escape", caption);

    PressTo("ctrl+e", "Parameters");
    Press("ctrl+a");
    Type("7.5");
    PressTo("alt+v", "View Plan");
    Copy("ctrl+c");
    PressTo("Escape", "Parameters");
    PressTo("Return", caption);

    PressTo("alt+o Return", "Calculation Results");
    Copy("alt+y");
    PressTo("alt+a", "Print");
    PressTo("Escape", "Calculation Results");
    PressTo("Escape", caption);

    PressTo("alt+o Down Right Return", "Graph");
    PressTo("alt+o Down Return", "Graph Parameters and Options");
    PressTo("Escape", "Graph");
    PressTo("alt+f x", caption);

    PressUntil("ctrl+s", [&] { return ReadBytes(path) == Project("7.5"); });
    EXPECT_EQ(PressToEnd("alt+f x"), 0);
    EXPECT_EQ(Heard().Warnings(), "");
}

}  // namespace
}  // namespace tarvokol
