// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/painter_surface.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "core/runtime/run_time_error.h"
#include "qt/session/qt_text.h"
#include "qt/session/screen_units.h"

namespace tarvokol {

namespace {

constexpr double kStartFontSize = 8.25;
constexpr double kLargestFontSize = 2160;
// Pixels by which the top of a pillar and the start of its label may differ.
constexpr double kAtTheTop = 0.5;
constexpr const char* kPlanFont = "Arial";

// One end of a line, cut off at a bound of one coordinate.
double CutAt(double from_main, double from_other, double to_main, double to_other, double bound) {
    return from_other + (to_other - from_other) * ((bound - from_main) / (to_main - from_main));
}

// Cuts the stretch of a line outside low..high of the main coordinate; false if nothing is left.
bool CutToRange(double& main1, double& other1, double& main2, double& other2, double low, double high) {
    if (std::max(main1, main2) < low || std::min(main1, main2) > high) return false;
    const double start_main = main1;
    const double start_other = other1;
    const double end_main = main2;
    const double end_other = other2;
    const auto cut = [&](double& main, double& other) {
        const double bound = std::clamp(main, low, high);
        if (bound == main) return;
        other = CutAt(start_main, start_other, end_main, end_other, bound);
        main = bound;
    };
    cut(main1, other1);
    cut(main2, other2);
    return true;
}

// The part of a line on the sheet. A pillar without end would reach further than a paint engine can count.
bool CutToSheet(QPointF& from, QPointF& to, const QSizeF& size) {
    double x1 = from.x();
    double y1 = from.y();
    double x2 = to.x();
    double y2 = to.y();
    constexpr double kMargin = 8;
    if (!CutToRange(x1, y1, x2, y2, -kMargin, size.width() + kMargin)) return false;
    if (!CutToRange(y1, x1, y2, x2, -kMargin, size.height() + kMargin)) return false;
    from = {x1, y1};
    to = {x2, y2};
    return true;
}

}  // namespace

PainterSurface::PainterSurface(QPaintDevice& device, const QSizeF& size)
    : width_(size.width() * TwipsPerPixel), height_(size.height() * TwipsPerPixel) {
    SetFontSize(kStartFontSize);
    SetTarget(device, size);
}

PainterSurface::PainterSurface(QPainter& painter, const QSizeF& size)
    : given_painter_(&painter), width_(size.width() * TwipsPerPixel), height_(size.height() * TwipsPerPixel) {
    SetFontSize(kStartFontSize);
    SetPaper(size, painter.deviceTransform().m11());
}

PainterSurface::~PainterSurface() {
    Finish();
}

void PainterSurface::SetTarget(QPaintDevice& device, const QSizeF& size) {
    Finish();
    device_ = &device;
    given_painter_ = nullptr;
    has_drawn_ = false;
    SetPaper(size, device.width() / size.width());
}

void PainterSurface::SetPaper(const QSizeF& size, double units_per_pixel) {
    size_ = size;
    units_per_pixel_ = units_per_pixel;
}

void PainterSurface::Finish() {
    if (painter_ != nullptr) {
        if (fitted_size_)
            texts_.FitLabels(size_, outlines_, *fitted_size_);
        else
            texts_.MoveClearOfTitle(size_);
        texts_.Draw(*painter_);
        painter_->restore();
    }
    painter_ = nullptr;
    own_painter_.reset();
    texts_.Clear();
    outlines_.clear();
}

void PainterSurface::SetFontSize(double points) {
    if (!(points > 0) || points > kLargestFontSize) Raise(error_number::InvalidPropertyValue);
    const int pixels = std::max(1, static_cast<int>(std::lround(points * kPixelsPerPoint)));
    font_ = PlanFont(kPlanFont, pixels);
    font_size_ = pixels / kPixelsPerPoint;
}

void PainterSurface::SetScale(double width, double height) {
    width_ = width;
    height_ = height;
}

QPainter& PainterSurface::OpenPainter() {
    if (given_painter_ != nullptr) {
        given_painter_->save();
        return *given_painter_;
    }
    QPainter& painter = own_painter_.emplace(device_);
    const double scale = units_per_pixel_ / device_->devicePixelRatioF();
    painter.scale(scale, scale);
    painter.save();
    return painter;
}

QPainter& PainterSurface::Painter() {
    if (painter_ == nullptr) {
        painter_ = &OpenPainter();
        has_drawn_ = true;
        painter_->setRenderHint(QPainter::Antialiasing, false);
        painter_->setRenderHint(QPainter::TextAntialiasing);
        painter_->setPen(QPen(Qt::black, PenWidth(), Qt::SolidLine, Qt::SquareCap));
    }
    return *painter_;
}

double PainterSurface::PenWidth() const {
    const double units = units_per_pixel_;
    return std::max(1.0, std::round(units)) / units;
}

QPointF PainterSurface::ToPixels(double x, double y) const {
    return {x * (size_.width() / width_), (height_ - y) * (size_.height() / height_)};
}

// A pen of an odd number of device pixels is sharp on the middle of a pixel, one of an even number between
// two.
QPointF PainterSurface::ToPixelCentre(const QPointF& point) const {
    const double units = units_per_pixel_;
    const bool odd = std::lround(PenWidth() * units) % 2 != 0;
    const auto settle = [&](double pixels) {
        return odd ? (std::floor(pixels * units) + 0.5) / units : std::round(pixels * units) / units;
    };
    return {settle(point.x()), settle(point.y())};
}

void PainterSurface::Cls() {
    Painter().fillRect(QRectF({0, 0}, size_), Qt::white);
    texts_.Clear();
    outlines_.clear();
    labels_.clear();
    SetCurrentPoint(0, 0);
}

void PainterSurface::Line(double x1, double y1, double x2, double y2) {
    SetCurrentPoint(x2, y2);
    QPointF from = ToPixels(x1, y1);
    QPointF to = ToPixels(x2, y2);
    line_ = {from, to};
    if (CutToSheet(from, to, size_)) Painter().drawLine(ToPixelCentre(from), ToPixelCentre(to));
}

// Only the outline of a pillar is drawn on from its own end: its first edge is the line before.
void PainterSurface::LineTo(double x, double y) {
    const QLineF before = line_;
    if (outlines_.empty() || outlines_.back() != before) outlines_.push_back(before);
    Line(x_, y_, x, y);
    outlines_.push_back(line_);
}

// The last outline if a label begins at its upper edge.
QRectF PainterSurface::PillarAt(const QPointF& point) const {
    constexpr std::size_t kEdges = 4;
    if (outlines_.size() < kEdges) return {};
    QRectF pillar;
    for (std::size_t edge = outlines_.size() - kEdges; edge < outlines_.size(); ++edge)
        pillar |= QRectF(outlines_[edge].p1(), outlines_[edge].p2()).normalized().adjusted(0, 0, 1e-9, 1e-9);
    return std::abs(pillar.top() - point.y()) < kAtTheTop ? pillar : QRectF();
}

void PainterSurface::SetCurrentPoint(double x, double y) {
    x_ = x;
    y_ = y;
}

double PainterSurface::TextWidth(const std::string& text) {
    return QFontMetricsF(font_).horizontalAdvance(ToQt(text)) * (width_ / size_.width());
}

// What the drawing asks for is the height of labels that are turned up: it lies along x.
double PainterSurface::TextHeight(const std::string&) {
    return QFontMetricsF(font_).height() * (width_ / size_.width());
}

void PainterSurface::Print(const std::string& text) {
    Place({font_, ToPixels(x_, y_), 0, ToQt(text), {}});
}

void PainterSurface::PrintTurned(const TurnedFont& font, const std::string& text) {
    const QPointF at = ToPixels(x_, y_);
    const QRectF pillar = PillarAt(at);
    if (!pillar.isEmpty()) labels_.push_back({ToQt(text), pillar});
    Place({PlanFont(ToQt(font.face), font.height), at, font.escapement / 10.0, ToQt(text), pillar});
}

void PainterSurface::Place(const PlanText& text) {
    if (!text.Strip().intersects(QRectF({0, 0}, size_))) return;
    Painter();
    texts_.Add(text);
}

}  // namespace tarvokol
