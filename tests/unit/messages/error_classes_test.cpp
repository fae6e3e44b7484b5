// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/error_classes.h"

#include <set>

#include "core/messages/command_guard.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kDatabase = -2147217900;
const std::set<int> kPrinter{482, 483, 484};
const std::set<int> kDevice{24, 25, 27, 53, 57, 61, 62, 70, 71, 72};
const std::set<int> kCall{5, 6, 7};
const std::set<int> kFile{52, 55, 64, 68, 75, 76};

class ErrorHandling : public CoreTest {
  protected:
    ErrorHandling() { ErrorTitle = "Error"; }

    // What the handler answers for an error.
    int16_t Handle(int number, bool show_message = true) {
        return HandleRuntimeError(RunTimeError(number), show_message);
    }

    const std::string& Log() const { return Host.MainWindow.History; }
};

TEST_F(ErrorHandling, SortsEveryNumberIntoItsClass) {
    for (int number = -10; number <= 33000; ++number) {
        const ErrorClass expected = kPrinter.count(number)  ? ErrorClass::Printer
                                    : kDevice.count(number) ? ErrorClass::Device
                                    : kCall.count(number)   ? ErrorClass::Call
                                    : kFile.count(number)   ? ErrorClass::File
                                    : number == 32755       ? ErrorClass::Cancelled
                                                            : ErrorClass::Unexpected;
        ASSERT_EQ(ClassOfError(number), expected) << number;
    }
    EXPECT_EQ(ClassOfError(kDatabase), ErrorClass::Database);
}

TEST_F(ErrorHandling, OffersRetryForPrinterAndDeviceErrors) {
    for (const std::set<int>& numbers : {kPrinter, kDevice})
        for (const int number : numbers) {
            Host.Messages.Answers = {4, 2};
            EXPECT_EQ(Handle(number), 0) << number;
            EXPECT_EQ(Host.Messages.Shown.back().style, 5);
            EXPECT_EQ(Host.Messages.Shown.back().title, "Error");
            EXPECT_EQ(Host.Messages.Shown.back().message,
                      "Error occurred: " + ErrorText(number) + " (" + std::to_string(number) + ")");
            EXPECT_EQ(Handle(number), 1) << number;
        }
}

TEST_F(ErrorHandling, SaysTheErrorInItsBox) {
    Handle(53);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: File not found (53)"));
    EXPECT_EQ(Log(), "1. Error  53:File not found\r\n2. Error: Error occurred: File not found (53)\r\n");
}

TEST_F(ErrorHandling, TerminatesTheProcedureForProgramFaults) {
    for (const int number :
         {5, 6, 7, 52, 55, 64, 68, 75, 76, 9, 11, 13, 54, 67, 91, 340, 380, 429, 1000, 0}) {
        EXPECT_EQ(Handle(number), 3) << number;
        EXPECT_EQ(Host.Messages.Shown.back().style, 0);
        EXPECT_EQ(Host.Messages.Shown.back().message, "Error occurred: " + ErrorText(number) + " (" +
                                                          std::to_string(number) + "). Procedure Terminated");
    }
}

TEST_F(ErrorHandling, SaysATerminatedProcedureInItsBox) {
    Handle(13);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Type mismatch (13). Procedure Terminated"));
    EXPECT_EQ(Log(),
              "1. Error  13:Type mismatch\r\n"
              "2. Error: Error occurred: Type mismatch (13). Procedure Terminated\r\n");
}

TEST_F(ErrorHandling, PassesOverACancelledDialogSilently) {
    EXPECT_EQ(Handle(32755), 2);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Log(), "1. Cancel was selected\r\n");
}

TEST_F(ErrorHandling, WritesACancelledDialogOnlyIntoALogThatIsOn) {
    DisplayHistoryWin = 0;
    EXPECT_EQ(Handle(32755), 2);
    EXPECT_EQ(Log(), "");
}

TEST_F(ErrorHandling, LeavesForADatabaseErrorWithItsOwnAnswer) {
    EXPECT_EQ(Handle(kDatabase), 6);
    EXPECT_THAT(Messages(),
                ElementsAre("Error occurred: Application-defined or object-defined error (-2147217900). "
                            "Procedure Terminated"));
    EXPECT_EQ(Log().substr(0, Log().find("\r\n")),
              "1. Error -2147217900:Application-defined or object-defined error");
}

TEST_F(ErrorHandling, AnswersWithoutABoxOnRequest) {
    EXPECT_EQ(Handle(482, false), 1);
    EXPECT_EQ(Handle(53, false), 1);
    EXPECT_EQ(Handle(5, false), 3);
    EXPECT_EQ(Handle(76, false), 3);
    EXPECT_EQ(Handle(9, false), 3);
    EXPECT_EQ(Handle(32755, false), 2);
    EXPECT_EQ(Handle(kDatabase, false), 6);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Log(), "");
}

TEST_F(ErrorHandling, SaysTheTextThatTheErrorCarries) {
    HandleRuntimeError(RunTimeError(53, "ridge.TKL is gone"), true);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: ridge.TKL is gone (53)"));
}

TEST_F(ErrorHandling, WithoutAnErrorInHandsTakesTheOneNotedLast) {
    CurrentError = RunTimeError(75);
    EXPECT_EQ(HandleRuntimeError(true), 3);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Path/File access error (75). Procedure Terminated"));
}

TEST_F(ErrorHandling, FillsAnEmptyErrorTitle) {
    ErrorTitle = "";
    Handle(53);
    EXPECT_EQ(ErrorTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(Log(), "1. Error  53:File not found\r\n2. Message: Error occurred: File not found (53)\r\n");
}

// A command of three statements, the middle one of which fails so many times with an error.
class Guarded : public ErrorHandling {
  protected:
    std::string RunCommand(int number, int failures) {
        std::string trace;
        CommandGuard guard(Cancelled);
        guard([&] { trace += "a"; });
        guard([&] {
            trace += "b";
            if (failures-- > 0) Raise(number);
        });
        if (!Cancelled) guard([&] { trace += "c"; });
        guard([&] { trace += "d"; });
        Left = guard.Left();
        return trace;
    }

    bool Cancelled = false;
    bool Left = false;
};

TEST_F(Guarded, RunsStatementAfterStatement) {
    EXPECT_EQ(RunCommand(53, 0), "abcd");
    EXPECT_FALSE(Left);
    EXPECT_FALSE(Cancelled);
}

TEST_F(Guarded, RepeatsAStatementOnRetry) {
    Host.Messages.Answers = {4, 4};
    EXPECT_EQ(RunCommand(53, 2), "abbbcd");
    EXPECT_EQ(Messages().size(), 2u);
}

TEST_F(Guarded, GoesOnOnCancel) {
    Host.Messages.Answers = {2};
    EXPECT_EQ(RunCommand(53, 1), "abcd");
    EXPECT_FALSE(Cancelled);
}

TEST_F(Guarded, NotesACancelledDialogAndGoesOn) {
    EXPECT_EQ(RunCommand(32755, 1), "abd");
    EXPECT_TRUE(Cancelled);
    EXPECT_FALSE(Left);
}

TEST_F(Guarded, LeavesForAProgramFault) {
    EXPECT_EQ(RunCommand(13, 1), "ab");
    EXPECT_TRUE(Left);
    EXPECT_EQ(RunCommand(kDatabase, 1), "ab");
    EXPECT_TRUE(Left);
}

TEST_F(Guarded, ClearsTheCancelledFlagWhenItDealsWithAnError) {
    Cancelled = true;
    Host.Messages.Answers = {2};
    EXPECT_EQ(RunCommand(53, 1), "abcd");
    EXPECT_FALSE(Cancelled);
}

TEST_F(Guarded, KeepsTheCancelledFlagWithoutAnError) {
    Cancelled = true;
    EXPECT_EQ(RunCommand(53, 0), "abd");
    EXPECT_TRUE(Cancelled);
}

TEST_F(Guarded, AGuardWithoutAForeignFlagKeepsItsOwn) {
    Cancelled = false;
    CommandGuard guard;
    EXPECT_FALSE(guard.Cancelled());
    guard([] { Raise(32755); });
    EXPECT_TRUE(guard.Cancelled());
    EXPECT_FALSE(Cancelled);
    Host.Messages.Answers = {2};
    guard([] { Raise(53); });
    EXPECT_FALSE(guard.Cancelled());
}

TEST_F(Guarded, TheGuardNotesTheErrorThatItDealsWith) {
    Host.Messages.Answers = {2};
    RunCommand(61, 1);
    EXPECT_EQ(CurrentError.number, 61);
    EXPECT_EQ(CurrentError.text, "Disk full");
}

TEST_F(Guarded, LetsEverythingElsePass) {
    CommandGuard guard(Cancelled);
    EXPECT_THROW(guard([] { throw std::runtime_error("not a run-time error of the program"); }),
                 std::runtime_error);
}

}  // namespace
}  // namespace tarvokol
