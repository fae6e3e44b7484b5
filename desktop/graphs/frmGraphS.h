// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "desktop/graphs/graph_form_base.h"

namespace tarvokol {

namespace Ui {
class frmGraphS;
}

// The sizing curve.
class frmGraphS : public SingleForm<frmGraphS, GraphFormBase> {
    Q_OBJECT

  public:
    frmGraphS();
    ~frmGraphS() override;

  private:
    GraphFamily Family() const override { return GraphFamily::Sizing; }
    void ShowOptions() override;
    void Form_Unload() override;

    std::unique_ptr<Ui::frmGraphS> ui_;
};

}  // namespace tarvokol
