// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop of the tests' own: an X server on a free display, a window manager, and hands on keyboard and
// clipboard.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/types.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {

// No machine is too busy for these: what has not come after a minute does not come, and where nothing has come of a key
// press after ten seconds, it is lost.
inline constexpr std::chrono::seconds kPatience{60};
inline constexpr std::chrono::seconds kPatienceWithAKey{10};

// Looks until the condition holds; false if it does not within that time.
bool Eventually(const std::function<bool()>& condition, std::chrono::seconds patience = kPatience);

// Standard output of a shell command.
std::string OutputOf(const std::string& command);

// Width and height of a screen.
inline constexpr const char* kUsualScreen = "1280x1024";

// True if a desktop with a screen of that size runs, which the next windows come to; it is started by the first call and
// ends with the tests.
bool DesktopIsUp(const std::string& screen = kUsualScreen);

// What the machine lacks for these tests, empty if nothing.
std::string MissingTools();

// A process that ends with its owner.
class Servant {
  public:
    Servant() = default;
    Servant(const Servant&) = delete;
    Servant& operator=(const Servant&) = delete;
    ~Servant();

    // Starts the program that the first word names, with the caller's environment; one started before ends first. It is silent
    // unless the actions say otherwise.
    bool Start(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions = nullptr);

    bool IsRunning();

  private:
    void End();

    pid_t process_ = 0;
};

// The program, with the test's folder for a home unless another is named.
class ProgramUnderTest {
  public:
    ~ProgramUnderTest();

    // The folder is that of the test; what the program says on standard error lies there.
    void Start(const std::string& folder, const std::vector<std::string>& arguments);
    bool IsRunning();
    // Ends it as a crash or a power cut would.
    void Kill();
    // Waits for the end; the exit status, -1 if it does not end.
    int ExitStatus();
    std::string ErrorOutput() const;

    std::string Path = TARVOKOL_PROGRAM;
    std::string Home;

  private:
    int process_ = 0;
    int status_ = -1;
    std::string error_file_;
};

// Titles of windows.
inline const std::string kDisclaimer = "Disclaimer for TARVOKOL";
inline const std::string kReminder = "Program Update for TARVOKOL";
inline const std::string kMain = "TARVO-KOL";
inline const std::string kResults = "Calculation Results";
inline const std::string kPlan = "View Plan";

// A project file of this height in feet; the rest is always the same.
std::string Project(const std::string& height);

class DesktopTest : public CoreTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // Settings that keep the start-up windows away; `more` are lines of the sections named.
    void WriteSettings(const std::string& settings = "", const std::string& options = "");
    std::string DataFile(const std::string& name) const { return PathTo("Documents/MyOLTEK/" + name); }

    void Start(const std::vector<std::string>& arguments = {}) { Program.Start(Folder.string(), arguments); }

    // The window that has the keyboard, for the window manager and the server alike; empty while one goes and the next has
    // not come.
    struct FrontWindow {
        std::string id;
        std::string title;
    };
    virtual FrontWindow Front() const;

    // Waits until the window has the keyboard.
    void ExpectWindow(const std::string& title) const;
    // Waits until a window of another title has the keyboard: a message box or a common dialog.
    void ExpectWindowBeside(const std::string& title) const;

    // Presses keys, as "ctrl+e" or "alt+f x".
    static void Press(const std::string& keys);
    static void Type(const std::string& text);

    // Presses keys until their effect shows. They are pressed again where nothing at all has come of them: the window that
    // they were meant for still has the keyboard. So the keys must be such that pressing them twice does no harm.
    void PressUntil(const std::string& keys, const std::function<bool()>& effect) const;
    // Until a window of that title, or of another one, has the keyboard.
    void PressTo(const std::string& keys, const std::string& title) const;
    void PressToBeside(const std::string& keys, const std::string& title) const;
    // Until the program has ended; its exit status.
    int PressToEnd(const std::string& keys);

    // From the main window: a new project, field by field, which the dialog stores and nobody saves.
    void TypeNewProject() const;

    static std::string ClipboardText();
    // Copies by these keys; the clipboard must hold the text then, whatever it held before.
    void ExpectCopied(const std::string& keys, const std::string& text) const;

    // Place and size of what the active window shows, without its frame.
    struct Place {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };
    static Place ActivePlace();
    // The same with the frame, from the screen's corner; empty where the window has none yet.
    static Place FramePlace();
    // Of the screen.
    static Place ScreenPlace();
    // True once the window stands in the middle of its screen with its frame.
    static bool StandsInTheMiddle();

    // Takes the active window's right edge along by `by` pixels, in steps as a hand does, and lets it go.
    static void DragRightEdge(int by);

    std::string Screen = kUsualScreen;
    std::string Scale = "1";
    ProgramUnderTest Program;
};

}  // namespace tarvokol
