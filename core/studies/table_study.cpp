// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/table_study.h"

#include <algorithm>
#include <utility>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/row_run.h"
#include "core/studies/shortage.h"
#include "core/studies/table_columns.h"

namespace tarvokol {
namespace {

class TableSource : public RowSource {
  public:
    explicit TableSource(const TableRequest& request) : request_(request), columns_(request.columns) {
        if (!request.risk.IsAsked()) return;
        std::vector<PanelField> set;
        set.reserve(columns_.Count());
        for (std::size_t column = 0; column < columns_.Count(); ++column)
            if (const auto field = columns_.Field(column)) set.push_back(*field);
        risk_.emplace(request.risk, request.panel, set);
    }

    std::optional<std::uint64_t> Total() const override { return request_.total; }

    std::optional<RowPiece> Next() override {
        RowPiece piece;
        piece.first = next_;
        const std::uint64_t most = risk_ ? kRiskRowsAPiece : kRowsAPiece;
        for (TableRow row; piece.records.size() < most && request_.rows(row);) {
            Require(row);
            piece.records.push_back(std::move(row));
        }
        piece.count = piece.records.size();
        next_ += piece.count;
        if (piece.records.empty()) return std::nullopt;
        return piece;
    }

    void Work(const RowPiece& piece, PanelEvaluator& panel, RowTaker& taker) const override {
        const PanelInputs project = panel.Inputs();
        std::vector<double> values;
        PanelFigures with_risk;
        for (std::uint64_t i = 0; i < piece.count; ++i) {
            const TableRow& record = piece.records[i];
            values.clear();
            for (std::size_t column = 0; column < columns_.Count(); ++column) {
                const auto field = columns_.Field(column);
                if (!field) continue;
                const std::string text = Trim(record.cells[column]);
                values.push_back(text.empty() ? ValueOfField(project, *field) : *WholeNumber(text));
                panel.Set(*field, values.back());
            }
            taker.Take({piece.first + i, values, {}, &record, FiguresOf(panel, risk_, with_risk)});
        }
    }

  private:
    void Require(const TableRow& row) const {
        const auto cell = columns_.FaultyCell(row);
        if (!cell) return;
        throw StudyRefusal("line " + std::to_string(row.line) + ", " + columns_.PlaceOf(*cell),
                           columns_.FaultOf(*cell, row.cells[*cell]));
    }

    const TableRequest& request_;
    const TableColumns& columns_;
    std::optional<RowRisk> risk_;
    std::uint64_t next_ = 0;
};

}  // namespace

TableColumns::TableColumns(std::vector<std::string> header, Units units) : header_(std::move(header)) {
    std::vector<ColumnMeaning> meanings;
    for (const std::string& title : header_) meanings.push_back(MeaningOfColumn(title, units));
    if (std::none_of(meanings.begin(), meanings.end(), [](const auto& one) { return one.field.has_value(); }))
        throw StudyRefusal("no column is named as a field of the project; " + KnownFields());
    for (const ColumnMeaning& meaning : meanings) {
        if (!meaning.refusal.empty()) throw StudyRefusal(PlaceOf(fields_.size()), meaning.refusal);
        if (meaning.field && std::find(fields_.begin(), fields_.end(), meaning.field) != fields_.end())
            throw StudyRefusal(std::string("the column ") + NameOfField(*meaning.field) +
                               " stands there twice");
        fields_.push_back(meaning.field);
    }
}

std::string TableColumns::PlaceOf(std::size_t column) const {
    return "column " + std::to_string(column + 1) + " (" + header_[column] + ")";
}

std::string TableColumns::FaultOf(std::size_t column, const std::string& cell) const {
    const std::string text = Trim(cell);
    if (!fields_[column] || text.empty()) return "";
    const auto value = WholeNumber(text);
    if (!value) return WhyNoNumber(text);
    return FitsField(*fields_[column], *value) ? "" : "\"" + text + "\" cannot be stored in this field";
}

std::optional<std::size_t> TableColumns::FaultyCell(const TableRow& row) const {
    for (std::size_t column = 0; column < Count(); ++column)
        if (!FaultOf(column, row.cells[column]).empty()) return column;
    return std::nullopt;
}

bool RunTable(const TableRequest& request, RowObserver& observer) {
    return WithinMemory("take fewer threads, or shorter rows", [&] {
        TableSource source(request);
        return RunRows(source, request.panel, request.sizes, request.threads, observer);
    });
}

}  // namespace tarvokol
