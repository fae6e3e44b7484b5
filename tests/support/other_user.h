// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a part of a test as another user.
#pragma once

#include <vector>

#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/raised_error.h"

namespace tarvokol {

struct OtherUser {
    uid_t user = 2345;
    gid_t group = 2345;
    std::vector<gid_t> more_groups{};
};

// Only the administrator can act as others.
inline bool CanActAsOthers() {
    return ::geteuid() == 0;
}

// Runs the action as that user in a process of its own. Returns the number of the run-time error that it raised, 0 for none,
// -1 if it came to no end.
template <typename Action>
int RaisedErrorAs(const OtherUser& user, Action action) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool acts = ::setgroups(user.more_groups.size(), user.more_groups.data()) == 0 &&
                          ::setresgid(user.group, user.group, user.group) == 0 &&
                          ::setresuid(user.user, user.user, user.user) == 0;
        ::_exit(acts ? RaisedError(action) : 255);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status) == 255 ? -1 : WEXITSTATUS(status);
}

}  // namespace tarvokol
