// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_run.h"

#include <iostream>
#include <limits>
#include <mutex>
#include <utility>

#include "cli/output/drawing.h"
#include "cli/output/progress_bar.h"
#include "core/files/file_replacement.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/ordered_work.h"

namespace tarvokol::cli {
namespace {

// A row that is kept until its turn.
struct KeptRow {
    std::vector<LeadingCell> leading;
    PanelFigures figures;
};

// What has become of a piece: text that only needs to be written, or its rows.
struct RowBlock {
    std::string text;
    std::vector<KeptRow> rows;
    std::uint64_t count = 0;
};

// Texts whose memory serves for the next piece.
class SpareTexts {
  public:
    std::string Take() {
        const std::scoped_lock lock(mutex_);
        if (texts_.empty()) return {};
        std::string text = std::move(texts_.back());
        texts_.pop_back();
        return text;
    }
    void GiveBack(std::string&& text) {
        text.clear();
        const std::scoped_lock lock(mutex_);
        texts_.push_back(std::move(text));
    }

  private:
    std::mutex mutex_;
    std::vector<std::string> texts_;
};

using BlockWork = OrderedWork<StudyPiece, RowBlock>;

// One evaluator a piece: making it costs less than a row.
template <typename Keep>
RowBlock WorkOn(const RowSource& source, const RowJob& job, const StudyPiece& piece, Keep keep,
                std::string text = {}) {
    RowBlock block;
    block.text = std::move(text);
    block.count = piece.count;
    PanelEvaluator panel(job.project, job.sizes);
    source.Work(piece, panel, [&](std::span<const LeadingCell* const> leading, const PanelFigures& figures) {
        keep(block, leading, figures);
    });
    return block;
}

void KeepRow(RowBlock& block, std::span<const LeadingCell* const> leading, const PanelFigures& figures) {
    KeptRow row;
    for (const LeadingCell* cell : leading) row.leading.push_back(*cell);
    row.figures = figures;
    block.rows.push_back(std::move(row));
}

void TakeRows(const RowBlock& block, const RowTaker& take) {
    std::vector<const LeadingCell*> leading;
    for (const KeptRow& row : block.rows) {
        leading.clear();
        for (const LeadingCell& cell : row.leading) leading.push_back(&cell);
        take(leading, row.figures);
    }
}

void TellUnits(const RowJob& job, const std::vector<LeadingColumn>& columns) {
    if (!job.quiet) std::cerr << "Units: " << UnitsInWords(columns, job.sizes) << '\n';
}

int WriteTextRows(RowSource& source, const RowJob& job, RowFormat format, RowSink& sink) {
    const RowWriter writer(format, job.file, source.Columns(), job.sizes);
    ProgressBar progress(job.quiet, source.Total());
    SpareTexts spare;
    const auto write = [&](StudyPiece& piece) {
        FigureTexts texts;
        return WorkOn(
            source, job, piece,
            [&](RowBlock& block, auto leading, const PanelFigures& figures) {
                writer.Append(block.text, leading, figures, texts);
            },
            spare.Take());
    };
    BlockWork work([&] { return source.Next(); }, write);
    // The header waits for the first rows: a table whose first lines are at fault writes nothing.
    std::string header = writer.Header();
    bool read_on = true;
    work.Run(job.threads, [&](RowBlock&& block) {
        if (!header.empty()) block.text.insert(0, std::exchange(header, ""));
        read_on = sink.Write(block.text);
        spare.GiveBack(std::move(block.text));
        progress.Advance(block.count);
        return read_on;
    });
    if (read_on && !header.empty()) read_on = sink.Write(header);
    if (read_on) sink.Finish();
    return exit_status::Done;
}

// Rows of a sheet, the header included.
constexpr std::uint64_t kMostSheetRows = 1048576;

[[noreturn]] void RefuseSheet(std::uint64_t rows) {
    throw UsageError{"-o: " + std::to_string(rows) + " rows and a header are more than the " +
                     std::to_string(kMostSheetRows) + " of a sheet; write .csv or .json"};
}

void WriteWorkbook(RowSource& source, const RowJob& job, const std::string& path) {
    if (source.Total() && *source.Total() >= kMostSheetRows) RefuseSheet(*source.Total());
    FileReplacement place(path);
    const auto book = TheDrawing().RowWorkbook(place.BuildPath());
    std::vector<std::string> titles;
    for (const LeadingColumn& column : source.Columns()) titles.push_back(TitleWithUnit(column));
    for (const std::string& title : FigureTitlesWithUnits(job.sizes)) titles.push_back(title);
    book->AddTitles(titles);
    std::uint64_t rows = 1;
    CollectRows(source, job, [&](std::span<const LeadingCell* const> leading, const PanelFigures& figures) {
        if (++rows > kMostSheetRows) RefuseSheet(rows - 1);
        for (const LeadingCell* cell : leading) {
            if (cell->number)
                book->AddNumber(WholeNumber(cell->text).value_or(std::numeric_limits<double>::quiet_NaN()));
            else
                book->AddText(cell->text);
        }
        for (const double value : FigureValues(figures, job.sizes)) book->AddNumber(value);
        book->AddText(figures.message);
        book->EndRow();
    });
    book->Finish();
    place.Commit();
}

}  // namespace

void CollectRows(RowSource& source, const RowJob& job, const RowTaker& take) {
    ProgressBar progress(job.quiet, source.Total());
    BlockWork work([&] { return source.Next(); },
                   [&](StudyPiece& piece) { return WorkOn(source, job, piece, KeepRow); });
    work.Run(job.threads, [&](RowBlock&& block) {
        TakeRows(block, take);
        progress.Advance(block.count);
        return true;
    });
}

int WriteRows(RowSource& source, const RowJob& job, const RowTarget& target) {
    if (target.Kind() == RowTarget::Workbook) {
        target.WriteDrawn([&](const std::string& path) { WriteWorkbook(source, job, path); });
        return exit_status::Done;
    }
    const auto sink = target.Open();
    if (target.Kind() == RowTarget::Csv) TellUnits(job, source.Columns());
    return WriteTextRows(source, job, target.Kind() == RowTarget::Csv ? RowFormat::Csv : RowFormat::JsonLines,
                         *sink);
}

}  // namespace tarvokol::cli
