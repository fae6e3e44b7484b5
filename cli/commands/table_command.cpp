// SPDX-License-Identifier: GPL-3.0-or-later
// A table of panels: each row sets some fields of a project and carries the rest of its cells through.
#include <fstream>
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/commands/study_run.h"
#include "cli/line/standard_input.h"
#include "cli/output/drawing.h"
#include "cli/output/row_sink.h"
#include "core/files/csv_reader.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

class TableSource : public RowSource {
  public:
    TableSource(std::istream& input, const std::string& name, int unit_system)
        : reader_(input, name), unit_system_(unit_system) {
        std::vector<bool> taken(kStudyFields, false);
        for (std::size_t i = 0; i < reader_.Header().size(); ++i) {
            const auto field = FieldNamed(reader_.Header()[i]);
            fields_.push_back(field);
            if (!field) continue;
            if (taken[static_cast<std::size_t>(*field)])
                throw TableFault(name + ", line 1: the column " + NameOfField(*field) +
                                 " stands there twice");
            taken[static_cast<std::size_t>(*field)] = true;
            any_field_ = true;
        }
        if (!any_field_)
            throw TableFault(name + ", line 1: no column is named as a field of the project; " +
                             KnownFields());
    }

    std::vector<LeadingColumn> Columns() const override {
        std::vector<LeadingColumn> columns;
        for (std::size_t i = 0; i < fields_.size(); ++i)
            columns.push_back(
                fields_[i] ? LeadingColumn{NameOfField(*fields_[i]), UnitOfField(*fields_[i], unit_system_)}
                           : LeadingColumn{reader_.Header()[i], ""});
        return columns;
    }

    std::optional<std::uint64_t> Total() const override { return std::nullopt; }

    std::optional<StudyPiece> Next() override {
        StudyPiece piece;
        for (TableRow row; piece.rows.size() < kRowsAPiece && reader_.Next(row);) {
            Check(row);
            piece.rows.push_back(std::move(row));
        }
        piece.count = piece.rows.size();
        if (piece.rows.empty()) return std::nullopt;
        return piece;
    }

    void Work(const StudyPiece& piece, PanelEvaluator& panel, const RowTaker& take) const override {
        const PanelInputs project = panel.Inputs();
        std::vector<LeadingCell> cells(fields_.size());
        std::vector<const LeadingCell*> pointers;
        pointers.reserve(cells.size());
        for (const LeadingCell& cell : cells) pointers.push_back(&cell);
        for (const TableRow& row : piece.rows) {
            for (std::size_t i = 0; i < fields_.size(); ++i)
                SetCell(row.cells[i], fields_[i], project, panel, cells[i]);
            take(pointers, panel.Evaluate());
        }
    }

    // Reads all rows without calculating them.
    void CheckAll() {
        while (Next()) {
        }
    }

  private:
    void Check(const TableRow& row) const {
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            if (!fields_[i]) continue;
            const std::string text = Trim(row.cells[i]);
            if (text.empty()) continue;
            const auto value = WholeNumber(text);
            if (!value) throw reader_.FaultOf(row, i, WhyNoNumber(text));
            if (!FitsField(*fields_[i], *value))
                throw reader_.FaultOf(row, i, "\"" + text + "\" cannot be stored in this field");
        }
    }

    static void SetCell(const std::string& text, const std::optional<StudyField>& field,
                        const PanelInputs& project, PanelEvaluator& panel, LeadingCell& cell) {
        cell.number = field.has_value();
        if (!field) {
            cell.text = text;
            return;
        }
        const std::string trimmed = Trim(text);
        const double value = trimmed.empty() ? ValueOfField(project, *field) : *WholeNumber(trimmed);
        panel.Set(*field, value);
        cell.text.clear();
        AppendShortest(cell.text, value);
    }

    CsvReader reader_;
    int unit_system_;
    std::vector<std::optional<StudyField>>
        fields_;  // of each column, nothing for one that is carried through
    bool any_field_ = false;
};

// A table on the disk is read to its end before the first row is written, so that a fault in its last line
// leaves nothing half-written behind.
void CheckWholeFile(const std::string& path, int unit_system) {
    std::ifstream input(path, std::ios::binary);
    TableSource(input, path, unit_system).CheckAll();
}

class Table : public StudyCommand {
  public:
    std::string Name() const override { return "table"; }
    std::string Summary() const override {
        return "A table of panels: each row of a CSV file sets some fields of a project";
    }

    void Describe(CommandOptions& options) override {
        AddStudy(options, "Write the rows: .csv, .json or .xlsx", {"csv", "json", "xlsx"});
        AddSizes(options);
        options.Text(
            {.spelling = "ROWS.csv",
             .help =
                 "The table: a header with names of fields and any other columns; `-` reads standard input",
             .required = true},
            rows_);
    }

  protected:
    std::vector<std::string> Examples() const override {
        return {"tarvokol-cli table panel.TKL boreholes.csv > factors.csv",
                "tarvokol-cli table panel.TKL boreholes.csv --size -o factors.xlsx",
                "cut -d, -f1-3 survey.csv | tarvokol-cli table panel.TKL - --json"};
    }

    int Study(HeadlessPlatform& host) override {
        const RowTarget target(options_);
        if (target.Kind() == RowTarget::Picture)
            throw UsageError{"-o: a table gives .csv, .json or .xlsx, no picture"};
        const bool from_standard_input = rows_ == kStandardStream;
        if (from_standard_input && options_.stdin_project)
            throw UsageError{"--stdin-project: standard input holds the project or the rows, not both"};
        if (target.IsDrawn()) TheDrawing();
        const RowJob job = JobFor(ReadProject(host));
        const int units = static_cast<int>(job.project.units);
        if (from_standard_input) {
            TableSource source(std::cin, "standard input", units);
            return WriteRows(source, job, target);
        }
        RequireReadableFile(rows_);
        CheckWholeFile(rows_, units);
        std::ifstream input(rows_, std::ios::binary);
        TableSource source(input, rows_, units);
        return WriteRows(source, job, target);
    }

  private:
    std::string rows_;
};

}  // namespace

std::unique_ptr<Command> TableCommand() {
    return std::make_unique<Table>();
}

}  // namespace tarvokol::cli
