// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_pictures.h"

#include <span>

#include "cli/output/drawing.h"
#include "cli/output/progress_bar.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

// Of webs, barrier, or either, by the name of the factor, too.
const StudyFigure& PicturedProbability(const std::string& name) {
    if (name.empty()) return kRowProbabilities.back();
    if (const StudyFigure* figure = ProbabilityNamed(name)) return *figure;
    throw UsageError{"--of " + name +
                     ": with --random a picture shows P(WebsOnly), P(BarrierPillar) or P(any)"};
}

const StudyFigure& PicturedFigure(const std::string& name, bool sizes, bool probabilities) {
    if (probabilities) return PicturedProbability(name);
    if (name.empty()) return kStudyFigures.front();
    if (FigureNamed(name) == nullptr && ProbabilityNamed(name) != nullptr)
        throw UsageError{"--of " + name + ": needs --random"};
    const StudyFigure* figure = OfOption("--of", [&] { return &RequiredFigure(name); });
    if (figure->NeedsSizes() && !sizes) throw UsageError{"--of " + name + ": needs --size"};
    return *figure;
}

// A picture of nothing is no wrong usage: the panels were refused.
template <typename Make>
auto PictureOf(Make make) {
    try {
        return make();
    } catch (const NothingToShow& nothing) {
        throw DataError{nothing.what(), {nothing.what()}};
    } catch (const StudyRefusal& refusal) {
        throw RefusedOption("-o", refusal);
    }
}

// True if a panel of the picture was refused.
template <typename Make>
bool Draw(const RowJob& job, const std::string& path, Make make) {
    const auto picture = PictureOf([&] {
        StudyProgress progress(job.quiet);
        return make(progress);
    });
    if (!picture) return false;
    TheDrawing().DrawStudy(path, *picture);
    return picture->refused > 0;
}

}  // namespace

void CheckFigure(const std::string& figure, bool sizes, bool probabilities) {
    PicturedFigure(figure, sizes, probabilities);
}

bool DrawSweep(const SweepRequest& request, const RowJob& job, const std::string& figure,
               const std::string& path) {
    const bool probabilities = request.risk.IsAsked();
    const StudyFigure& asked = PicturedFigure(figure, job.sizes, probabilities);
    if (request.axes.size() > 2)
        throw UsageError{"-o: a picture shows one field (curves) or two (a map), not " +
                         std::to_string(request.axes.size()) +
                         "; write .csv, .json or .xlsx, or vary fewer fields"};
    if (request.axes.size() == 2)
        return Draw(job, path,
                    [&](StudyObserver& observer) { return MapOf(request, asked, job.title, observer); });
    const std::span<const StudyFigure> all = probabilities ? std::span(kRowProbabilities) : FactorFigures();
    const std::span<const StudyFigure> figures = figure.empty() ? all : std::span(&asked, 1);
    return Draw(job, path,
                [&](StudyObserver& observer) { return CurvesOf(request, figures, job.title, observer); });
}

void DrawRisk(const RiskRequest& request, const RiskResult& result, const std::string& title,
              const std::string& path) {
    TheDrawing().DrawStudy(path, PictureOf([&] { return SpreadOf(request, result, title); }));
}

void DrawTornado(const RiskRequest& request, const TornadoResult& result, const std::string& title,
                 const std::string& path) {
    TheDrawing().DrawStudy(path, PictureOf([&] { return TornadoOf(request, result, title); }));
}

}  // namespace tarvokol::cli
