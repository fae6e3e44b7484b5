// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/session_end.h"

#include <csignal>
#include <cstdio>

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

class EndOfSession : public GuiTest {
  protected:
    EndOfSession() { testing::FLAGS_gtest_death_test_style = "fast"; }
};

TEST_F(EndOfSession, KeepsAndEndsByTheSignalThatCame) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const auto end = [signal] {
            const SessionEnd session({[] { std::fputs("kept", stderr); }, [] { return true; }});
            ::raise(signal);
            for (;;) RunEvents();
        };
        EXPECT_EXIT(end(), testing::KilledBySignal(signal), "^kept$");
    }
}

// A loop that is busy does not keep the system waiting.
TEST_F(EndOfSession, ABusyProgramEndsByTheSignalAllTheSame) {
    const auto end = [] {
        const SessionEnd session({[] {}, [] { return true; }});
        ::raise(SIGTERM);
        for (;;) ::pause();
    };
    EXPECT_EXIT(end(), testing::KilledBySignal(SIGTERM), "");
}

TEST_F(EndOfSession, ASignalThatIsPutOffStaysSo) {
    const auto end = [] {
        std::signal(SIGHUP, SIG_IGN);
        const SessionEnd session({[] { std::fputs("kept", stderr); }, [] { return true; }});
        ::raise(SIGHUP);
        RunEvents();
        ::_exit(3);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(3), "^$");
}

TEST_F(EndOfSession, TheSessionManagerIsAnsweredAfterKeeping) {
    std::vector<std::string> steps;
    bool may_end = true;
    const SessionEnd session({[&] { steps.push_back("keep"); },
                              [&] {
                                  steps.push_back("ask");
                                  return may_end;
                              }});
    EXPECT_EQ(session.Answer(false), SessionAnswer::Go);
    EXPECT_EQ(session.Answer(true), SessionAnswer::Go);
    may_end = false;
    EXPECT_EQ(session.Answer(true), SessionAnswer::Stay);
    EXPECT_THAT(steps, testing::ElementsAre("keep", "keep", "ask", "keep", "ask"));
}

}  // namespace
}  // namespace tarvokol
