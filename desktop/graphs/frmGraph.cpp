// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/frmGraph.h"

#include "desktop/graphs/frmGraphOpt.h"
#include "ui_frmGraph.h"

namespace tarvokol {

frmGraph::frmGraph() : ui_(std::make_unique<Ui::frmGraph>()) {
    ui_->setupUi(this);
    BindControls();
}

frmGraph::~frmGraph() = default;

void frmGraph::ShowOptions() {
    frmGraphOpt::Instance().ShowModal(this);
}

void frmGraph::Form_Unload() {
    GraphFormBase::Form_Unload();
    if (FormBase* main = FindForm("frmMain")) main->setEnabled(true);
}

}  // namespace tarvokol
