// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/notify.h"

#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/runtime/range_fault.h"

namespace tarvokol {
namespace {

// The title of a box that has none, while the program's own long title is not set either.
constexpr const char* kApplicationTitle = "TARVO-KOL";

void FillTitle(std::string& title) {
    if (title.empty()) title = AppLongTitle.empty() ? kApplicationTitle : AppLongTitle;
}

}  // namespace

int16_t Notify(std::string& message, int16_t& style, std::string& title, std::string& help_file,
               int32_t& context) {
    LogMessage((title.empty() ? "Message" : title) + ": " + message);
    FillTitle(title);
    return static_cast<int16_t>(Platform.Messages->Show({message, style, title, help_file, context}));
}

int16_t NotifyChoice(const std::string& message, int style, const std::vector<std::string>& captions) {
    BoxRequest request{message, style, "", "", 0, captions};
    LogMessage("Message: " + message);
    FillTitle(request.title);
    return static_cast<int16_t>(Platform.Messages->Show(request));
}

int16_t Notify(const std::string& message, int style, std::string& title) {
    std::string text = message;
    auto box_style = static_cast<int16_t>(style);
    std::string help_file;
    int32_t context = 0;
    return Notify(text, box_style, title, help_file, context);
}

int16_t Notify(const std::string& message, int style) {
    std::string title;
    return Notify(message, style, title);
}

bool CheckRange(const std::string& text, double low, double high, std::string& label) {
    if (!label.empty()) label += ": ";
    const std::string fault = RangeFault(text, low, high);
    if (fault.empty()) return true;
    Notify(label + fault, box_style::Critical, RangeErrorTitle);
    return false;
}

bool CheckRange(const std::string& text, double low, double high) {
    std::string label;
    return CheckRange(text, low, high, label);
}

void ShowHelpTip() {
    std::string title = "Help";
    Notify("Position the cursor on any item on the form and press F1 for context-sensitive Help",
           box_style::Exclamation, title);
}

}  // namespace tarvokol
