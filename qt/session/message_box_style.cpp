// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/message_box_style.h"

#include "core/platform/message_box.h"

namespace tarvokol {
namespace {

constexpr int kButtonsMask = 0xF;
constexpr int kIconMask = 0xF0;
constexpr int kSecondButtonDefault = 256;

enum ButtonSet { OkOnly = 0, YesNoCancel = 3, YesNo = 4, RetryCancel = 5 };

}  // namespace

QMessageBox::StandardButtons ButtonsOfStyle(int style) {
    switch (style & kButtonsMask) {
        case YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
        default:
            return QMessageBox::Ok;
    }
}

std::vector<QMessageBox::StandardButton> OrderOfButtons(int style) {
    switch (style & kButtonsMask) {
        case YesNoCancel:
            return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        case YesNo:
            return {QMessageBox::Yes, QMessageBox::No};
        case RetryCancel:
            return {QMessageBox::Retry, QMessageBox::Cancel};
        default:
            return {QMessageBox::Ok};
    }
}

QMessageBox::Icon IconOfStyle(int style) {
    switch (style & kIconMask) {
        case 16:
            return QMessageBox::Critical;
        case 32:
            return QMessageBox::Question;
        case 48:
            return QMessageBox::Warning;
        case 64:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButton DefaultButtonOfStyle(int style) {
    const bool second = (style & kSecondButtonDefault) != 0;
    switch (style & kButtonsMask) {
        case YesNoCancel:
        case YesNo:
            return second ? QMessageBox::No : QMessageBox::Yes;
        case RetryCancel:
            return second ? QMessageBox::Cancel : QMessageBox::Retry;
        default:
            return QMessageBox::Ok;
    }
}

int ResultOfButton(QMessageBox::StandardButton button) {
    switch (button) {
        case QMessageBox::Yes:
            return box_result::Yes;
        case QMessageBox::No:
            return box_result::No;
        case QMessageBox::Retry:
            return box_result::Retry;
        case QMessageBox::Ok:
            return box_result::Ok;
        default:
            return box_result::Cancel;
    }
}

}  // namespace tarvokol
