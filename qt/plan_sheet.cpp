// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan_sheet.h"

#include <QPainter>
#include <algorithm>

namespace tarvokol {

PlanSheet::PlanSheet(QWidget* parent) : QWidget(parent), surface_(picture_, QSizeF(1, 1)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize PlanSheet::PaperSize() const {
    const QSize room = size().expandedTo({1, 1});
    const int side = std::min(room.width(), room.height());
    return square_ ? QSize(side, side) : room;
}

void PlanSheet::Draw(const std::function<void(DrawingSurface&)>& routine) {
    QPixmap paper(PaperSize() * devicePixelRatioF());
    paper.setDevicePixelRatio(devicePixelRatioF());
    paper.fill(Qt::white);
    surface_.SetTarget(paper, PaperSize());
    // The surface must let go of the paper whichever way the routine ends.
    struct Release {
        PlanSheet& sheet;
        ~Release() { sheet.surface_.SetTarget(sheet.picture_, sheet.PaperSize()); }
    } release{*this};
    routine(surface_);
    surface_.Finish();
    if (!surface_.HasDrawn()) return;
    picture_ = paper;
    update();
}

void PlanSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawPixmap(0, 0, picture_);
}

}  // namespace tarvokol
