// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frmRoom.h"

#include "ui_frmRoom.h"

frmRoom::frmRoom() {
    Ui::frmRoom().setupUi(this);
}
