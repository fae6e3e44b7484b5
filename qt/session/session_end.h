// SPDX-License-Identifier: GPL-3.0-or-later
// The program is ended from outside: by a log-out, which the session manager announces, or by SIGTERM, SIGHUP or SIGINT.
#pragma once

#include <QObject>
#include <functional>

class QSessionManager;

namespace tarvokol {

struct SessionSteps {
    std::function<void()> Keep;    // keeps unsaved work without asking anything
    std::function<bool()> MayEnd;  // asks about unsaved work; false if the user wants to stay
};

enum class SessionAnswer { Go, Stay };

// Lives as long as the event loop. A signal is answered there by keeping everything; the process then ends by that signal, so
// that its caller learns the truth, and at the latest after a second, whatever the loop is doing. A signal that the caller
// has put off, as nohup does, stays so.
class SessionEnd : public QObject {
  public:
    explicit SessionEnd(SessionSteps steps);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd() override;

    // What a session manager that ends the session is told; it may ask the user where the manager lets it.
    SessionAnswer Answer(bool may_ask) const;

  private:
    void TakeSignal() const;
    void CommitData(QSessionManager& manager) const;

    SessionSteps steps_;
};

}  // namespace tarvokol
