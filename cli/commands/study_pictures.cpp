// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_pictures.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "cli/output/drawing.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

// A figure that a picture may show.
struct Figure {
    const char* name;
    const char* legend;
    const char* title;
    const char* unit;
    double PanelFigures::*value;
    bool size;  // comes with --size only
};

constexpr std::array<Figure, 6> kFigures{{
    {"Overall", "Overall", "Stability factor \"Overall\"", "", &PanelFigures::Overall, false},
    {"WebsOnly", "Webs ONLY", "Stability factor \"Webs ONLY\"", "", &PanelFigures::WebsOnly, false},
    {"BarrierPillar", "Barrier Pillar", "Stability factor \"Barrier Pillar\"", "",
     &PanelFigures::BarrierPillar, false},
    {"ExtractionRatio", "Extraction ratio", "Extraction ratio", "percent", &PanelFigures::ExtractionRatio,
     false},
    {"SuggestedWeb", "Suggested web", "Suggested web", "in", &PanelFigures::SuggestedWeb, true},
    {"SuggestedBarrier", "Suggested barrier", "Suggested barrier", "in", &PanelFigures::SuggestedBarrier,
     true},
}};
constexpr std::size_t kFactorFigures = 3;

constexpr std::size_t kMostMapCells = 4000000;

const Figure& FigureNamed(const std::string& given, bool sizes) {
    const std::string name = given.empty() ? kFigures[0].name : given;
    std::string known;
    for (const Figure& figure : kFigures) {
        if (EqualIgnoringCase(name, figure.name)) {
            if (figure.size && !sizes) throw UsageError{"--of " + name + ": needs --size"};
            return figure;
        }
        known += (known.empty() ? "" : ", ") + std::string(figure.name);
    }
    throw UsageError{"--of: unknown figure \"" + name + "\"; the figures are " + known};
}

std::string WithUnit(const std::string& title, const std::string& unit) {
    return unit.empty() ? title : title + " (" + unit + ")";
}

std::string AxisTitle(const ValueAxis& axis, const Panel& project) {
    return WithUnit(TitleOfField(axis.Field()), UnitOfField(axis.Field(), static_cast<int>(project.units)));
}

std::vector<double> PlacesOf(const ValueAxis& axis) {
    std::vector<double> places(axis.Count());
    for (std::uint64_t i = 0; i < axis.Count(); ++i) places[i] = axis[i];
    return places;
}

// What a factor is held against: webs and barrier against the project's targets, the whole panel against 1.
StudyTarget TargetOf(const Figure& figure, const Panel& project) {
    if (figure.value == &PanelFigures::WebsOnly) return {"Target SFWeb", project.SFWeb};
    if (figure.value == &PanelFigures::BarrierPillar) return {"Target SFBarrier", project.SFBarrier};
    if (figure.value == &PanelFigures::Overall) return {"Target", 1.0};
    return {"", std::numeric_limits<double>::quiet_NaN()};
}

void DrawCurves(RowSource& source, const ValueAxis& axis, const RowJob& job, const std::string& figure_name,
                const std::string& path) {
    const bool factors = figure_name.empty();
    const Figure& asked = FigureNamed(figure_name, job.sizes);
    std::vector<const Figure*> figures{&asked};
    if (factors) figures = {&kFigures[0], &kFigures[1], &kFigures[2]};
    CurvesPicture picture;
    picture.titles = {job.title, AxisTitle(axis, job.project),
                      factors ? "Stability factor" : WithUnit(asked.title, asked.unit)};
    picture.x = PlacesOf(axis);
    for (const Figure* figure : figures) picture.curves.push_back({figure->legend, {}});
    CollectRows(source, job, [&](auto, const PanelFigures& row) {
        for (std::size_t i = 0; i < figures.size(); ++i)
            picture.curves[i].y.push_back(row.*figures[i]->value);
    });
    for (const Figure* figure : figures) {
        const StudyTarget target = TargetOf(*figure, job.project);
        if (!std::isnan(target.value)) picture.targets.push_back(target);
    }
    TheDrawing().DrawStudy(path, picture);
}

void DrawMap(RowSource& source, const std::vector<ValueAxis>& axes, const RowJob& job,
             const std::string& figure_name, const std::string& path) {
    const Figure& figure = FigureNamed(figure_name, job.sizes);
    if (axes[0].Count() < 2 || axes[1].Count() < 2)
        throw UsageError{"-o: a map needs two values or more of each field"};
    if (axes[0].Count() * axes[1].Count() > kMostMapCells)
        throw UsageError{"-o: a map of more than " + std::to_string(kMostMapCells) +
                         " panels; give larger steps"};
    MapPicture picture;
    picture.titles = {job.title, AxisTitle(axes[0], job.project), AxisTitle(axes[1], job.project)};
    picture.value_name = WithUnit(figure.title, figure.unit);
    picture.target = TargetOf(figure, job.project);
    picture.grid.x = PlacesOf(axes[0]);
    picture.grid.y = PlacesOf(axes[1]);
    picture.grid.values.resize(axes[0].Count() * axes[1].Count());
    std::size_t row = 0;
    CollectRows(source, job, [&](auto, const PanelFigures& figures) {
        const std::size_t i = row / axes[1].Count();
        const std::size_t j = row % axes[1].Count();
        picture.grid.values[j * axes[0].Count() + i] = figures.*figure.value;
        ++row;
    });
    TheDrawing().DrawStudy(path, picture);
}

}  // namespace

void CheckFigure(const std::string& figure, bool sizes) {
    FigureNamed(figure, sizes);
}

void DrawSweep(RowSource& source, const std::vector<ValueAxis>& axes, const RowJob& job,
               const std::string& figure, const std::string& path) {
    if (axes.size() > 2)
        throw UsageError{"-o: a picture shows one field (curves) or two (a map), not " +
                         std::to_string(axes.size()) + "; write .csv, .json or .xlsx, or vary fewer fields"};
    if (axes.size() == 1)
        DrawCurves(source, axes[0], job, figure, path);
    else
        DrawMap(source, axes, job, figure, path);
}

void DrawRisk(const RiskResult& result, const std::string& title, const std::string& path) {
    SpreadPicture picture;
    picture.title = title;
    for (std::size_t factor = 0; factor < kFactorFigures; ++factor) {
        SpreadPanel panel;
        panel.name = kFigures[factor].title;
        for (const double value : result.factors[factor])
            if (!std::isnan(value)) panel.sorted.push_back(value);
        std::sort(panel.sorted.begin(), panel.sorted.end());
        for (const BelowTarget& below : result.risk[factor].below)
            panel.targets.push_back({"Target", below.target});
        picture.panels.push_back(std::move(panel));
    }
    TheDrawing().DrawStudy(path, picture);
}

}  // namespace tarvokol::cli
