// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QTransform>
#include <optional>
#include <string>
#include <vector>

#include "core/platform/drawing_surface.h"

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
    int TextClashes() const;

    // The size nearest to `points` that is a whole number of pixels, one at least. Sizes of 0 and below, and
    // above 2160, raise "Invalid property value" (380).
    void SetFontSize(double points);

    void SetScale(double width, double height) override;
    void Cls() override;
    void SetDrawMode(int) override {}  // there is one pen, and it always copies its colour
    void Line(double x1, double y1, double x2, double y2) override;
    void LineTo(double x, double y) override { Line(x_, y_, x, y); }
    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void SetCurrentPoint(double x, double y) override;
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void Print(const std::string& text) override;

    // The lower edge of the line of writing runs through the current point, so that labels stand clear of the
    // edge that they begin at. One that would run through the title or beyond the sheet's upper edge is moved
    // down until all of it can be read: a figure that lacks its last digits is a wrong one.
    void PrintTurned(const TurnedFont& font, const std::string& text) override;
    double FontSize() const override { return font_size_; }

  private:
    QPainter& Painter();
    QPainter& OpenPainter();
    QPointF ToPixels(double x, double y) const;
    QPointF ToPixelCentre(const QPointF& point) const;
    double PenWidth() const;
    void PrintLine(const QFont& font, double escapement_degrees, const QPointF& baseline,
                   const std::string& text);
    void MoveClearOfTitle();
    void PutTextsOnTop();

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
    // Texts since the last Cls, put on top of the lines by Finish: each on a strip of bare paper, so that no
    // dimension line runs through a figure. The title is printed once a pillar at the same place: smoothed
    // letters that are printed over themselves would grow fat edges.
    struct PlacedText {
        QFont font;
        QTransform turn;
        QPointF baseline;
        QString text;
        bool operator==(const PlacedText&) const = default;
        QRectF StripOnSheet() const;
    };
    std::vector<PlacedText> texts_;
};

}  // namespace tarvokol
