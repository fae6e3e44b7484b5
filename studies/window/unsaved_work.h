// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the studies' unsaved project as the main program keeps its own, so that its next start offers what a crash or the
// end of the session has left behind.
#pragma once

#include <QObject>
#include <QTimer>

namespace tarvokol {

class StudyModel;

class UnsavedWork : public QObject {
    Q_OBJECT

  public:
    explicit UnsavedWork(StudyModel& model, QObject* parent = nullptr);

    // Keeps the project now if it has unsaved changes; else takes the copy away.
    void KeepNow();

    // The user does not want it.
    void GiveUp();

  private:
    void Model_Changed();

    StudyModel& model_;
    QTimer soon_;
    bool is_kept_ = false;
};

}  // namespace tarvokol
