// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/chart_control.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <qcustomplot.h>

#include "core/runtime/run_time_error.h"
#include "qt/chart_text.h"
#include "qt/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kPixelsPerPoint = kPixelsPerInch / 72.0;
constexpr int kBoxUnitsPerInch = 600;

// Symbols on a line stand at least this many of their own widths apart, or they would merge into a band.
constexpr double kSymbolPitch = 2.6;

// One turn of the wheel, and how far in and out it may lead.
constexpr double kZoomStep = 0.85;
constexpr double kClosestZoom = 1e-4;
constexpr double kWidestZoom = 20;

// Room for a tick and its label along an axis.
constexpr int kTickPitch = 45;

const QColor kPaper = Qt::white;
const QColor kInk = Qt::black;
const QColor kGridGrey(205, 205, 205);

QColor ColourOf(int32_t colour) {
    const auto bits = static_cast<uint32_t>(colour);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF));
}

// A sign of its own for each series, so that the curves can be told apart without colours.
QCPScatterStyle::ScatterShape SignOfSeries(int series) {
    static constexpr QCPScatterStyle::ScatterShape signs[] = {
        QCPScatterStyle::ssCircle,  QCPScatterStyle::ssSquare,           QCPScatterStyle::ssTriangle,
        QCPScatterStyle::ssDiamond, QCPScatterStyle::ssTriangleInverted, QCPScatterStyle::ssCross};
    return signs[static_cast<std::size_t>(series - 1) % std::size(signs)];
}

// Tick labels that all carry the decimals of the tick step, with "." in every locale.
class EvenTicker : public QCPAxisTicker {
  protected:
    double getTickStep(const QCPRange& range) override {
        step_ = QCPAxisTicker::getTickStep(range);
        return step_;
    }

    QString getTickLabel(double tick, const QLocale&, QChar, int) override {
        const QLocale plain = QLocale::c();
        const double exponent = std::floor(std::log10(step_) + 1e-9);
        if (exponent < -6 || std::abs(tick) >= 1e9) return plain.toString(tick, 'g', 6);
        const int decimals = DecimalsOfStep(exponent);
        if (std::abs(tick) < step_ * 1e-6) tick = 0;  // no "-0.0"
        return plain.toString(tick, 'f', decimals);
    }

  private:
    // Steps such as 2.5 take one decimal more than their magnitude.
    int DecimalsOfStep(double exponent) const {
        const double leading = step_ / std::pow(10.0, exponent);
        const int more = std::abs(leading - std::round(leading)) > 1e-6 ? 1 : 0;
        return std::max(0, static_cast<int>(-exponent) + more);
    }

    double step_ = 1;
};

// The whole range of some values with a margin for the symbols. Values that are not negative start at 0 at
// the lowest.
QCPRange WithMargin(double low, double high, double margin) {
    double size = high - low;
    if (!(size > 0)) size = std::max(std::abs(high) * 0.2, 1e-6);
    QCPRange range(low - size * margin, high + size * margin);
    if (low >= 0 && range.lower < 0) range.lower = 0;
    return range;
}

bool IsData(double x, double y) {
    return std::isfinite(x) && std::isfinite(y) && x < 1E+300 && y < 1E+300;
}

// A printer that counts as a screen does, so that texts have their size in points; set back afterwards.
class PrinterSetting {
  public:
    explicit PrinterSetting(QPrinter& printer)
        : printer_(printer), resolution_(printer.resolution()), full_page_(printer.fullPage()) {
        printer_.setResolution(kPixelsPerInch);
        printer_.setFullPage(true);
    }
    ~PrinterSetting() {
        printer_.setResolution(resolution_);
        printer_.setFullPage(full_page_);
    }
    PrinterSetting(const PrinterSetting&) = delete;
    PrinterSetting& operator=(const PrinterSetting&) = delete;

  private:
    QPrinter& printer_;
    int resolution_;
    bool full_page_;
};

}  // namespace

// The chart library's side of the control.
class ChartControl::Plot {
  public:
    explicit Plot(ChartControl& owner);

    // Brings the library's plot up to the model for a size in pixels.
    void Compose(const QSize& size);

    // Composes for the size and draws at the painter's origin.
    void DrawOn(QCPPainter& painter, const QSize& size);

    void FitWholeRange();
    void Zoom(const QPointF& centre, double factor);
    void Pan(const QPoint& by);

    QCustomPlot view;
    bool data_changed = true;
    bool whole_range = true;

  private:
    QCPAxis* AxisOf(ChartAxis axis) const { return axis == ChartAxis::X ? view.xAxis : view.yAxis; }
    void LayOut();
    void ComposeHeader(int width);
    void ComposeAxis(ChartAxis axis, int length);
    void ComposeSeries(int series, int width);
    void ComposeLegend(int width);
    void LoadPoints();
    int SymbolSkip(int series, int width) const;

    ChartControl& owner_;
    QCPTextElement* header_;
    QCPLayoutGrid* legend_row_;
    QCPRange whole_x_{0, 1};
    QCPRange whole_y_{0, 1};
    std::vector<QCPCurve*> curves_;
};

ChartControl::Plot::Plot(ChartControl& owner) : view(&owner), owner_(owner) {
    view.setAttribute(Qt::WA_TransparentForMouseEvents);
    view.setFocusPolicy(Qt::NoFocus);
    view.setBackground(QBrush(kPaper));
    view.setLocale(QLocale::c());
    LayOut();
    for (QCPAxis* axis : {view.xAxis, view.yAxis}) {
        axis->setTicker(QSharedPointer<QCPAxisTicker>(new EvenTicker));
        axis->setTickLabelFont(ChartFont(9));
        axis->setTickLabelColor(kInk);
        axis->setLabelColor(kInk);
        axis->setLabelPadding(4);
        axis->grid()->setPen(QPen(kGridGrey, 1));
        axis->grid()->setZeroLinePen(QPen(kGridGrey, 1));
        axis->grid()->setSubGridVisible(false);
        axis->setSubTicks(false);
    }
}

// Header, axes and legend below one another: the legend has room of its own and covers no curve.
void ChartControl::Plot::LayOut() {
    QCPLayoutGrid* rows = view.plotLayout();
    rows->setRowSpacing(0);
    header_ = new QCPTextElement(&view);
    header_->setTextColor(kInk);
    header_->setMargins(QMargins(4, 6, 4, 0));
    rows->insertRow(0);
    rows->addElement(0, 0, header_);
    view.axisRect()->setMinimumMargins(QMargins(12, 8, 14, 6));
    legend_row_ = new QCPLayoutGrid;
    rows->addElement(2, 0, legend_row_);
    rows->setRowStretchFactor(2, 0.001);
    legend_row_->addElement(0, 0, new QCPLayoutElement);
    legend_row_->addElement(0, 1, view.legend);
    legend_row_->addElement(0, 2, new QCPLayoutElement);
    legend_row_->setColumnStretchFactor(1, 0.001);
    legend_row_->setMargins(QMargins(8, 0, 8, 6));
    view.legend->setVisible(true);
    view.legend->setBorderPen(Qt::NoPen);
    view.legend->setBrush(Qt::NoBrush);
    view.legend->setTextColor(kInk);
    view.legend->setFont(ChartFont(9));
    view.legend->setIconSize(34, 14);
    view.legend->setColumnSpacing(14);
    view.legend->setMargins(QMargins(0, 0, 0, 0));
}

void ChartControl::Plot::Compose(const QSize& size) {
    if (data_changed) LoadPoints();
    ComposeHeader(size.width());
    ComposeAxis(ChartAxis::X, size.width() - 80);
    ComposeAxis(ChartAxis::Y, size.height() - 110);
    for (int series = 1; series <= owner_.NumSeries(); ++series) ComposeSeries(series, size.width());
    ComposeLegend(size.width());
}

void ChartControl::Plot::DrawOn(QCPPainter& painter, const QSize& size) {
    Compose(size);
    view.toPainter(&painter, size.width(), size.height());
}

void ChartControl::Plot::ComposeHeader(int width) {
    const FittedText fitted =
        FitText(ToQt(owner_.HeaderText()), ChartFont(owner_.HeaderSize(), true), width - 16);
    header_->setFont(fitted.font);
    header_->setText(fitted.text);
    header_->setVisible(!fitted.text.isEmpty());
}

void ChartControl::Plot::ComposeAxis(ChartAxis axis, int length) {
    QCPAxis* drawn = AxisOf(axis);
    const FittedText fitted =
        FitText(ToQt(owner_.AxisTitle(axis)), ChartFont(owner_.AxisTitleSize(axis)), length);
    drawn->setLabelFont(fitted.font);
    drawn->setLabel(fitted.text);
    const QPen line(kInk, owner_.AxisLineWidth(axis), Qt::SolidLine, Qt::FlatCap);
    drawn->setBasePen(line);
    drawn->setTickPen(QPen(kInk, 1));
    drawn->setTickLength(0, owner_.AxisTickLength(axis));
    const double spacing = owner_.MajorGridSpacing(axis);
    drawn->grid()->setVisible(owner_.MajorGridIsAutomatic(axis) || spacing > 0);
    if (spacing > 0) {
        const QSharedPointer<QCPAxisTickerFixed> ticker(new QCPAxisTickerFixed);
        ticker->setTickStep(spacing);
        ticker->setScaleStrategy(QCPAxisTickerFixed::ssMultiples);
        drawn->setTicker(ticker);
    } else if (!drawn->ticker().dynamicCast<EvenTicker>()) {
        drawn->setTicker(QSharedPointer<QCPAxisTicker>(new EvenTicker));
    }
    drawn->ticker()->setTickCount(std::clamp(length / kTickPitch, 2, 7));
}

void ChartControl::Plot::ComposeSeries(int series, int width) {
    const SeriesStyle& style = owner_.Style(series);
    QCPCurve* curve = curves_[static_cast<std::size_t>(series - 1)];
    const bool line = style.line_pattern != chart_style::NoLine;
    curve->setLineStyle(line ? QCPCurve::lsLine : QCPCurve::lsNone);
    curve->setPen(
        QPen(ColourOf(style.line_colour), style.line_width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (style.symbol_shape == chart_style::NoSymbol) {
        curve->setScatterStyle(QCPScatterStyle::ssNone);
        return;
    }
    const bool dot = style.symbol_shape == chart_style::DotSymbol;
    const QColor colour = ColourOf(style.symbol_colour);
    curve->setScatterStyle(QCPScatterStyle(dot ? QCPScatterStyle::ssDisc : SignOfSeries(series),
                                           QPen(colour, 1.4), QBrush(dot ? colour : kPaper),
                                           style.symbol_size * kPixelsPerPoint));
    curve->setScatterSkip(line ? SymbolSkip(series, width) : 0);
}

// Points to pass over between two symbols. Without a line every point has its symbol.
int ChartControl::Plot::SymbolSkip(int series, int width) const {
    const long points = owner_.NumPoints(series);
    if (points < 2) return 0;
    const double shown = std::max(view.xAxis->range().size() / whole_x_.size(), 1e-12);
    const double pitch = (width - 90) / (static_cast<double>(points - 1) * shown);
    const double wanted = kSymbolPitch * owner_.Style(series).symbol_size * kPixelsPerPoint;
    return static_cast<int>(std::clamp(std::ceil(wanted / std::max(pitch, 1e-3)) - 1, 0.0, 1000.0));
}

void ChartControl::Plot::ComposeLegend(int width) {
    view.legend->clearItems();
    int widest = 1;
    int entries = 0;
    view.legend->setWrap(0);
    view.legend->setFillOrder(QCPLayoutGrid::foColumnsFirst, false);
    const QFontMetrics metrics(view.legend->font());
    for (int series = 1; series <= owner_.NumSeries(); ++series) {
        const QString label = ToQt(owner_.SeriesLabel(series));
        if (label.isEmpty()) continue;
        widest = std::max(widest, metrics.horizontalAdvance(label) + 34 + 8 + 14);
        ++entries;
    }
    if (entries == 0) return;
    const int columns = std::clamp((width - 16) / widest, 1, entries);
    view.legend->setWrap(columns);
    for (int series = 1; series <= owner_.NumSeries(); ++series) {
        const QString label = ToQt(owner_.SeriesLabel(series));
        QCPCurve* curve = curves_[static_cast<std::size_t>(series - 1)];
        curve->setName(label);
        if (!label.isEmpty()) view.legend->addItem(new QCPPlottableLegendItem(view.legend, curve));
    }
}

void ChartControl::Plot::LoadPoints() {
    data_changed = false;
    view.clearPlottables();
    curves_.clear();
    const double infinity = std::numeric_limits<double>::infinity();
    double low_x = infinity, high_x = -infinity, low_y = infinity, high_y = -infinity;
    for (int series = 1; series <= owner_.NumSeries(); ++series) {
        const long count = owner_.NumPoints(series);
        QVector<double> order(count), x(count), y(count);
        for (long point = 1; point <= count; ++point) {
            const long at = point - 1;
            order[at] = static_cast<double>(at);
            x[at] = owner_.X(series, point);
            y[at] = owner_.Y(series, point);
            if (!IsData(x[at], y[at])) {
                y[at] = std::numeric_limits<double>::quiet_NaN();
                continue;
            }
            low_x = std::min(low_x, x[at]);
            high_x = std::max(high_x, x[at]);
            low_y = std::min(low_y, y[at]);
            high_y = std::max(high_y, y[at]);
        }
        auto* curve = new QCPCurve(view.xAxis, view.yAxis);
        curve->removeFromLegend();
        curve->setData(order, x, y, true);
        curves_.push_back(curve);
    }
    if (low_x > high_x) return;  // nothing to show: the axes stay as they are
    whole_x_ = WithMargin(low_x, high_x, 0.03);
    whole_y_ = WithMargin(low_y, high_y, 0.08);
    FitWholeRange();
}

void ChartControl::Plot::FitWholeRange() {
    whole_range = true;
    view.xAxis->setRange(whole_x_);
    view.yAxis->setRange(whole_y_);
}

void ChartControl::Plot::Zoom(const QPointF& centre, double factor) {
    const double size = view.xAxis->range().size() * factor / whole_x_.size();
    if (size < kClosestZoom || size > kWidestZoom) return;
    view.xAxis->scaleRange(factor, view.xAxis->pixelToCoord(centre.x()));
    view.yAxis->scaleRange(factor, view.yAxis->pixelToCoord(centre.y()));
    whole_range = false;
}

void ChartControl::Plot::Pan(const QPoint& by) {
    if (by.isNull()) return;
    view.xAxis->moveRange(view.xAxis->pixelToCoord(0) - view.xAxis->pixelToCoord(by.x()));
    view.yAxis->moveRange(view.yAxis->pixelToCoord(0) - view.yAxis->pixelToCoord(by.y()));
    whole_range = false;
}

ChartControl::ChartControl(QWidget* parent) : QWidget(parent), plot_(std::make_unique<Plot>(*this)) {
    setMouseTracking(true);
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
            if (!IsData(X(series, point), Y(series, point))) continue;
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

void ChartControl::Print(QPrinter& printer, int format, int scale_mode, int left, int top, int width,
                         int height) {
    if (format != 4 || scale_mode != 2) Raise(error_number::PrinterError);
    const auto pixels = [](int units) { return units * kPixelsPerInch / kBoxUnitsPerInch; };
    const PrinterSetting setting(printer);
    try {
        DrawOn(printer, QRect(pixels(left), pixels(top), pixels(width), pixels(height)));
    } catch (const RunTimeError&) {
        Raise(error_number::PrinterError);
    }
}

QImage ChartControl::ToImage(const QSize& size, double scale) {
    QImage image(size * scale, QImage::Format_RGB32);
    if (image.isNull()) Raise(error_number::OutOfMemory);
    image.setDotsPerMeterX(qRound(kPixelsPerInch / 0.0254));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.setDevicePixelRatio(scale);
    image.fill(kPaper);
    DrawOn(image, QRect(QPoint(0, 0), size));
    image.setDevicePixelRatio(1);
    image.setDotsPerMeterX(qRound(kPixelsPerInch * scale / 0.0254));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    return image;
}

void ChartControl::DrawOn(QPaintDevice& device, const QRect& box) {
    QCPPainter painter;
    if (!painter.begin(&device)) Raise(error_number::DeviceIo);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.translate(box.topLeft());
    plot_->DrawOn(painter, box.size());
    if (!painter.end()) Raise(error_number::DeviceIo);
    Changed(false);  // the texts on the screen fit the control's own size
}

void ChartControl::resizeEvent(QResizeEvent*) {
    Replot();
}

void ChartControl::showEvent(QShowEvent*) {
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
    emit MouseMove(at.x() * kTwipsPerPixel, at.y() * kTwipsPerPixel);
}

void ChartControl::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void ChartControl::mouseDoubleClickEvent(QMouseEvent*) {
    ShowWholeRange();
}

void ChartControl::wheelEvent(QWheelEvent* event) {
    const double turns = event->angleDelta().y() / 120.0;
    if (turns == 0) return;
    plot_->Zoom(event->position(), std::pow(kZoomStep, turns));
    Replot();
    event->accept();
}

}  // namespace tarvokol
