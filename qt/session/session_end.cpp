// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/session_end.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/unfinished_files.h"

namespace tarvokol {
namespace {

constexpr std::array<int, 3> kEndingSignals{SIGTERM, SIGHUP, SIGINT};
constexpr unsigned kLongestKeeping = 1;  // seconds

// Where the handler of a signal puts it for the event loop to find.
std::array<int, 2> Pipe{-1, -1};
volatile std::sig_atomic_t Ending = 0;

[[noreturn]] void EndBy(int signal) {
    RemoveUnfinishedFiles();
    std::signal(signal, SIG_DFL);
    sigset_t wanted;
    ::sigemptyset(&wanted);
    ::sigaddset(&wanted, signal);
    ::sigprocmask(SIG_UNBLOCK, &wanted, nullptr);
    ::raise(signal);
    ::_exit(128 + signal);
}

void NoteSignal(int signal) {
    const int error = errno;
    Ending = signal;
    ::alarm(kLongestKeeping);
    const auto byte = static_cast<unsigned char>(signal);
    // Where nothing can be written any more the alarm ends the process.
    if (::write(Pipe[1], &byte, 1) != 1) Ending = signal;
    errno = error;
}

void EndAtLast(int) {
    if (Ending != 0) EndBy(Ending);
}

void Handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

SessionEnd::SessionEnd(SessionSteps steps) : steps_(std::move(steps)) {
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::CommitData,
            Qt::DirectConnection);
    if (::pipe2(Pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(Pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SessionEnd::TakeSignal);
    Handle(SIGALRM, EndAtLast);
    for (const int signal : kEndingSignals) Handle(signal, NoteSignal);
}

SessionEnd::~SessionEnd() {
    for (const int signal : kEndingSignals) Handle(signal, SIG_DFL);
    for (int& end : Pipe) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

void SessionEnd::TakeSignal() const {
    unsigned char signal = 0;
    if (::read(Pipe[0], &signal, 1) != 1) return;
    steps_.Keep();
    EndBy(signal);
}

SessionAnswer SessionEnd::Answer(bool may_ask) const {
    steps_.Keep();
    return !may_ask || steps_.MayEnd() ? SessionAnswer::Go : SessionAnswer::Stay;
}

void SessionEnd::CommitData(QSessionManager& manager) const {
    const bool may_ask = manager.allowsInteraction();
    const SessionAnswer answer = Answer(may_ask);
    if (may_ask) manager.release();
    if (answer == SessionAnswer::Stay) manager.cancel();
}

}  // namespace tarvokol
