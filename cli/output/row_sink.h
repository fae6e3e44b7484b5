// SPDX-License-Identifier: GPL-3.0-or-later
// Where the text of a long result goes, piece by piece.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/line/options.h"

namespace tarvokol::cli {

class RowSink {
  public:
    virtual ~RowSink() = default;

    // False where nobody reads on: a closed pipe, which is no failure. Raises OutputError.
    virtual bool Write(std::string_view text) = 0;

    // All is written; what is not finished leaves no file behind.
    virtual void Finish() = 0;
};

// What the options say of the rows' place and form.
class RowTarget {
  public:
    enum KindOfRows { Csv, JsonLines, Workbook, Picture };

    // Raises UsageError for an extension or a format that is none, and OutputError for a file that is not to
    // be replaced: one that stands there, without --force, and one that the command reads, the FILEs and `also_read`.
    explicit RowTarget(const Options& options, const std::vector<std::string>& also_read = {});

    KindOfRows Kind() const { return kind_; }
    bool IsDrawn() const { return kind_ == Workbook || kind_ == Picture; }  // only a `Drawing` writes it

    // Lets `write` make the workbook or the picture in the file, or in one whose bytes go to standard output.
    void WriteDrawn(const std::function<void(const std::string&)>& write) const;

    std::unique_ptr<RowSink> Open() const;

  private:
    std::string path_;  // empty: standard output
    bool force_;
    std::string extension_;  // of a file that goes to standard output
    KindOfRows kind_ = Csv;
};

// Raises OutputError for a folder, and for a file that stands there and is not to be replaced.
void RefuseExisting(const std::string& path, bool force);

// A sink into standard output.
std::unique_ptr<RowSink> OpenStandardOutputSink();

// A sink into a file. Raises OutputError for one that stands there and is not to be replaced, at the end as well.
std::unique_ptr<RowSink> OpenFileSink(const std::string& path, bool force);

}  // namespace tarvokol::cli
