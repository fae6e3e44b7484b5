// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the open project from one unit system into the other.
#pragma once

#include <memory>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

namespace Ui {
class frmConvert;
}

// The target is always the other system. The button "Help" does nothing.
class frmConvert : public SingleForm<frmConvert> {
    Q_OBJECT

  public:
    frmConvert();
    ~frmConvert() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Command1_Click();
    void Command2_Click();

    std::unique_ptr<Ui::frmConvert> ui_;
    OptionGroup Option1_;
    OptionGroup Option2_;
};

}  // namespace tarvokol
