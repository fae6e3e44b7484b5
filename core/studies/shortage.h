// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a study for which there is not enough memory, or for which threads cannot be started.
#pragma once

#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "core/statistics/study_refusal.h"

namespace tarvokol {

// Does the work of a study. No memory raises StudyShortage with what to change for this study ("take fewer samples").
template <typename Work>
auto WithinMemory(const char* what_to_change, Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw StudyShortage(std::string("out of memory: ") + what_to_change);
    }
}

// Starts one of `wanted` threads. Raises StudyShortage where the system does not.
template <typename Work>
void StartThread(std::vector<std::jthread>& threads, std::size_t wanted, Work work) {
    try {
        threads.emplace_back(work);
    } catch (const std::system_error& error) {
        throw StudyShortage(std::to_string(wanted) + " threads cannot be started (" + error.code().message() +
                            "): take fewer threads");
    }
}

}  // namespace tarvokol
