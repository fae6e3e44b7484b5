// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/sizing_solver.h"

#include "core/messages/notify.h"
#include "core/platform/message_box.h"

namespace tarvokol {

double SizingFunction(const double& B) {
    return SizingFunction(SizingBlock, B);
}

double SizingSlope(const double& B) {
    return SizingSlope(SizingBlock, B);
}

float SpokenWidth(const SizingOutcome& outcome) {
    if (!outcome.Solved()) Notify(SizingFailureMessage(outcome.failure), box_style::Plain);
    return outcome.width;
}

float SolvePillarSize(const float& start) {
    return SpokenWidth(SolvePillar(SizingBlock, start));
}

}  // namespace tarvokol
