// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include <qcustomplot.h>

#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"

namespace tarvokol {
namespace {

const QColor kPlaceBlue(0, 84, 166);  // told from the ink on a screen, and by its dashes on paper
constexpr double kPlaceSize = 6;

}  // namespace

StudyView::StudyView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

StudyView::~StudyView() = default;

void StudyView::Show(AnyStudyPicture picture) {
    picture_ = std::move(picture);
    words_.clear();
    is_new_ = true;
    update();
}

void StudyView::ShowWords(const QString& words) {
    picture_ = std::monostate();
    words_ = words;
    is_new_ = true;
    update();
}

void StudyView::SetPlace(const std::optional<GridPoint>& place) {
    place_ = place;
    update();
}

// A widget reports a new name or description itself, but not a new value.
void StudyView::Tell(const QString& words, const SpokenValue& value) {
    if (words == accessibleDescription() && value.now == spoken_.now) return;
    spoken_ = value;
    setAccessibleDescription(words);
    QAccessibleValueChangeEvent said(this, value.now);
    QAccessible::updateAccessibility(&said);
}

bool StudyView::HasPlaces() const {
    return std::holds_alternative<MapPicture>(picture_) || std::holds_alternative<CurvesPicture>(picture_);
}

// The plot has the widget's size before it is laid out, so that its texts fit and its axes know their pixels.
void StudyView::Compose() {
    const qreal ratio = devicePixelRatioF();
    if (size().isEmpty() || (!is_new_ && painted_.size() == size() * ratio)) return;
    is_new_ = false;
    plot_.reset();
    painted_ = QPixmap(size() * ratio);
    painted_.setDevicePixelRatio(ratio);
    painted_.fill(Qt::white);
    const auto draw = [&](const auto& picture) {
        plot_ = std::make_unique<QCustomPlot>();
        plot_->setViewport(QRect(QPoint(), size()));
        SetStudyWidth(*plot_, width());
        ComposeStudyPlot(*plot_, picture);
        QCPPainter painter(&painted_);
        painter.setRenderHint(QPainter::Antialiasing);
        plot_->toPainter(&painter, width(), height());
    };
    if (const auto* map = std::get_if<MapPicture>(&picture_)) draw(*map);
    if (const auto* curves = std::get_if<CurvesPicture>(&picture_)) draw(*curves);
    if (const auto* spread = std::get_if<SpreadPicture>(&picture_)) draw(*spread);
    if (plot_) return;
    QPainter painter(&painted_);
    painter.setPen(Qt::black);
    painter.setFont(font());
    painter.drawText(rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap, words_);
}

const QPixmap& StudyView::Painted() {
    Compose();
    return painted_;
}

std::optional<GridPoint> StudyView::PlaceAt(const QPointF& pixel) {
    Compose();
    if (!HasPlaces() || !plot_ || !QRectF(plot_->axisRect()->rect()).contains(pixel)) return std::nullopt;
    return GridPoint{plot_->xAxis->pixelToCoord(pixel.x()), plot_->yAxis->pixelToCoord(pixel.y())};
}

std::optional<QPointF> StudyView::PixelOf(const GridPoint& place) {
    Compose();
    if (!HasPlaces() || !plot_ || !plot_->xAxis->range().contains(place.x)) return std::nullopt;
    if (HasHeight() && !plot_->yAxis->range().contains(place.y)) return std::nullopt;
    return QPointF(plot_->xAxis->coordToPixel(place.x), plot_->yAxis->coordToPixel(place.y));
}

void StudyView::paintEvent(QPaintEvent*) {
    Compose();
    QPainter painter(this);
    painter.drawPixmap(0, 0, painted_);
    if (place_) DrawPlace(painter);
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void StudyView::DrawPlace(QPainter& painter) {
    const auto pixel = PixelOf(*place_);
    if (!pixel) return;
    const QRectF box = plot_->axisRect()->rect();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kPlaceBlue, 1, Qt::DashLine));
    painter.drawLine(QPointF(pixel->x(), box.top()), QPointF(pixel->x(), box.bottom()));
    if (!HasHeight()) return;
    painter.drawLine(QPointF(box.left(), pixel->y()), QPointF(box.right(), pixel->y()));
    painter.setPen(QPen(kPlaceBlue, 2));
    painter.setBrush(Qt::white);
    painter.drawEllipse(*pixel, kPlaceSize, kPlaceSize);
}

void StudyView::mouseMoveEvent(QMouseEvent* event) {
    if (const auto place = PlaceAt(event->position()))
        emit Pointed(place->x, place->y);
    else
        emit PointerLeft();
}

void StudyView::mousePressEvent(QMouseEvent* event) {
    if (const auto place = PlaceAt(event->position())) emit Pointed(place->x, place->y);
}

void StudyView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (const auto place = PlaceAt(event->position())) emit Taken(place->x, place->y);
}

void StudyView::leaveEvent(QEvent*) {
    emit PointerLeft();
}

void StudyView::keyPressEvent(QKeyEvent* event) {
    constexpr int kManySteps = 10;
    const int steps = event->modifiers().testFlag(Qt::ShiftModifier) ? kManySteps : 1;
    switch (event->key()) {
        case Qt::Key_Left:
            emit Stepped(-steps, 0);
            break;
        case Qt::Key_Right:
            emit Stepped(steps, 0);
            break;
        case Qt::Key_Up:
            emit Stepped(0, steps);
            break;
        case Qt::Key_Down:
            emit Stepped(0, -steps);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit TakenHere();
            break;
        case Qt::Key_Escape:
            emit Escaped();
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void StudyView::focusInEvent(QFocusEvent*) {
    update();
}

void StudyView::focusOutEvent(QFocusEvent*) {
    update();
}

}  // namespace tarvokol
