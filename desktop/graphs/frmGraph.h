// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "desktop/graphs/graph_form_base.h"

namespace tarvokol {

namespace Ui {
class frmGraph;
}

// The stability curves.
class frmGraph : public SingleForm<frmGraph, GraphFormBase> {
    Q_OBJECT

  public:
    frmGraph();
    ~frmGraph() override;

  private:
    GraphFamily Family() const override { return GraphFamily::Stability; }
    void ShowOptions() override;
    void Form_Unload() override;

    std::unique_ptr<Ui::frmGraph> ui_;
};

}  // namespace tarvokol
