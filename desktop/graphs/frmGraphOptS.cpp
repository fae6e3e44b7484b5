// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/frmGraphOptS.h"

#include "core/project/project_record.h"
#include "ui_frmGraphOptS.h"

namespace tarvokol {

frmGraphOptS::frmGraphOptS() : ui_(std::make_unique<Ui::frmGraphOptS>()) {
    ui_->setupUi(this);
    BindControls();
}

frmGraphOptS::~frmGraphOptS() = default;

void frmGraphOptS::ResetTitles() {
    for (int i = 0; i < TitleCount(); ++i) {
        XAxisTitleS[i] = GraphDefaults.XAxisTitleS[i] + UnitLabels(unit_row::Length);
        YAxisTitleS[i] = GraphDefaults.YAxisTitleS[i] + UnitLabels(unit_row::Length);
    }
}

}  // namespace tarvokol
