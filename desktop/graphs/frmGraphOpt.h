// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/settings/graph_settings.h"
#include "desktop/graphs/graph_options_base.h"

namespace tarvokol {

namespace Ui {
class frmGraphOpt;
}

// Titles and styles of the stability graphs.
class frmGraphOpt : public SingleForm<frmGraphOpt, GraphOptionsBase> {
    Q_OBJECT

  public:
    frmGraphOpt();
    ~frmGraphOpt() override;

  private:
    GraphFamily Family() const override { return GraphFamily::Stability; }
    int TitleCount() const override { return 3; }
    int StoredTitleCount() const override { return 1; }
    std::string& XTitle(int index) const override { return XAxisTitle[index]; }
    std::string& YTitle(int index) const override { return YAxisTitle[index]; }
    void ResetTitles() override;

    std::unique_ptr<Ui::frmGraphOpt> ui_;
};

}  // namespace tarvokol
