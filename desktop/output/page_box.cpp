// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/page_box.h"

#include <QPlainTextEdit>
#include <QScrollBar>

#include "core/platform/clipboard.h"
#include "core/platform/platform.h"
#include "core/project/project_state.h"

namespace tarvokol {
namespace {

constexpr int kColumns = 72;  // the report's lines have up to 70
constexpr int kLines = 28;
constexpr double kFontSize = 9;  // points, as in print

QFont PageFont() {
    QFont font("Courier New");
    // Where that font is missing, columns must stand under one another all the same.
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(kFontSize);
    return font;
}

int FrameOf(const QPlainTextEdit& box) {
    return 2 * box.frameWidth() + 2 * static_cast<int>(box.document()->documentMargin());
}

}  // namespace

void MakePageBox(QPlainTextEdit& box) {
    box.setFont(PageFont());
    box.setReadOnly(true);
    // The caret lets the keyboard select a part of the page.
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setLineWrapMode(QPlainTextEdit::NoWrap);
    const QFontMetrics metrics(box.font());
    const int scroll_bar = box.verticalScrollBar()->sizeHint().width();
    box.setMinimumWidth(metrics.horizontalAdvance('0') * kColumns + FrameOf(box) + scroll_bar);
    box.setMinimumHeight(metrics.lineSpacing() * kLines / 2 + FrameOf(box));
}

std::string JoinPages(int first, int last) {
    std::string text;
    for (int page = first; page <= last; ++page) text += OutputBuffers[page];
    return text;
}

void CopyToClipboard(const std::string& text) {
    Platform.TheClipboard->Clear();
    Platform.TheClipboard->SetText(text);
}

}  // namespace tarvokol
