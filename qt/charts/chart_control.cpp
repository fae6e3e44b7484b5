// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_control.h"

#include <algorithm>
#include <cmath>

#include "qt/charts/chart_plot.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

// One turn of the wheel in eighths of a degree, and the zoom that it makes.
constexpr double kWheelTurn = 120.0;
constexpr double kZoomStep = 0.85;

}  // namespace

ChartControl::ChartControl(QWidget* parent)
    : QWidget(parent), plot_(std::make_unique<ChartPlot>(*this, *this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Graph"));
}

ChartControl::~ChartControl() = default;

int ChartControl::RegionAt(int x, int y) {
    Settle();
    return plot_->view.axisRect()->rect().contains(x, y) ? PlotRegionCode : OtherRegionCode;
}

QPoint ChartControl::PixelOf(int series, long point) {
    Settle();
    return QPoint(qRound(plot_->view.xAxis->coordToPixel(X(series, point))),
                  qRound(plot_->view.yAxis->coordToPixel(Y(series, point))));
}

ChartControl::Nearest ChartControl::NearestPoint(int x, int y) {
    Settle();
    Nearest nearest;
    const QCPRange in_x = plot_->view.xAxis->range();
    const QCPRange in_y = plot_->view.yAxis->range();
    for (int series = 1; series <= NumSeries(); ++series) {
        for (long point = 1; point <= NumPoints(series); ++point) {
            if (!IsChartData(X(series, point), Y(series, point))) continue;
            if (!in_x.contains(X(series, point)) || !in_y.contains(Y(series, point))) continue;
            const QPoint at = PixelOf(series, point);
            const double distance = std::hypot(at.x() - x, at.y() - y);
            if (nearest.point == -1 || distance < nearest.distance) nearest = {series, point, distance};
        }
    }
    return nearest;
}

bool ChartControl::ShowsWholeRange() const {
    return plot_->whole_range;
}

void ChartControl::ShowWholeRange() {
    plot_->FitWholeRange();
    Changed(false);
}

void ChartControl::Changed(bool points) {
    if (points) plot_->data_changed = true;
    if (replot_pending_) return;
    replot_pending_ = true;
    QMetaObject::invokeMethod(this, &ChartControl::Replot, Qt::QueuedConnection);
}

void ChartControl::Settle() {
    if (replot_pending_) Replot();
}

void ChartControl::Replot() {
    replot_pending_ = false;
    plot_->view.setGeometry(rect());
    plot_->view.setViewport(rect());
    plot_->Compose(size());
    plot_->view.replot();
}

void ChartControl::resizeEvent(QResizeEvent*) {
    Replot();
}

// Left and right step along the curve, up and down from curve to curve; Home and End go to its ends. Points
// without data are passed over.
void ChartControl::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            StepPoint(-1);
            break;
        case Qt::Key_Right:
            StepPoint(1);
            break;
        case Qt::Key_Up:
            StepSeries(-1);
            break;
        case Qt::Key_Down:
            StepSeries(1);
            break;
        case Qt::Key_Home:
            at_point_ = 0;
            StepPoint(1);
            break;
        case Qt::Key_End:
            at_point_ = HasSeries() ? NumPoints(at_series_) + 1 : 0;
            StepPoint(-1);
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

bool ChartControl::HasSeries() {
    if (NumSeries() == 0) return false;
    at_series_ = std::clamp(at_series_, 1, NumSeries());
    return true;
}

void ChartControl::StepPoint(long by) {
    if (!HasSeries()) return;
    for (long point = at_point_ + by; point >= 1 && point <= NumPoints(at_series_); point += by)
        if (IsChartData(X(at_series_, point), Y(at_series_, point))) {
            at_point_ = point;
            Reach();
            return;
        }
}

void ChartControl::StepSeries(int by) {
    if (!HasSeries()) return;
    const int series = at_series_ + by;
    if (series < 1 || series > NumSeries() || NumPoints(series) == 0) return;
    at_series_ = series;
    at_point_ = std::clamp<long>(at_point_, 1, NumPoints(series));
    if (IsChartData(X(series, at_point_), Y(series, at_point_))) Reach();
}

void ChartControl::Reach() {
    plot_->ShowMark(X(at_series_, at_point_), Y(at_series_, at_point_));
    Replot();
    emit PointReached(at_series_, at_point_);
    QAccessibleValueChangeEvent said(this, Y(at_series_, at_point_));
    QAccessible::updateAccessibility(&said);
}

SpokenValue ChartControl::ValueToSpeak() const {
    if (at_series_ > NumSeries() || at_point_ < 1 || at_point_ > NumPoints(at_series_)) return {};
    const double now = Y(at_series_, at_point_);
    SpokenValue value{now, now, now};
    for (long point = 1; point <= NumPoints(at_series_); ++point) {
        if (!IsChartData(X(at_series_, point), Y(at_series_, point))) continue;
        value.least = std::min(value.least, Y(at_series_, point));
        value.most = std::max(value.most, Y(at_series_, point));
    }
    return value;
}

void ChartControl::focusOutEvent(QFocusEvent*) {
    plot_->HideMark();
    Replot();
}

void ChartControl::mousePressEvent(QMouseEvent* event) {
    drag_from_ = event->position().toPoint();
}

void ChartControl::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->buttons().testFlag(Qt::LeftButton)) {
        plot_->Pan(at - drag_from_);
        drag_from_ = at;
        Replot();
    }
    emit MouseMove(at.x() * TwipsPerPixel, at.y() * TwipsPerPixel);
}

// The button's end is the chart's own, too.
void ChartControl::mouseReleaseEvent(QMouseEvent*) {}

void ChartControl::mouseDoubleClickEvent(QMouseEvent*) {
    ShowWholeRange();
}

void ChartControl::wheelEvent(QWheelEvent* event) {
    const double turns = event->angleDelta().y() / kWheelTurn;
    if (turns == 0) return;
    plot_->Zoom(event->position(), std::pow(kZoomStep, turns));
    Replot();
    event->accept();
}

}  // namespace tarvokol
