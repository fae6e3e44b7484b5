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

    // Recent-file entries of the File menu: index 0 is the separator, 1 to 4 are created as needed, hidden.
    virtual void CreateRecentEntry(int index) = 0;
    virtual void SetRecentCaption(int index, const std::string& caption) = 0;
    virtual std::string RecentCaption(int index) = 0;
    virtual void ShowRecentEntry(int index) = 0;

    // The command Input, Project Parameters.
    virtual void OpenProjectParameters() = 0;

    // Changed settings show: history, window state, toolbar; font of the history. Nothing happens while the main
    // window does not exist.
    virtual void ApplySettings() = 0;
    virtual void ApplyHistoryFont() = 0;
};

}  // namespace tarvokol
