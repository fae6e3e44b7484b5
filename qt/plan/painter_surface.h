// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <optional>
#include <string>
#include <vector>

#include "core/platform/drawing_surface.h"
#include "qt/plan/plan_texts.h"

namespace tarvokol {

// The plan on a paint device: black on white paper, whatever the desktop's palette. Positions are mapped to
// logical pixels (96 to the inch); `size` of them fill the device. Lines are one logical pixel wide and stand
// on whole device pixels, so that they are sharp at every scale of the screen.
class PainterSurface : public DrawingSurface {
  public:
    // Until the first SetScale the world is measured in twips, 15 to a pixel.
    PainterSurface(QPaintDevice& device, const QSizeF& size);

    // Draws with a painter that is open already; its units are the logical pixels.
    PainterSurface(QPainter& painter, const QSizeF& size);
    ~PainterSurface() override;
    PainterSurface(const PainterSurface&) = delete;
    PainterSurface& operator=(const PainterSurface&) = delete;

    // Goes on with another device; scale and font stay.
    void SetTarget(QPaintDevice& device, const QSizeF& size);

    // Completes the drawing. The device is opened by the first thing that is drawn and is free again after
    // Finish.
    void Finish();

    // True once anything was drawn or cleared on the present target.
    bool HasDrawn() const { return has_drawn_; }

    // How many pairs of the texts printed since the last Cls cover one another, and how many texts the
    // sheet's edge cuts; ask before Finish.
    int TextClashes() const { return texts_.Clashes(size_); }

    // Puts all labels to the one place that has room for them (PlanTexts::FitLabels). Otherwise a label stands where and in
    // the height that it is printed, and whoever draws takes a larger sheet.
    void SetFitsLabels(LabelSize size) { fitted_size_ = size; }

    // The labels since the last Cls, from left to right.
    struct PillarLabel {
        QString text;
        QRectF pillar;  // logical pixels
    };
    const std::vector<PillarLabel>& Labels() const { return labels_; }

    // The size nearest to `points` that is a whole number of pixels, one at least. Sizes of 0 and below, and
    // above 2160, raise "Invalid property value" (380).
    void SetFontSize(double points);

    void SetScale(double width, double height) override;
    void Cls() override;
    void SetDrawMode(int) override {}  // there is one pen, and it always copies its colour
    void Line(double x1, double y1, double x2, double y2) override;
    void LineTo(double x, double y) override;
    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void SetCurrentPoint(double x, double y) override;
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void Print(const std::string& text) override;

    void PrintTurned(const TurnedFont& font, const std::string& text) override;
    double FontSize() const override { return font_size_; }

  private:
    QPainter& Painter();
    QPainter& OpenPainter();
    QPointF ToPixels(double x, double y) const;
    QPointF ToPixelCentre(const QPointF& point) const;
    double PenWidth() const;
    QRectF PillarAt(const QPointF& point) const;
    void Place(const PlanText& text);
    void SetPaper(const QSizeF& size, double units_per_pixel);

    QPaintDevice* device_ = nullptr;
    QPainter* given_painter_ = nullptr;
    QPainter* painter_ = nullptr;  // while drawing: the given one, or the surface's own
    std::optional<QPainter> own_painter_;
    QSizeF size_;
    double units_per_pixel_ = 1;  // device pixels, or the dots of a printer
    bool has_drawn_ = false;
    QFont font_;
    double font_size_ = 0;
    double width_ = 0;
    double height_ = 0;
    double x_ = 0;
    double y_ = 0;
    PlanTexts texts_;               // since the last Cls, put on top of the lines by Finish
    std::vector<QLineF> outlines_;  // edges of the pillars since the last Cls, pixels
    QLineF line_;
    std::vector<PillarLabel> labels_;
    std::optional<LabelSize> fitted_size_;
};

}  // namespace tarvokol
