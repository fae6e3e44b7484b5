// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmResource.h"

#include "core/program/program_help.h"
#include "desktop/base/form_services.h"
#include "qt/session/qt_text.h"
#include "ui_frmResource.h"

namespace tarvokol {
namespace {

constexpr int kNotes = 5;  // the buttons behind them are kept for more

}  // namespace

frmResource::frmResource() : ui_(std::make_unique<Ui::frmResource>()) {
    ui_->setupUi(this);
    ConnectClicks(ControlArray<QPushButton>(*this, "cmdView"), this, &frmResource::cmdView_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmResource::Unload);
}

frmResource::~frmResource() = default;

void frmResource::Form_Load() {
    for (const auto& [index, button] : ControlArray<QPushButton>(*this, "cmdView")) {
        button->setVisible(index < kNotes);
        if (index < kNotes) button->setText(ToQt(ResourceTitles[index]).replace("&", "&&"));
    }
}

void frmResource::cmdView_Click(int Index) {
    OpenResource(Index);
}

}  // namespace tarvokol
