// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/path_label.h"

#include <QEvent>

namespace tarvokol {

void PathLabel::SetFullText(const QString& text) {
    full_text_ = text;
    setToolTip(text.toHtmlEscaped());
    setAccessibleName(text);
    ShowWhatFits();
}

void PathLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    ShowWhatFits();
}

void PathLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) ShowWhatFits();
}

void PathLabel::ShowWhatFits() {
    setText(fontMetrics().elidedText(full_text_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace tarvokol
