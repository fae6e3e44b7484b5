// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a sweep or a table: calculated on all cores, handed over in their order, never more than a few thousand of
// them at a time in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "core/files/csv_reader.h"
#include "core/studies/panel_figures.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

// Rows that one thread calculates at a time.
constexpr std::uint64_t kRowsAPiece = 2048;

// A panel of a study: what was set, and what came of it. Holds for the moment in which it is handed over.
struct StudyRow {
    std::uint64_t number;            // from 0, among all rows of the study
    std::span<const double> values;  // of a sweep's axes or a table's fields, in the order of the request
    std::span<const std::uint64_t> places;  // of a sweep: the number of each value on its axis, from 0
    const TableRow* record;                 // of a table: the row as it was read; else nullptr
    const PanelFigures& figures;
};

// Takes the rows of one piece in their order, in the thread that calculates them.
class RowTaker {
  public:
    virtual ~RowTaker() = default;
    virtual void Take(const StudyRow& row) = 0;
};

// Takes the rows of a study. What an observer or a taker raises ends the study and reaches whoever runs it.
class RowObserver : public StudyObserver {
  public:
    // Makes what takes the next `count` rows. Asked by many threads at once.
    virtual std::unique_ptr<RowTaker> Begin(std::uint64_t count) = 0;

    // A piece is calculated; reported in the order of the rows, in the thread that runs the study. False ends the study
    // early.
    virtual bool End(RowTaker& taker) = 0;
};

// Hands the rows to a function, in their order and in the thread that runs the study. Their values and figures are kept
// meanwhile, so whoever only makes text of them takes them in the threads that calculate them.
class RowsInOrder : public RowObserver {
  public:
    // False from `take` ends the study early.
    explicit RowsInOrder(std::function<bool(const StudyRow&)> take) : take_(std::move(take)) {}

    std::unique_ptr<RowTaker> Begin(std::uint64_t count) override;
    bool End(RowTaker& taker) override;

  private:
    std::function<bool(const StudyRow&)> take_;
};

}  // namespace tarvokol
