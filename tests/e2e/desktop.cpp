// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/e2e/desktop.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tarvokol {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 20s;
constexpr auto kBetweenLooks = 20ms;

pid_t Spawn(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions = nullptr) {
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
    Desktop() { up_ = StartServer() && StartWindowManager(); }
    bool IsUp() const { return up_; }

  private:
    // The server picks a free display and writes its number to a pipe.
    bool StartServer() {
        int ends[2];
        if (pipe(ends) != 0) return false;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
        posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        const bool started = server_.Start(
            {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"}, &actions);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        std::string number;
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) number += digit;
        close(ends[0]);
        if (!started || number.empty()) return false;
        return setenv("DISPLAY", (":" + number).c_str(), 1) == 0;
    }

    bool StartWindowManager() {
        return manager_.Start({"openbox", "--sm-disable"}) && Eventually([] {
                   return OutputOf("xdotool get_num_desktops 2>/dev/null").find_first_of("123456789") == 0;
               });
    }

    Servant server_;
    Servant manager_;
    bool up_ = false;
};

std::string WithoutLineEnd(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

// The window that both the manager and the server call the active one.
std::string ActiveTitle() {
    const std::string named = OutputOf("xdotool getactivewindow getwindowname 2>/dev/null");
    const std::string focused = OutputOf("xdotool getwindowfocus getwindowname 2>/dev/null");
    return named == focused ? WithoutLineEnd(named) : "";
}

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

}  // namespace

Servant::~Servant() {
    if (process_ == 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

bool Servant::Start(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions) {
    process_ = Spawn(words, actions);
    return process_ != 0;
}

bool Eventually(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
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

bool DesktopIsUp() {
    static const Desktop desktop;
    return desktop.IsUp();
}

std::string MissingTools() {
    return WithoutLineEnd(
        OutputOf("for tool in Xvfb openbox xdotool xclip; do command -v $tool >/dev/null || printf '%s ' "
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

void ProgramUnderTest::Start(const std::string& home, const std::vector<std::string>& arguments) {
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CONFIG_HOME", (home + "/.config").c_str(), 1);
    setenv("XDG_CACHE_HOME", (home + "/.cache").c_str(), 1);
    setenv("XDG_DATA_HOME", (home + "/.local/share").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", home.c_str(), 1);
    error_file_ = home + "/standard_error";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, error_file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    std::vector<std::string> words{TARVOKOL_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    status_ = -1;
    process_ = Spawn(words, &actions);
    posix_spawn_file_actions_destroy(&actions);
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
    return OutputOf("cat " + Quoted(error_file_));
}

void DesktopTest::SetUp() {
    if (const std::string missing = MissingTools(); !missing.empty())
        GTEST_SKIP() << "not installed: " << missing;
    ASSERT_TRUE(DesktopIsUp());
    std::filesystem::create_directories(Folder / "Documents");
}

// What the screen showed tells most about a failure.
void DesktopTest::TearDown() {
    if (!HasFailure()) return;
    const std::string picture = std::string(TARVOKOL_PICTURES) +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".png";
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

void DesktopTest::ExpectWindow(const std::string& title) {
    EXPECT_TRUE(Eventually([&] { return ActiveTitle() == title; }))
        << "wanted: " << title << ", active: " << ActiveTitle();
}

bool DesktopTest::HasKeyboard(const std::string& title) {
    return ActiveTitle() == title;
}

void DesktopTest::ExpectWindowBeside(const std::string& title) {
    EXPECT_TRUE(Eventually([&] {
        const std::string active = ActiveTitle();
        return !active.empty() && active != title;
    })) << "active: "
        << ActiveTitle();
}

void DesktopTest::Press(const std::string& keys) {
    OutputOf("xdotool key --clearmodifiers --delay 30 " + keys);
}

void DesktopTest::Type(const std::string& text) {
    OutputOf("xdotool type --clearmodifiers --delay 15 " + Quoted(text));
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

std::string DesktopTest::ClipboardText() {
    return OutputOf("timeout 5 xclip -selection clipboard -o 2>/dev/null");
}

}  // namespace tarvokol
