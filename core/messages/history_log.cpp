// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/history_log.h"

#include <string>

#include "core/platform/main_window_services.h"
#include "core/platform/platform.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr int kHighestSequence = 16384;
constexpr int kLinesKept = 2;

int CountLineEnds(std::string_view text) {
    int count = 0;
    for (std::size_t at = text.find(CrLf); at != std::string_view::npos;
         at = text.find(CrLf, at + CrLf.size()))
        ++count;
    return count;
}

// The log cut to its last two lines; one without a line end is never cut.
std::string CutLog(std::string_view log) {
    for (int surplus = CountLineEnds(log) - kLinesKept; surplus > 0; --surplus)
        log.remove_prefix(log.find(CrLf) + CrLf.size());
    return std::string(log);
}

void AppendLine(MainWindowServices& window, std::string_view text) {
    if (window.HistoryLength() >= MaxDisplaySize) window.SetHistoryText(CutLog(window.HistoryText()));
    ++HistorySequence;
    if (HistorySequence > kHighestSequence) HistorySequence = 1;
    window.AppendHistory(GeneralText(HistorySequence) + ". " + std::string(text) + std::string(CrLf));
}

}  // namespace

void LogMessage(std::string_view text) {
    MainWindowServices& window = *Platform.MainWindow;
    if (DisplayHistoryWin == 1) AppendLine(window, text);
    window.ScrollHistoryToEnd();
}

}  // namespace tarvokol
