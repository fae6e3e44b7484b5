// SPDX-License-Identifier: GPL-3.0-or-later
// Picks a folder.
#pragma once

#include <memory>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

namespace Ui {
class frmPath;
}

// Starts on `ChosenPath` and, if it is closed with OK, leaves the folder there with a separator at its end.
class frmPath : public SingleForm<frmPath> {
    Q_OBJECT

  public:
    frmPath();
    ~frmPath() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Option1_Click(int Index);
    void Drive1_Change();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    std::unique_ptr<Ui::frmPath> ui_;
    OptionGroup Option1_;
};

}  // namespace tarvokol
