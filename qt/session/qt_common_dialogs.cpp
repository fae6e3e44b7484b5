// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/qt_common_dialogs.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <algorithm>

#include "core/runtime/run_time_error.h"
#include "qt/session/owner_window.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

void SetStart(QFileDialog& dialog, const FileDialogRequest& request) {
    const QFileInfo start(ToQt(request.start_folder));
    if (!request.start_folder.empty())
        dialog.setDirectory(start.isDir() ? start.absoluteFilePath() : start.absolutePath());
    if (!request.file_name.empty()) dialog.selectFile(ToQt(request.file_name));
}

void SetFilters(QFileDialog& dialog, const FileDialogRequest& request) {
    const QStringList filters = NameFilters(request.filter);
    if (filters.isEmpty()) return;
    dialog.setNameFilters(filters);
    const auto last = static_cast<int>(filters.size());
    dialog.selectNameFilter(filters[std::clamp(request.filter_index, 1, last) - 1]);
}

std::string RunFileDialog(QFileDialog::AcceptMode mode, const FileDialogRequest& request) {
    QFileDialog dialog(OwnerWindow());
    if (!request.title.empty()) dialog.setWindowTitle(ToQt(request.title));
    dialog.setAcceptMode(mode);
    const bool must_exist = (request.flags & dialog_flag::PathAndFileMustExist) != 0;
    dialog.setFileMode(must_exist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (request.flags & dialog_flag::OverwritePrompt) == 0);
    SetFilters(dialog, request);
    if (!request.default_extension.empty()) dialog.setDefaultSuffix(ToQt(request.default_extension));
    SetStart(dialog, request);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        Raise(error_number::Cancelled);
    return FromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

// The toolkit names its confirming button for printing; where a printer is only chosen, nothing is printed.
void RunPrintDialog(QPrinter& printer, const QString& title, const QString& confirm) {
    QPrintDialog dialog(&printer, OwnerWindow());
    dialog.setWindowTitle(title);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (const auto* buttons = dialog.findChild<QDialogButtonBox*>())
        if (QPushButton* accept = buttons->button(QDialogButtonBox::Ok)) accept->setText(confirm);
    if (dialog.exec() != QDialog::Accepted) Raise(error_number::Cancelled);
}

}  // namespace

std::string QtCommonDialogs::ShowOpen(const FileDialogRequest& request) {
    return RunFileDialog(QFileDialog::AcceptOpen, request);
}

std::string QtCommonDialogs::ShowSave(const FileDialogRequest& request) {
    return RunFileDialog(QFileDialog::AcceptSave, request);
}

// Every kind of printer dialog here leaves out page ranges and the selection, so the flags make no
// difference.
void QtCommonDialogs::ShowPrinter(int) {
    RunPrintDialog(printer_(), "Print", "&Print");
}

void QtCommonDialogs::ShowPrinterSetup() {
    RunPrintDialog(printer_(), "Printer Setup", "OK");
}

FontChoice QtCommonDialogs::ShowFont(const FontChoice& start, int) {
    QFontDialog dialog(FontOfChoice(start), OwnerWindow());
    if (dialog.exec() != QDialog::Accepted) Raise(error_number::Cancelled);
    return ChoiceOfFont(dialog.selectedFont());
}

QStringList NameFilters(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        const QString patterns = parts[at + 1] == "*.*" ? "*" : QString(parts[at + 1]).replace(';', ' ');
        const QString name = parts[at].section('(', 0, 0).trimmed();
        filters << name + " (" + patterns + ")";
    }
    return filters;
}

QFont FontOfChoice(const FontChoice& choice) {
    QFont font(ToQt(choice.name));
    if (choice.size > 0) font.setPointSizeF(choice.size);
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    return font;
}

FontChoice ChoiceOfFont(const QFont& font) {
    return {FromQt(font.family()), static_cast<float>(font.pointSizeF()), font.bold(), font.italic()};
}

}  // namespace tarvokol
