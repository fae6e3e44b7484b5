// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

namespace tarvokol {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent) {
    setObjectName("Notice");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    layout_ = new QHBoxLayout(this);
    layout_->setContentsMargins(8, 4, 8, 4);
    text_ = new QLabel(this);
    text_->setObjectName("Notice_Text");
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    layout_->addWidget(text_, 1);
    auto* close = new QToolButton(this);
    close->setObjectName("Notice_Close");
    close->setText("\u00d7");
    close->setAutoRaise(true);
    close->setToolTip("Close this line");
    close->setAccessibleName("Close this line");
    layout_->addWidget(close);
    connect(close, &QToolButton::clicked, this, &NoticeBar::Dismiss);
    hide();
}

void NoticeBar::Show(const QString& text, const std::vector<Choice>& choices) {
    ForgetChoices();
    text_->setText(text);
    for (const Choice& choice : choices) {
        auto* button = new QPushButton(choice.caption, this);
        button->setObjectName(QString("Notice_%1").arg(buttons_.size()));
        layout_->insertWidget(layout_->count() - 1, button);
        connect(button, &QPushButton::clicked, this, &NoticeBar::Choice_Clicked);
        buttons_.push_back(button);
        acts_.push_back(choice.act);
    }
    show();
}

void NoticeBar::Choice_Clicked() {
    const auto pressed = std::find(buttons_.begin(), buttons_.end(), sender());
    if (pressed == buttons_.end()) return;
    const auto act = acts_[static_cast<std::size_t>(pressed - buttons_.begin())];
    Dismiss();
    act();
}

void NoticeBar::Dismiss() {
    hide();
    ForgetChoices();
}

QString NoticeBar::Text() const {
    return isHidden() ? QString() : text_->text();
}

// One of them may have been pressed just now.
void NoticeBar::ForgetChoices() {
    for (QPushButton* button : buttons_) {
        button->setObjectName(QString());
        button->hide();
        button->deleteLater();
    }
    buttons_.clear();
    acts_.clear();
}

}  // namespace tarvokol
