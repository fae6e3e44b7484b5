// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/e2e/desktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tarvokol {
namespace {

// A look starts a few programs, which keep the machine from the one under test.
constexpr std::chrono::milliseconds kBetweenLooks{50};
constexpr int kMostPresses = 4;
constexpr int kMostStarts = 5;  // of a server with its window manager

// Of a program that is started: what it says goes nowhere. The tests' own pipe in its hands would keep whoever reads the tests
// waiting until the program, and all that it has started, is gone.
class SilentActions {
  public:
    SilentActions() {
        posix_spawn_file_actions_init(&actions_);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_WRONLY, 0);
    }
    SilentActions(const SilentActions&) = delete;
    SilentActions& operator=(const SilentActions&) = delete;
    ~SilentActions() { posix_spawn_file_actions_destroy(&actions_); }

    posix_spawn_file_actions_t* Get() { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

pid_t Spawn(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions) {
    std::vector<std::string> copies = words;
    std::vector<char*> arguments;
    for (std::string& word : copies) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    return posix_spawnp(&process, arguments[0], actions, nullptr, arguments.data(), environ) == 0 ? process
                                                                                                  : 0;
}

class Desktop {
  public:
    // Of two servers that look for a free display at the same moment one may lose its own: its window manager finds none
    // and ends. Both are started once more then.
    explicit Desktop(const std::string& screen) {
        for (int starts = 0; starts < kMostStarts && !up_; ++starts)
            up_ = StartServer(screen) && StartWindowManager();
    }
    bool IsUp() const { return up_; }
    void BeChosen() const { setenv("DISPLAY", display_.c_str(), 1); }

  private:
    // The server picks a free display and writes its number to a pipe.
    bool StartServer(const std::string& screen) {
        int ends[2];
        if (pipe(ends) != 0) return false;
        SilentActions actions;
        posix_spawn_file_actions_adddup2(actions.Get(), ends[1], 3);
        const bool started = server_.Start(
            {"Xvfb", "-displayfd", "3", "-screen", "0", screen + "x24", "-nolisten", "tcp"}, actions.Get());
        close(ends[1]);
        std::string number;
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) number += digit;
        close(ends[0]);
        if (!started || number.empty()) return false;
        display_ = ":" + number;
        BeChosen();
        return true;
    }

    bool StartWindowManager() {
        const auto manages = [] {
            return OutputOf("xdotool get_num_desktops 2>/dev/null").find_first_of("123456789") == 0;
        };
        bool up = false;
        return manager_.Start({"openbox", "--sm-disable"}) &&
               Eventually([&] { return !manager_.IsRunning() || (up = manages()); }) && up;
    }

    std::string display_;
    Servant server_;
    Servant manager_;
    bool up_ = false;
};

std::string WithoutLineEnd(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

// Of the program: its windows, menus and notes.
int VisibleWindows() {
    return std::atoi(OutputOf("xdotool search --onlyvisible --class tarvokol 2>/dev/null | wc -l").c_str());
}

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

}  // namespace

Servant::~Servant() {
    End();
}

// One that does not end when it is asked to would keep the tests from their end.
void Servant::End() {
    if (!IsRunning()) return;
    kill(process_, SIGTERM);
    if (Eventually([this] { return !IsRunning(); }, std::chrono::seconds(10))) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
}

bool Servant::IsRunning() {
    if (process_ != 0 && waitpid(process_, nullptr, WNOHANG) == process_) process_ = 0;
    return process_ != 0;
}

bool Servant::Start(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions) {
    End();
    process_ = Spawn(words, actions != nullptr ? actions : SilentActions().Get());
    return process_ != 0;
}

std::string Project(const std::string& height) {
    return "TARVOKOL_101\r\n 0 \r\nRidge Panel 4\r\n##StartDesc##\r\nUpper seam.\r\n##EndDesc##\r\n" +
           height +
           "\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n";
}

bool Eventually(const std::function<bool()>& condition, std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return true;
}

std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* stream = popen(command.c_str(), "r");
    if (stream == nullptr) return output;
    char buffer[4096];
    for (std::size_t count = 0; (count = fread(buffer, 1, sizeof buffer, stream)) > 0;)
        output.append(buffer, count);
    pclose(stream);
    return output;
}

bool DesktopIsUp(const std::string& screen) {
    static std::map<std::string, Desktop> desktops;
    const Desktop& desktop = desktops.try_emplace(screen, screen).first->second;
    desktop.BeChosen();
    return desktop.IsUp();
}

std::string MissingTools() {
    return WithoutLineEnd(OutputOf(
        "for tool in Xvfb openbox xdotool xprop xclip; do command -v $tool >/dev/null || printf '%s ' "
        "$tool; done"));
}

ProgramUnderTest::~ProgramUnderTest() {
    Kill();
}

void ProgramUnderTest::Kill() {
    if (!IsRunning()) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
}

void ProgramUnderTest::Start(const std::string& folder, const std::vector<std::string>& arguments) {
    setenv("HOME", Home.empty() ? folder.c_str() : Home.c_str(), 1);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"}) unsetenv(name);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    error_file_ = folder + "/standard_error";
    SilentActions actions;
    posix_spawn_file_actions_addopen(actions.Get(), STDERR_FILENO, error_file_.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    std::vector<std::string> words{Path};
    words.insert(words.end(), arguments.begin(), arguments.end());
    status_ = -1;
    process_ = Spawn(words, actions.Get());
}

bool ProgramUnderTest::IsRunning() {
    if (process_ == 0) return false;
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) != process_) return true;
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    process_ = 0;
    return false;
}

int ProgramUnderTest::ExitStatus() {
    Eventually([this] { return !IsRunning(); });
    return status_;
}

std::string ProgramUnderTest::ErrorOutput() const {
    std::ostringstream bytes;
    bytes << std::ifstream(error_file_, std::ios::binary).rdbuf();
    return bytes.str();
}

void DesktopTest::SetUp() {
    if (const std::string missing = MissingTools(); !missing.empty())
        GTEST_SKIP() << "not installed: " << missing;
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    setenv("QT_SCALE_FACTOR", Scale.c_str(), 1);
    // As in any desktop's session: the toolkit says a word on standard error about a locale that is not in UTF-8.
    setenv("LC_ALL", "C.UTF-8", 1);
    ASSERT_TRUE(DesktopIsUp(Screen));
    std::filesystem::create_directories(Folder / "Documents");
}

// What the screen showed tells most about a failure.
void DesktopTest::TearDown() {
    if (!HasFailure()) return;
    std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    std::replace(name.begin(), name.end(), '/', '_');
    const std::string picture = TARVOKOL_PICTURES + name + ".png";
    OutputOf("import -window root " + Quoted(picture) + " 2>&1");
    std::fprintf(stderr, "The screen stands in %s\n", picture.c_str());
}

void DesktopTest::WriteSettings(const std::string& settings, const std::string& options) {
    std::filesystem::create_directories(Folder / "Documents/MyOLTEK");
    WriteBytes(
        DataFile("TARVOKOL.INI"),
        "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nShowDisclaim=0\r\nRemindAnnualUpdates=0\r\n"
        "MaxDisplaySize=16384\r\nDisplayFontSize=10\r\nFileExtension=TKL\r\n" +
            settings + "[TARVOKOLOptions]\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\nDefaultAbutment=21\r\n" +
            options);
}

DesktopTest::FrontWindow DesktopTest::Front() const {
    const std::string lines = OutputOf(
        "exec 2>/dev/null; id=$(xdotool getactivewindow) && [ \"$id\" = \"$(xdotool getwindowfocus)\" ] && "
        "name=$(xdotool getwindowname $id) && printf '%s\\n%s' $id \"$name\"");
    const std::size_t end = lines.find('\n');
    if (end == std::string::npos) return {};
    return {lines.substr(0, end), lines.substr(end + 1)};
}

void DesktopTest::ExpectWindow(const std::string& title) const {
    EXPECT_TRUE(Eventually([&] { return Front().title == title; }))
        << "wanted: " << title << ", active: " << Front().title;
}

void DesktopTest::ExpectWindowBeside(const std::string& title) const {
    EXPECT_TRUE(Eventually([&] {
        const std::string active = Front().title;
        return !active.empty() && active != title;
    })) << "active: "
        << Front().title;
}

void DesktopTest::PressUntil(const std::string& keys, const std::function<bool()>& effect) const {
    const std::string meant_for = Front().id;
    const int windows = VisibleWindows();
    const bool is_way = keys.find(' ') != std::string::npos;
    for (int presses = 1; presses <= kMostPresses; ++presses) {
        Press(keys);
        if (Eventually(effect, kPatienceWithAKey)) return;
        if (Front().id != meant_for) break;
        std::fprintf(stderr, "nothing came of the keys %s, pressed again\n", keys.c_str());
        // A way through a menu that has lost its last key has left the menu open.
        for (int menus = 0; is_way && menus < 3 && VisibleWindows() > windows; ++menus) Press("Escape");
    }
    EXPECT_TRUE(Eventually(effect)) << "pressed: " << keys << ", active: " << Front().title;
}

void DesktopTest::PressTo(const std::string& keys, const std::string& title) const {
    PressUntil(keys, [&] { return Front().title == title; });
}

void DesktopTest::PressToBeside(const std::string& keys, const std::string& title) const {
    PressUntil(keys, [&] {
        const std::string active = Front().title;
        return !active.empty() && active != title;
    });
}

int DesktopTest::PressToEnd(const std::string& keys) {
    PressUntil(keys, [this] { return !Program.IsRunning(); });
    return Program.ExitStatus();
}

void DesktopTest::Press(const std::string& keys) {
    OutputOf("xdotool key --clearmodifiers --delay 30 " + keys);
}

void DesktopTest::Type(const std::string& text) {
    OutputOf("xdotool type --clearmodifiers --delay 15 " + Quoted(text));
}

void DesktopTest::TypeNewProject() const {
    PressTo("ctrl+n", "Parameters");
    Press("ctrl+a");
    for (const char* value : {"10", "100", "10", "10", "20", "5"}) {
        Type(value);
        Press("Tab");
    }
    PressTo("Return", "TARVO-KOL: Untitled");
}

DesktopTest::Place DesktopTest::ActivePlace() {
    Place place;
    const std::string lines = OutputOf("xdotool getactivewindow getwindowgeometry --shell 2>/dev/null");
    const auto number = [&lines](const std::string& name) {
        const std::size_t at = ("\n" + lines).find("\n" + name + "=");
        return at == std::string::npos ? 0 : std::atoi(lines.c_str() + at + name.size() + 1);
    };
    place = {number("X"), number("Y"), number("WIDTH"), number("HEIGHT")};
    return place;
}

// What xdotool says of the place adds the frame once more.
DesktopTest::Place DesktopTest::FramePlace() {
    const std::string lines = OutputOf(
        "id=$(xdotool getactivewindow) && xprop -id $id _NET_FRAME_EXTENTS | sed 's/.*= *//; s/,//g' && "
        "xwininfo -id $id "
        "2>/dev/null | sed -n 's/.*Absolute upper-left [XY]: *//p; s/^ *\\(Width\\|Height\\): *//p'");
    std::istringstream numbers(lines);
    int left = 0, right = 0, top = 0, bottom = 0;
    Place place;
    if (!(numbers >> left >> right >> top >> bottom >> place.x >> place.y >> place.width >> place.height))
        return {};
    return {place.x - left, place.y - top, place.width + left + right, place.height + top + bottom};
}

DesktopTest::Place DesktopTest::ScreenPlace() {
    Place place;
    std::istringstream numbers(OutputOf("xdotool getdisplaygeometry"));
    numbers >> place.width >> place.height;
    return place;
}

bool DesktopTest::StandsInTheMiddle() {
    const Place frame = FramePlace(), screen = ScreenPlace();
    const auto is_middle = [](int at, int extent, int whole) {
        return std::abs(2 * at + extent - whole) <= 4;
    };
    return frame.width > 0 && is_middle(frame.x, frame.width, screen.width) &&
           is_middle(frame.y, frame.height, screen.height);
}

// The window manager takes a drag of the right button with Alt anywhere in the window for one of the nearest edge.
void DesktopTest::DragRightEdge(int by) {
    const Place place = ActivePlace();
    std::string commands = "xdotool mousemove " + std::to_string(place.x + place.width - 20) + " " +
                           std::to_string(place.y + place.height / 2) + " keydown alt mousedown 3 sleep 0.1";
    constexpr int kSteps = 8;
    for (int step = 0; step < kSteps; ++step)
        commands += " mousemove_relative -- " + std::to_string(by / kSteps) + " 0 sleep 0.03";
    OutputOf(commands + " sleep 0.3 mouseup 3 keyup alt");
}

void DesktopTest::ExpectCopied(const std::string& keys, const std::string& text) const {
    PressUntil(keys, [&] { return ClipboardText().find(text) != std::string::npos; });
}

std::string DesktopTest::ClipboardText() {
    return OutputOf("timeout 5 xclip -selection clipboard -o 2>/dev/null");
}

}  // namespace tarvokol
