// SPDX-License-Identifier: GPL-3.0-or-later
// Outputs in places that others use as well: files that appear meanwhile, rights, names and links of what stands there, what
// an ended run has left.
#include <csignal>
#include <cstdlib>

#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/cli_runner.h"

extern char** environ;

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class SharedPlaces : public CliTest {
  protected:
    SharedPlaces() {
        std::filesystem::create_directory(Folder / "tmp");
        ::setenv("TMPDIR", PathTo("tmp").c_str(), 1);
        Project("p.TKL");
    }
    ~SharedPlaces() override { ::unsetenv("TMPDIR"); }

    // Starts the command line in the test's folder.
    pid_t Start(const std::string& words) const {
        const std::string command = "cd '" + Folder.string() + "' && exec '" TARVOKOL_CLI "' " + words;
        const char* arguments[] = {"sh", "-c", command.c_str(), nullptr};
        pid_t child = 0;
        EXPECT_EQ(::posix_spawn(&child, "/bin/sh", nullptr, nullptr, const_cast<char**>(arguments), environ),
                  0);
        return child;
    }

    static int StatusOf(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return status;
    }

    std::vector<std::string> Unfinished(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder / folder))
            if (entry.path().filename().string().starts_with(".tarvokol-"))
                names.push_back(entry.path().filename().string());
        return names;
    }

    // Until the run has begun to write, or has come to its end.
    void WaitForUnfinished(pid_t child, const std::string& folder) const {
        const auto runs = [child] {
            siginfo_t info{};
            return ::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
                   info.si_pid == 0;
        };
        while (Unfinished(folder).empty() && runs()) ::usleep(500);
    }

    mode_t Rights(const std::string& name) const {
        struct stat status {};
        return ::stat(PathTo(name).c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
    }

    static constexpr const char* kLongSweep =
        "sweep --quiet p.TKL --vary Height=2:12/1000 --vary DepthCover=50:900/200 ";
};

TEST_F(SharedPlaces, AFileThatAppearsWhileTheRowsGrowStays) {
    const pid_t child = Start(std::string(kLongSweep) + "-o o.csv 2>err");
    WaitForUnfinished(child, "");
    WriteBytes(PathTo("o.csv"), "of somebody else");
    EXPECT_EQ(WEXITSTATUS(StatusOf(child)), 3);
    EXPECT_EQ(ReadBytes(PathTo("o.csv")), "of somebody else");
    EXPECT_EQ(ReadBytes(PathTo("err")), "o.csv: file already exists (--force replaces it)\n");
    EXPECT_THAT(Unfinished(""), IsEmpty());
}

// Of three runs that begin at once and write one file, one does; the others are told.
TEST_F(SharedPlaces, OneOfThreeRunsAtOnceMakesTheFile) {
    long made = 0, told = 0;
    for (const std::string words :
         {"save -o o.TKL p.TKL", "convert --to metric p.TKL", "results -o o.txt p.TKL",
          "curve web -o o.csv p.TKL", "results --json -o o.json p.TKL", "plan -o o.png p.TKL",
          "plan -o o.pdf p.TKL", "curve web -o o.xlsx p.TKL",
          "sweep --quiet p.TKL --vary Height=8,9 -o o.jsonl",
          "sweep --quiet p.TKL --vary Height=8,9 -o o.xlsx",
          "risk --quiet p.TKL --random CoalStrength=normal:900:90 --samples 20 -o o.json"}) {
        SCOPED_TRACE(words);
        std::vector<pid_t> children;
        for (int i = 0; i < 3; ++i) children.push_back(Start(words + " >/dev/null 2>>err"));
        long made_here = 0;
        for (const pid_t child : children) {
            const int status = WEXITSTATUS(StatusOf(child));
            EXPECT_TRUE(status == 0 || status == 3) << status;
            made_here += status == 0 ? 1 : 0;
            told += status == 3 ? 1 : 0;
        }
        EXPECT_EQ(made_here, 1);
        made += made_here;
        for (const char* name :
             {"o.TKL", "Metric_p.TKL", "o.txt", "o.csv", "o.json", "o.png", "o.pdf", "o.xlsx", "o.jsonl"})
            std::filesystem::remove(PathTo(name));
        EXPECT_THAT(Unfinished(""), IsEmpty());
    }
    std::printf("%ld files made, %ld runs told\n", made, told);
    EXPECT_EQ(told, 2 * made);
}

TEST_F(SharedPlaces, AProjectForItsOwnerAloneStaysSo) {
    const mode_t mask = ::umask(022);
    ASSERT_EQ(::chmod(PathTo("p.TKL").c_str(), 0600), 0);
    EXPECT_EQ(Run({"convert", "--to", "metric", "p.TKL"}).status, 0);
    EXPECT_EQ(Rights("Metric_p.TKL"), 0600u);
    EXPECT_EQ(Run({"save", "-o", "copy.TKL", "p.TKL"}).status, 0);
    EXPECT_EQ(Rights("copy.TKL"), 0600u);
    WriteBytes(PathTo("open.TKL"), "x");
    EXPECT_EQ(Run({"save", "--force", "-o", "open.TKL", "p.TKL"}).status, 0);
    EXPECT_EQ(Rights("open.TKL"), 0600u);
    EXPECT_EQ(Run({"results", "-o", "o.txt", "p.TKL"}).status, 0);
    EXPECT_EQ(Rights("o.txt"), 0644u);
    ::umask(mask);
}

TEST_F(SharedPlaces, AFileOfSeveralNamesKeepsThemAndALineTellsOfIt) {
    for (const std::string output : {"o.TKL", "o.txt", "o.png"}) {
        SCOPED_TRACE(output);
        WriteBytes(PathTo(output), "old");
        std::filesystem::create_hard_link(PathTo(output), PathTo("second"));
        const std::string command = output == "o.TKL" ? "save" : output == "o.txt" ? "results" : "plan";
        const CliAnswer answer = Run({command, "--force", "-o", output, "p.TKL"});
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.err, output + ": rewritten in place: it has several names\n");
        EXPECT_NE(ReadBytes(PathTo("second")), "old");
        EXPECT_EQ(ReadBytes(PathTo("second")), ReadBytes(PathTo(output)));
        std::filesystem::remove(PathTo("second"));
    }
}

// Who runs the program here may have put no link into a folder to which all may write; somebody else has.
TEST_F(SharedPlaces, ALinkOfSomebodyElseIsNoOutput) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives links away";
    std::filesystem::create_directory(Folder / "shared");
    ASSERT_EQ(::chmod(PathTo("shared").c_str(), 01777), 0);
    WriteBytes(PathTo("mine"), "of mine");
    for (const char* name : {"o.TKL", "o.txt", "o.png", "o.csv"}) {
        SCOPED_TRACE(name);
        const std::string path = std::string("shared/") + name;
        std::filesystem::create_symlink("../mine", PathTo(path));
        ASSERT_EQ(::lchown(PathTo(path).c_str(), 1234, 1234), 0);
        const std::string end = path.substr(path.size() - 3);
        const std::vector<std::string> words = end == "TKL"   ? std::vector<std::string>{"save"}
                                               : end == "txt" ? std::vector<std::string>{"results"}
                                               : end == "png" ? std::vector<std::string>{"plan"}
                                                              : std::vector<std::string>{"curve", "web"};
        std::vector<std::string> arguments = words;
        for (const std::string& word :
             {std::string("--force"), std::string("-o"), path, std::string("p.TKL")})
            arguments.push_back(word);
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 3);
        EXPECT_EQ(answer.err, "p.TKL: " + path + ": Permission denied\n");
        EXPECT_EQ(ReadBytes(PathTo("mine")), "of mine");
    }
}

TEST_F(SharedPlaces, ADanglingLinkIsFollowedWithForceOnly) {
    std::filesystem::create_symlink("not-yet", PathTo("o.TKL"));
    const CliAnswer refused = Run({"save", "-o", "o.TKL", "p.TKL"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err, "p.TKL: o.TKL: file already exists (--force replaces it)\n");
    EXPECT_FALSE(std::filesystem::exists(PathTo("not-yet")));
    EXPECT_EQ(Run({"save", "--force", "-o", "o.TKL", "p.TKL"}).status, 0);
    EXPECT_EQ(ReadBytes(PathTo("not-yet")), ProjectText{}.Bytes());
}

TEST_F(SharedPlaces, EverySignalThatEndsTheProgramLeavesNothingUnfinished) {
    for (const int signal :
         {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGQUIT, SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ}) {
        SCOPED_TRACE(signal);
        const pid_t child = Start(std::string(kLongSweep) + "-o o.csv");
        WaitForUnfinished(child, "");
        ::kill(child, signal);
        const int status = StatusOf(child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        EXPECT_THAT(Unfinished(""), IsEmpty());
        EXPECT_FALSE(std::filesystem::exists(PathTo("o.csv")));
    }
}

TEST_F(SharedPlaces, WhatAKilledRunLeavesGoesWithTheNextOne) {
    const pid_t child = Start(std::string(kLongSweep) + "-o o.csv");
    WaitForUnfinished(child, "");
    ::kill(child, SIGKILL);
    StatusOf(child);
    EXPECT_EQ(Unfinished("").size(), 1u);
    EXPECT_EQ(Run({"save", "-o", "o.TKL", "p.TKL"}).status, 0);
    EXPECT_THAT(Unfinished(""), IsEmpty());
}

// A workbook for standard output grows in the folder for temporary files.
TEST_F(SharedPlaces, NothingIsLeftOfWhatGoesToStandardOutput) {
    const std::string words =
        "sweep --quiet p.TKL --vary Height=2:12/300 --vary DepthCover=50:900/200 -o - --format xlsx "
        ">/dev/null";
    for (const int signal : {SIGTERM, SIGKILL}) {
        const pid_t child = Start(words);
        WaitForUnfinished(child, "tmp");
        ::kill(child, signal);
        EXPECT_TRUE(WIFSIGNALED(StatusOf(child)));
        EXPECT_EQ(Unfinished("tmp").size(), signal == SIGKILL ? 1u : 0u);
    }
    EXPECT_EQ(WEXITSTATUS(StatusOf(Start("plan -o - --format pdf p.TKL >/dev/null"))), 0);
    EXPECT_THAT(Unfinished("tmp"), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
