// SPDX-License-Identifier: GPL-3.0-or-later
// The liability text, shown at start-up until the user has had enough of it.
#pragma once

#include <memory>

#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmDisclaimer;
}

// Every close saves the section "Settings".
class frmDisclaimer : public SingleForm<frmDisclaimer> {
    Q_OBJECT

  public:
    frmDisclaimer();
    ~frmDisclaimer() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Command1_Click();

    std::unique_ptr<Ui::frmDisclaimer> ui_;
};

}  // namespace tarvokol
