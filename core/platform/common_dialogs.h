// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

namespace dialog_flag {
constexpr int ScreenFonts = 1;
constexpr int OverwritePrompt = 2;
constexpr int NoPrinterPagesNoSelection = 12;
constexpr int PrinterReturnsDevice = 264;
constexpr int PathAndFileMustExist = 6144;
}  // namespace dialog_flag

struct FileDialogRequest {
    std::string title;         // empty: the platform's own
    std::string file_name;     // preset name
    std::string start_folder;  // a folder, or a whole file name whose folder counts; empty: none
    std::string filter;        // "All Files (*.*)|*.*|TARVOKOL Files (*.TKL)|*.TKL"
    int filter_index = 1;      // from 1
    std::string default_extension;
    int max_file_size = 300;  // characters
    int flags = 0;            // sum of dialog_flag
};

struct FontChoice {
    std::string name;
    float size = 10.0f;  // points
    bool bold = false;
    bool italic = false;
};

// The common dialogs. A cancel raises "Cancel was selected" (32755).
class CommonDialogs {
  public:
    virtual ~CommonDialogs() = default;

    // Each returns the chosen full name.
    virtual std::string ShowOpen(const FileDialogRequest& request) = 0;
    virtual std::string ShowSave(const FileDialogRequest& request) = 0;

    // Chooses the printer for what is printed next; "Printer Setup" keeps its choice for the run.
    virtual void ShowPrinter(int flags) = 0;
    virtual void ShowPrinterSetup() = 0;

    virtual FontChoice ShowFont(const FontChoice& start, int flags) = 0;
};

}  // namespace tarvokol
