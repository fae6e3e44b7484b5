// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/link_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace tarvokol {

LinkLabel::LinkLabel(QWidget* parent) : QLabel(parent) {
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void LinkLabel::mouseMoveEvent(QMouseEvent*) {
    emit PointerMoved();
}

void LinkLabel::mousePressEvent(QMouseEvent*) {
    emit ButtonDown();
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    emit ButtonUp();
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit Clicked();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit Clicked();
            break;
        default:
            QLabel::keyPressEvent(event);
    }
}

void LinkLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

}  // namespace tarvokol
