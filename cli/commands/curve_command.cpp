// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>
#include <utility>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/drawing.h"
#include "core/engine/engine.h"
#include "core/files/csv_writer.h"
#include "core/graphics/chart_model.h"
#include "core/graphics/curve_export.h"
#include "core/graphics/curve_words.h"
#include "core/graphics/graph_setup.h"
#include "core/project/curves.h"
#include "core/project/project_document.h"
#include "core/settings/options_record.h"

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

// What the curves of every FILE are made by, as the program's settings stand.
struct CurveSettings {
    CurveRequest request{};
    PlotRange range{};
    CurveNaming naming{};
    bool bare_header = false;
    bool one_table = false;  // the curves of all projects, which names the project in front of each row
};

// The curves of one project, and what they are called.
struct NamedCurves {
    CurveValues values{};
    CurveWords words{};
};

void Compute(const CurveRequest& request, const PlotRange& range, const Panel& panel, PanelAnalysis& analysis,
             CurveValues& curves, FileMessages& messages) {
    const auto index = static_cast<int16_t>(request.index);
    if (request.family == GraphFamily::Stability) {
        curves.StabilityCurveKind = index;
        StabilityCurve(analysis, panel.units, static_cast<VariedInput>(index), range, curves);
        curves.CurveCount = 3;
        return;
    }
    curves.SizingCurveKind = index;
    SizingParameters block{};
    SizeOverDepth(panel, index == 0 ? SizedPillar::Web : SizedPillar::Barrier, range, block, curves,
                  [&messages](const SizingOutcome& outcome) {
                      if (!outcome.Solved()) messages.push_back(SizingFailureMessage(outcome.failure));
                  });
    curves.CurveCount = 1;
}

// Nothing, with its message, for a project that the check refuses. Raises what the check and the curve raise.
std::optional<NamedCurves> CurvesOf(ProjectDocument& project, const CurveSettings& settings,
                                    FileMessages& messages) {
    const auto units = static_cast<Units>(project.unit_system);
    PanelAnalysis analysis;
    if (const auto refusal = CheckPanel(project.inputs, units, analysis)) {
        messages.push_back(refusal->Message());
        return std::nullopt;
    }
    const CurveRequest& request = settings.request;
    NamedCurves curves;
    Compute(request, settings.range, {project.inputs, units}, analysis, curves.values, messages);
    curves.words = WordsOfGraph(settings.naming, request.family, request.index, project.unit_system);
    return curves;
}

JsonValues ColumnsJson(const CurveValues& curves) {
    JsonValues columns;
    for (int column = 0; column <= curves.CurveCount; ++column) {
        JsonValues values;
        for (long row = 1; row <= curves.points; ++row)
            values.Add(static_cast<double>(curves.table(column, row)));
        columns.Add(values);
    }
    return columns;
}

void AddCurves(JsonMembers& keys, const NamedCurves& curves, int16_t unit_system) {
    keys.Add("CurveCount", curves.values.CurveCount);
    keys.Add("CurvePoints", curves.values.points);
    keys.Add("CurveData", ColumnsJson(curves.values));
    keys.Add("CurveNames", curves.words.names);
    keys.Add("XAxisTitle", curves.words.x_title);
    keys.Add("YAxisTitle", curves.words.y_title);
    JsonMembers units;
    units.Add("X", unit_system == 0 ? "ft" : "m");
    for (const std::string& name : curves.words.names) units.Add(name, curves.words.unit);
    keys.Add("units", units);
}

// The curves as CSV, the columns with their unit where they have one and it is asked for.
std::string CsvOf(const NamedCurves& curves, const CurveSettings& settings, const std::string& file) {
    const CurveWords& words = curves.words;
    std::vector<std::string> names = words.names;
    if (!settings.bare_header)
        for (std::string& name : names) name = TitleWithUnit(name, words.unit);
    const std::string x_name = settings.bare_header ? TakenApart(words.x_title).name : words.x_title;
    return CurveTableCsv(curves.values.table, curves.values.points, curves.values.CurveCount, x_name, names,
                         settings.one_table ? file : "");
}

// One table of the curves of all projects, in the units of its first.
class CurveTableOfAll {
  public:
    // The project's curves without the header that the table has already; false, with its message, for a project in
    // other units.
    bool Take(std::string& csv, int16_t unit_system, FileMessages& messages) {
        if (!unit_system_) {
            unit_system_ = unit_system;
            return true;
        }
        if (*unit_system_ == unit_system) {
            csv.erase(0, csv.find('\n') + 1);
            return true;
        }
        const std::string system = unit_system == 0 ? "English" : "Metric";
        messages.push_back("The project is in " + system +
                           " units and the table in others; run it by itself, or convert it");
        return false;
    }

  private:
    std::optional<int16_t> unit_system_;
};

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
        AddThreads(options, options_);
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".csv", ".xlsx", ".png", ".svg", ".pdf", ".json", ".jsonl"});
        if (target.IsDrawn()) TheDrawing();
        BulkRun run(options_, host, target);
        run.FreshProgram();
        const CurveSettings settings{RequestOf(kind_),
                                     {OptionsRecord.PlotRangeMin, OptionsRecord.PlotRangeMax},
                                     CurveNamingInUse(),
                                     bare_header_,
                                     !options_.json && run.ProjectsGoTogether()};
        CurveTableOfAll table;
        return run.RunOnThreads(
            [&](const std::string& file, FileMessages& messages) {
                return CurveOf(file, settings, {run, target, table}, messages);
            },
            PathsOf(target));
    }

  private:
    struct Outputs {
        BulkRun& run;
        const OutputTarget& target;
        CurveTableOfAll& table;
    };

    static FileResult CurveOf(const std::string& file, const CurveSettings& settings, const Outputs& outputs,
                              FileMessages& messages) {
        FileResult result;
        auto project = DocumentAt(file, messages);
        result.ok = project.has_value();
        if (!result.ok) return result;
        auto curves = CurvesOf(*project, settings, messages);
        result.ok = curves.has_value();
        if (!result.ok) return result;
        AddCurves(result.keys, *curves, project->unit_system);
        result.text = CsvOf(*curves, settings, file);
        result.comment = curves->words.note;
        const std::string& format = outputs.target.Format();
        if (settings.one_table || format == ".csv")
            result.hand_in = [outputs, file, one_table = settings.one_table, system = project->unit_system](
                                 FileResult& told, FileMessages& said) {
                told.ok = !one_table || outputs.table.Take(told.text, system, said);
                if (!told.ok) told.text = told.comment = "";
                if (told.ok && outputs.target.ToFile())
                    outputs.target.WriteBytes(outputs.target.PathFor(file), told.text);
            };
        else if (outputs.target.ToFile() && format != ".json")
            result.hand_in = [outputs, file, request = settings.request, read = std::move(*project)](
                                 const FileResult&, const FileMessages&) {
                outputs.run.OpenInRecords(file, read);
                Draw(outputs.target, outputs.target.PathFor(file), request);
            };
        return result;
    }

    // Draws the curves of the open project, as the program draws its own.
    static void Draw(const OutputTarget& target, const std::string& path, const CurveRequest& request) {
        if (request.family == GraphFamily::Stability)
            ComputeStabilityCurves(request.index);
        else
            ComputeSizingCurve(request.index);
        target.Write(path, [&](const std::string& name) {
            if (target.Format() != ".xlsx") {
                TheDrawing().DrawCurves(name, request.family, request.index);
                return;
            }
            ChartModel chart;
            InitGraph(chart, request.family, request.index);
            DrawCurves(chart, request.family);
            ExportCurves(chart, request.family, *TheDrawing().CurveWorkbook(name));
        });
    }

    std::string kind_;
    bool bare_header_ = false;
};

}  // namespace

std::unique_ptr<Command> CurveCommand() {
    return std::make_unique<Curve>();
}

}  // namespace tarvokol::cli
