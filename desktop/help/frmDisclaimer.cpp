// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmDisclaimer.h"

#include "core/program/start_up.h"
#include "core/settings/disclaimer_text.h"
#include "core/settings/main_settings.h"
#include "core/settings/program_name.h"
#include "core/settings/update_reminder.h"
#include "qt/session/qt_text.h"
#include "ui_frmDisclaimer.h"

namespace tarvokol {

frmDisclaimer::frmDisclaimer() : ui_(std::make_unique<Ui::frmDisclaimer>()) {
    ui_->setupUi(this);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmDisclaimer::Command1_Click);
}

frmDisclaimer::~frmDisclaimer() = default;

void frmDisclaimer::Form_Load() {
    setWindowTitle(windowTitle() + " for " + ToQt(ExeNameUpper));
    ui_->lblDisclaimer->setText(ToQt(DisclaimerText(SupportAddress)));
    ui_->chkShow->setVisible(HideDisclaimerCheck != 1);
}

void frmDisclaimer::Form_Unload() {
    CloseDisclaimer(ui_->chkShow->isChecked());
}

void frmDisclaimer::Command1_Click() {
    Unload();
}

}  // namespace tarvokol
