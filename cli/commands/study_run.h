// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a study: calculated on all cores, written in order, never more than a few thousand of them at a
// time in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/commands/study_base.h"
#include "cli/output/row_sink.h"
#include "cli/output/study_rows.h"
#include "core/files/csv_reader.h"

namespace tarvokol::cli {

// Some rows of a study: by their numbers, or as read from a table.
struct StudyPiece {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    std::vector<TableRow> rows;
};

// Takes a row: the cells in front of the figures, and the figures.
using RowTaker =
    std::function<void(std::span<const LeadingCell* const> leading, const PanelFigures& figures)>;

// Where the rows of a study come from.
class RowSource {
  public:
    static constexpr std::uint64_t kRowsAPiece = 2048;

    virtual ~RowSource() = default;
    virtual std::vector<LeadingColumn> Columns() const = 0;

    // The number of rows, where it is known.
    virtual std::optional<std::uint64_t> Total() const = 0;

    // The next rows; called by one thread at a time.
    virtual std::optional<StudyPiece> Next() = 0;

    // Calculates the rows of a piece in order; called by many threads at once.
    virtual void Work(const StudyPiece& piece, PanelEvaluator& panel, const RowTaker& take) const = 0;
};

// Writes the rows of the source as CSV, JSON Lines or a workbook. Returns the exit status. Raises UsageError,
// TableFault, OutputError.
int WriteRows(RowSource& source, const RowJob& job, const RowTarget& target);

// Hands the rows to the taker in order, in the calling thread: for pictures.
void CollectRows(RowSource& source, const RowJob& job, const RowTaker& take);

}  // namespace tarvokol::cli
