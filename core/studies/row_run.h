// SPDX-License-Identifier: GPL-3.0-or-later
// How the rows of a study are calculated: what sweeps and tables share.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/files/csv_reader.h"
#include "core/studies/row_risk.h"
#include "core/studies/study_rows.h"

namespace tarvokol {

// Some rows of a study: by their numbers, or as read from a table.
struct RowPiece {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    std::vector<TableRow> records;
};

// The figures of a row; `with_risk` holds them where probabilities belong to them.
const PanelFigures& FiguresOf(PanelEvaluator& panel, const std::optional<RowRisk>& risk,
                              PanelFigures& with_risk);

class RowSource {
  public:
    virtual ~RowSource() = default;

    // The number of rows, where it is known.
    virtual std::optional<std::uint64_t> Total() const = 0;

    // The next rows; called by one thread at a time.
    virtual std::optional<RowPiece> Next() = 0;

    // Calculates the rows of a piece in their order; called by many threads at once.
    virtual void Work(const RowPiece& piece, PanelEvaluator& panel, RowTaker& taker) const = 0;
};

// Calculates all rows. False if the observer ended it early.
bool RunRows(RowSource& source, const Panel& project, bool sizes, unsigned threads, RowObserver& observer);

}  // namespace tarvokol
