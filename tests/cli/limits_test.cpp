// SPDX-License-Identifier: GPL-3.0-or-later
// The largest that the command line takes, the threads that it works on, and what it does when it is to end.
#include <cstdlib>
#include <thread>

#include <sys/wait.h>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

class Limits : public CliTest {
  protected:
    Limits() { Project("p.TKL"); }

    // The most threads at a time beside the main one.
    int ThreadsOf(const std::vector<std::string>& arguments) const {
        ::setenv("LD_PRELOAD", TARVOKOL_COUNTING_THREADS, 1);
        ::setenv("TARVOKOL_THREAD_COUNT", PathTo("count").c_str(), 1);
        const CliAnswer answer = Run(arguments);
        ::unsetenv("LD_PRELOAD");
        ::unsetenv("TARVOKOL_THREAD_COUNT");
        EXPECT_EQ(answer.status, 0) << answer.err;
        return std::atoi(ReadBytes(PathTo("count")).c_str());
    }
};

TEST_F(Limits, AProjectOnStandardInputHasSixtyFourMegabytes) {
    const CliAnswer largest = Shell("head -c 67108864 /dev/zero | $cli size --stdin-project -");
    EXPECT_EQ(largest.status, 1);
    EXPECT_EQ(largest.err, "-: Invalid file format\n");
    const CliAnswer larger = Shell("head -c 67108865 /dev/zero | $cli size --stdin-project -");
    EXPECT_EQ(larger.status, 1);
    EXPECT_EQ(larger.err, "-: Out of memory\n");
}

TEST_F(Limits, AnAxisOfMoreThanAMillionValuesIsWrittenAsAnyOther) {
    EXPECT_EQ(
        Shell("$cli sweep -q p.TKL --vary DepthCover=0:-1000000:-1 | sed -n '2,4p;1000001,1000003p'").out,
        "0,,,,,Invalid depth of cover\n-1,,,,,Invalid depth of cover\n-2,,,,,Invalid depth of cover\n"
        "-999999,,,,,Invalid depth of cover\n-1e+06,,,,,Invalid depth of cover\n");
}

TEST_F(Limits, ABillionCombinationsNeedNoForce) {
    const std::string header =
        "Height (ft),DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n";
    const std::string sweep = "$cli sweep -q p.TKL --vary Height=1:2/1000000 --vary DepthCover=1:2/";
    EXPECT_EQ(Shell(sweep + "1000 | head -n 1").out, header);
    EXPECT_EQ(Shell(sweep + "1001 | head -n 1").out, "");
    EXPECT_EQ(Shell(sweep + "1001 --force | head -n 1").out, header);
}

TEST_F(Limits, SamplesThatNoMemoryHoldsAreToldOf) {
    if (kNoLibraryInFront != nullptr)
        GTEST_SKIP() << "the address sanitizer wants more room than is left here";
    const CliAnswer answer = Shell(
        "ulimit -v 4000000; $cli risk p.TKL --random Height=uniform:5:6 --samples 4294967295 --threads 1");
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "out of memory: take fewer samples\n");
}

// Rows are handed over by the main thread, which calculates none; samples it calculates, too.
TEST_F(Limits, AStudyWorksOnAsManyThreadsAsAskedFor) {
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    const std::vector<std::string> sweep{"sweep", "-q", "p.TKL", "--vary", "DepthCover=50:900/100000"};
    const auto with = [](std::vector<std::string> words, const std::string& threads) {
        words.insert(words.end(), {"--threads", threads});
        return words;
    };
    EXPECT_EQ(ThreadsOf(with(sweep, "1")), 1);
    EXPECT_EQ(ThreadsOf(with(sweep, "2")), 2);
    EXPECT_EQ(ThreadsOf(sweep), static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
    const std::vector<std::string> risk{"risk",      "p.TKL", "--random", "Height=uniform:5:6",
                                        "--samples", "200000"};
    EXPECT_EQ(ThreadsOf(with(risk, "1")), 0);
    EXPECT_EQ(ThreadsOf(with(risk, "2")), 1);
}

// On a system that starts no more threads a study ends with what to change, whether its rows were begun or not.
TEST_F(Limits, ThreadsThatCannotBeStartedEndAStudyInOrder) {
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    const std::string limited =
        "LD_PRELOAD='" TARVOKOL_COUNTING_THREADS "' TARVOKOL_MOST_THREADS=1 timeout 60 $cli ";
    for (const char* study : {"sweep -q p.TKL --vary DepthCover=50:900/100000", "table -q p.TKL rows.csv",
                              "risk p.TKL --random Height=uniform:5:6"}) {
        WriteBytes(PathTo("rows.csv"), "DepthCover\n100\n");
        const CliAnswer answer = Shell(limited + study + " --threads 4");
        EXPECT_EQ(answer.status, 1) << study;
        EXPECT_EQ(answer.out, "") << study;
        EXPECT_EQ(answer.err,
                  "4 threads cannot be started (Resource temporarily unavailable): take fewer threads\n")
            << study;
    }
}

// Without a number of its own a bulk run goes on with the one thread that there is.
TEST_F(Limits, ThreadsThatCannotBeStartedEndABulkRunThatAsksForThem) {
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    Shell("seq 40 | sed s/.*/p.TKL/ > list");
    const std::string limited =
        "LD_PRELOAD='" TARVOKOL_COUNTING_THREADS "' TARVOKOL_MOST_THREADS=1 timeout 60 $cli size --json ";
    const CliAnswer asked = Shell(limited + "--threads 4 - < list");
    EXPECT_EQ(asked.status, 1);
    EXPECT_EQ(asked.out, "");
    EXPECT_EQ(asked.err,
              "4 threads cannot be started (Resource temporarily unavailable): take fewer threads\n");
    const CliAnswer unasked = Shell(limited + "- < list");
    EXPECT_EQ(unasked.status, 0) << unasked.err;
    EXPECT_EQ(unasked.Objects().size(), 40u);
}

TEST_F(Limits, OneProjectAndOneThreadNeedNoOther) {
    if (kNoLibraryInFront != nullptr) GTEST_SKIP() << kNoLibraryInFront;
    EXPECT_EQ(ThreadsOf({"results", "p.TKL", "--threads", "4"}), 0);
    EXPECT_EQ(ThreadsOf({"results", "p.TKL", "p.TKL", "--threads", "1"}), 0);
    std::vector<std::string> words{"results", "--threads", "4"};
    words.insert(words.end(), 100, "p.TKL");
    const int threads = ThreadsOf(words);  // the first may be done before the last one begins
    EXPECT_GE(threads, 1);
    EXPECT_LE(threads, 4);
}

// A signal that the caller has put off, as nohup does, ends nothing.
TEST_F(Limits, ASignalThatIsPutOffStaysSo) {
    // The row comes after the signals, and these when the program is there.
    const CliAnswer answer = Shell(
        "until_true() { for look in $(seq 600); do eval \"$1\" && return; sleep 0.1; done; }; "
        "trap '' TERM HUP; (echo DepthCover; until_true '[ -e told ]'; echo -1) | "
        "sh -c 'echo $$ > pid; exec '\"$cli\"' table -q p.TKL -' & "
        "until_true '[ -s pid ] && grep -q tarvokol-cli /proc/$(cat pid)/comm'; sleep 0.2; "
        "kill -TERM $(cat pid); kill -HUP $(cat pid); touch told; wait");
    EXPECT_EQ(answer.out,
              "DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),Message\n"
              "-1,,,,,Invalid depth of cover\n");
}

TEST_F(Limits, StandardInputThatCannotBeReadIsToldOf) {
    const CliAnswer list = Shell("$cli size - < .");
    EXPECT_EQ(list.status, 2);
    EXPECT_EQ(list.err, "tarvokol-cli size: -: the list of files cannot be read\n");
    const CliAnswer project = Shell("$cli size --stdin-project - < .");
    EXPECT_EQ(project.status, 1);
    EXPECT_EQ(project.err, "-: Device I/O error\n");
}

}  // namespace
}  // namespace tarvokol
