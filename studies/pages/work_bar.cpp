// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/work_bar.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <initializer_list>

#include "studies/model/latest_work.h"

namespace tarvokol {

constexpr int kBarEvery = 50;  // milliseconds

WorkBar::WorkBar(LatestWork& work, const QString& page, QWidget* parent) : QWidget(parent), work_(work) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    progress_ = new QProgressBar(this);
    progress_->setObjectName(page + "_Progress");
    progress_->setAccessibleName("Progress");
    progress_->setTextVisible(false);
    progress_->setMinimumWidth(24);
    cancel_ = new QPushButton("Ca&ncel", this);
    cancel_->setObjectName(page + "_Cancel");
    for (QWidget* shown_at_work : std::initializer_list<QWidget*>{progress_, cancel_}) {
        QSizePolicy keeps_its_room = shown_at_work->sizePolicy();
        keeps_its_room.setRetainSizeWhenHidden(true);
        shown_at_work->setSizePolicy(keeps_its_room);
        shown_at_work->hide();
    }
    line->addWidget(progress_, 1);
    line->addWidget(cancel_);
    watch_.setInterval(kBarEvery);
    connect(&watch_, &QTimer::timeout, this, &WorkBar::Progress_Due);
    connect(cancel_, &QPushButton::clicked, this, &WorkBar::Cancel_Clicked);
}

void WorkBar::Watch() {
    watch_.start();
}

void WorkBar::Cancel_Clicked() {
    work_.Drop();
    emit Cancelled();
}

void WorkBar::Progress_Due() {
    const bool busy = work_.IsBusy();
    const double done = work_.Progress();
    progress_->setRange(0, done < 0 ? 0 : 1000);
    if (done >= 0) progress_->setValue(static_cast<int>(done * 1000));
    progress_->setVisible(busy);
    cancel_->setVisible(busy);
    if (!busy) watch_.stop();
}

}  // namespace tarvokol
