// SPDX-License-Identifier: GPL-3.0-or-later
// The run of a command over its FILEs: a fresh program for each, results and messages to the right streams,
// the exit status of the whole.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/line/options.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "core/headless/headless_platform.h"
#include "core/project/project_document.h"

namespace tarvokol::cli {

// What a command hands back for one FILE.
struct FileResult {
    bool ok = true;
    JsonMembers keys;     // added to the object after "file", "ok" and "messages"
    std::string text;     // for people, where the result goes to standard output
    std::string note;     // for people, wherever it goes
    std::string comment;  // beside the result, on standard error
};

// The work of a command on one FILE, which is given as the path. It reads the project itself.
using FileWork = std::function<FileResult(const std::string& file)>;

class BulkRun {
  public:
    // Reads the FILE list where `-` asks for it; raises UsageError if that fails, or if the target takes
    // fewer FILEs. The target of format ".json" receives the JSON object of each FILE, too.
    BulkRun(Options options, HeadlessPlatform& host, const OutputTarget& target);

    // The results of several projects follow one another on standard output.
    bool ProjectsGoTogether() const { return options_.files.size() > 1 && target_.IsOneTable(); }

    // Runs the work on every FILE in turn; returns the exit status.
    int Run(const FileWork& work);

  private:
    struct Outcome {
        FileResult result;
        bool failed = false;  // run-time error
        bool not_written = false;
        int error_number = 0;
        std::string error_text;
    };

    Outcome RunOne(const std::string& file, const FileWork& work);
    std::string ObjectLine(const std::string& file, const Outcome& outcome) const;
    void Report(const std::string& file, const Outcome& outcome);
    void ShowProgress(std::size_t done) const;

    Options options_;
    HeadlessPlatform& host_;
    const OutputTarget& target_;
    bool any_refused_ = false;
    bool any_not_written_ = false;
};

// Opens a project as the program does; false if the file is of another format.
bool OpenProject(const std::string& file);

// The project of a file as a value, without opening it; nothing if the file is of another format.
std::optional<ProjectDocument> DocumentAt(const std::string& file);

}  // namespace tarvokol::cli
