// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/frmGraphOpt.h"

#include "core/project/project_record.h"
#include "ui_frmGraphOpt.h"

namespace tarvokol {

frmGraphOpt::frmGraphOpt() : ui_(std::make_unique<Ui::frmGraphOpt>()) {
    ui_->setupUi(this);
    BindControls();
}

frmGraphOpt::~frmGraphOpt() = default;

void frmGraphOpt::ResetTitles() {
    for (int i = 0; i < TitleCount(); ++i) {
        XAxisTitle[i] = GraphDefaults.XAxisTitle[i] + UnitLabels(unit_row::Length);
        YAxisTitle[i] = GraphDefaults.YAxisTitle[i];
    }
}

}  // namespace tarvokol
