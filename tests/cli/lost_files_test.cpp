// SPDX-License-Identifier: GPL-3.0-or-later
// What every output does when the disk, or the user, ends it in the middle: nothing that stood there is lost.
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>
#include <set>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/cli_runner.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

using nlohmann::json;

// How much of it is to be run; the long runs say so in the environment.
long Wanted(const char* variable, long otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::atol(text);
}

constexpr const char* kOldContent = "the old content";

class LostFiles : public CliTest {
  protected:
    LostFiles() {
        std::filesystem::create_directory(Folder / "tmp");
        ::setenv("TMPDIR", PathTo("tmp").c_str(), 1);
        Project("p.TKL");
        WriteBytes(PathTo("rows.csv"), "Hole,DepthCover\r\nA,100\r\nB,120\r\nC,140\r\n");
    }
    ~LostFiles() override { ::unsetenv("TMPDIR"); }

    // Starts the command line with these words of the shell in the test's folder; its process, 0 for none.
    pid_t StartInShell(const std::string& words) const {
        return StartProgram(
            {"/bin/sh", "-c", "cd '" + Folder.string() + "' && exec '" TARVOKOL_CLI "' " + words});
    }

    // What stands in the folder beside the inputs and the outputs.
    std::vector<std::string> Leftovers(const std::vector<std::string>& outputs) const {
        std::set<std::string> known{"p.TKL", "rows.csv", "tmp", "count"};
        known.insert(outputs.begin(), outputs.end());
        std::vector<std::string> names;
        for (const std::string folder : {"", "tmp"})
            for (const auto& entry : std::filesystem::directory_iterator(Folder / folder)) {
                const std::string name = entry.path().filename().string();
                // The toolkit makes a folder of its own; the thread sanitizer has a file there while a program starts.
                const bool other = name.starts_with("runtime-") || name.starts_with("tsan.");
                if (known.count(name) == 0 && !other) names.push_back(name);
            }
        return names;
    }
};

// A command that writes `output`, the last of them by "-o".
struct OutputCase {
    std::vector<std::string> outputs;
    std::vector<std::string> arguments;

    const std::string& Output() const { return outputs.back(); }
    std::string Words() const { return arguments[0] + " " + Output(); }
};

// Of a format that another program builds from drawings; each run takes its time.
bool IsDrawn(const std::string& output) {
    return output.ends_with(".png") || output.ends_with(".pdf") || output.ends_with(".svg") ||
           output.ends_with(".xlsx");
}

const std::vector<std::string> kSweep{"sweep",         "p.TKL",  "--vary",
                                      "Height=8,9,10", "--vary", "WebThickness=6,8,10"};
const std::vector<std::string> kTable{"table", "p.TKL", "rows.csv"};
const std::vector<std::string> kRisk{"risk",      "p.TKL", "--random", "CoalStrength=normal:100%:15%",
                                     "--samples", "50"};

const std::vector<OutputCase>& ProjectOutputs() {
    static const std::vector<OutputCase> cases{
        {{"o.TKL"}, {"save", "p.TKL"}},
        {{"o.TKL"}, {"convert", "--to", "metric", "p.TKL"}},
        {{"o.txt"}, {"results", "p.TKL"}},
        {{"o.json"}, {"results", "p.TKL"}},
        {{"o.pdf"}, {"results", "p.TKL"}},
        {{"o.json"}, {"size", "p.TKL"}},
        {{"o.csv"}, {"curve", "sf-depth", "p.TKL"}},
        {{"o.xlsx"}, {"curve", "sf-depth", "p.TKL"}},
        {{"o.png"}, {"curve", "web", "p.TKL"}},
        {{"o.svg"}, {"curve", "web", "p.TKL"}},
        {{"o.pdf"}, {"curve", "web", "p.TKL"}},
        {{"o.svg"}, {"plan", "p.TKL"}},
        {{"o.png"}, {"plan", "p.TKL"}},
        {{"o.pdf"}, {"plan", "p.TKL"}},
        {{"o.json"}, {"plan", "p.TKL"}},
    };
    return cases;
}

const std::vector<OutputCase>& StudyOutputs() {
    static const std::vector<OutputCase> cases{
        {{"o.csv"}, kSweep},  {{"o.jsonl"}, kSweep},
        {{"o.xlsx"}, kSweep}, {{"o.png"}, kSweep},
        {{"o.svg"}, kSweep},  {{"o.pdf"}, kSweep},
        {{"o.csv"}, kTable},  {{"o.jsonl"}, kTable},
        {{"o.xlsx"}, kTable}, {{"o.png"}, kRisk},
        {{"o.svg"}, kRisk},   {{"o.pdf"}, kRisk},
        {{"o.json"}, kRisk},  {{"s.csv", "o.svg"}, With(kRisk, {"--samples-out", "s.csv"})},
    };
    return cases;
}

std::vector<OutputCase> OutputCases() {
    std::vector<OutputCase> cases = ProjectOutputs();
    cases.insert(cases.end(), StudyOutputs().begin(), StudyOutputs().end());
    return cases;
}

std::vector<std::string> ArgumentsOf(const OutputCase& output) {
    return With(output.arguments, {"--force", "-o", output.Output()});
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

struct Failure {
    std::string kind = "once";
    int error = ENOSPC;
};

// Runs a command over and over, each time with another of its calls failing, and judges what it leaves.
class FailingRuns : public LostFiles {
  protected:
    void SetUp() override {
        if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    }

    // Every `step`-th call from `first` on.
    void Attack(const OutputCase& output, const Failure& failure, long first, long step) {
        const std::vector<std::string> arguments = ArgumentsOf(output);
        ASSERT_EQ(Run(arguments).status, 0) << output.Words();
        whole_.clear();
        for (const std::string& name : output.outputs) whole_.push_back(ReadBytes(PathTo(name)));
        for (long at = first; FailAt(output, failure, at); at += step) {
            ++cases_;
            ASSERT_LT(at, kMostCalls) << output.Words();
        }
        for (const std::string& name : output.outputs) std::filesystem::remove(PathTo(name));
    }

    // False if the run had no so many calls.
    bool FailAt(const OutputCase& output, const Failure& failure, long at) {
        for (const std::string& name : output.outputs) WriteBytes(PathTo(name), kOldContent);
        std::filesystem::remove(PathTo("count"));
        CliAnswer answer;
        {
            const Orders orders(Folder.string(), at, failure.error, failure.kind);
            answer = Run(ArgumentsOf(output));
        }
        // The number of calls, and the name of the one that failed.
        const std::string count = ReadBytes(PathTo("count"));
        const std::string call = count.substr(std::min(count.find(' ') + 1, count.size()));
        if (call.size() <= 1) return false;
        SCOPED_TRACE(output.Words() + ", " + failure.kind + ", error " + std::to_string(failure.error) +
                     ", call " + std::to_string(at) + ": " + call);
        Judge(output, answer);
        if (failure.kind == "once" && call != "unlink\n") {
            EXPECT_THAT(Leftovers(output.outputs), testing::IsEmpty());
        }
        for (const std::string& name : Leftovers(output.outputs)) {
            std::filesystem::remove(Folder / name);
            std::filesystem::remove(Folder / "tmp" / name);
        }
        return true;
    }

    // The old content or the new one is whole in place, and status 0 stands for the new one alone.
    void Judge(const OutputCase& output, const CliAnswer& answer) {
        EXPECT_TRUE(answer.status == 0 || answer.status == 1 || answer.status == 3) << answer.status;
        if (answer.status != 0) {
            ++told_;
            EXPECT_NE(answer.err, "");
        }
        for (std::size_t i = 0; i < output.outputs.size(); ++i) {
            const std::string bytes = ReadBytes(PathTo(output.outputs[i]));
            const bool is_new = IsNew(output.outputs[i], bytes, whole_[i]);
            if (bytes != kOldContent && !is_new) ++lost_;
            EXPECT_TRUE(bytes == kOldContent || is_new)
                << output.outputs[i] << " of " << bytes.size() << " bytes";
            if (answer.status == 0) {
                EXPECT_TRUE(is_new) << output.outputs[i];
            }
        }
    }

    // The object of a project that could not be read is shorter, and whole all the same; a PDF, which carries
    // its date and what fonts it found, has an end of its own; a workbook carries its date.
    static bool IsNew(const std::string& name, const std::string& bytes, const std::string& whole) {
        if (bytes == kOldContent) return false;
        if (name.ends_with(".json")) return bytes.ends_with("}\n");
        if (name.ends_with(".pdf")) return bytes.ends_with("%%EOF\n");
        if (name.ends_with(".xlsx")) return bytes.size() + 64 > whole.size();
        return bytes == whole;
    }

    void Report() const {
        std::printf("%ld failures in %zu outputs: %ld runs told of it, %ld lost\n", cases_,
                    OutputCases().size(), told_, lost_);
    }

    long cases_ = 0, told_ = 0, lost_ = 0;

  private:
    std::vector<std::string> whole_;
};

// Of the drawn formats a part, which the long run makes good.
TEST_F(FailingRuns, NoFailureOfAFileOperationLosesAnOutput) {
    constexpr long kStepOfDrawn = 7;
    long first = 0;
    for (const OutputCase& output : OutputCases())
        Attack(output, {}, 1 + (IsDrawn(output.Output()) ? first++ % kStepOfDrawn : 0),
               IsDrawn(output.Output()) ? kStepOfDrawn : 1);
    Report();
    EXPECT_GE(cases_, 300);
}

// Every kind of failure with every error: the first kind at every call, the others at every so many, another
// one first each time.
TEST_F(FailingRuns, NoKindOfFailureLosesAnOutput) {
    if (Wanted("TARVOKOL_ALL_FAILURES", 0) == 0) GTEST_SKIP() << "part of the long run";
    constexpr long kStep = 20;
    long turn = 0;
    for (const OutputCase& output : OutputCases())
        for (const char* kind : {"once", "forever", "half", "full"})
            for (const int error : {ENOSPC, EIO, EACCES}) {
                const bool every = std::string(kind) == "once" && error == ENOSPC;
                Attack(output, {kind, error}, every ? 1 : 1 + turn++ % kStep, every ? 1 : kStep);
            }
    Report();
    EXPECT_GE(cases_, 2000);
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
        const pid_t child =
            StartInShell(command + " --force -o x.TKL " + (save ? "x.TKL" : "p.TKL") + " >/dev/null 2>&1");
        ASSERT_NE(child, 0);
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
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    long cases = 0;
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"save"}, std::vector<std::string>{"convert", "--to", "metric"}}) {
        std::vector<std::string> arguments = command;
        for (const char* word : {"--force", "-o", "x.TKL", "p.TKL"}) arguments.emplace_back(word);
        ASSERT_EQ(Run(arguments).status, 0);
        const std::string whole = ReadBytes(PathTo("x.TKL"));
        for (long at = 1;; ++at) {
            ASSERT_LT(at, kMostCalls);
            WriteBytes(PathTo("x.TKL"), "the old content");
            CliAnswer answer;
            {
                const Orders orders(Folder.string(), at, ENOSPC, "kill");
                answer = Run(arguments);
            }
            const std::string bytes = ReadBytes(PathTo("x.TKL"));
            EXPECT_TRUE(bytes == "the old content" || bytes == whole) << at;
            if (answer.status == 0) break;
            ASSERT_EQ(answer.status, 128 + SIGKILL) << answer.err;
            ++cases;
        }
    }
    std::printf("%ld ends\n", cases);
    EXPECT_GE(cases, 15);
}

// The user's interrupt at the first file operations one by one and at some of the many that pack a workbook: the old file or
// the new one, and no scratch.
TEST_F(LostFiles, AnInterruptAtAnyFileOperationLeavesNothingBehind) {
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    for (const std::string output : {"o.csv", "o.xlsx"}) {
        long interrupted = 0;
        for (long at = 1;; at += at < 12 ? 1 : 29) {
            SCOPED_TRACE(output + ", call " + std::to_string(at));
            ASSERT_LT(at, kMostCalls);
            WriteBytes(PathTo(output), kOldContent);
            CliAnswer answer;
            {
                const Orders orders(Folder.string(), at, ENOSPC, "interrupt");
                answer = Run(With(kSweep, {"--quiet", "--force", "-o", output}));
            }
            EXPECT_THAT(Leftovers({output}), testing::IsEmpty());
            for (const std::string& name : Leftovers({output})) std::filesystem::remove(Folder / name);
            EXPECT_NE(ReadBytes(PathTo(output)), "");
            if (answer.status == 0) break;
            ASSERT_EQ(answer.status, 128 + SIGINT) << answer.err;
            ++interrupted;
        }
        EXPECT_GE(interrupted, 4);
        std::filesystem::remove(PathTo(output));
    }
}

// A sweep of a million rows into a file that stands, ended by a signal when its new content has begun to
// grow.
class EndedStudy : public LostFiles, public ::testing::WithParamInterface<std::string> {
  protected:
    // The signal that ended it, 0 for none.
    int EndBy(int signal) {
        WriteBytes(PathTo(GetParam()), kOldContent);
        const pid_t child = StartInShell(
            "sweep --quiet p.TKL --vary Height=2:12/1000 --vary DepthCover=50:900/1000 --force -o " +
            GetParam());
        if (child == 0) return -1;
        EXPECT_TRUE(NewContentHasBegun());
        ::kill(child, signal);
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    bool NewContentHasBegun() const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (Leftovers({GetParam()}).empty()) {
            if (std::chrono::steady_clock::now() > end) return false;
            ::usleep(500);
        }
        return true;
    }

    // A study that was not ended has left some hundred megabytes there.
    void ExpectOldContent() const {
        ASSERT_EQ(std::filesystem::file_size(PathTo(GetParam())), std::string_view(kOldContent).size());
        EXPECT_EQ(ReadBytes(PathTo(GetParam())), kOldContent);
    }
};

TEST_P(EndedStudy, LeavesTheOldFile) {
    ASSERT_EQ(EndBy(SIGKILL), SIGKILL);
    ExpectOldContent();
    for (const std::string& name : Leftovers({GetParam()})) std::filesystem::remove(Folder / name);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ASSERT_EQ(EndBy(signal), signal);
        ExpectOldContent();
        EXPECT_THAT(Leftovers({GetParam()}), testing::IsEmpty()) << "signal " << signal;
    }
}

// Whoever starts the tests may have put the user's interrupt off, as a shell does for what runs in its background.
TEST_P(EndedStudy, LeavesTheOldFileWhereTheCallerIgnoresTheInterrupt) {
    const auto before = std::signal(SIGINT, SIG_IGN);
    EXPECT_EQ(EndBy(SIGINT), SIGINT);
    std::signal(SIGINT, before);
    ExpectOldContent();
}

INSTANTIATE_TEST_SUITE_P(Formats, EndedStudy, ::testing::Values("o.csv", "o.jsonl", "o.xlsx"),
                         [](const auto& format) { return format.param.substr(2); });

// Who has seen enough of a pipe ends the study without a word.
TEST_F(LostFiles, AStudyWhosePipeIsClosedEndsQuietly) {
    for (const char* study :
         {"sweep --quiet p.TKL --vary Height=2:12/1000 --vary DepthCover=50:900/1000",
          "sweep --quiet --json p.TKL --vary Height=2:12/1000 --vary DepthCover=50:900/1000"}) {
        const std::string command =
            "cd '" + Folder.string() + "' && '" TARVOKOL_CLI "' " + study + " 2>err | head -n 2 >out";
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 0);
        EXPECT_EQ(ReadBytes(PathTo("err")), "");
        const std::string rows = ReadBytes(PathTo("out"));
        EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 2);
    }
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
        SCOPED_TRACE(output.Words());
        std::filesystem::remove(PathTo(output.Output()));
        ASSERT_EQ(::mkfifo(PathTo(output.Output()).c_str(), 0600), 0);
        const CliAnswer answer = Run(ArgumentsOf(output));
        EXPECT_EQ(answer.status, 3);
        EXPECT_THAT(answer.err, testing::EndsWith(output.Output() + ": Path/File access error\n"));
        std::filesystem::remove(PathTo(output.Output()));
    }
    EXPECT_EQ(Run({"save", "-o", "/dev/null", "p.TKL"}).status, 3);
}

TEST_F(LostFiles, WhatStandardOutputDoesNotTakeIsSaidOnStandardError) {
    const std::string command =
        "cd '" + Folder.string() + "' && '" TARVOKOL_CLI "' results p.TKL >/dev/full 2>err";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 3);
    EXPECT_THAT(ReadBytes(PathTo("err")), testing::HasSubstr("standard output: "));
}

}  // namespace
}  // namespace tarvokol
