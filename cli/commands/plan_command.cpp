// SPDX-License-Identifier: GPL-3.0-or-later
#include <utility>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/drawing.h"
#include "core/files/csv_writer.h"
#include "core/graphics/TarvoGraf.h"
#include "core/graphics/recording_surface.h"
#include "core/project/input_check.h"
#include "core/project/parameter_texts.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/project/stability_analysis.h"
#include "core/report/report_builder.h"
#include "core/runtime/numbers.h"
#include "core/settings/unit_system.h"

namespace tarvokol::cli {
namespace {

struct PlanRequest {
    int16_t mode = plot_mode::Dimensions;
    bool results_needed = false;
    bool preview = false;
};

PlanRequest RequestOf(const std::string& mode, const std::string& view) {
    PlanRequest request;
    if (mode == "strength") request.mode = plot_mode::Strength;
    if (mode == "capacity") request.mode = plot_mode::Capacity;
    request.results_needed = mode != "dimensions";
    request.preview = view == "preview";
    return request;
}

// The trial record and the flags as the opener of the plan leaves them.
void PreparePlan(const PlanRequest& request) {
    if (request.preview)
        LoadPreviewFromTexts(TextsOfRecord(ProjectRecord));
    else
        LoadWorkParms();
    PlotFromResults = !request.preview;
    PlotMode = request.mode;
}

void Draw(const PlanRequest& request, DrawingSurface& surface) {
    if (request.preview)
        DrawPanelPreview(surface);
    else
        DrawPanelPlot(surface);
}

JsonValues LinesJson(const RecordingSurface& surface) {
    JsonValues lines;
    for (const auto& line : surface.Lines) {
        JsonValues ends;
        for (const double value : {line.x1, line.y1, line.x2, line.y2}) ends.Add(value);
        lines.Add(ends);
    }
    return lines;
}

JsonValues TextsJson(const RecordingSurface& surface) {
    JsonValues texts;
    for (const auto& text : surface.Texts) {
        JsonMembers members;
        members.Add("text", text.text);
        members.Add("x", text.x);
        members.Add("y", text.y);
        members.Add("rotated", text.rotated);
        texts.Add(members);
    }
    return texts;
}

std::string LengthUnit() {
    return UnitSystem == 0 ? "ft" : "m";
}

void AddPlan(JsonMembers& keys, const RecordingSurface& surface) {
    keys.Add("PlotWidth", static_cast<double>(PlotWidth));
    keys.Add("PlotHeight", static_cast<double>(PlotHeight));
    keys.Add("lines", LinesJson(surface));
    keys.Add("texts", TextsJson(surface));
    JsonMembers units;
    for (const char* key : {"PlotWidth", "PlotHeight", "lines", "texts"}) units.Add(key, LengthUnit());
    keys.Add("units", units);
}

// The corners for programs, one line per pillar.
std::string CornerCsv(const std::string& file, bool with_header) {
    std::string csv;
    CsvWriter line(csv);
    if (with_header) {
        for (const char* title :
             {"File", "Pillar", "Kind", "Unit", "X1", "Y1", "X2", "Y2", "X3", "Y3", "X4", "Y4"})
            line.AddTitle(title);
        line.EndLine();
    }
    for (int i = 1; i <= PreviewRecord.NumberHoles; ++i) {
        line.AddText(file);
        line.AddDigits(GeneralText(i));
        line.AddText(i == 1 ? "Barrier" : "Web");
        line.AddText(LengthUnit());
        for (int corner = 1; corner <= 4; ++corner) {
            line.AddDigits(GeneralText(CornerX[corner][i]));
            line.AddDigits(GeneralText(CornerY[corner][i]));
        }
        line.EndLine();
    }
    return csv;
}

// A table of the corners, one line per pillar.
std::string CornerTable() {
    std::string table = "Pillar  X1  Y1  X2  Y2  X3  Y3  X4  Y4\n";
    for (int i = 1; i <= PreviewRecord.NumberHoles; ++i) {
        table += std::string(i == 1 ? "Barrier" : "Web") + " " + GeneralText(i);
        for (int corner = 1; corner <= 4; ++corner)
            table += "  " + GeneralText(CornerX[corner][i]) + "  " + GeneralText(CornerY[corner][i]);
        table += "\n";
    }
    return table;
}

// `table_begun` tells that the header of a table of several projects stands.
FileResult PlanOf(const std::string& file, const PlanRequest& request, const OutputTarget& target,
                  bool& table_begun) {
    FileResult result;
    result.ok = OpenProject(file);
    if (!result.ok) return result;
    if (request.results_needed) {
        result.ok = PrepareWorkingParameters();
        if (!result.ok) return result;
        RunStabilityAnalysis();
        ConvertToOutputUnits();
    }
    PreparePlan(request);
    RecordingSurface surface;
    Draw(request, surface);
    result.ok = surface.Clearings > 0;  // the drawing stops before it clears where the plan has no extent
    if (!result.ok) return result;
    AddPlan(result.keys, surface);
    result.text = file + "\n" + CornerTable();
    if (target.Format() == ".csv") {
        const bool with_header = !target.IsOneTable() || !std::exchange(table_begun, true);
        target.WriteBytes(target.PathFor(file), CornerCsv(file, with_header));
    } else if (target.IsDrawn()) {
        target.Write(target.PathFor(file),
                     [&](const std::string& path) { TheDrawing().DrawPlan(path, request.preview); });
    }
    return result;
}

class Plan : public Command {
  public:
    std::string Name() const override { return "plan"; }
    std::string Summary() const override { return "The panel plan"; }

    void Describe(CommandOptions& options) override {
        options.Text({.spelling = "--mode",
                      .help = "What the pillars' labels show",
                      .shows_default = true,
                      .choices = {"dimensions", "strength", "capacity"}},
                     mode_);
        options.Text({.spelling = "--view",
                      .help = "Drawn as in the plot window or in the parameters dialog",
                      .shows_default = true,
                      .choices = {"window", "preview"}},
                     view_);
        AddFiles(options, options_, "Write the plan: .svg, .png, .pdf, .csv or .json, or a folder",
                 {"svg", "png", "pdf", "csv", "json", "jsonl"});
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".svg", ".png", ".pdf", ".csv", ".json", ".jsonl"});
        if (target.IsDrawn()) TheDrawing();
        BulkRun run(options_, host, target);
        const PlanRequest request = RequestOf(mode_, view_);
        bool table_begun = false;
        return run.Run([&](const std::string& file) { return PlanOf(file, request, target, table_begun); });
    }

  private:
    std::string mode_ = "dimensions";
    std::string view_ = "window";
};

}  // namespace

std::unique_ptr<Command> PlanCommand() {
    return std::make_unique<Plan>();
}

}  // namespace tarvokol::cli
