// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class frmRoom : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("word", "old class")

  public:
    frmRoom();
};
