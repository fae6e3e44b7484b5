// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a sweep or a table on their way out: text made on all cores, workbooks, progress.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/commands/study_base.h"
#include "cli/output/progress_bar.h"
#include "cli/output/row_sink.h"
#include "cli/output/study_rows.h"
#include "core/studies/study_rows.h"

namespace tarvokol::cli {

// Makes the cells beside a row's figures, for one thread; they hold until the next row.
class LeadingCells {
  public:
    virtual ~LeadingCells() = default;
    virtual std::span<const LeadingCell* const> Of(const StudyRow& row) = 0;
};

// A study whose rows are to be written: its leading columns, the number of its rows where it is known, and how it runs.
struct RowStudy {
    std::vector<LeadingColumn> columns;
    bool is_table = false;  // brings columns of its own along
    bool goes_on = false;   // what another part has begun: a text has no header
    std::optional<std::uint64_t> total;
    std::function<std::unique_ptr<LeadingCells>()> cells;
    std::function<bool(RowObserver&)> run;
};

// Writes the rows of the study as CSV, JSON Lines or a workbook. Returns the exit status. Raises UsageError,
// TableFault, OutputError, and what the study refuses.
int WriteRows(const RowStudy& study, const RowJob& job, const RowTarget& target);

// The exit status of a study of which so many rows were refused.
int StatusOfRows(std::uint64_t refused);

// Hands the rows to a function in their order, with a progress line, and counts those that were refused.
class CollectedRows : public RowsInOrder {
  public:
    CollectedRows(bool quiet, std::optional<std::uint64_t> total, std::function<void(const StudyRow&)> take);
    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override;

    std::uint64_t Refused() const { return refused_; }

  private:
    ProgressBar bar_;
    std::uint64_t refused_ = 0;
};

}  // namespace tarvokol::cli
