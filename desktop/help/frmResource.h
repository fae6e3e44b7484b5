// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmResource;
}

// Opens the reference notes that come with the program, a button each. Modal.
class frmResource : public SingleForm<frmResource> {
    Q_OBJECT

  public:
    frmResource();
    ~frmResource() override;

  private:
    void Form_Load() override;
    void cmdView_Click(int Index);

    std::unique_ptr<Ui::frmResource> ui_;
};

}  // namespace tarvokol
