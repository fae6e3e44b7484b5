// SPDX-License-Identifier: GPL-3.0-or-later
// Every FILE of the command line starts from a fresh program: the variables of all rooms, room by room, as a
// new process has them. A variable that is added to a room's record is put back with it; a record belongs
// here.
#include "core/files/text_file.h"
#include "core/graphics/TarvoGraf.h"
#include "core/messages/error_classes.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/file_conversion.h"
#include "core/project/preview_record.h"
#include "core/project/project_origin.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/sizing_solver.h"
#include "core/project/working_parameters.h"
#include "core/report/print_engine.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/report/text_browser.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/update_reminder.h"

namespace tarvokol {
namespace {

void ResetCalculation() {
    ProjectRecord = {};
    PreviewRecord = {};
    WorkingParameters = {};
    SizingBlock = {};
    state::Curves = {};
}

}  // namespace

void ResetProgram() {
    AbandonAllFiles();
    ResetCalculation();
    CurrentError = RunTimeError{0, ""};
    state::Titles = {};
    state::History = {};
    state::Folders = {};
    state::Configuration = {};
    UpdateAdvice.clear();
    state::Project = {};
    state::Origin = {};
    state::Conversion = {};
    state::Report = {};
    PrintJob = {};
    ResultsReturn = results_return::Normal;
    BrowseFolder.clear();
    state::Plan = {};
    state::Identity = {};
    SetBuiltInValues();
}

}  // namespace tarvokol
