// SPDX-License-Identifier: GPL-3.0-or-later
// The history log: numbered lines in the main window's history text, which is the log's only store.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarvokol {

struct HistoryLogState {
    // Settings of the log (configuration section "Settings"): on if 1; size in characters at which it is cut.
    int16_t DisplayHistoryWin = 1;
    int16_t MaxDisplaySize = 2048;

    // Number of the last line written, 1 to 16384, then 1 again.
    int16_t HistorySequence = 0;
};
namespace state {
inline HistoryLogState History;
}
// Written by core/program/built_in_values, core/settings/configuration, core/settings/key_tables and
// desktop/settings/frmSet.
inline auto& DisplayHistoryWin = state::History.DisplayHistoryWin;
// Written by core/settings/configuration, core/settings/key_tables and desktop/settings/frmSet.
inline auto& MaxDisplaySize = state::History.MaxDisplaySize;
// Written by core/messages/history_log and core/program/built_in_values.
inline auto& HistorySequence = state::History.HistorySequence;

// Appends a line: the sequence number, ". ", the text. A log that has reached its size is first cut to its last two
// lines. With the log off only the insertion point moves to the end.
void LogMessage(std::string_view text);

}  // namespace tarvokol
