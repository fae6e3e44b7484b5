// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_rows.h"

#include <utility>

namespace tarvokol {
namespace {

// A row with what it points to.
struct KeptRow {
    std::uint64_t number = 0;
    std::vector<double> values;
    std::vector<std::uint64_t> places;
    TableRow record;
    bool of_table = false;
    PanelFigures figures;
};

class RowKeeper : public RowTaker {
  public:
    explicit RowKeeper(std::uint64_t count) { rows_.reserve(count); }

    void Take(const StudyRow& row) override {
        KeptRow kept;
        kept.number = row.number;
        kept.values.assign(row.values.begin(), row.values.end());
        kept.places.assign(row.places.begin(), row.places.end());
        kept.of_table = row.record != nullptr;
        if (kept.of_table) kept.record = *row.record;
        kept.figures = row.figures;
        rows_.push_back(std::move(kept));
    }

    const std::vector<KeptRow>& Rows() const { return rows_; }

  private:
    std::vector<KeptRow> rows_;
};

}  // namespace

std::unique_ptr<RowTaker> RowsInOrder::Begin(std::uint64_t count) {
    return std::make_unique<RowKeeper>(count);
}

bool RowsInOrder::End(RowTaker& taker) {
    for (const KeptRow& row : static_cast<RowKeeper&>(taker).Rows())
        if (!take_({row.number, row.values, row.places, row.of_table ? &row.record : nullptr, row.figures}))
            return false;
    return true;
}

}  // namespace tarvokol
