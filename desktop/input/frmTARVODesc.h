// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"
#include "desktop/base/typed_texts.h"

namespace tarvokol {

namespace Ui {
class frmTARVODesc;
}

// Edits the project's title and description, and chooses its units while they are still open. Modal.
class frmTARVODesc : public SingleForm<frmTARVODesc> {
    Q_OBJECT

  public:
    frmTARVODesc();
    ~frmTARVODesc() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Command2_Click();
    void Command4_Click();
    void ShowUnits();
    void StoreUnits();

    std::unique_ptr<Ui::frmTARVODesc> ui_;
    std::unique_ptr<TypedTextsKeeper> typed_;
    OptionGroup Option1_;
};

}  // namespace tarvokol
