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

// Looks until the condition holds; false after 20 seconds, which is for a loaded machine.
bool Eventually(const std::function<bool()>& condition);

// Standard output of a shell command.
std::string OutputOf(const std::string& command);

// True if the desktop runs; it is started by the first call and ends with the tests.
bool DesktopIsUp();

// What the machine lacks for these tests, empty if nothing.
std::string MissingTools();

// A process that ends with its owner.
class Servant {
  public:
    Servant() = default;
    Servant(const Servant&) = delete;
    Servant& operator=(const Servant&) = delete;
    ~Servant();

    // Starts the program that the first word names, with the caller's environment.
    bool Start(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions = nullptr);

  private:
    pid_t process_ = 0;
};

// The program, started in the home folder of the test.
class ProgramUnderTest {
  public:
    ~ProgramUnderTest();

    void Start(const std::string& home, const std::vector<std::string>& arguments);
    bool IsRunning();
    // Ends it as a crash or a power cut would.
    void Kill();
    // Waits for the end; the exit status, -1 if it does not end.
    int ExitStatus();
    std::string ErrorOutput() const;

  private:
    int process_ = 0;
    int status_ = -1;
    std::string error_file_;
};

class DesktopTest : public CoreTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // Settings that keep the start-up windows away; `more` are lines of the sections named.
    void WriteSettings(const std::string& settings = "", const std::string& options = "");
    std::string DataFile(const std::string& name) const { return PathTo("Documents/MyOLTEK/" + name); }

    void Start(const std::vector<std::string>& arguments = {}) { Program.Start(Folder.string(), arguments); }

    // Waits until the window has the keyboard.
    static void ExpectWindow(const std::string& title);
    static bool HasKeyboard(const std::string& title);
    // Waits until a window of another title has the keyboard: a message box or a common dialog.
    static void ExpectWindowBeside(const std::string& title);

    // Presses keys, as "ctrl+e" or "alt+f x".
    static void Press(const std::string& keys);
    static void Type(const std::string& text);

    static std::string ClipboardText();

    // Place and size of what the active window shows, without its frame.
    struct Place {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };
    static Place ActivePlace();

    // Takes the active window's right edge along by `by` pixels, in steps as a hand does, and lets it go.
    static void DragRightEdge(int by);

    ProgramUnderTest Program;
};

}  // namespace tarvokol
