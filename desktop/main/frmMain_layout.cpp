// SPDX-License-Identifier: GPL-3.0-or-later
// Where things stand in the main window, in twips of its client area.
#include <QFont>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSvgWidget>
#include <QToolBar>

#include "core/messages/history_log.h"
#include "core/report/report_builder.h"
#include "core/settings/main_settings.h"
#include "desktop/main/frmMain.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kHistoryHeight = 1200;
constexpr int kRoomBelowLogo = 1000;
constexpr int kFirstHistoryItem = 5;
constexpr int kLastHistoryItem = 7;

void PaintHistoryGrey(QWidget& history) {
    QPalette palette = history.palette();
    palette.setColor(QPalette::Base, QColor(192, 192, 192));
    palette.setColor(QPalette::Text, Qt::black);
    if (palette != history.palette()) history.setPalette(palette);
}

}  // namespace

int frmMain::ScaleWidth() const {
    return TwipsOf(centralWidget()->width());
}

int frmMain::ScaleHeight() const {
    return TwipsOf(centralWidget()->height());
}

void ApplyMainWindowSettings(frmMain& form) {
    const bool history = DisplayHistoryWin == 1;
    form.History().setVisible(history);
    for (int item = kFirstHistoryItem; item <= kLastHistoryItem; ++item)
        form.UtilityItem(item).setEnabled(history);
    form.setWindowState(MaxMainMenu == 1 ? Qt::WindowMaximized : Qt::WindowNoState);
    form.Toolbar().setVisible(EnableMainMenuToolbar == 1);
}

void ApplyHistoryFont() {
    QFont font(ToQt(DisplayFontName));
    if (DisplayFontSize > 0) font.setPointSizeF(DisplayFontSize);
    font.setBold(DisplayFontBold != 0);
    font.setItalic(DisplayFontItalic != 0);
    frmMain::Instance().History().setFont(font);
}

void LayoutMainWindow(frmMain& form) {
    QPlainTextEdit& history = form.History();
    PaintHistoryGrey(history);
    history.setGeometry(0, PixelsOf(form.ScaleHeight() - kHistoryHeight), PixelsOf(form.ScaleWidth()),
                        PixelsOf(kHistoryHeight));
    form.Toolbar().setGeometry(0, 0, PixelsOf(form.ScaleWidth()), form.Toolbar().sizeHint().height());
}

// A window smaller than the picture gives negative offsets: the picture's middle stays in view.
void CenterLogo(frmMain& form) {
    QSvgWidget& logo = form.Logo();
    logo.resize(logo.sizeHint());
    const int top = (form.ScaleHeight() - TwipsOf(logo.height()) - kRoomBelowLogo) / 2;
    const int left = form.ScaleWidth() / 2 - TwipsOf(logo.width()) / 2;
    logo.move(PixelsOf(left), PixelsOf(top));
}

// The place is taken before the text, so the right edge trails by what the text changes until the next
// resize.
void PlaceVersionLabel(frmMain& form, QToolBar& toolbar) {
    QLabel& label = form.VersionLabel();
    const int left = form.ScaleWidth() - TwipsOf(label.width());
    label.move(PixelsOf(left), toolbar.isHidden() ? 0 : toolbar.height());
    label.setText(ToQt(VersionString() + " "));
    label.adjustSize();
    toolbar.update();
}

}  // namespace tarvokol
