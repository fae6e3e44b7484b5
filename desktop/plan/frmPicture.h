// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <memory>

#include "desktop/base/form_base.h"
#include "qt/session/grab_watch.h"

class QAction;

namespace tarvokol {

namespace Ui {
class frmPicture;
}

// The plot window: the plan on a square client area, with a font that the mouse makes larger or smaller. Its
// opener disables itself before; which one that is tells `ResultsReturn`.
class frmPicture : public SingleForm<frmPicture> {
    Q_OBJECT

  public:
    frmPicture();
    ~frmPicture() override;

    // Builds the layout anew and draws it.
    void DrawPanelPlot();

    // Steps the font by the least number of points that changes its size. A step down that no font can be
    // made of is not taken.
    void IncreaseFontSize();
    void DecreaseFontSize();

    // Points.
    double FontSize() const;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void Form_MouseDown(Qt::MouseButton button);
    void mnuPlotFileItem_Click(int Index);
    void mnuEditItem_Click(int Index);
    void mnuPlotSetItem_Click(int Index);

    template <std::size_t Count>
    void ConnectMenu(const std::array<QAction*, Count>& items, void (frmPicture::*handler)(int));
    void FollowResize();
    void Drag_Ended();
    void MakeSquare();
    void TakeMaximizedSize();
    void ApplyMaximizedSize();
    void PrintForm();
    void CopyPicture();

    std::unique_ptr<Ui::frmPicture> ui_;
    std::array<QAction*, 3> mnuPlotSetItem_{};
    GrabWatch drag_{*this};
    QTimer resized_;  // brings control back to the event loop, nothing longer
    bool resized_in_drag_ = false;
    bool restoring_ = false;
    int LastHeight_ = 0;  // twips, after the last layout pass; a short would end at 2184 pixels
    int LastWidth_ = 0;
};

}  // namespace tarvokol
