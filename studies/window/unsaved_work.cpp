// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/unsaved_work.h"

#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "studies/model/study_model.h"

namespace tarvokol {

UnsavedWork::UnsavedWork(StudyModel& model, QObject* parent) : QObject(parent), model_(model) {
    constexpr int kAfterLastChange = 1000;  // milliseconds
    soon_.setSingleShot(true);
    soon_.setInterval(kAfterLastChange);
    connect(&soon_, &QTimer::timeout, this, &UnsavedWork::KeepNow);
    model_.Tell([this] { Model_Changed(); });
}

void UnsavedWork::Model_Changed() {
    if (model_.IsChanged())
        soon_.start();
    else
        GiveUp();
}

void UnsavedWork::KeepNow() {
    soon_.stop();
    if (!model_.IsChanged()) return GiveUp();
    PutIntoRecords(model_.Document());
    ProjectFileName = model_.Path().empty() ? "Untitled" : model_.Path();
    MarkProjectChanged();
    is_kept_ = true;
}

void UnsavedWork::GiveUp() {
    soon_.stop();
    if (is_kept_) DropRecoveryCopy();
    is_kept_ = false;
    MarkProjectNew();
}

}  // namespace tarvokol
