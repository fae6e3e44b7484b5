// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_pictures.h"

#include <optional>
#include <span>

#include "cli/output/drawing.h"
#include "cli/output/progress_bar.h"
#include "core/studies/study_names.h"
#include "core/studies/study_pictures.h"

namespace tarvokol::cli {
namespace {

constexpr std::size_t kMostMapCells = 4000000;

const StudyFigure& FigureOf(const std::string& name, bool sizes) {
    if (name.empty()) return kStudyFigures.front();
    const StudyFigure& figure =
        OfOption("--of", [&]() -> const StudyFigure& { return RequiredFigure(name); });
    if (figure.NeedsSizes() && !sizes) throw UsageError{"--of " + name + ": needs --size"};
    return figure;
}

// The progress line of a study whose rows become a picture.
class PictureProgress : public StudyObserver {
  public:
    explicit PictureProgress(bool quiet) : quiet_(quiet) {}

    // A map calculates more panels than the request names, so the total comes with the first rows.
    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        if (!bar_) bar_.emplace(quiet_, total);
        bar_->Reach(done);
        return true;
    }

  private:
    bool quiet_;
    std::optional<ProgressBar> bar_;
};

// A picture of nothing is no wrong usage: the panels were refused.
template <typename Work>
auto Drawable(Work work) {
    try {
        return work();
    } catch (const StudyRefusal& refusal) {
        throw DataError{refusal.what(), {refusal.what()}};
    }
}

// What is left to do with a picture that was calculated, and whether a panel of it was refused.
template <typename Picture>
bool Draw(const std::optional<Picture>& picture, const std::string& path) {
    if (!picture) return false;
    TheDrawing().DrawStudy(path, *picture);
    return picture->any_refused;
}

bool DrawCurves(const SweepRequest& request, const RowJob& job, const std::string& figure_name,
                const std::string& path) {
    const StudyFigure& asked = FigureOf(figure_name, job.sizes);
    const auto figures = figure_name.empty() ? FactorFigures() : std::span(&asked, 1);
    PictureProgress progress(job.quiet);
    return Draw(Drawable([&] { return CurvesOf(request, figures, job.title, progress); }), path);
}

bool DrawMap(const SweepRequest& request, const RowJob& job, const std::string& figure_name,
             const std::string& path) {
    const StudyFigure& figure = FigureOf(figure_name, job.sizes);
    const ValueAxis& x = request.axes[0];
    const ValueAxis& y = request.axes[1];
    if (x.Count() < 2 || y.Count() < 2) throw UsageError{"-o: a map needs two values or more of each field"};
    if (x.Count() * y.Count() > kMostMapCells)
        throw UsageError{"-o: a map of more than " + std::to_string(kMostMapCells) +
                         " panels; give larger steps"};
    PictureProgress progress(job.quiet);
    return Draw(Drawable([&] { return MapOf(request, figure, job.title, progress); }), path);
}

}  // namespace

void CheckFigure(const std::string& figure, bool sizes) {
    FigureOf(figure, sizes);
}

bool DrawSweep(const SweepRequest& request, const RowJob& job, const std::string& figure,
               const std::string& path) {
    if (request.axes.size() > 2)
        throw UsageError{"-o: a picture shows one field (curves) or two (a map), not " +
                         std::to_string(request.axes.size()) +
                         "; write .csv, .json or .xlsx, or vary fewer fields"};
    if (request.axes.size() == 1) return DrawCurves(request, job, figure, path);
    return DrawMap(request, job, figure, path);
}

void DrawRisk(const RiskRequest& request, const RiskResult& result, const std::string& title,
              const std::string& path) {
    TheDrawing().DrawStudy(path, Drawable([&] { return SpreadOf(request, result, title); }));
}

}  // namespace tarvokol::cli
