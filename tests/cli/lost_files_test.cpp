// SPDX-License-Identifier: GPL-3.0-or-later
// What every output does when the disk, or the user, ends it in the middle: nothing that stood there is lost.
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/cli_runner.h"

extern char** environ;

namespace tarvokol {
namespace {

using nlohmann::json;

// How much of it is to be run; the long runs say so in the environment.
long Wanted(const char* variable, long otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::atol(text);
}

class LostFiles : public CliTest {
  protected:
    LostFiles() {
        std::filesystem::create_directory(Folder / "tmp");
        ::setenv("TMPDIR", PathTo("tmp").c_str(), 1);
        Project("p.TKL");
    }
    ~LostFiles() override { ::unsetenv("TMPDIR"); }

    // What stands in the folder beside the projects.
    std::vector<std::string> Leftovers(const std::string& output) const {
        std::vector<std::string> names;
        for (const std::string folder : {"", "tmp"})
            for (const auto& entry : std::filesystem::directory_iterator(Folder / folder)) {
                const std::string name = entry.path().filename().string();
                const bool ours = name == output || name == "p.TKL" || name == "tmp" || name == "count";
                // The toolkit makes a folder of its own.
                if (!ours && !name.starts_with("runtime-")) names.push_back(name);
            }
        return names;
    }
};

struct OutputCase {
    std::string output;
    std::vector<std::string> arguments;
};

const std::vector<OutputCase>& OutputCases() {
    static const std::vector<OutputCase> cases{
        {"o.TKL", {"save"}},
        {"o.TKL", {"convert", "--to", "metric"}},
        {"o.txt", {"results"}},
        {"o.json", {"results"}},
        {"o.pdf", {"results"}},
        {"o.json", {"size"}},
        {"o.csv", {"curve", "sf-depth"}},
        {"o.xlsx", {"curve", "sf-depth"}},
        {"o.png", {"curve", "web"}},
        {"o.svg", {"curve", "web"}},
        {"o.pdf", {"curve", "web"}},
        {"o.svg", {"plan"}},
        {"o.png", {"plan"}},
        {"o.pdf", {"plan"}},
        {"o.json", {"plan"}},
    };
    return cases;
}

std::vector<std::string> ArgumentsOf(const OutputCase& output) {
    std::vector<std::string> arguments = output.arguments;
    for (const char* word : {"--force", "-o", output.output.c_str(), "p.TKL"}) arguments.emplace_back(word);
    return arguments;
}

// Orders to the library in front of the program, for as long as the object lives.
class Orders {
  public:
    Orders(const std::string& folder, long at, int error, const std::string& kind) {
        ::setenv("LD_PRELOAD", TARVOKOL_FAILING_FILES, 1);
        ::setenv("TARVOKOL_FAULT_FOLDER", folder.c_str(), 1);
        ::setenv("TARVOKOL_FAULT_AT", std::to_string(at).c_str(), 1);
        ::setenv("TARVOKOL_FAULT_ERROR", std::to_string(error).c_str(), 1);
        ::setenv("TARVOKOL_FAULT_KIND", kind.c_str(), 1);
        ::setenv("TARVOKOL_FAULT_COUNT", (folder + "/count").c_str(), 1);
    }
    Orders(const Orders&) = delete;
    Orders& operator=(const Orders&) = delete;
    ~Orders() { ::unsetenv("LD_PRELOAD"); }
};

// Makes the N-th call fail, for every N, over every command and format. The old content or the new one is whole in place
// each time, status 0 stands for the new one alone, and nothing is left beside it.
TEST_F(LostFiles, NoFailureOfAFileOperationLosesAnOutput) {
    const bool all = Wanted("TARVOKOL_ALL_FAILURES", 0) != 0;
    const std::vector<std::string> kinds =
        all ? std::vector<std::string>{"once", "forever", "half", "full"} : std::vector<std::string>{"once"};
    const std::vector<int> errors = all ? std::vector<int>{ENOSPC, EIO, EACCES} : std::vector<int>{ENOSPC};
    long cases = 0, failed_runs = 0, lost = 0;
    for (const OutputCase& output : OutputCases()) {
        const std::string path = PathTo(output.output);
        const std::vector<std::string> arguments = ArgumentsOf(output);
        ASSERT_EQ(Run(arguments).status, 0);
        const std::size_t whole = ReadBytes(path).size();
        for (const std::string& kind : kinds)
            for (const int error : errors) {
                bool reached = true;
                for (long at = 1; reached; ++at) {
                    WriteBytes(path, "the old content");
                    std::filesystem::remove(PathTo("count"));
                    CliAnswer answer;
                    {
                        const Orders orders(Folder.string(), at, error, kind);
                        answer = Run(arguments);
                    }
                    const std::string count = ReadBytes(PathTo("count"));
                    const std::string call = count.substr(std::min(count.find(' ') + 1, count.size()));
                    reached = call.size() > 1;
                    if (!reached) break;
                    ++cases;
                    if (answer.status != 0) ++failed_runs;
                    const std::string bytes = ReadBytes(path);
                    // The object of a project that could not be read is shorter, and whole all the same; a PDF, which
                    // carries its date and what fonts it found, has an end of its own.
                    const bool has_end = bytes.ends_with("}\n") || bytes.ends_with("%%EOF\n");
                    const bool is_new = bytes != "the old content" && (bytes.size() + 64 > whole || has_end);
                    if (bytes != "the old content" && !is_new) ++lost;
                    EXPECT_TRUE(bytes == "the old content" || is_new)
                        << arguments[0] << " " << output.output << " " << kind << " " << at << " " << call << bytes.size();
                    EXPECT_TRUE(answer.status == 0 || answer.status == 1 || answer.status == 3) << answer.status;
                    if (answer.status == 0) {
                        EXPECT_TRUE(is_new) << arguments[0] << " " << output.output << " " << kind << " " << at << " " << call;
                    }
                    if (answer.status != 0) {
                        EXPECT_NE(answer.err, "");
                    }
                    if (kind == "once" && call != "unlink\n") {
                        EXPECT_THAT(Leftovers(output.output), testing::IsEmpty()) << arguments[0] << output.output << at << call;
                    }
                    for (const std::string& name : Leftovers(output.output)) {
                        std::filesystem::remove(Folder / name);
                        std::filesystem::remove(Folder / "tmp" / name);
                    }
                }
            }
        std::filesystem::remove(path);
    }
    std::printf("%ld failures in %zu outputs: %ld runs told of it, %ld lost\n", cases, OutputCases().size(), failed_runs, lost);
    EXPECT_GE(cases, 100);
}

// Ends save and convert at random moments by SIGKILL while they replace a file.
TEST_F(LostFiles, NoKillLosesAFile) {
    const long kills = Wanted("TARVOKOL_KILLS", 60);
    std::mt19937 random(11);
    Project("metric.TKL");
    const std::string english = ProjectText{}.Bytes();
    ASSERT_EQ(Run({"convert", "--to", "metric", "--force", "-o", "metric.TKL", "p.TKL"}).status, 0);
    const std::string metric = ReadBytes(PathTo("metric.TKL"));
    long ended = 0;
    for (long i = 0; i < kills; ++i) {
        const bool save = i % 2 == 0;
        WriteBytes(PathTo("x.TKL"), english);
        const std::string command = save ? "save" : "convert --to metric";
        const std::string loop = "cd '" + Folder.string() + "' && exec '" TARVOKOL_CLI "' " + command +
                                 " --force -o x.TKL " + (save ? "x.TKL" : "p.TKL") + " >/dev/null 2>&1";
        const char* words[] = {"sh", "-c", loop.c_str(), nullptr};
        pid_t child = 0;
        ASSERT_EQ(::posix_spawn(&child, "/bin/sh", nullptr, nullptr, const_cast<char**>(words), environ), 0);
        ::usleep(random() % 40000);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (WIFSIGNALED(status)) ++ended;
        const std::string bytes = ReadBytes(PathTo("x.TKL"));
        ASSERT_TRUE(bytes == english || (!save && bytes == metric)) << "kill " << i << ": " << bytes.size();
    }
    std::printf("%ld kills, %ld in the middle of a run, 0 lost\n", kills, ended);
}

// Ends the program at each of its file operations in turn.
TEST_F(LostFiles, AnEndAtAnyFileOperationLosesNothing) {
    long cases = 0;
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"save"}, std::vector<std::string>{"convert", "--to", "metric"}}) {
        std::vector<std::string> arguments = command;
        for (const char* word : {"--force", "-o", "x.TKL", "p.TKL"}) arguments.emplace_back(word);
        ASSERT_EQ(Run(arguments).status, 0);
        const std::string whole = ReadBytes(PathTo("x.TKL"));
        for (long at = 1;; ++at) {
            WriteBytes(PathTo("x.TKL"), "the old content");
            CliAnswer answer;
            {
                const Orders orders(Folder.string(), at, ENOSPC, "kill");
                answer = Run(arguments);
            }
            const std::string bytes = ReadBytes(PathTo("x.TKL"));
            EXPECT_TRUE(bytes == "the old content" || bytes == whole) << at;
            if (answer.status == 0) break;
            ++cases;
        }
    }
    std::printf("%ld ends\n", cases);
    EXPECT_GE(cases, 15);
}

TEST_F(LostFiles, AFileThatReplacesItselfKeepsItsRightsAndItsLink) {
    std::filesystem::create_directory(Folder / "real");
    Project("real/a.TKL");
    ASSERT_EQ(::chmod(PathTo("real/a.TKL").c_str(), 0640), 0);
    std::filesystem::create_symlink("real/a.TKL", Folder / "a.TKL");
    EXPECT_EQ(Run({"save", "--force", "-o", "a.TKL", "a.TKL"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(Folder / "a.TKL"));
    EXPECT_EQ(ReadBytes(PathTo("real/a.TKL")), ProjectText{}.Bytes());
    struct stat status {};
    ASSERT_EQ(::stat(PathTo("real/a.TKL").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST_F(LostFiles, TwoProjectsOfOneNameAreNeverWrittenToOneFile) {
    for (const char* folder : {"one", "two", "out"}) std::filesystem::create_directory(Folder / folder);
    ProjectText other;
    other.title = "The other";
    Project("one/a.TKL");
    Project("two/a.TKL", other);
    const CliAnswer answer = Run({"save", "--force", "-o", "out", "one/a.TKL", "two/a.TKL"});
    EXPECT_EQ(answer.status, 3);
    EXPECT_EQ(answer.err, "two/a.TKL: out/a.TKL: holds the result of another project of the same name\n");
    EXPECT_EQ(ReadBytes(PathTo("out/a.TKL")), ProjectText{}.Bytes());
    EXPECT_EQ(Run({"curve", "web", "--force", "-o", "out", "one/a.TKL", "two/a.TKL"}).status, 3);
}

TEST_F(LostFiles, APipeOrADeviceIsRefusedAsAnOutputOfEveryFormat) {
    for (const OutputCase& output : OutputCases()) {
        SCOPED_TRACE(output.arguments[0] + " " + output.output);
        std::filesystem::remove(PathTo(output.output));
        ASSERT_EQ(::mkfifo(PathTo(output.output).c_str(), 0600), 0);
        const CliAnswer answer = Run(ArgumentsOf(output));
        EXPECT_EQ(answer.status, 3);
        EXPECT_EQ(answer.err, "p.TKL: " + output.output + ": Path/File access error\n");
    }
    EXPECT_EQ(Run({"save", "-o", "/dev/null", "p.TKL"}).status, 3);
}

TEST_F(LostFiles, WhatStandardOutputDoesNotTakeIsSaidOnStandardError) {
    const std::string command = "cd '" + Folder.string() + "' && '" TARVOKOL_CLI "' results p.TKL >/dev/full 2>err";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 3);
    EXPECT_THAT(ReadBytes(PathTo("err")), testing::HasSubstr("standard output: "));
}

}  // namespace
}  // namespace tarvokol
