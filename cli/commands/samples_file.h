// SPDX-License-Identifier: GPL-3.0-or-later
// Where risk writes all its samples, beside the summary.
#pragma once

#include <memory>
#include <string>

#include "cli/line/options.h"
#include "cli/output/row_sink.h"

namespace tarvokol::cli {

class SamplesFile {
  public:
    // `path`: a CSV file, "-" for standard output, or nothing. Raises UsageError for another extension and for a place that the
    // summary takes, OutputError for a file that is not to be replaced: one that stands there, without --force, and one that the
    // command reads.
    SamplesFile(std::string path, const Options& options);

    bool IsAsked() const { return !path_.empty(); }

    // Raises OutputError.
    std::unique_ptr<RowSink> Open() const;

  private:
    std::string path_;
    bool force_;
};

}  // namespace tarvokol::cli
