// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/qt_message_box.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QShortcut>
#include <algorithm>
#include <vector>

#include "core/platform/help_viewer.h"
#include "core/platform/platform.h"
#include "core/program/program_help.h"
#include "qt/session/message_box_style.h"
#include "qt/session/owner_window.h"
#include "qt/session/qt_text.h"

namespace tarvokol {

namespace {

// Room for the buttons and the icon of a title bar.
constexpr int kTitleBarControls = 140;

// A short message must not cut off the title, which tells what kind of fault it is about.
void MakeRoomForTitle(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr) return;
    QFont bold = box.font();
    bold.setBold(true);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + kTitleBarControls;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

// Words of its own on the buttons, which keep their order and their keys.
void NameButtons(QMessageBox& box, const BoxRequest& request) {
    const std::vector<QMessageBox::StandardButton> buttons = OrderOfButtons(request.style);
    for (std::size_t i = 0; i < std::min(buttons.size(), request.captions.size()); ++i)
        if (!request.captions[i].empty()) box.button(buttons[i])->setText(ToQt(request.captions[i]));
}

// F1 opens the topic of a box that has one.
void OfferHelp(QMessageBox& box, const BoxRequest& request) {
    if (request.help_file.empty() || request.context == 0) return;
    auto* help_key = new QShortcut(QKeySequence(Qt::Key_F1), &box);
    QObject::connect(help_key, &QShortcut::activated, &box, [&request] {
        Platform.Help->ShowTopic(request.help_file, HelpTopicOfContext(request.context));
    });
}

}  // namespace

int QtMessageBox::Show(const BoxRequest& request) {
    QMessageBox box(IconOfStyle(request.style), ToQt(request.title),
                    ToQt(request.message).replace("\r\n", "\n"), ButtonsOfStyle(request.style),
                    OwnerWindow());
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(DefaultButtonOfStyle(request.style));
    NameButtons(box, request);
    MakeRoomForTitle(box);
    OfferHelp(box, request);
    return ResultOfButton(static_cast<QMessageBox::StandardButton>(box.exec()));
}

}  // namespace tarvokol
