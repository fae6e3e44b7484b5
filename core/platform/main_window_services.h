// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

enum class MousePointer { Default, Hourglass };

// What the rooms below ask of the main window. Touching the history creates the window if it does not exist yet.
class MainWindowServices {
  public:
    virtual ~MainWindowServices() = default;

    // The form's tag, the first half of its caption.
    virtual std::string Tag() const = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;

    // The history window's text.
    virtual std::string HistoryText() = 0;
    virtual long HistoryLength() = 0;  // characters
    virtual void SetHistoryText(const std::string& text) = 0;
    virtual void AppendHistory(const std::string& text) = 0;
    virtual void ScrollHistoryToEnd() = 0;

    // Recent-file entries 1 to 4 of the File menu. An entry shows as long as it has a caption; one that never got any
    // has an empty one. The separator above them shows once ShowRecentSeparator asks for it.
    virtual void SetRecentCaption(int index, const std::string& caption) = 0;
    virtual std::string RecentCaption(int index) = 0;
    virtual void ShowRecentSeparator() = 0;

    // The command Input, Project Parameters.
    virtual void OpenProjectParameters() = 0;

    // Changed settings show: history, window state, toolbar; font of the history. Nothing happens while the main
    // window does not exist.
    virtual void ApplySettings() = 0;
    virtual void ApplyHistoryFont() = 0;
};

}  // namespace tarvokol
