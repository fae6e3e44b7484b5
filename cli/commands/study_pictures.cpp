// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_pictures.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "cli/commands/study_run.h"
#include "cli/output/drawing.h"
#include "core/studies/study_names.h"

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

std::string WithUnit(const std::string& title, const std::string& unit) {
    return unit.empty() ? title : title + " (" + unit + ")";
}

std::string AxisTitle(const ValueAxis& axis, const Panel& project) {
    return WithUnit(TitleOfField(axis.Field()), UnitOfField(axis.Field(), project.units));
}

std::vector<double> PlacesOf(const ValueAxis& axis) {
    std::vector<double> places(axis.Count());
    for (std::uint64_t i = 0; i < axis.Count(); ++i) places[i] = axis[i];
    return places;
}

StudyTarget TargetOf(const StudyFigure& figure, const Panel& project) {
    if (!figure.IsFactor()) return {"", TargetOfFigure(figure, project)};
    const std::string name = figure.target ? std::string("Target ") + NameOfField(*figure.target) : "Target";
    return {name, TargetOfFigure(figure, project)};
}

void DrawCurves(const SweepRequest& request, const RowJob& job, const std::string& figure_name,
                const std::string& path) {
    const bool factors = figure_name.empty();
    const StudyFigure& asked = FigureOf(figure_name, job.sizes);
    const std::span<const StudyFigure> figures = factors ? FactorFigures() : std::span(&asked, 1);
    const ValueAxis& axis = request.axes[0];
    CurvesPicture picture;
    picture.titles = {job.title, AxisTitle(axis, request.panel),
                      factors ? "Stability factor" : WithUnit(asked.title, asked.unit)};
    picture.x = PlacesOf(axis);
    for (const StudyFigure& figure : figures) picture.curves.push_back({figure.legend, {}});
    CollectedRows rows(job.quiet, axis.Count(), [&](const StudyRow& row) {
        for (std::size_t i = 0; i < figures.size(); ++i)
            picture.curves[i].y.push_back(row.figures.*figures[i].value);
    });
    RunSweep(request, rows);
    for (const StudyFigure& figure : figures)
        if (figure.IsFactor()) picture.targets.push_back(TargetOf(figure, request.panel));
    TheDrawing().DrawStudy(path, picture);
}

void DrawMap(const SweepRequest& request, const RowJob& job, const std::string& figure_name,
             const std::string& path) {
    const StudyFigure& figure = FigureOf(figure_name, job.sizes);
    const ValueAxis& x = request.axes[0];
    const ValueAxis& y = request.axes[1];
    if (x.Count() < 2 || y.Count() < 2) throw UsageError{"-o: a map needs two values or more of each field"};
    if (x.Count() * y.Count() > kMostMapCells)
        throw UsageError{"-o: a map of more than " + std::to_string(kMostMapCells) +
                         " panels; give larger steps"};
    MapPicture picture;
    picture.titles = {job.title, AxisTitle(x, request.panel), AxisTitle(y, request.panel)};
    picture.value_name = WithUnit(figure.title, figure.unit);
    picture.target = TargetOf(figure, request.panel);
    picture.grid.x = PlacesOf(x);
    picture.grid.y = PlacesOf(y);
    picture.grid.values.resize(x.Count() * y.Count());
    CollectedRows rows(job.quiet, request.Rows(), [&](const StudyRow& row) {
        picture.grid.values[row.places[1] * x.Count() + row.places[0]] = row.figures.*figure.value;
    });
    RunSweep(request, rows);
    TheDrawing().DrawStudy(path, picture);
}

}  // namespace

void CheckFigure(const std::string& figure, bool sizes) {
    FigureOf(figure, sizes);
}

void DrawSweep(const SweepRequest& request, const RowJob& job, const std::string& figure,
               const std::string& path) {
    if (request.axes.size() > 2)
        throw UsageError{"-o: a picture shows one field (curves) or two (a map), not " +
                         std::to_string(request.axes.size()) +
                         "; write .csv, .json or .xlsx, or vary fewer fields"};
    if (request.axes.size() == 1)
        DrawCurves(request, job, figure, path);
    else
        DrawMap(request, job, figure, path);
}

void DrawRisk(const RiskResult& result, const std::string& title, const std::string& path) {
    SpreadPicture picture;
    picture.title = title;
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        SpreadPanel panel;
        panel.name = kStudyFigures[factor].title;
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
