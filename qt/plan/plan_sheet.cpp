// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/plan_sheet.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace tarvokol {
namespace {

// Pixels; the frame around the pillar to which the keys have led.
constexpr int kMarkWidth = 3;

}  // namespace

PlanSheet::PlanSheet(QWidget* parent) : QWidget(parent), surface_(picture_, QSizeF(1, 1)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    surface_.SetFitsLabels(LabelSize::BuiltIn);
}

QSize PlanSheet::PaperSize() const {
    const QSize room = size().expandedTo({1, 1});
    const int side = std::min(room.width(), room.height());
    return square_ ? QSize(side, side) : room;
}

void PlanSheet::ChooseFontSize(double points) {
    surface_.SetFontSize(points);
    label_size_ = LabelSize::AsChosen;
    surface_.SetFitsLabels(label_size_);
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
    LeavePillars();
    QStringList labels;
    for (const auto& label : surface_.Labels()) labels.append(label.text);
    if (!labels.isEmpty()) setAccessibleDescription(labels.join(", "));
}

void PlanSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawPixmap(0, 0, picture_);
    if (at_pillar_ == kNoPillar) return;
    painter.setPen(QPen(Qt::black, kMarkWidth));
    painter.drawRect(surface_.Labels()[static_cast<std::size_t>(at_pillar_)].pillar);
}

void PlanSheet::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            GoToPillar(at_pillar_ - 1);
            break;
        case Qt::Key_Right:
            GoToPillar(at_pillar_ + 1);
            break;
        case Qt::Key_Home:
            GoToPillar(0);
            break;
        case Qt::Key_End:
            GoToPillar(Pillars() - 1);
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void PlanSheet::GoToPillar(int pillar) {
    if (pillar < 0 || pillar >= Pillars()) return;
    at_pillar_ = pillar;
    update();
    setAccessibleDescription(tr("Pillar %1 of %2: %3")
                                 .arg(pillar + 1)
                                 .arg(Pillars())
                                 .arg(surface_.Labels()[static_cast<std::size_t>(pillar)].text));
    QAccessibleEvent said(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&said);
    QAccessibleValueChangeEvent reached(this, pillar + 1);
    QAccessible::updateAccessibility(&reached);
}

SpokenValue PlanSheet::ValueToSpeak() const {
    return {at_pillar_ == kNoPillar ? 0.0 : at_pillar_ + 1.0, 0.0, static_cast<double>(Pillars())};
}

void PlanSheet::LeavePillars() {
    at_pillar_ = kNoPillar;
    update();
}

void PlanSheet::focusOutEvent(QFocusEvent*) {
    LeavePillars();
}

}  // namespace tarvokol
