// SPDX-License-Identifier: GPL-3.0-or-later
// Every combination of the values that fields of a project are given.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <memory>

#include "cli/commands/commands.h"
#include "cli/commands/study_pictures.h"
#include "cli/commands/study_run.h"
#include "cli/output/drawing.h"
#include "cli/output/row_sink.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/value_axis.h"

namespace tarvokol::cli {
namespace {

constexpr std::uint64_t kRowsWithoutForce = 1000000000;

// Values whose text is kept; more of them are written each time anew.
constexpr std::uint64_t kMostKeptTexts = 1000000;

// An axis with the text of its values.
class TextAxis {
  public:
    explicit TextAxis(ValueAxis axis) : axis_(std::move(axis)) {
        if (axis_.Count() > kMostKeptTexts) return;
        cells_.resize(axis_.Count());
        for (std::uint64_t i = 0; i < axis_.Count(); ++i) AppendShortest(cells_[i].text, axis_[i]);
    }

    const ValueAxis& Axis() const { return axis_; }

    // The cell of value number i; `room` holds it where no text is kept.
    const LeadingCell* Cell(std::uint64_t i, LeadingCell& room) const {
        if (!cells_.empty()) return &cells_[i];
        room.text.clear();
        AppendShortest(room.text, axis_[i]);
        return &room;
    }

  private:
    ValueAxis axis_;
    std::vector<LeadingCell> cells_;
};

class SweepSource : public RowSource {
  public:
    SweepSource(const std::vector<ValueAxis>& axes, std::uint64_t rows, int unit_system)
        : rows_(rows), unit_system_(unit_system) {
        for (const ValueAxis& axis : axes) axes_.emplace_back(axis);
    }

    std::vector<LeadingColumn> Columns() const override {
        std::vector<LeadingColumn> columns;
        for (const TextAxis& axis : axes_)
            columns.push_back(
                {NameOfField(axis.Axis().Field()), UnitOfField(axis.Axis().Field(), unit_system_)});
        return columns;
    }

    std::optional<std::uint64_t> Total() const override { return rows_; }

    std::optional<StudyPiece> Next() override {
        if (next_ == rows_) return std::nullopt;
        StudyPiece piece;
        piece.first = next_;
        piece.count = std::min(kRowsAPiece, rows_ - next_);
        next_ += piece.count;
        return piece;
    }

    void Work(const StudyPiece& piece, PanelEvaluator& panel, const RowTaker& take) const override {
        std::vector<std::uint64_t> at = PlacesOf(piece.first);
        std::vector<const LeadingCell*> cells(axes_.size());
        std::vector<LeadingCell> rooms(axes_.size());
        const auto set = [&](std::size_t i) {
            cells[i] = axes_[i].Cell(at[i], rooms[i]);
            panel.Set(axes_[i].Axis().Field(), axes_[i].Axis()[at[i]]);
        };
        for (std::size_t i = 0; i < axes_.size(); ++i) set(i);
        for (std::uint64_t row = 0; row < piece.count; ++row) {
            take(cells, panel.Evaluate());
            for (std::size_t i = axes_.size(); i-- > 0;) {
                at[i] = at[i] + 1 < axes_[i].Axis().Count() ? at[i] + 1 : 0;
                set(i);
                if (at[i] != 0) break;
            }
        }
    }

  private:
    // The numbers of the values of a row; the last field runs fastest.
    std::vector<std::uint64_t> PlacesOf(std::uint64_t row) const {
        std::vector<std::uint64_t> places(axes_.size());
        for (std::size_t i = axes_.size(); i-- > 0;) {
            places[i] = row % axes_[i].Axis().Count();
            row /= axes_[i].Axis().Count();
        }
        return places;
    }

    std::vector<TextAxis> axes_;
    std::uint64_t rows_;
    std::uint64_t next_ = 0;
    int unit_system_;
};

std::vector<ValueAxis> AxesOf(const std::vector<std::string>& varied) {
    std::vector<ValueAxis> axes;
    for (const std::string& text : varied) {
        ValueAxis axis = ValueAxis::Parse(text);
        for (const ValueAxis& other : axes)
            if (other.Field() == axis.Field())
                throw UsageError{std::string("--vary ") + NameOfField(axis.Field()) +
                                 ": the field is given twice"};
        axes.push_back(std::move(axis));
    }
    return axes;
}

std::uint64_t RowsOf(const std::vector<ValueAxis>& axes, bool force) {
    double rows = 1;
    std::uint64_t exact = 1;
    for (const ValueAxis& axis : axes) {
        rows *= static_cast<double>(axis.Count());
        exact *= axis.Count();
    }
    if (rows > 9e18) throw UsageError{"--vary: too many combinations to count; give larger steps"};
    if (exact > kRowsWithoutForce && !force)
        throw UsageError{"--vary: " + std::to_string(exact) +
                         " combinations are more than 1000000000; give larger steps, or --force"};
    return exact;
}

class Sweep : public StudyCommand {
  public:
    std::string Name() const override { return "sweep"; }
    std::string Summary() const override {
        return "Every combination of the values that fields of a project are given";
    }

    void Describe(CommandOptions& options) override {
        AddStudy(options, "Write rows (.csv, .json, .xlsx) or a picture (.png, .svg, .pdf)",
                 {"csv", "json", "xlsx", "png", "svg", "pdf"});
        AddSizes(options);
        options.Texts({.spelling = "--vary",
                       .help = "FIELD=FIRST:LAST:STEP, FIELD=FIRST:LAST/COUNT or FIELD=V1,V2,V3; once per "
                               "field, the last one given runs fastest",
                       .value = "FIELD=VALUES",
                       .required = true},
                      varied_);
        options.Text({.spelling = "--of",
                      .help = "The figure of a picture: Overall (default of a map), WebsOnly, BarrierPillar, "
                              "ExtractionRatio, SuggestedWeb, SuggestedBarrier",
                      .value = "FIGURE"},
                     figure_);
    }

  protected:
    std::vector<std::string> Examples() const override {
        return {"tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 > depth.csv",
                "tarvokol-cli sweep panel.TKL --vary WebThickness=2:12:0.5 --vary DepthCover=50:400:10 "
                "--of WebsOnly -o map.svg",
                "tarvokol-cli sweep panel.TKL --vary NumberHoles=5,10,15,20 --size -o sizes.xlsx"};
    }

    int Study(HeadlessPlatform& host) override {
        const std::vector<ValueAxis> axes = AxesOf(varied_);
        const std::uint64_t rows = RowsOf(axes, options_.force);
        CheckFigure(figure_, WithSizes());
        const RowTarget target(options_);
        if (target.IsDrawn()) TheDrawing();
        const RowJob job = JobFor(ReadProject(host));
        SweepSource source(axes, rows, static_cast<int>(job.project.units));
        if (target.Kind() != RowTarget::Picture) return WriteRows(source, job, target);
        target.WriteDrawn([&](const std::string& path) { DrawSweep(source, axes, job, figure_, path); });
        return exit_status::Done;
    }

  private:
    std::vector<std::string> varied_;
    std::string figure_;
};

}  // namespace

std::unique_ptr<Command> SweepCommand() {
    return std::make_unique<Sweep>();
}

}  // namespace tarvokol::cli
