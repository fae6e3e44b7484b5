// A desktop of the tests' own: an X server on a free display, a window manager, and hands on keyboard and
// clipboard.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

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

// The program, started in the home folder of the test.
class ProgramUnderTest {
  public:
    ~ProgramUnderTest();

    void Start(const std::string& home, const std::vector<std::string>& arguments);
    bool IsRunning();
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
    // Waits until a window of another title has the keyboard: a message box or a common dialog.
    static void ExpectWindowBeside(const std::string& title);

    // Presses keys, as "ctrl+e" or "alt+f x".
    static void Press(const std::string& keys);
    static void Type(const std::string& text);

    static std::string ClipboardText();

    ProgramUnderTest Program;
};

}  // namespace tarvokol
