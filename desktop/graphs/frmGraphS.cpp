// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/frmGraphS.h"

#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOptS.h"
#include "ui_frmGraphS.h"

namespace tarvokol {

frmGraphS::frmGraphS() : ui_(std::make_unique<Ui::frmGraphS>()) {
    ui_->setupUi(this);
    BindControls();
}

frmGraphS::~frmGraphS() = default;

// The dialog works on the chart of frmGraph and belongs to it. While that form does not show, the window that
// does keeps the dialog above itself.
void frmGraphS::ShowOptions() {
    frmGraph& owner = frmGraph::Instance();
    frmGraphOptS& dialog = frmGraphOptS::Instance();
    if (owner.isVisible())
        dialog.ShowModal(&owner);
    else
        dialog.ShowModal(this);
}

void frmGraphS::Form_Unload() {
    GraphFormBase::Form_Unload();
    Unload();
}

}  // namespace tarvokol
