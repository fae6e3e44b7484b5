#include "desktop/frmRoom.h"

#include "ui_frmRoom.h"

frmRoom::frmRoom() { Ui::frmRoom().setupUi(this); }
