// SPDX-License-Identifier: GPL-3.0-or-later
// Every combination of the values that fields of a project are given.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "cli/commands/commands.h"
#include "cli/commands/study_pictures.h"
#include "cli/commands/study_run.h"
#include "cli/output/drawing.h"
#include "cli/output/row_sink.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"
#include "core/studies/sweep_study.h"

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

class SweepCells : public LeadingCells {
  public:
    explicit SweepCells(const std::vector<TextAxis>& axes)
        : axes_(axes), rooms_(axes.size()), cells_(axes.size()) {}

    std::span<const LeadingCell* const> Of(const StudyRow& row) override {
        for (std::size_t i = 0; i < axes_.size(); ++i) cells_[i] = axes_[i].Cell(row.places[i], rooms_[i]);
        return cells_;
    }

  private:
    const std::vector<TextAxis>& axes_;
    std::vector<LeadingCell> rooms_;
    std::vector<const LeadingCell*> cells_;
};

std::vector<std::string> FigureNames() {
    std::vector<std::string> names;
    names.reserve(kStudyFigures.size());
    for (const StudyFigure& figure : kStudyFigures) names.emplace_back(figure.name);
    return names;
}

constexpr double kMostParts = 1000000;

// A whole number in plain digits; 0 for anything else, and for 0 and more than the most parts.
std::uint64_t Counted(std::string_view text) {
    const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    const double value = digits ? WholeNumber(text).value_or(0) : 0;
    return value > kMostParts ? 0 : static_cast<std::uint64_t>(value);
}

// "3/16".
struct Part {
    std::uint64_t number = 1;
    std::uint64_t of = 1;

    static Part Parse(const std::string& text) {
        const std::size_t slash = text.find('/');
        Part part{Counted(std::string_view(text).substr(0, slash)),
                  slash == std::string::npos ? 0 : Counted(std::string_view(text).substr(slash + 1))};
        return part.number > part.of ? Part{0, 0} : part;
    }
};

// For OptionFacts::refusal.
std::string WhyNoPart(const std::string& text) {
    if (Part::Parse(text).number > 0) return "";
    return '"' + text + "\" is no part; write K/N, K from 1 to N, N at most 1000000";
}

SweepRequest RequestOf(const std::vector<std::string>& varied, const std::string& part, bool force) {
    SweepRequest request;
    for (const std::string& text : varied) {
        const FieldOption option = SplitFieldOption("--vary", text, "FIELD=FIRST:LAST:STEP");
        OfOption("--vary", [&] { request.AddAxis(ValueAxis::Parse(option.field, option.text)); });
    }
    std::uint64_t rows = OfOption("--vary", [&] { return request.Rows(); });
    if (!part.empty()) {
        const Part wanted = Part::Parse(part);
        request.TakePart(wanted.number, wanted.of);
        rows = request.count;
    }
    if (rows > kRowsWithoutForce && !force)
        throw UsageError{"--vary: " + std::to_string(rows) +
                         " combinations are more than 1000000000; give larger steps, --part or --force"};
    return request;
}

RowStudy StudyOf(const SweepRequest& request, const std::vector<TextAxis>& axes) {
    RowStudy study;
    for (const ValueAxis& axis : request.axes)
        study.columns.push_back({NameOfField(axis.Field()), UnitOfField(axis.Field(), request.panel.units)});
    study.total = std::min(request.Rows(), request.count);
    study.goes_on = request.first > 0;
    study.cells = [&axes] { return std::make_unique<SweepCells>(axes); };
    study.run = [&request](RowObserver& observer) { return RunSweep(request, observer); };
    return study;
}

class Sweep : public StudyCommand {
  public:
    std::string Name() const override { return "sweep"; }
    std::string Summary() const override {
        return "Every combination of the values that fields of a project are given";
    }

    void Describe(CommandOptions& options) override {
        AddStudy(options, ResultOf::Row, "Write rows (.csv, .json, .xlsx) or a picture (.png, .svg, .pdf)",
                 {"csv", "json", "jsonl", "xlsx", "png", "svg", "pdf"});
        AddRowOptions(options);
        options.Texts({.spelling = "--vary",
                       .help = "FIELD=FIRST:LAST:STEP, FIELD=FIRST:LAST/COUNT or FIELD=V1,V2,V3; once per "
                               "field, the last one given runs fastest",
                       .value = "FIELD=VALUES",
                       .required = true},
                      varied_);
        options.Text({.spelling = "--of",
                      .help = "The figure of a picture (default of a map: Overall; with --random P(any), and "
                              "WebsOnly and BarrierPillar are P(WebsOnly) and P(BarrierPillar))",
                      .value = "FIGURE",
                      .offers = FigureNames()},
                     figure_);
        options.Text(
            {.spelling = "--part",
             .help = "Rows of part K of N alone; all parts one after another are the whole, whose header "
                     "stands in the first",
             .value = "K/N",
             .refusal = WhyNoPart},
            part_);
    }

  protected:
    std::vector<std::string> Examples() const override {
        return {
            "tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 > depth.csv",
            // In brackets, as it is one text of two pieces.
            ("tarvokol-cli sweep panel.TKL --vary WebThickness=2:12:0.5 --vary DepthCover=50:400:10 "
             "--of WebsOnly -o map.svg"),
            "tarvokol-cli sweep panel.TKL --vary NumberHoles=5,10,15,20 --size -o sizes.xlsx",
            "tarvokol-cli sweep panel.TKL --vary WebThickness=3:6:0.5 --random CoalStrength=normal:100%:15%",
            ("tarvokol-cli sweep panel.TKL --vary WebThickness=3:6/13 --vary DepthCover=50:250/17 "
             "--random CoalStrength=normal:100%:15% --of WebsOnly -o likely.svg"),
            "tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 --part 1/4 -o part1.csv"};
    }

    int Study(HeadlessPlatform& host) override {
        SweepRequest request = RequestOf(varied_, part_, options_.force);
        const RowTarget target(options_);
        const bool picture = target.Kind() == RowTarget::Picture;
        CheckFigure(figure_, WithSizes(),
                    WithProbabilities() && (picture || FigureNamed(figure_) == nullptr));
        if (!part_.empty() && picture) throw UsageError{"--part: a picture shows all rows"};
        if (target.IsDrawn()) TheDrawing();
        const RowJob job = JobFor(ReadProject(host));
        request.panel = job.project;
        request.sizes = job.sizes;
        request.threads = job.threads;
        request.risk = job.risk;
        if (!picture) {
            const std::vector<TextAxis> axes(request.axes.begin(), request.axes.end());
            return WriteRows(StudyOf(request, axes), job, target);
        }
        bool refused = false;
        target.WriteDrawn([&](const std::string& path) { refused = DrawSweep(request, job, figure_, path); });
        return refused ? exit_status::Refused : exit_status::Done;
    }

  private:
    std::vector<std::string> varied_;
    std::string figure_;
    std::string part_;
};

}  // namespace

std::unique_ptr<Command> SweepCommand() {
    return std::make_unique<Sweep>();
}

}  // namespace tarvokol::cli
