// SPDX-License-Identifier: GPL-3.0-or-later
// The bar of a page's work, and Cancel. Work that is over within a moment shows neither.
#pragma once

#include <QTimer>
#include <QWidget>

class QProgressBar;
class QPushButton;

namespace tarvokol {

class LatestWork;

class WorkBar : public QWidget {
    Q_OBJECT

  public:
    // Its parts are named by the page: "Risk_Progress", "Risk_Cancel". The work outlives the bar.
    WorkBar(LatestWork& work, const QString& page, QWidget* parent);

    // Looks at the work from now until it is done.
    void Watch();

  signals:
    // Cancel was pressed: the work is dropped.
    void Cancelled();

  private:
    void Cancel_Clicked();
    void Progress_Due();

    LatestWork& work_;
    QProgressBar* progress_;
    QPushButton* cancel_;
    QTimer watch_;
};

}  // namespace tarvokol
