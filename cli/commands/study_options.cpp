// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_options.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <thread>

#include <fcntl.h>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/output_target.h"
#include "core/files/csv_reader.h"
#include "core/files/descriptor.h"
#include "core/program/start_up.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol::cli {

unsigned StudyOptions::Threads() const {
    return threads > 0 ? threads : std::max(1U, std::thread::hardware_concurrency());
}

Panel ReadStudyProject(const StudyOptions& options, HeadlessPlatform& host) {
    const std::string& path = options.project;
    host.Messages.Shown.clear();
    try {
        ResetProgram();
        ReadConfiguration(options.common.settings);
        if (OpenProject(path)) return {ProjectRecord, ProjectUnits()};
    } catch (const RunTimeError& error) {
        throw DataError{path + ": " + error.text};
    }
    const auto& shown = host.Messages.Shown;
    throw DataError{path + ": " + (shown.empty() ? "is no project" : shown.front().message)};
}

int RunStudy(const std::function<int()>& command) {
    const auto tell = [](const std::string& text, int status) {
        std::cerr << text << '\n';
        return status;
    };
    try {
        return command();
    } catch (const StudyRefusal& refusal) {
        throw UsageError{refusal.what()};
    } catch (const DataError& error) {
        return tell(error.text, exit_status::Refused);
    } catch (const TableFault& fault) {
        return tell(fault.what(), exit_status::Refused);
    } catch (const OutputError& error) {
        return tell(error.text, exit_status::NotWritten);
    } catch (const RunTimeError& error) {
        return tell(error.text, exit_status::NotWritten);
    } catch (const std::bad_alloc&) {
        return tell("out of memory: take fewer samples", exit_status::Refused);
    }
}

void RequireReadableFile(const std::string& path) {
    try {
        const Descriptor file(path, O_RDONLY);
    } catch (const RunTimeError& error) {
        throw DataError{path + ": " + error.text};
    }
}

std::string StudyTitle(const StudyOptions& options) {
    return ProjectTitle.empty() ? options.project : ProjectTitle;
}

}  // namespace tarvokol::cli
