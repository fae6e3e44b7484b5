// SPDX-License-Identifier: GPL-3.0-or-later
// The run of a command over its FILEs: a fresh program for each, or values on all cores; results and messages to the
// right streams in the order of the FILEs, the exit status of the whole.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/line/options.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "core/headless/headless_platform.h"
#include "core/project/project_document.h"

namespace tarvokol::cli {

// The texts that the program would have shown in message boxes, in order.
using FileMessages = std::vector<std::string>;

// What a command hands back for one FILE.
struct FileResult {
    bool ok = true;
    JsonMembers keys;     // added to the object after "file", "ok" and "messages"
    std::string text;     // for people, where the result goes to standard output
    std::string note;     // for people, wherever it goes
    std::string comment;  // beside the result, on standard error

    // What is left to do when the FILE's turn has come: files are written, and what depends on the FILEs before it is
    // settled. Called by one thread, with this result and its messages; it may still refuse, and raises OutputError.
    std::function<void(FileResult& result, FileMessages& messages)> hand_in{};
};

// The work of a command on one FILE, which is given as the path. It reads the project itself.
using FileWork = std::function<FileResult(const std::string& file)>;

// The same over values, called by many threads at once: it reads no record of the program and adds what the program would
// have said to the messages.
using ValueWork = std::function<FileResult(const std::string& file, FileMessages& messages)>;

// The file that the result of a FILE is written to.
using ResultPath = std::function<std::string(const std::string& file)>;

// Where the results go that a target names by their FILEs; nothing where they go to no file.
ResultPath PathsOf(const OutputTarget& target);

class BulkRun {
  public:
    // Reads the FILE list where `-` asks for it; raises UsageError if that fails, or if the target takes
    // fewer FILEs. The target of format ".json" receives the JSON object of each FILE, too.
    BulkRun(Options options, HeadlessPlatform& host, const OutputTarget& target);

    // The results of several projects follow one another on standard output.
    bool ProjectsGoTogether() const { return options_.files.size() > 1 && target_.IsOneTable(); }

    // Runs the work on every FILE in turn; returns the exit status.
    int Run(const FileWork& work);

    // Runs the work on as many threads as the options say, with the answers of one. `path` is asked where results go to
    // files: a result that one of the FILEs is read from stands before that FILE is read.
    int RunOnThreads(const ValueWork& work, const ResultPath& path);

    // Puts the program into the state in which each FILE finds it: fresh, with the settings read.
    void FreshProgram();

    // The same with a project open that was read as a value.
    void OpenInRecords(const std::string& file, const ProjectDocument& project);

  private:
    struct Outcome {
        FileResult result;
        FileMessages messages;
        std::string line;     // the object, where one is wanted
        bool failed = false;  // run-time error
        bool not_written = false;
        int error_number = 0;
        std::string error_text;
    };

    using Step = std::function<void()>;

    static void Attempt(Outcome& outcome, const Step& step);
    Outcome RunOne(const std::string& file, const FileWork& work);
    Outcome WorkOn(const std::string& file, const ValueWork& work) const;
    void HandIn(const std::string& file, Outcome& outcome);
    void RunInTurn(const ValueWork& work);
    void RunAtOnce(const ValueWork& work, unsigned threads);
    bool ReadsOwnResults(const ResultPath& path) const;
    bool WantsObjects() const { return options_.json || target_.Format() == ".json"; }
    std::string ObjectLine(const std::string& file, const Outcome& outcome) const;
    void Report(const std::string& file, Outcome& outcome);
    void Tell(const std::string& file, const Outcome& outcome) const;
    void ShowProgress();
    int Status() const;

    Options options_;
    HeadlessPlatform& host_;
    const OutputTarget& target_;
    std::size_t done_ = 0;
    bool any_refused_ = false;
    bool any_not_written_ = false;
};

// Opens a project as the program does; false if the file is of another format.
bool OpenProject(const std::string& file);

// The project of a file as a value, without opening it; nothing, with its message, if the file is of another format.
std::optional<ProjectDocument> DocumentAt(const std::string& file, FileMessages& messages);

// The keys of a project that is written to `output`, and its writing once the FILE that it is made of has its turn.
void AddWrittenProject(FileResult& result, const ProjectDocument& project, const std::string& file,
                       const std::string& output, const OutputTarget& target);

}  // namespace tarvokol::cli
