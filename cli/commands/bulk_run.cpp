// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

#include "cli/line/command_options.h"
#include "cli/line/settings_file.h"
#include "cli/line/standard_input.h"
#include "cli/output/project_json.h"
#include "cli/output/said_lines.h"
#include "core/program/start_up.h"
#include "core/project/lifecycle.h"
#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/studies/ordered_work.h"

namespace tarvokol::cli {
namespace {

constexpr std::size_t kProgressStep = 50;
constexpr std::size_t kFilesAtATime = 8;

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

// What two paths to the same place have in common: where the path leads, and the file that stands there.
std::set<std::string> NamesOfPlace(const std::string& path) {
    std::set<std::string> names;
    std::error_code failure;
    const std::filesystem::path place = std::filesystem::weakly_canonical(path, failure);
    names.insert(failure ? path : place.string());
    struct stat file {};
    if (::stat(path.c_str(), &file) == 0)
        names.insert(std::to_string(file.st_dev) + ':' + std::to_string(file.st_ino));
    return names;
}

}  // namespace

ResultPath PathsOf(const OutputTarget& target) {
    if (!target.ToFile() || target.ToStandardOutput()) return nullptr;
    return [&target](const std::string& file) { return target.PathFor(file); };
}

BulkRun::BulkRun(Options options, HeadlessPlatform& host, const OutputTarget& target)
    : options_(std::move(options)), host_(host), target_(target) {
    options_.files = ExpandFiles(options_);
    target_.RequireRoomFor(options_.files.size());
}

int BulkRun::Run(const FileWork& work) {
    for (const std::string& file : options_.files) {
        Outcome outcome = RunOne(file, work);
        Report(file, outcome);
    }
    return Status();
}

int BulkRun::RunOnThreads(const ValueWork& work, const ResultPath& path) {
    const unsigned threads = ThreadsOf(options_);
    if (threads == 1 || options_.files.size() < 2 || ReadsOwnResults(path)) {
        RunInTurn(work);
        return Status();
    }
    try {
        RunAtOnce(work, threads);
    } catch (const StudyShortage& shortage) {
        Say(shortage.what());
        return exit_status::Refused;
    }
    return Status();
}

void BulkRun::RunInTurn(const ValueWork& work) {
    for (const std::string& file : options_.files) {
        Outcome outcome = WorkOn(file, work);
        HandIn(file, outcome);
    }
}

// Some FILEs at a time: one alone is done sooner than its turn is taken. Nothing is handed in before all threads run.
void BulkRun::RunAtOnce(const ValueWork& work, unsigned threads) {
    struct Piece {
        std::size_t first;
        std::vector<Outcome> outcomes;
    };
    const std::vector<std::string>& files = options_.files;
    std::size_t next = 0;
    OrderedWork<std::size_t, Piece> run(
        [&]() -> std::optional<std::size_t> {
            if (next >= files.size()) return std::nullopt;
            return std::exchange(next, next + kFilesAtATime);
        },
        [&](const std::size_t& first) {
            Piece piece{first, {}};
            const std::size_t end = std::min(files.size(), first + kFilesAtATime);
            piece.outcomes.reserve(end - first);
            for (std::size_t i = first; i < end; ++i) piece.outcomes.push_back(WorkOn(files[i], work));
            return piece;
        });
    const std::size_t pieces = (files.size() + kFilesAtATime - 1) / kFilesAtATime;
    try {
        run.Run(static_cast<unsigned>(std::min<std::size_t>(threads, pieces)), [&](Piece&& piece) {
            for (std::size_t i = 0; i < piece.outcomes.size(); ++i)
                HandIn(files[piece.first + i], piece.outcomes[i]);
            return true;
        });
    } catch (const StudyShortage&) {
        if (!options_.threads.empty()) throw;
        RunInTurn(work);
    }
}

// True if a FILE is read from where the result of another is written.
bool BulkRun::ReadsOwnResults(const ResultPath& path) const {
    if (!path) return false;
    std::set<std::string> read;
    for (const std::string& file : options_.files) read.merge(NamesOfPlace(file));
    return std::any_of(options_.files.begin(), options_.files.end(), [&](const std::string& file) {
        const std::set<std::string> written = NamesOfPlace(path(file));
        return std::any_of(written.begin(), written.end(),
                           [&read](const std::string& name) { return read.count(name) != 0; });
    });
}

void BulkRun::FreshProgram() {
    host_.Messages.Shown.clear();
    ResetProgram();
    ReadConfiguration(options_.settings);
}

void BulkRun::OpenInRecords(const std::string& file, const ProjectDocument& project) {
    FreshProgram();
    ProjectFileName = PreviousFileName = file;
    PutIntoRecords(project);
}

// What the step raises becomes the error of the FILE.
void BulkRun::Attempt(Outcome& outcome, const Step& step) {
    try {
        step();
        return;
    } catch (const RunTimeError& error) {
        outcome.failed = true;
        outcome.error_number = error.number;
        outcome.error_text = error.text;
    } catch (const OutputError& error) {
        outcome.not_written = true;
        outcome.error_number = error.number;
        outcome.error_text = error.text;
    }
    outcome.result = {};
}

BulkRun::Outcome BulkRun::RunOne(const std::string& file, const FileWork& work) {
    Outcome outcome;
    Attempt(outcome, [&] {
        FreshProgram();
        outcome.result = work(file);
    });
    for (const BoxRequest& box : host_.Messages.Shown) outcome.messages.push_back(box.message);
    if (WantsObjects()) outcome.line = ObjectLine(file, outcome);
    return outcome;
}

BulkRun::Outcome BulkRun::WorkOn(const std::string& file, const ValueWork& work) const {
    Outcome outcome;
    Attempt(outcome, [&] { outcome.result = work(file, outcome.messages); });
    if (WantsObjects()) outcome.line = ObjectLine(file, outcome);
    return outcome;
}

// The object is made again where the turn has changed what it says.
void BulkRun::HandIn(const std::string& file, Outcome& outcome) {
    if (outcome.result.hand_in) {
        const bool ok = outcome.result.ok;
        const auto hand_in = std::exchange(outcome.result.hand_in, nullptr);
        Attempt(outcome, [&] { hand_in(outcome.result, outcome.messages); });
        const bool changed = outcome.error_number != 0 || outcome.result.ok != ok;
        if (WantsObjects() && changed) outcome.line = ObjectLine(file, outcome);
    }
    Report(file, outcome);
}

std::string BulkRun::ObjectLine(const std::string& file, const Outcome& outcome) const {
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", outcome.result.ok && outcome.error_number == 0);
    object.Add("messages", outcome.messages);
    if (outcome.error_number != 0) object.Append(ErrorMember(outcome.error_number, outcome.error_text));
    object.Append(outcome.result.keys);
    object.Add("schema", kSchemaVersion);
    return object.Line();
}

void BulkRun::Report(const std::string& file, Outcome& outcome) {
    if (target_.Format() == ".json") {
        try {
            target_.WriteBytes(target_.PathFor(file), outcome.line);
        } catch (const OutputError& error) {
            outcome.not_written = true;
            outcome.error_number = error.number;
            outcome.error_text = error.text;
            outcome.line = ObjectLine(file, outcome);
        }
    }
    any_refused_ = any_refused_ || outcome.failed || !outcome.result.ok;
    any_not_written_ = any_not_written_ || outcome.not_written;
    Tell(file, outcome);
    ShowProgress();
}

void BulkRun::Tell(const std::string& file, const Outcome& outcome) const {
    if (!outcome.result.comment.empty()) SayOf(file, outcome.result.comment);
    if (options_.json) {
        std::cout << outcome.line;
        return;
    }
    for (const std::string& message : outcome.messages) SayOf(file, NativeLineEnds(message));
    if (outcome.error_number != 0) SayOf(file, outcome.error_text + HintAtStandardInput(file));
    if (!target_.ToFile()) std::cout << ForStandardOutput(NativeLineEnds(outcome.result.text));
    std::cout << ForStandardOutput(NativeLineEnds(outcome.result.note));
}

void BulkRun::ShowProgress() {
    ++done_;
    const std::size_t total = options_.files.size();
    if (options_.quiet || total < 2 || ::isatty(STDERR_FILENO) == 0) return;
    if (done_ % kProgressStep != 0 && done_ != total) return;
    std::cerr << '\r' << done_ << '/' << total << (done_ == total ? "\n" : "") << std::flush;
}

int BulkRun::Status() const {
    if (any_not_written_) return exit_status::NotWritten;
    return any_refused_ ? exit_status::Refused : exit_status::Done;
}

bool OpenProject(const std::string& file) {
    ProjectFileName = PathToOpen(file);
    PreviousFileName = ProjectFileName;
    const bool opened = FileOpen();
    if (opened) ProjectFileName = PreviousFileName = file;
    return opened;
}

std::optional<ProjectDocument> DocumentAt(const std::string& file, FileMessages& messages) {
    TextInput input(PathToOpen(file));
    if (ReadProjectMagic(input) != ProjectMagic) {
        messages.emplace_back(kForeignFormat);
        return std::nullopt;
    }
    ProjectDocument document;
    ReadProjectBody(input, document);
    return document;
}

void AddWrittenProject(FileResult& result, const ProjectDocument& project, const std::string& file,
                       const std::string& output, const OutputTarget& target) {
    result.keys.Add("output", output);
    result.keys.Add("project", ProjectJson(project));
    result.keys.Add("units", ProjectUnitsJson(project.unit_system));
    result.hand_in = [&target, file, output, bytes = BytesOfDocument(project)](
                         const FileResult&, const FileMessages&) { target.WriteBytes(output, bytes, file); };
}

}  // namespace tarvokol::cli
