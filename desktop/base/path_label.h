// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace tarvokol {

// Shows a path on one line. Where the room is short, its middle is left out: the end is the file's name. The
// tool tip and the screen reader have it whole.
class PathLabel : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    const QString& FullText() const { return full_text_; }
    void SetFullText(const QString& text);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void ShowWhatFits();

    QString full_text_;
};

}  // namespace tarvokol
