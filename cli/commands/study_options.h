// SPDX-License-Identifier: GPL-3.0-or-later
// What the study commands share: how they are called and the project that they start from.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/line/options.h"
#include "core/headless/headless_platform.h"
#include "core/studies/panel_figures.h"

namespace tarvokol::cli {

struct StudyOptions {
    Options common;        // without its files
    std::string project;   // path of the project to start from
    bool sizes = false;    // suggested sizes, too
    std::string of;        // the figure of a map
    unsigned threads = 0;  // 0: one a core

    // sweep
    std::vector<std::string> vary;
    // table
    std::string rows;
    // risk
    std::vector<std::string> random;
    std::vector<std::string> correlate;
    std::string samples;
    std::string seed;
    bool plain = false;
    std::string samples_out;

    unsigned Threads() const;
};

// Data that a study cannot use; told in one line, exit status 1.
struct DataError {
    std::string text;
};

// The project of a study, read as every FILE is: into a fresh program, with the settings named. Raises
// DataError with what the program says of a file that it refuses or cannot read.
Panel ReadStudyProject(const StudyOptions& options, HeadlessPlatform& host);

// Runs a study command and tells what is wrong, in one line; the exit status.
int RunStudy(const std::function<int()>& command);

// Raises DataError for a path that is no readable regular file.
void RequireReadableFile(const std::string& path);

// A title for pictures: the project's own, else its path.
std::string StudyTitle(const StudyOptions& options);

}  // namespace tarvokol::cli
