// SPDX-License-Identifier: GPL-3.0-or-later
// The built program, started as the desktop starts it.
#include <QDir>
#include <QProcess>
#include <map>

#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

class ProgramStart : public GuiTest {
  protected:
    ProgramStart() {
        std::filesystem::create_directories(Folder / "Documents/MyOLTEK/Temp");
        std::filesystem::create_directories(Folder / ".config");
        WriteBytes(PathTo(".config/user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"$HOME/Documents\"\n");
        WriteBytes(Ini(),
                   "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nKeepFileNames=1\r\n"
                   "[TARVOKOLOptions]\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\n");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", ToQt(Folder.string()));
        environment.insert("XDG_CONFIG_HOME", ToQt(PathTo(".config")));
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        program_.setProcessEnvironment(environment);
        program_.setWorkingDirectory(ToQt(Folder.string()));
    }
    ~ProgramStart() override {
        program_.kill();
        program_.waitForFinished(kPatienceMilliseconds);
    }

    std::string Ini() const { return PathTo("Documents/MyOLTEK/TARVOKOL.INI"); }

    void WriteProject(const std::string& name) {
        std::filesystem::copy_file(TARVOKOL_EXAMPLES "/Contour_Bench_Shallow.TKL", Folder / name);
    }

    // Starts the program and waits until the recent files hold the path.
    void ExpectOpens(const QStringList& arguments, const std::string& path) {
        program_.start(TARVOKOL_PROGRAM, arguments);
        EXPECT_TRUE(WaitUntil([&] { return ReadBytes(Ini()).find(path) != std::string::npos; }))
            << ReadBytes(Ini());
        EXPECT_EQ(program_.state(), QProcess::Running);
    }

    // The user's environment without any word of a display, but for what is put into `variables`.
    void TakeDisplay(const std::map<QString, QString>& variables = {}) {
        QProcessEnvironment environment = program_.processEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "QT_QPA_PLATFORM"})
            environment.remove(name);
        for (const auto& [name, value] : variables) environment.insert(name, value);
        program_.setProcessEnvironment(environment);
    }

    QProcess program_;
};

TEST_F(ProgramStart, OpensTheProjectOfItsCommandLine) {
    WriteProject("panel.TKL");
    ExpectOpens({ToQt(PathTo("panel.TKL"))}, "LastFileLong1=" + PathTo("panel.TKL"));
}

TEST_F(ProgramStart, APathWithBlanksMayStandInQuotesOrInPieces) {
    WriteProject("north ridge.TKL");
    ExpectOpens({ToQt(PathTo("north")).prepend('"'), "ridge.TKL\""},
                "LastFileLong1=" + PathTo("north ridge.TKL"));
}

TEST_F(ProgramStart, ARelativePathIsTakenFromTheUsersFolder) {
    WriteProject("panel.TKL");
    ExpectOpens({"panel.TKL"}, "LastFileLong1=" + PathTo("panel.TKL"));
}

TEST_F(ProgramStart, AMissingFileIsAnErrorThatNoHandlerTakes) {
    program_.start(TARVOKOL_PROGRAM, {ToQt(PathTo("none.TKL"))});
    std::string told;
    EXPECT_TRUE(WaitUntil([&] {
        told += program_.readAllStandardError().toStdString();
        return told.find("Run-time error '53':") != std::string::npos;
    })) << told;
    EXPECT_THAT(told, HasSubstr("File not found: " + PathTo("none.TKL")));
}

TEST_F(ProgramStart, HelpAndVersionAreToldOnTheTerminalWithoutADisplay) {
    TakeDisplay();
    const auto answer = [this](const QString& question) {
        program_.start(TARVOKOL_PROGRAM, {question});
        EXPECT_TRUE(program_.waitForFinished(kPatienceMilliseconds));
        EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program_.exitCode(), 0);
        EXPECT_EQ(program_.readAllStandardError().toStdString(), "");
        return program_.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ(answer("--version"), "tarvokol 1.3.02\n");
    EXPECT_THAT(answer("--help"), ::testing::StartsWith("Usage: tarvokol [PROJECT]\n"));
    EXPECT_EQ(answer("-h"), answer("--help"));
}

// Standard error of a start that must end with status 1, and not by a signal.
TEST_F(ProgramStart, WithoutADisplayOneLineNamesTheCommandLine) {
    const auto told = [this] {
        program_.start(TARVOKOL_PROGRAM, QStringList{});
        EXPECT_TRUE(program_.waitForFinished(kPatienceMilliseconds));
        EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program_.exitCode(), 1);
        EXPECT_EQ(program_.readAllStandardOutput().toStdString(), "");
        return program_.readAllStandardError().toStdString();
    };
    TakeDisplay();
    EXPECT_EQ(told(), "tarvokol: there is no display to open a window on; tarvokol-cli works without one\n");
    // The toolkit has something to say of this locale, which is not the reason.
    TakeDisplay({{"DISPLAY", ":64999"}, {"LC_ALL", "C"}});
    EXPECT_EQ(told(),
              "tarvokol: there is no display to open a window on (could not connect to display :64999); "
              "tarvokol-cli works without one\n");
    TakeDisplay({{"QT_QPA_PLATFORM", "none"}});
    const std::string unknown = told();
    EXPECT_THAT(unknown, HasSubstr("\"none\""));
    EXPECT_EQ(std::count(unknown.begin(), unknown.end(), '\n'), 1);
}

}  // namespace
}  // namespace tarvokol
