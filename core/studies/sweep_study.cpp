// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/sweep_study.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/statistics/study_refusal.h"
#include "core/studies/part_range.h"
#include "core/studies/row_run.h"
#include "core/studies/shortage.h"

namespace tarvokol {
namespace {

class SweepSource : public RowSource {
  public:
    SweepSource(const SweepRequest& request, std::uint64_t first, std::uint64_t end)
        : axes_(request.axes), first_(first), end_(end), next_(first) {
        if (!request.risk.IsAsked()) return;
        std::vector<PanelField> set;
        set.reserve(axes_.size());
        for (const ValueAxis& axis : axes_) set.push_back(axis.Field());
        risk_.emplace(request.risk, request.panel, set);
    }

    std::optional<std::uint64_t> Total() const override { return end_ - first_; }

    std::optional<RowPiece> Next() override {
        if (next_ >= end_) return std::nullopt;
        RowPiece piece;
        piece.first = next_;
        piece.count = std::min(risk_ ? kRiskRowsAPiece : kRowsAPiece, end_ - next_);
        next_ += piece.count;
        return piece;
    }

    void Work(const RowPiece& piece, PanelEvaluator& panel, RowTaker& taker) const override {
        std::vector<std::uint64_t> places = PlacesOf(piece.first);
        std::vector<double> values(axes_.size());
        PanelFigures with_risk;
        const auto set = [&](std::size_t i) {
            values[i] = axes_[i][places[i]];
            panel.Set(axes_[i].Field(), values[i]);
        };
        for (std::size_t i = 0; i < axes_.size(); ++i) set(i);
        for (std::uint64_t row = 0; row < piece.count; ++row) {
            taker.Take({piece.first + row, values, places, nullptr, FiguresOf(panel, risk_, with_risk)});
            for (std::size_t i = axes_.size(); i-- > 0;) {
                places[i] = places[i] + 1 < axes_[i].Count() ? places[i] + 1 : 0;
                set(i);
                if (places[i] != 0) break;
            }
        }
    }

  private:
    // The numbers of the values of a row; the last field runs fastest.
    std::vector<std::uint64_t> PlacesOf(std::uint64_t row) const {
        std::vector<std::uint64_t> places(axes_.size());
        for (std::size_t i = axes_.size(); i-- > 0;) {
            places[i] = row % axes_[i].Count();
            row /= axes_[i].Count();
        }
        return places;
    }

    const std::vector<ValueAxis>& axes_;
    std::optional<RowRisk> risk_;
    std::uint64_t first_;
    std::uint64_t end_;
    std::uint64_t next_;
};

}  // namespace

void SweepRequest::AddAxis(ValueAxis axis) {
    for (const ValueAxis& other : axes)
        if (other.Field() == axis.Field())
            throw StudyRefusal(NameOfField(axis.Field()), "the field is given twice");
    axes.push_back(std::move(axis));
}

void SweepRequest::TakePart(std::uint64_t part, std::uint64_t parts) {
    const PartRange range = PartRange::Of(Rows(), part, parts);
    first = range.first;
    count = range.count;
}

std::uint64_t SweepRequest::Rows() const {
    constexpr double kMostRows = 9e18;
    double rows = 1;
    std::uint64_t exact = 1;
    for (const ValueAxis& axis : axes) {
        rows *= static_cast<double>(axis.Count());
        exact *= axis.Count();
    }
    if (rows > kMostRows) throw StudyRefusal("too many combinations to count; give larger steps");
    return exact;
}

bool RunSweep(const SweepRequest& request, RowObserver& observer) {
    const std::uint64_t rows = request.Rows();
    const std::uint64_t first = std::min(request.first, rows);
    return WithinMemory("take fewer threads", [&] {
        SweepSource source(request, first, first + std::min(request.count, rows - first));
        return RunRows(source, request.panel, request.sizes, request.threads, observer);
    });
}

}  // namespace tarvokol
