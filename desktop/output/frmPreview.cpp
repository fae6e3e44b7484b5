// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmPreview.h"

#include "core/messages/command_guard.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/project/project_state.h"
#include "core/report/print_engine.h"
#include "desktop/base/form_services.h"
#include "desktop/output/page_box.h"
#include "qt/session/qt_text.h"
#include "ui_frmPreview.h"

namespace tarvokol {

frmPreview::frmPreview() : ui_(std::make_unique<Ui::frmPreview>()) {
    ui_->setupUi(this);
    MakePageBox(*ui_->RichTextBox1);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmPreview::Unload);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmPreview::Command2_Click);
    connect(ui_->Command3, &QPushButton::clicked, this, &frmPreview::PrintPreviewText);
    connect(ui_->Command8, &QPushButton::clicked, this, &ShowHelpTip);
}

frmPreview::~frmPreview() = default;

void frmPreview::Form_Load() {
    page_ = 0;
    ui_->RichTextBox1->setPlainText(ToQt(OutputBuffers[page_]));
    ui_->Command1->setFocus();
    LogMessage("Preview displayed");
}

void frmPreview::Command2_Click() {
    CopyToClipboard(OutputBuffers[page_]);
    LogMessage("Output copied to clipboard");
}

void frmPreview::PrintPreviewText() {
    CommandGuard guard(aborted_);
    if (aborted_) {
        guard([] { LogMessage("Printing aborted"); });
        return;
    }
    std::string text;
    guard([&] { text = LinesOf(*ui_->RichTextBox1); });
    RunPrintJob(guard, text, PrintedMatter::Inputs);
}

}  // namespace tarvokol
