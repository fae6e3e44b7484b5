#include "report/forms/frmPreview.h"

#include "messages/command_guard.h"
#include "messages/history_log.h"
#include "messages/notify.h"
#include "platform/qt/qt_text.h"
#include "project/project_state.h"
#include "report/forms/page_box.h"
#include "report/print_engine.h"
#include "shell/forms/form_services.h"
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
    guard([] { PrintCommand(print_command::BeginJob, ""); });
    guard([&] { text = LinesOf(*ui_->RichTextBox1); });
    guard([&] { PrintCommand(print_command::Block, text); });
    guard([] { PrintCommand(print_command::EndJob, ""); });
}

}  // namespace tarvokol
