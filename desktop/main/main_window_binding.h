// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/main_window_services.h"
#include "core/program/start_up.h"

namespace tarvokol {

// What the rooms below ask of the main window, answered by the form itself. Every call loads the form if need
// be.
class MainWindowBinding : public MainWindowServices {
  public:
    std::string Tag() const override;
    void SetCaption(const std::string& caption) override;
    void SetMousePointer(MousePointer pointer) override;

    // The lines of the history end in CR LF.
    std::string HistoryText() override;
    long HistoryLength() override;
    void SetHistoryText(const std::string& text) override;
    void AppendHistory(const std::string& text) override;
    void ScrollHistoryToEnd() override;

    void SetRecentCaption(int index, const std::string& caption) override;
    std::string RecentCaption(int index) override;
    void ShowRecentSeparator() override;

    void OpenProjectParameters() override;
    void ApplySettings() override;
    void ApplyHistoryFont() override;
};

// What the start-up asks of the form itself.
MainWindowSteps StepsOfMainWindow();

}  // namespace tarvokol
