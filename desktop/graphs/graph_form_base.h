// SPDX-License-Identifier: GPL-3.0-or-later
// What the two graph windows share: everything but the family of their graphs and their options dialog.
#pragma once

#include "core/graphics/graph_setup.h"
#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"
#include "qt/charts/chart_control.h"

class QGroupBox;
class QLabel;

namespace tarvokol {

// Set once a graph window has been closed; read by nothing.
inline bool GraphClosed = false;

// A form with the controls Graph1, Frame1, lblX, lblSF and lblCurve and the menu commands GraphFileItem,
// GraphEditItem and GraphOptionsItem.
class GraphFormBase : public FormBase {
    Q_OBJECT

  public:
    // Prepares axes, grid and header for graph `Index`, and shows the busy pointer until DrawCurve is done.
    void GraphInit(int Index);
    void DrawCurve();

    // Removes all curves.
    void ClearGraph();

    ChartControl& Graph1() const { return *graph_; }

  protected:
    // Finds the controls and connects them; called after setupUi.
    void BindControls();

    virtual GraphFamily Family() const = 0;
    virtual void ShowOptions() = 0;

    void Form_Load() override;
    void Form_FontChange() override;
    void Form_Deactivate() override;
    void Form_Resize() override;
    void Form_Unload() override;

    // The size at load is told.
    bool KeepsSizeOfUser() const override { return false; }
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void GraphFileItem_Click(int Index);
    void GraphEditItem_Click(int Index);
    void GraphOptionsItem_Click(int Index);
    void Graph1_MouseMove(double X, double Y);

    void ConnectMenu(const QString& name, void (GraphFormBase::*handler)(int));
    bool PrinterIsChosen();
    void PrintGraph();
    void ExportGraph();
    void ExportToWorkbook();
    void Graph1_PointReached(int series, long point);
    void ShowReadOut(int series, long point);
    void ShowValues(int series, long point);
    void FitReadOut();
    void LayOutReadOut(bool narrow);

    ChartControl* graph_ = nullptr;
    QGroupBox* frame_ = nullptr;
    QLabel* x_label_ = nullptr;
    QLabel* value_label_ = nullptr;
    QLabel* curve_label_ = nullptr;
    ControlArray<QAction> options_items_;
    bool DialogCancelled_ = false;
    bool options_open_ = false;
    QString read_out_title_;
};

}  // namespace tarvokol
