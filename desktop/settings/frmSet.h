// SPDX-License-Identifier: GPL-3.0-or-later
// Edits the section "Settings" of the configuration file.
#pragma once

#include <cstdint>
#include <memory>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"

namespace tarvokol {

namespace Ui {
class frmSet;
}

// The settings change and are saved when the form was closed with OK. The history font and the default
// extension change at once, whatever becomes of the rest.
class frmSet : public SingleForm<frmSet> {
    Q_OBJECT

  public:
    frmSet();
    ~frmSet() override;

  private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void chkDispHist_Click();
    void chkKeepRecentFL_Click();
    void chkShortNames_Click();
    void chkCopyExamples_Click();
    void Text1_Change();
    void Command5_Click();
    void cmdSetPath_Click();
    void cmdSelect_Click();
    void cmdSetDefault_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdHelp_Click();

    void Connect();
    void ShowSettings();
    void TakeSettings();
    bool ValidateSettings();
    bool IsPathValid();
    bool IsExtensionValid();

    std::unique_ptr<Ui::frmSet> ui_;
    OptionGroup optUnits_;
    bool PathDialogOpen = false;
    bool Loading = false;
};

}  // namespace tarvokol
