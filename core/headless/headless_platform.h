// SPDX-License-Identifier: GPL-3.0-or-later
// Bindings without a window: boxes and dialogs answer from a script and record what was asked, the rest is
// kept in memory. The command line and the tests run on them.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/platform/clipboard.h"
#include "core/platform/clock.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/document_types.h"
#include "core/platform/help_viewer.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/platform/screen_fonts.h"
#include "core/platform/shell.h"
#include "core/platform/special_folders.h"

namespace tarvokol {

// Records every box. Answers come from the script in turn; without one the box is cancelled where it can be, refused
// where it asks Yes or No, and else closed with OK.
class HeadlessMessageBox : public MessageBox {
  public:
    int Show(const BoxRequest& request) override;

    std::vector<BoxRequest> Shown;
    std::deque<int> Answers;
};

// File, printer and font dialogs answer from scripts; an empty script cancels.
class HeadlessDialogs : public CommonDialogs {
  public:
    std::string ShowOpen(const FileDialogRequest& request) override;
    std::string ShowSave(const FileDialogRequest& request) override;
    void ShowPrinter(int flags) override;
    void ShowPrinterSetup() override;
    FontChoice ShowFont(const FontChoice& start, int flags) override;

    std::vector<FileDialogRequest> FileRequests;
    std::vector<int> PrinterFlags;
    std::vector<FontChoice> FontStarts;
    std::deque<std::string> FileAnswers;  // an empty text cancels
    std::deque<bool> PrinterAnswers;      // false cancels
    std::deque<FontChoice> FontAnswers;
};

class HeadlessClipboard : public Clipboard {
  public:
    void Clear() override { Text.clear(); }
    void SetText(const std::string& text) override { Text = text; }

    std::string Text;
};

class HeadlessMainWindow : public MainWindowServices {
  public:
    std::string Tag() const override { return "TARVO-KOL"; }
    void SetCaption(const std::string& caption) override { Caption = caption; }
    void SetMousePointer(MousePointer pointer) override { Pointer = pointer; }
    std::string HistoryText() override { return History; }
    long HistoryLength() override;
    void SetHistoryText(const std::string& text) override { History = text; }
    void AppendHistory(const std::string& text) override { History += text; }
    void ScrollHistoryToEnd() override { ++HistoryScrolls; }
    void SetRecentCaption(int index, const std::string& caption) override { RecentCaptions[index] = caption; }
    std::string RecentCaption(int index) override { return RecentCaptions[index]; }
    void ShowRecentSeparator() override { RecentSeparatorShown = true; }
    void OpenProjectParameters() override { ++ParametersOpened; }
    void ApplySettings() override { ++SettingsApplied; }
    void ApplyHistoryFont() override { ++HistoryFontsApplied; }

    std::string Caption = "TARVO-KOL";
    MousePointer Pointer = MousePointer::Default;
    std::string History;
    int HistoryScrolls = 0;
    std::map<int, std::string> RecentCaptions;
    bool RecentSeparatorShown = false;
    int ParametersOpened = 0;
    int SettingsApplied = 0;
    int HistoryFontsApplied = 0;
};

class HeadlessHelp : public HelpViewer {
  public:
    void ShowContents(const std::string& file) override { Calls.push_back("contents " + file); }
    void ShowIndex(const std::string& file) override { Calls.push_back("index " + file); }
    void ShowTopic(const std::string& file, const std::string& topic) override {
        Calls.push_back("topic " + file + " " + topic);
    }
    void Uninitialize(const std::string& file) override { Calls.push_back("uninitialize " + file); }

    std::vector<std::string> Calls;
};

class HeadlessShell : public Shell {
  public:
    int OpenDocument(const std::string& target, const std::string& working_folder) override;
    void StartViewer(const std::string& viewer, const std::string& file) override;

    std::vector<std::string> Opened;
    std::vector<std::string> Started;  // viewer, "|", file
    int OpenResult = 33;
};

class HeadlessDocumentTypes : public DocumentTypes {
  public:
    void Register(const DocumentType& type) override { Registered.push_back(type); }

    std::vector<DocumentType> Registered;
};

class HeadlessFolders : public SpecialFolders {
  public:
    std::string ProgramFile() const override { return Program; }
    std::optional<std::string> Documents() const override { return DocumentsFolder; }
    std::optional<std::string> Desktop() const override { return DesktopFolder; }
    std::string Temporary() const override { return TemporaryFolder; }

    std::string Program = "/usr/bin/tarvokol";
    std::optional<std::string> DocumentsFolder;
    std::optional<std::string> DesktopFolder;
    std::string TemporaryFolder = "/tmp";
};

class HeadlessFonts : public ScreenFonts {
  public:
    std::vector<std::string> Names() const override { return FontList; }
    std::string NameLike(const std::string& family) const override;

    std::vector<std::string> FontList{"Arial", "Courier New"};
};

// A clock that stands, for tests, or shows the system's time while no date is set.
class HeadlessClock : public Clock {
  public:
    CalendarDate Today() const override;
    std::string TimeText() const override;
    std::string ShortMonthName(int month) const override;

    std::optional<CalendarDate> Date;
    std::string Time;
    std::optional<std::string> MonthName;  // of every month; English names without
};

// One of each, entered into `Platform` by Install; printer and spreadsheet stay as they are.
struct HeadlessPlatform {
    HeadlessMessageBox Messages;
    HeadlessDialogs Dialogs;
    HeadlessClipboard TheClipboard;
    HeadlessMainWindow MainWindow;
    HeadlessHelp Help;
    HeadlessShell TheShell;
    HeadlessDocumentTypes FileTypes;
    HeadlessFolders Folders;
    HeadlessFonts Fonts;
    HeadlessClock TheClock;

    void Install();
};

}  // namespace tarvokol
