// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"

#include <iostream>
#include <utility>

#include <unistd.h>

#include "cli/line/settings_file.h"
#include "cli/line/standard_input.h"
#include "cli/output/said_lines.h"
#include "core/program/start_up.h"
#include "core/project/lifecycle.h"
#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

constexpr std::size_t kProgressStep = 50;

// The paths on standard input, one per line, or each up to its NUL.
std::vector<std::string> ListedFiles(bool null_ended) {
    std::vector<std::string> listed;
    for (std::string path; std::getline(std::cin, path, null_ended ? '\0' : '\n');) {
        if (!null_ended && path.find('\0') != std::string::npos)
            throw UsageError{"-: the list of files holds NUL characters; give -0 for a list that they end"};
        if (!null_ended && !path.empty() && path.back() == '\r') path.pop_back();
        if (listed.empty() && IsProjectStamp(path))
            throw UsageError{
                "-: standard input holds a project, no list of files; give --stdin-project to read it as "
                "one"};
        if (!path.empty()) listed.push_back(std::move(path));
    }
    if (std::cin.bad()) throw UsageError{"-: the list of files cannot be read"};
    return listed;
}

// `-` alone stands for the paths on standard input.
std::vector<std::string> ExpandFiles(const Options& options) {
    const bool listed = options.files.size() == 1 && options.files.front() == kStandardStream;
    if (listed && !options.stdin_project) return ListedFiles(options.null_ended);
    if (options.null_ended)
        throw UsageError{"-0: belongs to a list of files on standard input; name - as the FILE"};
    return options.files;
}

std::string NativeLineEnds(const std::string& text) {
    return ReplaceAll(text, CrLf, "\n");
}

}  // namespace

BulkRun::BulkRun(Options options, HeadlessPlatform& host, const OutputTarget& target)
    : options_(std::move(options)), host_(host), target_(target) {
    options_.files = ExpandFiles(options_);
    target_.RequireRoomFor(options_.files.size());
}

int BulkRun::Run(const FileWork& work) {
    std::size_t done = 0;
    for (const std::string& file : options_.files) {
        Report(file, RunOne(file, work));
        ShowProgress(++done);
    }
    if (any_not_written_) return exit_status::NotWritten;
    return any_refused_ ? exit_status::Refused : exit_status::Done;
}

BulkRun::Outcome BulkRun::RunOne(const std::string& file, const FileWork& work) {
    Outcome outcome;
    host_.Messages.Shown.clear();
    try {
        ResetProgram();
        ReadConfiguration(options_.settings);
        outcome.result = work(file);
    } catch (const RunTimeError& error) {
        outcome.failed = true;
        outcome.error_number = error.number;
        outcome.error_text = error.text;
    } catch (const OutputError& error) {
        outcome.not_written = true;
        outcome.error_number = error.number;
        outcome.error_text = error.text;
    }
    return outcome;
}

std::string BulkRun::ObjectLine(const std::string& file, const Outcome& outcome) const {
    std::vector<std::string> messages;
    for (const BoxRequest& box : host_.Messages.Shown) messages.push_back(box.message);
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", outcome.result.ok && outcome.error_number == 0);
    object.Add("messages", messages);
    if (outcome.error_number != 0) object.Append(ErrorMember(outcome.error_number, outcome.error_text));
    object.Append(outcome.result.keys);
    object.Add("schema", kSchemaVersion);
    return object.Line();
}

void BulkRun::Report(const std::string& file, const Outcome& reported) {
    Outcome outcome = reported;
    if (target_.Format() == ".json") {
        try {
            target_.WriteBytes(target_.PathFor(file), ObjectLine(file, outcome));
        } catch (const OutputError& error) {
            outcome.not_written = true;
            outcome.error_number = error.number;
            outcome.error_text = error.text;
        }
    }
    any_refused_ = any_refused_ || outcome.failed || !outcome.result.ok;
    any_not_written_ = any_not_written_ || outcome.not_written;
    if (!outcome.result.comment.empty()) SayOf(file, outcome.result.comment);
    if (options_.json) {
        std::cout << ObjectLine(file, outcome);
        return;
    }
    for (const BoxRequest& box : host_.Messages.Shown) SayOf(file, NativeLineEnds(box.message));
    if (outcome.error_number != 0) SayOf(file, outcome.error_text + HintAtStandardInput(file));
    if (!target_.ToFile()) std::cout << ForStandardOutput(NativeLineEnds(outcome.result.text));
    std::cout << ForStandardOutput(NativeLineEnds(outcome.result.note));
}

void BulkRun::ShowProgress(std::size_t done) const {
    const std::size_t total = options_.files.size();
    if (options_.quiet || total < 2 || ::isatty(STDERR_FILENO) == 0) return;
    if (done % kProgressStep != 0 && done != total) return;
    std::cerr << '\r' << done << '/' << total << (done == total ? "\n" : "") << std::flush;
}

bool OpenProject(const std::string& file) {
    ProjectFileName = PathToOpen(file);
    PreviousFileName = ProjectFileName;
    const bool opened = FileOpen();
    if (opened) ProjectFileName = PreviousFileName = file;
    return opened;
}

std::optional<ProjectDocument> DocumentAt(const std::string& file) {
    TextInput input(PathToOpen(file));
    ProjectDocument document;
    if (!ReadProject(input, document)) return std::nullopt;
    return document;
}

}  // namespace tarvokol::cli
