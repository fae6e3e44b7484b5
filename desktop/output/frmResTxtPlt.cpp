// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmResTxtPlt.h"

#include "core/graphics/TarvoGraf.h"
#include "core/messages/command_guard.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/program/program_help.h"
#include "core/project/figure_range.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/report/print_engine.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/results_caller.h"
#include "desktop/output/page_box.h"
#include "qt/session/qt_text.h"
#include "ui_frmResTxtPlt.h"

namespace tarvokol {
namespace {

constexpr const char* kResultsTopic = "Table1StabilityFactors.htm";

// A button that goes dead hands the focus to its counterpart: who leafs with Enter must not come to print.
void EnableOrHandOver(QPushButton& button, bool enabled, QPushButton& counterpart) {
    if (!enabled && button.hasFocus()) counterpart.setFocus();
    button.setEnabled(enabled);
}

}  // namespace

frmResTxtPlt::frmResTxtPlt() : ui_(std::make_unique<Ui::frmResTxtPlt>()) {
    ui_->setupUi(this);
    MakePageBox(*ui_->RichTextBox1);
    connect(ui_->cmdPrevPage, &QPushButton::clicked, this, &frmResTxtPlt::cmdPrevPage_Click);
    connect(ui_->cmdNextPage, &QPushButton::clicked, this, &frmResTxtPlt::cmdNextPage_Click);
    connect(ui_->cmdPrintPage, &QPushButton::clicked, this, &frmResTxtPlt::cmdPrintPage_Click);
    connect(ui_->cmdPrintAll, &QPushButton::clicked, this, &frmResTxtPlt::cmdPrintAll_Click);
    connect(ui_->cmdCopyPage, &QPushButton::clicked, this, &frmResTxtPlt::cmdCopyPage_Click);
    connect(ui_->cmdCopyAll, &QPushButton::clicked, this, &frmResTxtPlt::cmdCopyAll_Click);
    connect(ui_->cmdViewPlots, &QPushButton::clicked, this, &frmResTxtPlt::cmdViewPlots_Click);
    connect(ui_->cmdHelpResults, &QPushButton::clicked, this, &frmResTxtPlt::cmdHelpResults_Click);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &ShowHelpTip);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmResTxtPlt::Unload);
}

frmResTxtPlt::~frmResTxtPlt() = default;

// One step on from page 0: the stability factors are seen first, the inputs lie one page back.
void frmResTxtPlt::Form_Load() {
    if (FormBase* main_window = FindForm("frmMain")) main_window->setEnabled(false);
    ResultsReturn = results_return::FromViewer;
    PlotsShown_ = false;
    page_ = 0;
    cmdNextPage_Click();
    LogMessage("Results displayed");
}

void frmResTxtPlt::Form_Activate() {
    if (ui_->cmdNextPage->isEnabled()) ui_->cmdNextPage->setFocus();
}

void frmResTxtPlt::Form_Unload() {
    if (ResultsCaller != nullptr) EnableAndFocus(*ResultsCaller);
}

void frmResTxtPlt::Loadbuffer() {
    ui_->RichTextBox1->setPlainText(ToQt(OutputBuffers[page_]));
}

void frmResTxtPlt::LoadWorkParms() {
    tarvokol::LoadWorkParms();
}

void frmResTxtPlt::PrintPages(int16_t first, int16_t last) {
    aborted_ = false;
    CommandGuard guard(aborted_);
    guard([] { ChoosePrinter(PrintedMatter::Report, dialog_flag::PrinterReturnsDevice); });
    if (aborted_) {
        guard([] { LogMessage("Printing aborted"); });
        return;
    }
    std::string text;
    guard([&] { text = JoinPages(first, last); });
    RunPrintJob(guard, text, PrintedMatter::Report);
}

void frmResTxtPlt::cmdPrevPage_Click() {
    if (page_ >= 1) {
        --page_;
        Loadbuffer();
    }
    ui_->cmdNextPage->setEnabled(true);
    EnableOrHandOver(*ui_->cmdPrevPage, page_ != 0, *ui_->cmdNextPage);
}

void frmResTxtPlt::cmdNextPage_Click() {
    if (page_ < LastOutputPage) {
        ++page_;
        Loadbuffer();
    }
    ui_->cmdPrevPage->setEnabled(true);
    EnableOrHandOver(*ui_->cmdNextPage, page_ < LastOutputPage, *ui_->cmdPrevPage);
}

void frmResTxtPlt::cmdPrintPage_Click() {
    LogMessage("Current page printed");
    PrintPages(page_, page_);
    Loadbuffer();
}

void frmResTxtPlt::cmdPrintAll_Click() {
    LogMessage("All pages printed");
    PrintPages(0, LastOutputPage);
    Loadbuffer();
}

void frmResTxtPlt::cmdCopyPage_Click() {
    CopyToClipboard(OutputBuffers[page_]);
    LogMessage("Output page #" + SignedText(page_) + "copied to clipboard");
}

void frmResTxtPlt::cmdCopyAll_Click() {
    CopyToClipboard(JoinPages(0, LastOutputPage));
    LogMessage("Output copied to clipboard");
}

// The plot window enables this form again when it closes.
void frmResTxtPlt::cmdViewPlots_Click() {
    const auto prepare = [this] {
        LoadWorkParms();
        if (PreviewRecord.NumberHoles < 1) Raise(error_number::SubscriptOutOfRange);  // nothing to draw
    };
    if (!DoneWithinRange(ProjectRecord, prepare)) return;
    PlotFromResults = true;
    PlotsShown_ = true;
    setEnabled(false);
    FormNamed("frmPicture").ShowModeless(this);
}

void frmResTxtPlt::cmdHelpResults_Click() {
    ShowHelpTopic(0, kResultsTopic);
}

}  // namespace tarvokol
