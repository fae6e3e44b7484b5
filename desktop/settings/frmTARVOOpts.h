// SPDX-License-Identifier: GPL-3.0-or-later
// Edits the section "TARVOKOLOptions" of the configuration file and registers the program with the desktop.
#pragma once

#include <memory>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

namespace Ui {
class frmTARVOOpts;
}

// The options change and are saved when the form was closed with OK; the defaults reach new projects only.
class frmTARVOOpts : public SingleForm<frmTARVOOpts> {
    Q_OBJECT

  public:
    frmTARVOOpts();
    ~frmTARVOOpts() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void SSTab1_Click();
    void Check5_Click();
    void cmdFileAssoc_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    void Connect();
    void ShowOptions();
    void TakeOptions();
    bool ValidateOptions();
    bool RangesAreValid();
    bool Require(bool valid, const char* message, QLineEdit& box);
    bool Refuse(int tab, QLineEdit& box);

    std::unique_ptr<Ui::frmTARVOOpts> ui_;
    OptionGroup Option1_;
    OptionGroup Option2_;
    OptionGroup Option3_;
};

}  // namespace tarvokol
