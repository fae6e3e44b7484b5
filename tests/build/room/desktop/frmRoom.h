#pragma once

#include <QWidget>

class frmRoom : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("word", "old class")

  public:
    frmRoom();
};
