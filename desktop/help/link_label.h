// SPDX-License-Identifier: GPL-3.0-or-later
// A label that tells what the pointer does over it, and that the keyboard reaches.
#pragma once

#include <QLabel>

namespace tarvokol {

class LinkLabel : public QLabel {
    Q_OBJECT

  public:
    explicit LinkLabel(QWidget* parent = nullptr);

  signals:
    void PointerMoved();
    void ButtonDown();
    void ButtonUp();

    // The left button was pressed and let go over the label, or Space or Enter pressed.
    void Clicked();

  protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvokol
