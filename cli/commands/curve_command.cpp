// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/drawing.h"
#include "core/files/csv_writer.h"
#include "core/graphics/chart_model.h"
#include "core/graphics/curve_export.h"
#include "core/graphics/graph_setup.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/curves.h"
#include "core/settings/unit_system.h"

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

JsonValues ColumnsJson() {
    JsonValues columns;
    for (int column = 0; column <= CurveCount; ++column) {
        JsonValues values;
        for (long row = 1; row <= CurvePoints; ++row) values.Add(static_cast<double>(CurveData(column, row)));
        columns.Add(values);
    }
    return columns;
}

void AddCurves(JsonMembers& keys, const CurveRequest& request, const ChartModel& chart) {
    const std::vector<std::string> names = LegendNames(request.family);
    keys.Add("CurveCount", CurveCount);
    keys.Add("CurvePoints", CurvePoints);
    keys.Add("CurveData", ColumnsJson());
    keys.Add("CurveNames", names);
    keys.Add("XAxisTitle", chart.AxisTitle(ChartAxis::X));
    keys.Add("YAxisTitle", chart.AxisTitle(ChartAxis::Y));
    JsonMembers units;
    units.Add("X", UnitSystem == 0 ? "ft" : "m");
    for (const std::string& name : names) units.Add(name, CurveUnit(request.family));
    keys.Add("units", units);
}

// The names of the curves, with their unit where they have one and it is asked for.
std::vector<std::string> ColumnNames(GraphFamily family, bool bare) {
    std::vector<std::string> names = LegendNames(family);
    if (!bare)
        for (std::string& name : names) name = TitleWithUnit(name, CurveUnit(family));
    return names;
}

// Curves as CSV: those of one project, or those of all in one table, which names the project in front of each
// row.
class CurveCsv {
  public:
    CurveCsv(bool one_table, bool bare_header) : one_table_(one_table), bare_header_(bare_header) {}

    // The curve table as it stands. Nothing, told by a message, for a project whose unit system is not that
    // of the table's first.
    std::optional<std::string> Of(const std::string& file, const std::string& x_title, GraphFamily family) {
        const std::string x_name = bare_header_ ? TakenApart(x_title).name : x_title;
        if (!one_table_) return CurveTableCsv(x_name, ColumnNames(family, bare_header_));
        const std::string csv = CurveTableCsv(x_name, ColumnNames(family, bare_header_), file);
        if (!unit_system_) {
            unit_system_ = UnitSystem;
            return csv;
        }
        if (*unit_system_ == UnitSystem) return csv.substr(csv.find('\n') + 1);
        const std::string system = UnitSystem == 0 ? "English" : "Metric";
        Notify(
            "The project is in " + system + " units and the table in others; run it by itself, or convert it",
            box_style::Plain);
        return std::nullopt;
    }

  private:
    bool one_table_;
    bool bare_header_;
    std::optional<int16_t> unit_system_;
};

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

FileResult CurveOf(const std::string& file, const CurveRequest& request, const OutputTarget& target,
                   CurveCsv& table) {
    FileResult result;
    result.ok = OpenProject(file) && Compute(request);
    if (!result.ok) return result;
    ChartModel chart;
    InitGraph(chart, request.family, request.index);
    DrawCurves(chart, request.family);
    AddCurves(result.keys, request, chart);
    const auto csv = table.Of(file, chart.AxisTitle(ChartAxis::X), request.family);
    result.ok = csv.has_value();
    if (!result.ok) return result;
    result.comment = chart.Note();
    result.text = *csv;
    if (target.ToFile()) WriteCurve(target, target.PathFor(file), request, chart, result.text);
    return result;
}

class Curve : public Command {
  public:
    std::string Name() const override { return "curve"; }
    std::string Summary() const override {
        return "A parametric curve; web and barrier of a metric project in inches";
    }

    void Describe(CommandOptions& options) override {
        options.Text({.spelling = "KIND",
                      .help = "sf-height, sf-depth, sf-hole, web or barrier",
                      .required = true,
                      .choices = {"sf-height", "sf-depth", "sf-hole", "web", "barrier"}},
                     kind_);
        AddBareHeader(options, bare_header_);
        AddFiles(options, options_, "Write the curve: .csv, .xlsx, .png, .svg, .pdf or .json, or a folder",
                 {"csv", "xlsx", "png", "svg", "pdf", "json", "jsonl"});
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".csv", ".xlsx", ".png", ".svg", ".pdf", ".json", ".jsonl"});
        if (target.IsDrawn()) TheDrawing();
        BulkRun run(options_, host, target);
        const CurveRequest request = RequestOf(kind_);
        CurveCsv table(!options_.json && run.ProjectsGoTogether(), bare_header_);
        return run.Run([&](const std::string& file) { return CurveOf(file, request, target, table); });
    }

  private:
    std::string kind_;
    bool bare_header_ = false;
};

}  // namespace

std::unique_ptr<Command> CurveCommand() {
    return std::make_unique<Curve>();
}

}  // namespace tarvokol::cli
