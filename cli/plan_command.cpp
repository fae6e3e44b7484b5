// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/bulk_run.h"
#include "cli/commands.h"
#include "cli/drawing.h"
#include "core/project/input_check.h"
#include "core/project/parameter_texts.h"
#include "core/project/preview_record.h"
#include "core/project/stability_analysis.h"
#include "core/graphics/TarvoGraf.h"
#include "core/graphics/recording_surface.h"
#include "core/report/report_builder.h"
#include "core/runtime/numbers.h"

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

void AddPlan(Json& keys, const RecordingSurface& surface) {
    keys["PlotWidth"] = NumberJson(static_cast<double>(PlotWidth));
    keys["PlotHeight"] = NumberJson(static_cast<double>(PlotHeight));
    keys["lines"] = Json::array();
    for (const auto& line : surface.Lines)
        keys["lines"].push_back(Json::array(
            {NumberJson(line.x1), NumberJson(line.y1), NumberJson(line.x2), NumberJson(line.y2)}));
    keys["texts"] = Json::array();
    for (const auto& text : surface.Texts)
        keys["texts"].push_back(Json{{"text", text.text},
                                     {"x", NumberJson(text.x)},
                                     {"y", NumberJson(text.y)},
                                     {"rotated", text.rotated}});
}

// A table of the corners, one pillar a line.
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

FileResult PlanOf(const std::string& file, const PlanRequest& request, const OutputTarget& target) {
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
    if (target.ToFile() && target.Format() != ".json") {
        target.Write(target.PathFor(file),
                     [&](const std::string& path) { TheDrawing().DrawPlan(path, request.preview); });
    }
    return result;
}

}  // namespace

int RunPlan(const Options& options, HeadlessPlatform& host, const std::string& mode,
            const std::string& view) {
    const OutputTarget target(options, {".svg", ".png", ".pdf", ".json"});
    if (target.IsDrawn()) TheDrawing();
    BulkRun run(options, host, target);
    const PlanRequest request = RequestOf(mode, view);
    return run.Run([&](const std::string& file) { return PlanOf(file, request, target); });
}

}  // namespace tarvokol::cli
