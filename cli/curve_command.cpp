// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/bulk_run.h"
#include "cli/commands.h"
#include "cli/drawing.h"
#include "core/project/curves.h"
#include "core/settings/unit_system.h"
#include "core/graphics/curve_export.h"
#include "core/graphics/graph_setup.h"
#include "core/platform/chart_model.h"

namespace tarvokol::cli {
namespace {

struct CurveRequest {
    GraphFamily family = GraphFamily::Stability;
    int index = 0;
};

CurveRequest RequestOf(const std::string& kind) {
    if (kind == "sf-height") return {GraphFamily::Stability, 0};
    if (kind == "sf-depth") return {GraphFamily::Stability, 1};
    if (kind == "sf-hole") return {GraphFamily::Stability, 2};
    return {GraphFamily::Sizing, kind == "web" ? 0 : 1};
}

bool Compute(const CurveRequest& request) {
    return request.family == GraphFamily::Stability ? ComputeStabilityCurves(request.index)
                                                    : ComputeSizingCurve(request.index);
}

std::vector<std::string> LegendNames(GraphFamily family) {
    std::vector<std::string> names;
    for (int curve = 1; curve <= CurveCount; ++curve) names.push_back(LegendName(family, curve));
    return names;
}

void AddCurves(Json& keys, const CurveRequest& request, const ChartModel& chart) {
    keys["CurveCount"] = CurveCount;
    keys["CurvePoints"] = CurvePoints;
    Json columns = Json::array();
    for (int column = 0; column <= CurveCount; ++column) {
        Json values = Json::array();
        for (long row = 1; row <= CurvePoints; ++row)
            values.push_back(NumberJson(static_cast<double>(CurveData(column, row))));
        columns.push_back(std::move(values));
    }
    keys["CurveData"] = std::move(columns);
    keys["CurveNames"] = LegendNames(request.family);
    keys["XAxisTitle"] = chart.AxisTitle(ChartAxis::X);
    keys["YAxisTitle"] = chart.AxisTitle(ChartAxis::Y);
    const std::string curve_unit = CurveUnit(request.family);
    keys["units"]["X"] = UnitSystem == 0 ? "ft" : "m";
    for (const std::string& name : LegendNames(request.family)) keys["units"][name] = curve_unit;
}

void WriteCurve(const OutputTarget& target, const std::string& path, const CurveRequest& request,
                const ChartModel& chart, const std::string& csv) {
    if (target.Format() == ".csv") {
        target.WriteBytes(path, csv);
    } else if (target.Format() == ".xlsx") {
        target.Write(path, [&](const std::string& name) {
            ExportCurves(chart, request.family, *TheDrawing().CurveWorkbook(name));
        });
    } else if (target.Format() != ".json") {
        target.Write(path, [&](const std::string& name) {
            TheDrawing().DrawCurves(name, request.family, request.index);
        });
    }
}

FileResult CurveOf(const std::string& file, const CurveRequest& request, const OutputTarget& target) {
    FileResult result;
    result.ok = OpenProject(file) && Compute(request);
    if (!result.ok) return result;
    ChartModel chart;
    InitGraph(chart, request.family, request.index);
    DrawCurves(chart, request.family);
    AddCurves(result.keys, request, chart);
    result.comment = chart.Note();
    result.text = CurveTableCsv(chart.AxisTitle(ChartAxis::X), LegendNames(request.family));
    if (target.ToFile()) WriteCurve(target, target.PathFor(file), request, chart, result.text);
    return result;
}

}  // namespace

int RunCurve(const Options& options, HeadlessPlatform& host, const std::string& kind) {
    const OutputTarget target(options, {".csv", ".xlsx", ".png", ".svg", ".pdf", ".json"});
    if (target.IsDrawn()) TheDrawing();
    BulkRun run(options, host, target);
    const CurveRequest request = RequestOf(kind);
    return run.Run([&](const std::string& file) { return CurveOf(file, request, target); });
}

}  // namespace tarvokol::cli
