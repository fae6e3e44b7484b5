// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/desktop_program.h"

#include <QFont>

#include "core/platform/platform.h"
#include "qt/session/program_application.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

class DesktopProgram : public MainWindowTest {
  protected:
    DesktopProgram() {
        Host.Folders.Program = PathTo("tarvokol");
        Host.Folders.DocumentsFolder = Folder.string();
        std::filesystem::create_directory(Folder / "MyOLTEK");
        WriteBytes(PathTo("MyOLTEK/TARVOKOL.INI"),
                   "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nShowDisclaim=0\r\n"
                   "RemindAnnualUpdates=0\r\nCopyExampleFiles=0\r\n"
                   "[TARVOKOLOptions]\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\n");
    }

    // What the program says on the terminal to its arguments; nothing if it goes on to its window.
    static std::string Answer(const std::vector<const char*>& arguments) {
        std::vector<const char*> words{"tarvokol"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        testing::internal::CaptureStdout();
        const bool answered = AnswersOnTerminal(static_cast<int>(words.size()), words.data());
        const std::string text = testing::internal::GetCapturedStdout();
        EXPECT_EQ(answered, !text.empty());
        return text;
    }

    // The text of the error that the start ends with, after its number.
    static std::string StartError(const std::string& command_line) {
        try {
            StartProgram(command_line);
        } catch (const RunTimeError& error) {
            return std::to_string(error.number) + " " + error.text;
        }
        return "none";
    }
};

TEST_F(DesktopProgram, BindsEveryPartOfTheOutsideWorld) {
    const PlatformBindings headless = Platform;
    {
        DesktopBindings desktop;
        Platform = {};
        desktop.Install();
        EXPECT_EQ(Platform.Messages, &desktop.Messages);
        EXPECT_EQ(Platform.Printer, &desktop.Printer);
        EXPECT_EQ(Platform.Dialogs, &desktop.Dialogs);
        EXPECT_EQ(Platform.TheClipboard, &desktop.TheClipboard);
        EXPECT_EQ(Platform.MainWindow, &desktop.MainWindow);
        EXPECT_EQ(Platform.Help, &desktop.Help);
        EXPECT_EQ(Platform.TheShell, &desktop.TheShell);
        EXPECT_EQ(Platform.FileTypes, &desktop.FileTypes);
        EXPECT_EQ(Platform.Folders, &desktop.Folders);
        EXPECT_EQ(Platform.Fonts, &desktop.Fonts);
        EXPECT_EQ(Platform.Spreadsheet, &desktop.Spreadsheet);
        EXPECT_EQ(Platform.TheClock, &desktop.TheClock);
    }
    Platform = headless;
}

TEST_F(DesktopProgram, TellsItsUsageAndItsVersion) {
    const std::string usage =
        "Usage: tarvokol [PROJECT]\n"
        "Opens the window of TARVO-KOL, with the project file PROJECT if it is named. The whole\n"
        "command line is one path, so a name with blanks needs no quotes.\n"
        "\n"
        "  --help     this text\n"
        "  --version  the program's version\n"
        "\n"
        "For scripts and many projects: tarvokol-cli --help\n";
    EXPECT_EQ(Answer({"--help"}), usage);
    EXPECT_EQ(Answer({"-h"}), usage);
    EXPECT_EQ(Answer({"--version"}), "tarvokol 1.3.02\n");
}

TEST_F(DesktopProgram, OpensItsWindowForEverythingElse) {
    EXPECT_EQ(Answer({}), "");
    EXPECT_EQ(Answer({"ridge.TKL"}), "");
    EXPECT_EQ(Answer({"--version", "ridge.TKL"}), "");
}

TEST_F(DesktopProgram, TakesTheCommandLineForOnePath) {
    std::filesystem::current_path(Folder);
    WriteBytes(PathTo("north ridge.TKL"), "");
    const std::string full = std::filesystem::current_path().string() + "/north ridge.TKL";
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol"}), "");
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol", "north", "ridge.TKL"}), full);
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol", "\"north ridge.TKL\""}), full);
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol", "none.TKL"}), "none.TKL");
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol", "."}), ".");
    EXPECT_EQ(ProjectOfCommandLine({"tarvokol", "/no/such/a.TKL"}), "/no/such/a.TKL");
}

TEST_F(DesktopProgram, NamesTheProjectThatItCannotOpen) {
    EXPECT_EQ(StartError(PathTo("none.TKL")), "53 File not found: " + PathTo("none.TKL"));
    UnloadAllForms();
    EXPECT_EQ(StartError(""), "none");
    EXPECT_TRUE(frmMain::IsLoaded());
    EXPECT_TRUE(frmMain::Instance().isVisible());
}

// The real bindings look for the user's folders below his home.
class DesktopRun : public DesktopProgram {
  protected:
    DesktopRun() {
        qputenv("HOME", QByteArray::fromStdString(Folder.string()));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(PathTo(".config")));
        std::filesystem::create_directories(Folder / ".config");
        std::filesystem::create_directory(Folder / "Documents");
        WriteBytes(PathTo(".config/user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"$HOME/Documents\"\n");
        std::filesystem::rename(Folder / "MyOLTEK", Folder / "Documents/MyOLTEK");
        QApplication::setApplicationName("");
        QApplication::setQuitOnLastWindowClosed(true);
        QApplication::setFont(QFont("DejaVu Sans", 20));
        QApplication::setWindowIcon({});
    }
    ~DesktopRun() override {
        UnloadAllForms();
        Platform = headless_;
        QApplication::setFont(font_);
        QApplication::setApplicationName(name_);
        QApplication::setQuitOnLastWindowClosed(false);
        qputenv("HOME", home_);
        qunsetenv("XDG_CONFIG_HOME");
    }

    static ProgramApplication& Application() { return *static_cast<ProgramApplication*>(qApp); }

  private:
    const PlatformBindings headless_ = Platform;
    const QFont font_ = QApplication::font();
    const QString name_ = QApplication::applicationName();
    const QByteArray home_ = qgetenv("HOME");
};

TEST_F(DesktopRun, ShowsItsWindowAndEndsWithIt) {
    bool shown = false;
    QTimer::singleShot(0, [&] {
        shown = frmMain::Instance().isVisible();
        EXPECT_EQ(QApplication::applicationName(), "tarvokol");
        EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
        EXPECT_EQ(QApplication::font().family(), "Liberation Sans");
        EXPECT_EQ(QApplication::font().pointSize(), 10);
        EXPECT_FALSE(QApplication::windowIcon().pixmap(32, 32).isNull());
        EXPECT_NE(Platform.Folders, &Host.Folders);
        frmMain::Instance().close();
    });
    EXPECT_EQ(RunDesktop(Application()), 0);
    EXPECT_TRUE(shown);
    EXPECT_FALSE(frmMain::IsLoaded());
    EXPECT_TRUE(UnhandledErrors().empty());
    EXPECT_THAT(ReadBytes(PathTo("Documents/MyOLTEK/TARVOKOL.INI")), ::testing::HasSubstr("[FileMenu]"));
}

}  // namespace
}  // namespace tarvokol
