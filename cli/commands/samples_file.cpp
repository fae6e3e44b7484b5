// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/samples_file.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "cli/line/standard_input.h"
#include "cli/output/output_target.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

// The summary goes to standard output with --json, too, whatever file it is written to.
bool SummaryOnStandardOutput(const Options& options) {
    return options.json || options.output.empty() || options.output == kStandardStream;
}

}  // namespace

SamplesFile::SamplesFile(std::string path, const Options& options)
    : path_(std::move(path)), force_(options.force) {
    if (path_.empty()) return;
    if (path_ == kStandardStream) {
        if (SummaryOnStandardOutput(options))
            throw UsageError{
                "--samples-out -: standard output takes the samples or the summary; write the summary "
                "to a file with -o"};
        return;
    }
    if (!EqualIgnoringCase(std::filesystem::path(path_).extension().string(), ".csv"))
        throw UsageError{"--samples-out: the extension must be .csv"};
    // The summary is no CSV, so that only a link makes one file of both.
    std::error_code failure;
    if (!options.output.empty() && std::filesystem::equivalent(path_, options.output, failure))
        throw UsageError{"--samples-out: " + path_ + " is the file of -o"};
    RefuseExisting(path_, force_);
    RefuseInput(path_, options.files);
    if (!options.settings.empty()) RefuseInput(path_, {options.settings});
}

std::unique_ptr<RowSink> SamplesFile::Open() const {
    return path_ == kStandardStream ? OpenStandardOutputSink() : OpenFileSink(path_, force_);
}

}  // namespace tarvokol::cli
