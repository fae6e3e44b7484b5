// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmUpdate.h"

#include <QCursor>

#include "core/platform/platform.h"
#include "core/platform/shell.h"
#include "core/program/start_up.h"
#include "core/report/report_builder.h"
#include "core/settings/program_name.h"
#include "core/settings/update_reminder.h"
#include "desktop/base/form_services.h"
#include "qt/session/qt_text.h"
#include "ui_frmUpdate.h"

namespace tarvokol {
namespace {

// Byte order blue, green, red.
constexpr int32_t kBlack = 0;
constexpr int32_t kBlue = 0xFF0000;
constexpr int32_t kRed = 255;

constexpr int kTimerMilliseconds = 100;

QColor ColourOf(int32_t bgr) {
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

// The colours of the address are fixed, so the paper below it is fixed, too, whatever the desktop's theme.
void UseWhitePaper(QWidget& paper) {
    QPalette palette = paper.palette();
    palette.setColor(QPalette::Window, Qt::white);
    paper.setPalette(palette);
}

}  // namespace

frmUpdate::frmUpdate() : ui_(std::make_unique<Ui::frmUpdate>()), Timer1(new QTimer(this)) {
    ui_->setupUi(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(kTimerMilliseconds);
    UseWhitePaper(*ui_->Picture1);
    // Enter closes the reminder; it does not open the page.
    ui_->Command1->setFocus();
    Connect();
}

frmUpdate::~frmUpdate() = default;

void frmUpdate::Connect() {
    connect(ui_->Command1, &QPushButton::clicked, this, &frmUpdate::Command1_Click);
    connect(ui_->lblURL, &LinkLabel::PointerMoved, this, &frmUpdate::lblURL_MouseMove);
    connect(ui_->lblURL, &LinkLabel::ButtonDown, this, &frmUpdate::lblURL_MouseDown);
    connect(ui_->lblURL, &LinkLabel::ButtonUp, this, &frmUpdate::lblURL_MouseUp);
    connect(ui_->lblURL, &LinkLabel::Clicked, this, &frmUpdate::lblURL_Click);
    connect(Timer1, &QTimer::timeout, this, &frmUpdate::Timer1_Timer);
}

void frmUpdate::Form_Load() {
    SetLink(kBlack, false);
    ui_->lblUpdate->setText(ToQt(LoadUpdateText()));
    setWindowTitle(windowTitle() + " for " + ToQt(ExeNameUpper));
    ui_->lblURL->setText(ToQt(UpdatePageAddress));
    ui_->lblURL->setAccessibleName(ToQt(UpdatePageAddress));
    ui_->lblInfo->setText(ToQt(UpdateInfoText(VersionString())));
}

void frmUpdate::Form_Unload() {
    CloseUpdateReminder(ui_->chkShow->isChecked());
}

void frmUpdate::Command1_Click() {
    Unload();
}

void frmUpdate::lblURL_MouseMove() {
    if (link_colour_ != kBlack) return;
    SetLink(kBlue, true);
    Timer1->start();
}

void frmUpdate::lblURL_MouseDown() {
    if (link_colour_ == kBlue) SetLink(kRed, true);
}

void frmUpdate::lblURL_MouseUp() {
    if (link_colour_ == kRed) SetLink(kBlue, true);
}

void frmUpdate::lblURL_Click() {
    Platform.TheShell->OpenDocument(FromQt(ui_->lblURL->text()), "");
}

void frmUpdate::Timer1_Timer() {
    if (PointerIsOverPicture()) return;
    SetLink(kBlack, false);
    Timer1->stop();
}

void frmUpdate::SetLink(int32_t colour, bool underline) {
    link_colour_ = colour;
    QPalette palette = ui_->lblURL->palette();
    palette.setColor(QPalette::WindowText, ColourOf(colour));
    ui_->lblURL->setPalette(palette);
    QFont font = ui_->lblURL->font();
    font.setUnderline(underline);
    ui_->lblURL->setFont(font);
}

bool frmUpdate::PointerIsOverPicture() const {
    const QPoint at = ui_->Picture1->mapFromGlobal(QCursor::pos());
    return at.x() >= 0 && at.y() >= 0 && at.x() <= ui_->Picture1->width() &&
           at.y() <= ui_->Picture1->height();
}

}  // namespace tarvokol
