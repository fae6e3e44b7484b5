// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/settings/graph_settings.h"
#include "desktop/graphs/graph_options_base.h"

namespace tarvokol {

namespace Ui {
class frmGraphOptS;
}

// Titles and styles of the sizing graphs.
class frmGraphOptS : public SingleForm<frmGraphOptS, GraphOptionsBase> {
    Q_OBJECT

  public:
    frmGraphOptS();
    ~frmGraphOptS() override;

  private:
    GraphFamily Family() const override { return GraphFamily::Sizing; }
    int TitleCount() const override { return 2; }
    int StoredTitleCount() const override { return 2; }
    std::string& XTitle(int index) const override { return XAxisTitleS[index]; }
    std::string& YTitle(int index) const override { return YAxisTitleS[index]; }
    void ResetTitles() override;

    std::unique_ptr<Ui::frmGraphOptS> ui_;
};

}  // namespace tarvokol
