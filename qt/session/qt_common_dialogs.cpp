// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/qt_common_dialogs.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QTreeView>
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

// Keeps the columns of the toolkit's file list as wide as what stands in them; the names have the rest of the view.
class WholeColumns : public QObject {
  public:
    explicit WholeColumns(QTreeView& view) : QObject(&view), view_(view) {
        view.header()->setStretchLastSection(false);
        view.viewport()->installEventFilter(this);
        for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
            connect(view.model(), signal, this, &WholeColumns::FitSoon);
        connect(view.model(), &QAbstractItemModel::layoutChanged, this, &WholeColumns::FitSoon);
        fit_.setSingleShot(true);
        connect(&fit_, &QTimer::timeout, this, &WholeColumns::Fit);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) FitSoon();
        return false;
    }

  private:
    void FitSoon() { fit_.start(0); }

    void Fit() {
        const QHeaderView& header = *view_.header();
        int others = 0;
        for (int column = 1; column < header.count(); ++column) {
            if (header.isSectionHidden(column)) continue;
            view_.resizeColumnToContents(column);
            others += header.sectionSize(column);
        }
        view_.resizeColumnToContents(0);
        view_.setColumnWidth(0, std::max(header.sectionSize(0), view_.viewport()->width() - others));
    }

    QTreeView& view_;
    QTimer fit_;
};

// Wide enough for names, sizes, kinds and times of files beside the list of places.
void MakeRoomForColumns(QFileDialog& dialog) {
    constexpr QSize kRoom{860, 480};
    auto* view = dialog.findChild<QTreeView*>("treeView");
    if (view == nullptr) return;  // a dialog of the desktop's own
    new WholeColumns(*view);
    dialog.resize(dialog.size().expandedTo(kRoom).boundedTo(dialog.screen()->availableSize()));
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
    MakeRoomForColumns(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        Raise(error_number::Cancelled);
    return FromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

// The toolkit's printer dialog, with a name for the PDF file. A name without a folder stands in the folder of the one
// suggested, not in that of the program.
class PrinterDialog : public QPrintDialog {
  public:
    PrinterDialog(QPrinter& printer, const QString& suggested)
        : QPrintDialog(&printer, OwnerWindow()), suggested_(suggested) {
        setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
        QLineEdit* const box = FileBox();
        if (box == nullptr) return;
        // Its list of names would take the Return that is meant for the dialog.
        box->setCompleter(nullptr);
        if (!suggested.isEmpty()) box->setText(suggested);
    }

    // The toolkit names its confirming button for printing; where a printer is only chosen, nothing is printed.
    void SetConfirm(const QString& text) {
        if (const auto* buttons = findChild<QDialogButtonBox*>())
            if (QPushButton* button = buttons->button(QDialogButtonBox::Ok)) button->setText(text);
    }

    void accept() override {
        if (QLineEdit* box = FileBox(); box != nullptr && box->isEnabled())
            box->setText(Completed(box->text()));
        QPrintDialog::accept();
    }

  private:
    QLineEdit* FileBox() const { return findChild<QLineEdit*>("filename"); }

    QString Completed(const QString& name) const {
        if (name.trimmed().isEmpty()) return name;
        const QFileInfo file(QFileInfo(suggested_).dir(), name);
        return file.absoluteFilePath() + (file.suffix().isEmpty() ? ".pdf" : "");
    }

    QString suggested_;
};

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
    RunPrintDialog("Print", "&Print");
}

void QtCommonDialogs::ShowPrinterSetup() {
    RunPrintDialog("Printer Setup", "OK");
}

void QtCommonDialogs::RunPrintDialog(const char* title, const char* confirm) {
    PrinterDialog dialog(printer_(), pdf_file_ ? ToQt(pdf_file_()) : QString());
    dialog.setWindowTitle(title);
    dialog.SetConfirm(confirm);
    if (dialog.exec() != QDialog::Accepted) Raise(error_number::Cancelled);
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
