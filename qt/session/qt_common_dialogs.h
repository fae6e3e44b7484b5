// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QStringList>
#include <functional>

#include "core/platform/common_dialogs.h"

class QFileDialog;
class QPrinter;

namespace tarvokol {

// The toolkit's file, printer and font dialogs, above the active window. A printer dialog works on the
// printer that `printer` gives, so what is chosen there holds for everything that is printed later in the
// run; for a PDF file it suggests the full name that `pdf_file` gives.
class QtCommonDialogs : public CommonDialogs {
  public:
    explicit QtCommonDialogs(std::function<QPrinter&()> printer, std::function<std::string()> pdf_file = {})
        : printer_(std::move(printer)), pdf_file_(std::move(pdf_file)) {}

    std::string ShowOpen(const FileDialogRequest& request) override;
    std::string ShowSave(const FileDialogRequest& request) override;
    void ShowPrinter(int flags) override;
    void ShowPrinterSetup() override;
    FontChoice ShowFont(const FontChoice& start, int flags) override;

  private:
    void RunPrintDialog(const char* title, const char* confirm);

    std::function<QPrinter&()> printer_;
    std::function<std::string()> pdf_file_;
};

// Filters of a dialog from "All Files (*.*)|*.*|Text (*.txt)|*.txt"; "*.*" stands for every file.
QStringList NameFilters(const std::string& filter);

// A font choice as a font of the screen and back.
QFont FontOfChoice(const FontChoice& choice);
FontChoice ChoiceOfFont(const QFont& font);

}  // namespace tarvokol
