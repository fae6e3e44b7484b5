// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the window and what their commands do.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>

#include "core/files/csv_reader.h"
#include "core/files/file_replacement.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/help_viewer.h"
#include "core/platform/platform.h"
#include "core/platform/printer_device.h"
#include "core/program/start_up.h"
#include "core/project/kept_copy.h"
#include "core/project/project_state.h"
#include "core/report/print_engine.h"
#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/main_settings.h"
#include "core/statistics/study_refusal.h"
#include "qt/charts/study_picture.h"
#include "qt/session/qt_text.h"
#include "studies/pages/file_choice.h"
#include "studies/pages/study_page.h"
#include "studies/pages/width_line.h"
#include "studies/window/notice_bar.h"
#include "studies/window/studies_window.h"
#include "studies/window/study_printing.h"
#include "studies/window/window_memory.h"

namespace tarvokol {
namespace {

constexpr const char* kProjectFilter =
    "All Files (*.*)|*.*|Projects and Studies (*.TKL, *.TKS)|*.TKL;*.TKS|TARVOKOL Projects (*.TKL)|*.TKL|"
    "TARVO-KOL Studies (*.TKS)|*.TKS";

// The name of a project's file without folder and extension, for what is made of it.
std::string StemOf(const StudyModel& model) {
    return FromQt(QFileInfo(ToQt(model.FileName())).completeBaseName());
}

}  // namespace

QAction* StudiesWindow::Add(QMenu* menu, const QString& name, const QString& caption,
                            const QKeySequence& keys, void (StudiesWindow::*handler)()) {
    QAction* action = menu->addAction(caption, this, handler);
    action->setObjectName(name);
    action->setShortcut(keys);
    return action;
}

void StudiesWindow::BuildFileMenu() {
    QMenu* menu = menuBar()->addMenu("&File");
    Add(menu, "actNew", "&New", QKeySequence::New, &StudiesWindow::actNew_Triggered);
    Add(menu, "actNewMetric", "New &Metric", {}, &StudiesWindow::actNewMetric_Triggered);
    Add(menu, "actOpen", "&Open...", QKeySequence::Open, &StudiesWindow::actOpen_Triggered);
    recent_ = menu->addMenu("Open &Recent");
    recent_->setObjectName("mnuRecent");
    recent_->setToolTipsVisible(true);
    connect(recent_, &QMenu::aboutToShow, this, &StudiesWindow::Recent_AboutToShow);
    connect(recent_, &QMenu::triggered, this, &StudiesWindow::Recent_Triggered);
    menu->addSeparator();
    Add(menu, "actSave", "&Save", QKeySequence::Save, &StudiesWindow::actSave_Triggered);
    Add(menu, "actSaveAs", "Save &As...", QKeySequence("Ctrl+Shift+S"), &StudiesWindow::actSaveAs_Triggered);
    menu->addSeparator();
    Add(menu, "actPrint", "&Print...", QKeySequence::Print, &StudiesWindow::actPrint_Triggered);
    menu->addSeparator();
    QAction* quit = menu->addAction("&Quit", this, &StudiesWindow::close);
    quit->setObjectName("actQuit");
    quit->setShortcut(QKeySequence("Ctrl+Q"));
}

void StudiesWindow::BuildEditMenu() {
    QMenu* menu = menuBar()->addMenu("&Edit");
    undo_ = Add(menu, "actUndo", "&Undo", QKeySequence::Undo, &StudiesWindow::actUndo_Triggered);
    redo_ = Add(menu, "actRedo", "&Redo", QKeySequence("Ctrl+Shift+Z"), &StudiesWindow::actRedo_Triggered);
    menu->addSeparator();
    Add(menu, "actCopyPicture", "Copy &Picture", QKeySequence("Ctrl+Shift+C"),
        &StudiesWindow::actCopyPicture_Triggered);
    Add(menu, "actCopyFigures", "Copy &Figures", {}, &StudiesWindow::actCopyFigures_Triggered);
    Add(menu, "actCopyCommand", "Copy as Co&mmand", {}, &StudiesWindow::actCopyCommand_Triggered);
    Add(menu, "actCopyWidthCommand", "Copy &Width as Command", {},
        &StudiesWindow::actCopyWidthCommand_Triggered);
}

void StudiesWindow::BuildPictureMenu() {
    QMenu* menu = menuBar()->addMenu("&Study");
    Add(menu, "actKeepStudy", "&Keep Study...", QKeySequence("Ctrl+K"),
        &StudiesWindow::actKeepStudy_Triggered);
    menu->addSeparator();
    Add(menu, "actSavePicture", "Save &Picture...", QKeySequence("Ctrl+E"),
        &StudiesWindow::actSavePicture_Triggered);
    Add(menu, "actSaveFigures", "Save &Figures...", {}, &StudiesWindow::actSaveFigures_Triggered);
}

void StudiesWindow::BuildViewMenu() {
    QMenu* menu = menuBar()->addMenu("&View");
    Add(menu, "actNextPage", "&Next Page", QKeySequence("Ctrl+Tab"), &StudiesWindow::actNextPage_Triggered);
}

void StudiesWindow::BuildHelpMenu() {
    QMenu* menu = menuBar()->addMenu("&Help");
    Add(menu, "actHelpPage", "About This &Page", QKeySequence::HelpContents,
        &StudiesWindow::actHelpPage_Triggered);
    Add(menu, "actHelpContents", "&Contents", {}, &StudiesWindow::actHelpContents_Triggered);
    menu->addSeparator();
    Add(menu, "actAbout", "&About TARVO-KOL Studies", {}, &StudiesWindow::actAbout_Triggered);
}

void StudiesWindow::BuildToolbar() {
    QToolBar* bar = addToolBar("Commands");
    bar->setObjectName("Toolbar");
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    constexpr int kIcon = 16;
    bar->setIconSize({kIcon, kIcon});
    const auto add = [this, bar](const QString& name, const QString& icon, const QString& text) {
        auto* action = findChild<QAction*>(name);
        if (!icon.isEmpty()) action->setIcon(QIcon(":/artwork/" + icon));
        action->setIconText(text);
        bar->addAction(action);
    };
    add("actOpen", "open_data_file.svg", "Open");
    add("actSave", "save_data_file.svg", "Save");
    bar->addSeparator();
    add("actUndo", "", "Undo");
    add("actRedo", "", "Redo");
    bar->addSeparator();
    add("actCopyPicture", "copy_dialog_image.svg", "Copy Picture");
    add("actSavePicture", "", "Save Picture");
}

void StudiesWindow::actNew_Triggered() {
    NewProject(0);
}

void StudiesWindow::actNewMetric_Triggered() {
    NewProject(1);
}

void StudiesWindow::actOpen_Triggered() {
    FileDialogRequest request;
    request.start_folder = model_.Path().empty() ? DataPath : model_.Path();
    request.filter = kProjectFilter;
    request.filter_index = 2;
    request.default_extension = "TKL";
    request.flags = dialog_flag::PathAndFileMustExist;
    const std::string path = ChosenFile(&CommonDialogs::ShowOpen, request);
    if (!path.empty()) OpenPath(path);
}

void StudiesWindow::actSave_Triggered() {
    Save();
}

void StudiesWindow::actSaveAs_Triggered() {
    AskPathAndSave();
}

std::string StudiesWindow::AskForPath(const std::string& title, const std::string& name,
                                      const std::string& filter, const std::string& extension) {
    FileDialogRequest request;
    request.title = title;
    request.file_name = name;
    request.start_folder = model_.Path().empty() ? DataPath : model_.Path();
    request.filter = filter;
    request.default_extension = extension;
    request.flags = dialog_flag::OverwritePrompt;
    return ChosenFile(&CommonDialogs::ShowSave, request);
}

bool StudiesWindow::AskPathAndSave() {
    const std::string name = model_.Path().empty() ? "" : model_.FileName();
    const std::string path =
        AskForPath("", name, "TARVOKOL Projects (*.TKL)|*.TKL|All Files (*.*)|*.*", "TKL");
    return !path.empty() && SaveTo(path);
}

void StudiesWindow::OfferCopy(const std::string& path, const std::string& fault) {
    const std::string copy = NewestGoodCopy(path);
    if (copy.empty()) return TellFault(path, fault);
    notice_->Show(ToQt(path + ": " + fault + ". Its newest whole copy is kept."),
                  {{"Open the Copy", [this, copy, path] {
                        if (!MayLeave()) return;
                        model_.OpenCopy(copy, path);
                        WatchFile();
                    }}});
}

void StudiesWindow::actUndo_Triggered() {
    ShowPage(model_.Undo());
}

void StudiesWindow::actRedo_Triggered() {
    ShowPage(model_.Redo());
}

void StudiesWindow::actCopyPicture_Triggered() {
    const QImage image = ImageOfStudyPicture(Page().PictureNow());
    if (image.isNull()) return TellFault("", "there is no picture to copy");
    QApplication::clipboard()->setImage(image);
    statusBar()->showMessage("The picture is on the clipboard", 5000);
}

void StudiesWindow::actSavePicture_Triggered() {
    const AnyStudyPicture picture = Page().PictureNow();
    if (std::holds_alternative<std::monostate>(picture)) return TellFault("", "there is no picture to save");
    const std::string path = AskForPath("Save Picture", StemOf(model_) + "_" + Page().PictureName() + ".svg",
                                        "SVG (*.svg)|*.svg|PNG (*.png)|*.png|PDF (*.pdf)|*.pdf", "svg");
    if (path.empty()) return;
    try {
        WriteStudyPicture(picture, path);
    } catch (const RunTimeError& error) {
        return TellFault(path, error.text);
    }
    statusBar()->showMessage("Saved: " + ToQt(path), 5000);
}

// A file that is printed to is proposed by the name of the project.
void StudiesWindow::actPrint_Triggered() {
    const PrintedStudy study{model_.Title(), Page().PictureNow(), Page().ReportNow(), Page().CsvNow()};
    const bool has_picture = !std::holds_alternative<std::monostate>(study.picture);
    if (!has_picture && study.csv.empty()) return TellFault("", "there is nothing to print");
    ProjectFileName = model_.Path().empty() ? kUntitled : model_.Path();
    try {
        ChoosePrinter(has_picture ? PrintedMatter::Graph : PrintedMatter::Report,
                      dialog_flag::NoPrinterPagesNoSelection);
        if (Platform.Printer == nullptr || !Platform.Printer->StartDoc()) return;
        PrintStudy(study);
        statusBar()->showMessage("Printed", 5000);
    } catch (const StudyRefusal& refusal) {
        TellFault("", refusal.what());
    } catch (const TableFault& fault) {
        TellFault("", fault.what());
    } catch (const RunTimeError& error) {
        if (error.number != error_number::Cancelled) TellFault("Print", error.text);
    }
}

void StudiesWindow::actKeepStudy_Triggered() {
    const std::string path =
        AskForPath("Keep Study", StemOf(model_) + ".TKS", "TARVO-KOL Studies (*.TKS)|*.TKS", "TKS");
    if (!path.empty()) KeepStudyIn(path);
}

void StudiesWindow::actCopyFigures_Triggered() {
    const std::string csv = Page().CsvNow();
    if (csv.empty()) return TellFault("", "there are no figures to copy");
    QApplication::clipboard()->setText(ToQt(csv));
    statusBar()->showMessage("The figures are on the clipboard", 5000);
}

void StudiesWindow::actSaveFigures_Triggered() {
    const std::string csv = Page().CsvNow();
    if (csv.empty()) return TellFault("", "there are no figures to save");
    const std::string path = AskForPath("Save Figures", StemOf(model_) + "_" + Page().PictureName() + ".csv",
                                        "CSV (*.csv)|*.csv|Workbook (*.xlsx)|*.xlsx", "csv");
    if (path.empty()) return;
    try {
        if (!QFileInfo(ToQt(path)).suffix().compare("xlsx", Qt::CaseInsensitive))
            WriteStudyWorkbook(csv, path);
        else
            ReplaceWholeFile(path, csv);
    } catch (const StudyRefusal& refusal) {
        return TellFault(path, refusal.what());
    } catch (const TableFault& fault) {
        return TellFault(path, fault.what());
    } catch (const RunTimeError& error) {
        return TellFault(path, error.text);
    }
    statusBar()->showMessage("Saved: " + ToQt(path), 5000);
}

// The command line reads the file, so what is not saved would be missing there.
void StudiesWindow::CopyCommand(const std::string& command) {
    if (command.empty() || model_.IsChanged())
        return TellFault("", "The command works on the project's file: save the project first");
    QApplication::clipboard()->setText(ToQt(command));
    statusBar()->showMessage("The command is on the clipboard", 5000);
}

void StudiesWindow::actCopyCommand_Triggered() {
    CopyCommand(Page().CommandNow());
}

void StudiesWindow::actCopyWidthCommand_Triggered() {
    try {
        CopyCommand(model_.Path().empty() ? "" : risk_->Width().Command(model_.Path()));
    } catch (const StudyRefusal& refusal) {
        TellFault("Width", refusal.what());
    } catch (const RunTimeError& error) {
        TellFault("Width", error.text);
    }
}

void StudiesWindow::actNextPage_Triggered() {
    pages_->setCurrentIndex((pages_->currentIndex() + 1) % pages_->count());
    Page().setFocus();
}

void StudiesWindow::actHelpPage_Triggered() {
    Platform.Help->ShowTopic(RunTimeHelpFile, Page().HelpTopic());
}

void StudiesWindow::actHelpContents_Triggered() {
    Platform.Help->ShowContents(RunTimeHelpFile);
}

void StudiesWindow::actAbout_Triggered() {
    TellFault("", "TARVO-KOL Studies " + VersionString() +
                      ": free software under the GNU General Public License, version 3 or later");
}

void StudiesWindow::Recent_AboutToShow() {
    recent_->clear();
    for (const QString& path : RecentProjects()) {
        QAction* action = recent_->addAction(QFileInfo(path).fileName().replace('&', "&&"));
        action->setData(path);
        action->setToolTip(path);
    }
    if (recent_->isEmpty()) recent_->addAction("None")->setEnabled(false);
}

void StudiesWindow::Recent_Triggered(QAction* action) {
    const QString path = action->data().toString();
    if (!path.isEmpty()) OpenPath(FromQt(path));
}

}  // namespace tarvokol
