// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>

#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmPreview;
}

// Shows the report's page of inputs, prints it and copies it. Modal.
class frmPreview : public SingleForm<frmPreview> {
    Q_OBJECT

  public:
    frmPreview();
    ~frmPreview() override;

    // Prints the text shown. An abort in the job is noticed at the next print, which does nothing then.
    void PrintPreviewText();

  private:
    void Form_Load() override;
    void Command2_Click();

    std::unique_ptr<Ui::frmPreview> ui_;
    int16_t page_ = 0;
    bool aborted_ = false;
};

}  // namespace tarvokol
