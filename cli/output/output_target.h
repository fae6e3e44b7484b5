// SPDX-License-Identifier: GPL-3.0-or-later
// Where a result goes: standard output, one file, or one file per project in a folder.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "cli/line/options.h"
#include "core/files/file_replacement.h"

namespace tarvokol::cli {

// The output of one FILE could not be written; reported as the run-time error it stands for.
struct OutputError {
    int number;
    std::string text;
};

class OutputTarget {
  public:
    // `extensions` are the formats of the command, the first being the one that a folder receives; an empty
    // list takes any name. Raises UsageError for another extension, for one output file and several FILEs,
    // and for a standard output that cannot take the format.
    OutputTarget(const Options& options, const std::vector<std::string>& extensions);

    // The result goes to a file, or to standard output as the bytes of a file.
    bool ToFile() const { return !output_.empty(); }

    bool ToStandardOutput() const { return standard_output_; }

    // Lower-case extension that chooses the format, with its dot; empty for standard output and where any
    // name is taken. A file of JSON Lines has the format ".json" under each of its extensions.
    const std::string& Format() const { return format_; }

    // True for a format that only a `Drawing` writes.
    bool IsDrawn() const;

    // The results of all projects follow one another on standard output.
    bool IsOneTable() const;

    // Raises UsageError for more than one project where there is one output file.
    void RequireRoomFor(std::size_t projects) const;

    // Name of the file that takes the result of a project. In a folder it is the project's name with the
    // format's extension, or `kept_name` where one is given.
    std::string PathFor(const std::string& project, const std::string& kept_name = "") const;

    // Makes the folder of the files. Raises OutputError if the file exists and is not to be replaced, or is one that the
    // command reads.
    void Prepare(const std::string& path) const;

    // Writes through `write`, which is given a file beside the path that takes its place when it is whole. Raises OutputError
    // for a run-time error in it, and for a file that exists, by then or from the beginning, and is not to be replaced.
    void Write(const std::string& path, const std::function<void(const std::string&)>& write) const;

    // Writes a file of these bytes; as a copy of another file it gives nobody more rights than that one does.
    void WriteBytes(const std::string& path, const std::string& bytes, const std::string& copy_of = "") const;

  private:
    void Place(const std::string& path, const std::string& copy_of,
               const std::function<void(FileReplacement&)>& fill) const;
    void ChooseFormat(const Options& options, const std::vector<std::string>& extensions);
    void MakeFolder() const;

    std::string output_;
    bool force_;
    bool standard_output_ = false;
    bool folder_ = false;
    std::string format_;
    std::string extension_;                // of the files of a folder
    std::vector<std::string> inputs_;      // files that no result replaces
    mutable std::set<std::string> taken_;  // the files of the folder that hold a result of this run
};

// Raises OutputError for a path under which one of the files that the command reads is found.
void RefuseInput(const std::string& path, const std::vector<std::string>& inputs);

// How a file that stands in an output's place is dealt with.
ReplacementRules RulesOf(bool force);

// Does a step towards the file at `path`; a run-time error in it becomes the OutputError that names the file.
void WriteTowards(const std::string& path, const std::function<void()>& step);

// Lets `write` make a file of that extension and sends its bytes to standard output. Raises OutputError.
void WriteToStandardOutput(const std::string& extension,
                           const std::function<void(const std::string&)>& write);

}  // namespace tarvokol::cli
