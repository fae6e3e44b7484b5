// SPDX-License-Identifier: GPL-3.0-or-later
// What a page's work comes to: its answer, or in words why there is none.
#pragma once

#include <new>
#include <string>

#include "core/runtime/run_time_error.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {

// Raises nothing. `advice` is for a study for which there is not enough memory: "take fewer samples".
template <typename Outcome, typename Work>
Outcome AnswerOrWords(const char* advice, const Work& work) {
    try {
        return work();
    } catch (const StudyRefusal& refusal) {
        return std::string(refusal.what());
    } catch (const RunTimeError& error) {
        return error.text;
    } catch (const std::bad_alloc&) {
        return std::string("out of memory: ") + advice;
    }
}

}  // namespace tarvokol
