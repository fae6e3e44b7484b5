// SPDX-License-Identifier: GPL-3.0-or-later
// Tells the program's version and age and leads to its web page.
#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>

#include "desktop/base/form_base.h"

namespace tarvokol {

namespace Ui {
class frmUpdate;
}

// The address is black, blue and underlined under the pointer, red while the button is down on it. Every
// close saves the section "Settings".
class frmUpdate : public SingleForm<frmUpdate> {
    Q_OBJECT

  public:
    frmUpdate();
    ~frmUpdate() override;

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Command1_Click();
    void lblURL_MouseMove();
    void lblURL_MouseDown();
    void lblURL_MouseUp();
    void lblURL_Click();
    void Timer1_Timer();

    void Connect();
    void SetLink(int32_t colour, bool underline);
    bool PointerIsOverPicture() const;

    std::unique_ptr<Ui::frmUpdate> ui_;
    QTimer* Timer1;
    int32_t link_colour_ = 0;  // of `lblURL`, in the byte order blue, green, red
};

}  // namespace tarvokol
