// SPDX-License-Identifier: GPL-3.0-or-later
// A table of panels: each row sets some fields of a project and carries the rest of its cells along.
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "cli/commands/commands.h"
#include "cli/commands/study_run.h"
#include "cli/line/standard_input.h"
#include "cli/output/drawing.h"
#include "cli/output/row_sink.h"
#include "cli/output/said_lines.h"
#include "core/files/csv_reader.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/table_study.h"

namespace tarvokol::cli {
namespace {

// The cells of a row as they were read, those of fields as numbers.
class TableCells : public LeadingCells {
  public:
    explicit TableCells(const TableColumns& columns) : columns_(columns), cells_(columns.Count()) {
        for (const LeadingCell& cell : cells_) pointers_.push_back(&cell);
    }

    std::span<const LeadingCell* const> Of(const StudyRow& row) override {
        std::size_t value = 0;
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            std::string& text = cells_[i].text;
            text.clear();
            if (columns_.Field(i))
                AppendShortest(text, row.values[value++]);
            else
                text = row.record->cells[i];
        }
        return pointers_;
    }

  private:
    const TableColumns& columns_;
    std::vector<LeadingCell> cells_;
    std::vector<const LeadingCell*> pointers_;
};

// The columns of a table. Raises TableFault for a header that makes no table.
TableColumns ColumnsOf(const CsvReader& reader, const Panel& project) {
    try {
        return {reader.Header(), project.units};
    } catch (const StudyRefusal& refusal) {
        throw reader.FaultOfHeader(refusal.what());
    }
}

void RequireSound(const CsvReader& reader, const TableColumns& columns, const TableRow& row) {
    if (const auto cell = columns.FaultyCell(row))
        throw reader.FaultOf(row, *cell, columns.FaultOf(*cell, row.cells[*cell]));
}

// A table that can be read twice is read to its end before the first row is written, so that a fault in its last
// line leaves nothing half-written.
void CheckWholeTable(std::istream&& input, const std::string& name, const Panel& project) {
    CsvReader reader(input, name);
    const TableColumns columns = ColumnsOf(reader, project);
    for (TableRow row; reader.Next(row);) RequireSound(reader, columns, row);
}

int WriteTable(std::istream& input, const std::string& name, const RowJob& job, const RowTarget& target) {
    CsvReader reader(input, name);
    TableRequest request{job.project, ColumnsOf(reader, job.project), {}, {}, job.sizes, job.threads,
                         job.risk};
    request.rows = [&](TableRow& row) {
        if (!reader.Next(row)) return false;
        RequireSound(reader, request.columns, row);
        return true;
    };
    RowStudy study;
    for (std::size_t i = 0; i < request.columns.Count(); ++i) {
        const auto field = request.columns.Field(i);
        study.columns.push_back(
            field ? LeadingColumn{NameOfField(*field), UnitOfField(*field, job.project.units)}
                  : LeadingColumn{request.columns.Title(i), "", true});
    }
    study.is_table = true;
    study.cells = [&request] { return std::make_unique<TableCells>(request.columns); };
    study.run = [&request](RowObserver& observer) { return RunTable(request, observer); };
    const int status = WriteRows(study, job, target);
    const std::uint64_t blank = reader.BlankRows();
    if (blank > 0 && !job.quiet)
        SayOf(name, std::to_string(blank) + (blank == 1 ? " blank row" : " blank rows") + " skipped");
    return status;
}

class Table : public StudyCommand {
  public:
    std::string Name() const override { return "table"; }
    std::string Summary() const override {
        return "A table of panels: each row of a CSV file sets some fields of a project";
    }

    void Describe(CommandOptions& options) override {
        AddStudy(options, ResultOf::Row, "Write the rows: .csv, .json or .xlsx",
                 {"csv", "json", "jsonl", "xlsx"});
        AddRowOptions(options);
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
                "tarvokol-cli table panel.TKL boreholes.csv --random CoalStrength=normal:100%:15%",
                "cut -d, -f1-3 survey.csv | tarvokol-cli table panel.TKL - --json"};
    }

    int Study(HeadlessPlatform& host) override {
        const RowTarget target(options_, {rows_});
        if (target.Kind() == RowTarget::Picture)
            throw UsageError{"-o: a table gives .csv, .json or .xlsx, no picture"};
        const bool from_standard_input = rows_ == kStandardStream;
        if (from_standard_input && options_.stdin_project)
            throw UsageError{"--stdin-project: standard input holds the project or the rows, not both"};
        if (target.IsDrawn()) TheDrawing();
        const RowJob job = JobFor(ReadProject(host));
        if (Kept()) return WriteKept(job, target);
        if (from_standard_input) return WriteTable(std::cin, "standard input", job, target);
        RequireReadableFile(rows_);
        CheckWholeTable(std::ifstream(rows_, std::ios::binary), rows_, job.project);
        std::ifstream input(rows_, std::ios::binary);
        return WriteTable(input, rows_, job, target);
    }

  private:
    int WriteKept(const RowJob& job, const RowTarget& target) const {
        const std::string name = rows_ + ", its table";
        CheckWholeTable(std::istringstream(Kept()->rows), name, job.project);
        std::istringstream input(Kept()->rows);
        return WriteTable(input, name, job, target);
    }

    std::string rows_;
};

}  // namespace

std::unique_ptr<Command> TableCommand() {
    return std::make_unique<Table>();
}

}  // namespace tarvokol::cli
