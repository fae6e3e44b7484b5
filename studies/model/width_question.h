// SPDX-License-Identifier: GPL-3.0-or-later
// "Which width?": how wide webs or barrier must be so that they are unlikely enough to fall below their target, where figures
// are uncertain.
#pragma once

#include <string>
#include <variant>

#include "core/engine/panel.h"
#include "core/studies/study_observer.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

struct WidthAnswer {
    std::string words;  // the width, its interval, and the probability there
    double width = 0;   // to take
};

// The answer, or in words why there is none; nothing of both where the observer ended it.
using WidthOutcome = std::variant<std::monostate, WidthAnswer, std::string>;

// Draws and searches, on so many threads. Raises nothing.
WidthOutcome CalculateWidth(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel,
                            unsigned threads, StudyObserver& observer);

// The line of the command line that asks the same of the project's file. Raises StudyRefusal or RunTimeError where there is nothing
// to ask.
std::string CommandOfWidth(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel,
                           const std::string& project_path);

}  // namespace tarvokol
