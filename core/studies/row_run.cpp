// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/row_run.h"

#include <memory>

#include "core/studies/ordered_work.h"

namespace tarvokol {
namespace {

struct WorkedPiece {
    std::unique_ptr<RowTaker> taker;
    std::uint64_t count = 0;
};

}  // namespace

const PanelFigures& FiguresOf(PanelEvaluator& panel, const std::optional<RowRisk>& risk,
                              PanelFigures& with_risk) {
    const PanelFigures& figures = panel.Evaluate();
    if (!risk) return figures;
    with_risk = figures;
    risk->AddTo(with_risk, panel.Inputs());
    return with_risk;
}

bool RunRows(RowSource& source, const Panel& project, bool sizes, unsigned threads, RowObserver& observer) {
    // One evaluator a piece: making it costs less than a row.
    const auto work = [&](RowPiece& piece) {
        WorkedPiece worked{observer.Begin(piece.count), piece.count};
        PanelEvaluator panel(project, sizes);
        source.Work(piece, panel, *worked.taker);
        return worked;
    };
    OrderedWork<RowPiece, WorkedPiece> run([&] { return source.Next(); }, work);
    std::uint64_t done = 0;
    bool whole = true;
    run.Run(threads, [&](WorkedPiece&& worked) {
        done += worked.count;
        whole = observer.End(*worked.taker) && observer.Progress(done, source.Total());
        return whole;
    });
    return whole;
}

}  // namespace tarvokol
