// SPDX-License-Identifier: GPL-3.0-or-later
// The options that the commands share, and the exit statuses.
#pragma once

#include <string>
#include <vector>

namespace tarvokol::cli {

namespace exit_status {
constexpr int Done = 0;
constexpr int Refused = 1;  // a file was refused by a check or failed with a run-time error
constexpr int WrongUsage = 2;
constexpr int NotWritten = 3;  // an output could not be written
}  // namespace exit_status

struct Options {
    std::vector<std::string> files;
    std::string settings;      // configuration file; empty: the built-in values
    std::string output;        // file or folder; empty: standard output as text, "-": as the bytes of a file
    std::string format;        // of standard output or of the files in a folder: an extension without its dot
    bool has_formats = false;  // the command has --format
    bool json = false;
    bool force = false;          // replace existing files
    bool quiet = false;          // no progress line
    bool stdin_project = false;  // the FILE "-" is a project on standard input
    bool null_ended = false;     // paths on standard input end in NUL
    std::string threads;         // to calculate on; empty: one per core
};

// Wrong usage that only shows once the files are known.
struct UsageError {
    std::string text;
};

}  // namespace tarvokol::cli
