// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_run.h"

#include <iostream>
#include <limits>
#include <mutex>
#include <utility>

#include "cli/output/drawing.h"
#include "core/platform/row_sheet.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {
namespace {

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

RowLayout LayoutOf(const RowStudy& study, const RowJob& job) {
    return {study.columns, job.sizes, job.risk.IsAsked(), job.bare_header, study.is_table};
}

// The text of one piece, written in the thread that calculates it.
class TextTaker : public RowTaker {
  public:
    TextTaker(const RowWriter& writer, std::unique_ptr<LeadingCells> cells, std::string text)
        : writer_(writer), cells_(std::move(cells)), text_(std::move(text)) {}

    void Take(const StudyRow& row) override {
        if (row.figures.refused) ++refused_;
        writer_.Append(text_, cells_->Of(row), row.figures, texts_);
    }

    std::string& Text() { return text_; }
    std::uint64_t Refused() const { return refused_; }

  private:
    const RowWriter& writer_;
    std::unique_ptr<LeadingCells> cells_;
    FigureTexts texts_;
    std::string text_;
    std::uint64_t refused_ = 0;
};

// Writes the rows as they come.
class TextRows : public RowObserver {
  public:
    TextRows(const RowStudy& study, const RowJob& job, const RowWriter& writer, RowSink& sink)
        : study_(study),
          writer_(writer),
          sink_(sink),
          bar_(job.quiet, study.total),
          header_(study.goes_on ? "" : writer.Header()) {}

    std::unique_ptr<RowTaker> Begin(std::uint64_t) override {
        return std::make_unique<TextTaker>(writer_, study_.cells(), spare_.Take());
    }

    bool End(RowTaker& taker) override {
        auto& taken = static_cast<TextTaker&>(taker);
        refused_ += taken.Refused();
        std::string& text = taken.Text();
        // The header waits for the first rows: a table whose first lines are at fault writes nothing.
        if (!header_.empty()) text.insert(0, std::exchange(header_, ""));
        const bool read_on = sink_.Write(text);
        spare_.GiveBack(std::move(text));
        return read_on;
    }

    bool Progress(std::uint64_t done, std::optional<std::uint64_t>) override {
        bar_.Reach(done);
        return true;
    }

    // What is left where there was no row.
    bool WriteHeader() { return header_.empty() || sink_.Write(header_); }

    std::uint64_t Refused() const { return refused_; }

  private:
    const RowStudy& study_;
    const RowWriter& writer_;
    RowSink& sink_;
    ProgressBar bar_;
    SpareTexts spare_;
    std::string header_;
    std::uint64_t refused_ = 0;
};

int WriteTextRows(const RowStudy& study, const RowJob& job, RowFormat format, RowSink& sink) {
    const RowWriter writer(format, job.file, LayoutOf(study, job));
    TextRows rows(study, job, writer, sink);
    if (study.run(rows) && rows.WriteHeader()) sink.Finish();
    return StatusOfRows(rows.Refused());
}

[[noreturn]] void RefuseSheet(std::uint64_t rows) {
    throw UsageError{"-o: " + std::to_string(rows) + " rows and a header are more than the " +
                     std::to_string(kMostSheetRows) + " of a sheet; write .csv or .json"};
}

// The cells of a row in the order of the titles.
void AddSheetRow(RowSheet& book, const RowLayout& layout, std::span<const LeadingCell* const> leading,
                 const PanelFigures& figures) {
    for (std::size_t i = 0; i < leading.size(); ++i)
        if (!layout.leading[i].carried)
            book.AddNumber(WholeNumber(leading[i]->text).value_or(std::numeric_limits<double>::quiet_NaN()));
    for (const StudyFigure& figure : StudyFigures(layout.sizes)) book.AddNumber(figures.*figure.value);
    if (layout.probabilities)
        for (const StudyFigure& one : kRowProbabilities) book.AddNumber(figures.*one.value);
    book.AddText(figures.message);
    for (std::size_t i = 0; i < leading.size(); ++i)
        if (layout.leading[i].carried) book.AddText(leading[i]->text);
    book.EndRow();
}

std::uint64_t WriteWorkbook(const RowStudy& study, const RowJob& job, const std::string& path) {
    if (study.total && *study.total >= kMostSheetRows) RefuseSheet(*study.total);
    const auto book = TheDrawing().RowWorkbook(path);
    const RowLayout layout = LayoutOf(study, job);
    book->AddTitles(TitlesOf(layout));
    std::uint64_t rows = 1;
    const auto cells = study.cells();
    CollectedRows collected(job.quiet, study.total, [&](const StudyRow& row) {
        if (++rows > kMostSheetRows) RefuseSheet(rows - 1);
        AddSheetRow(*book, layout, cells->Of(row), row.figures);
    });
    study.run(collected);
    book->Finish();
    return collected.Refused();
}

}  // namespace

CollectedRows::CollectedRows(bool quiet, std::optional<std::uint64_t> total,
                             std::function<void(const StudyRow&)> take)
    : RowsInOrder([this, take = std::move(take)](const StudyRow& row) {
          if (row.figures.refused) ++refused_;
          take(row);
          return true;
      }),
      bar_(quiet, total) {}

bool CollectedRows::Progress(std::uint64_t done, std::optional<std::uint64_t>) {
    bar_.Reach(done);
    return true;
}

int StatusOfRows(std::uint64_t refused) {
    return refused > 0 ? exit_status::Refused : exit_status::Done;
}

int WriteRows(const RowStudy& study, const RowJob& job, const RowTarget& target) {
    if (target.Kind() == RowTarget::Workbook) {
        std::uint64_t refused = 0;
        target.WriteDrawn([&](const std::string& path) { refused = WriteWorkbook(study, job, path); });
        return StatusOfRows(refused);
    }
    const auto sink = target.Open();
    if (target.Kind() == RowTarget::Csv && !job.quiet)
        std::cerr << "Units: " << UnitsInWords(LayoutOf(study, job)) << '\n';
    return WriteTextRows(study, job, target.Kind() == RowTarget::Csv ? RowFormat::Csv : RowFormat::JsonLines,
                         *sink);
}

}  // namespace tarvokol::cli
