// SPDX-License-Identifier: GPL-3.0-or-later
// A line above the pages that tells something and offers what can be done, without stopping anything.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tarvokol {

class NoticeBar : public QFrame {
    Q_OBJECT

  public:
    explicit NoticeBar(QWidget* parent = nullptr);

    struct Choice {
        QString caption;
        std::function<void()> act;  // after which the notice goes
    };

    // Takes the place of the one before. The buttons are named "Notice_0", "Notice_1" ...
    void Show(const QString& text, const std::vector<Choice>& choices = {});
    void Dismiss();
    QString Text() const;

  private:
    void Choice_Clicked();
    void ForgetChoices();

    QHBoxLayout* layout_;
    QLabel* text_;
    std::vector<QPushButton*> buttons_;
    std::vector<std::function<void()>> acts_;
};

}  // namespace tarvokol
