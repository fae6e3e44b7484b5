// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/headless/headless_platform.h"

#include "core/headless/system_time.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// The next scripted answer; an empty script raises "Cancel was selected".
template <typename Answer>
Answer TakeAnswer(std::deque<Answer>& script) {
    if (script.empty()) Raise(error_number::Cancelled);
    Answer answer = script.front();
    script.pop_front();
    return answer;
}

std::string TakeFile(std::deque<std::string>& script) {
    std::string file = TakeAnswer(script);
    if (file.empty()) Raise(error_number::Cancelled);
    return file;
}

int UnscriptedAnswer(int style) {
    switch (style & 0xF) {
        case 0:
            return box_result::Ok;
        case 4:
            return box_result::No;
        default:
            return box_result::Cancel;
    }
}

}  // namespace

int HeadlessMessageBox::Show(const BoxRequest& request) {
    Shown.push_back(request);
    if (Answers.empty()) return UnscriptedAnswer(request.style);
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
}

std::string HeadlessDialogs::ShowOpen(const FileDialogRequest& request) {
    FileRequests.push_back(request);
    return TakeFile(FileAnswers);
}

std::string HeadlessDialogs::ShowSave(const FileDialogRequest& request) {
    FileRequests.push_back(request);
    return TakeFile(FileAnswers);
}

void HeadlessDialogs::ShowPrinter(int flags) {
    PrinterFlags.push_back(flags);
    if (!TakeAnswer(PrinterAnswers)) Raise(error_number::Cancelled);
}

void HeadlessDialogs::ShowPrinterSetup() {
    if (!TakeAnswer(PrinterAnswers)) Raise(error_number::Cancelled);
}

FontChoice HeadlessDialogs::ShowFont(const FontChoice& start, int) {
    FontStarts.push_back(start);
    return TakeAnswer(FontAnswers);
}

long HeadlessMainWindow::HistoryLength() {
    return static_cast<long>(Length(History));
}

int HeadlessShell::OpenDocument(const std::string& target, const std::string&) {
    Opened.push_back(target);
    return OpenResult;
}

void HeadlessShell::StartViewer(const std::string& viewer, const std::string& file) {
    Started.push_back(viewer + "|" + file);
}

std::string HeadlessFonts::NameLike(const std::string& family) const {
    for (const std::string& font : FontList)
        if (EqualIgnoringCase(font, family)) return font;
    return "";
}

CalendarDate HeadlessClock::Today() const {
    return Date ? *Date : SystemDate();
}

std::string HeadlessClock::TimeText() const {
    return Time.empty() ? SystemTimeText() : Time;
}

std::string HeadlessClock::ShortMonthName(int month) const {
    return MonthName ? *MonthName : EnglishShortMonth(month);
}

void HeadlessPlatform::Install() {
    Platform.Messages = &Messages;
    Platform.Dialogs = &Dialogs;
    Platform.TheClipboard = &TheClipboard;
    Platform.MainWindow = &MainWindow;
    Platform.Help = &Help;
    Platform.TheShell = &TheShell;
    Platform.FileTypes = &FileTypes;
    Platform.Folders = &Folders;
    Platform.Fonts = &Fonts;
    Platform.TheClock = &TheClock;
}

}  // namespace tarvokol
