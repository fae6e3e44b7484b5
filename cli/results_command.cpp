// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/bulk_run.h"
#include "cli/commands.h"
#include "cli/drawing.h"
#include "core/project/input_check.h"
#include "core/project/project_record.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/report/report_builder.h"

namespace tarvokol::cli {
namespace {

// The results as the analysis leaves them; to be taken before the report puts them into output units.
void AddResults(Json& keys) {
    const AnalysisState& state = WorkingParameters;
    const long pillars = state.CalcHoles;
    keys["StabilityFactor"] = ArrayJson(state.StabilityFactor);
    keys["CapacityTotal"] = ArrayJson(state.CapacityTotal);
    keys["DevelopmentLoad"] = ArrayJson(state.DevelopmentLoad);
    keys["SideAbutmentLoad"] = ArrayJson(state.SideAbutmentLoad);
    keys["PanelSpan"] = ArrayJson(state.PanelSpan);
    keys["AppliedAbutmentLoad"] = ArrayJson(state.AppliedAbutmentLoad);
    keys["TotalLoad"] = ArrayJson(state.TotalLoad);
    keys["CenterDist"] = ArrayJson(state.CenterDist, pillars);
    keys["PillarWidth"] = ArrayJson(state.PillarWidth, pillars);
    keys["PillarStrength"] = ArrayJson(state.PillarStrength, pillars);
    keys["PillarArea"] = ArrayJson(state.PillarArea, pillars);
    keys["PillarCapacity"] = ArrayJson(state.PillarCapacity, pillars);
}

std::string ReportText() {
    return OutputBuffers[0] + OutputBuffers[1] + OutputBuffers[2];
}

FileResult ResultsOf(const std::string& file, bool want_keys, const OutputTarget& target) {
    FileResult result;
    result.ok = OpenProject(file);
    if (!result.ok) return result;
    if (want_keys) result.keys["project"] = ProjectJson();
    result.ok = PrepareWorkingParameters();
    if (!result.ok) return result;
    RunStabilityAnalysis();
    if (want_keys) AddResults(result.keys);
    WriteStabilitySection();
    WritePillarSection();
    LoadOutBuf0(LastOutputPage);
    if (want_keys) result.keys["pages"] = Json{OutputBuffers[0], OutputBuffers[1], OutputBuffers[2]};
    result.text = ReportText();
    if (target.Format() == ".txt") target.WriteBytes(target.PathFor(file), result.text);
    if (target.Format() == ".pdf")
        target.Write(target.PathFor(file),
                     [&](const std::string& path) { TheDrawing().PrintToPdf(path, result.text); });
    return result;
}

}  // namespace

int RunResults(const Options& options, HeadlessPlatform& host) {
    const OutputTarget target(options, {".txt", ".pdf", ".json"});
    if (target.IsDrawn()) TheDrawing();
    BulkRun run(options, host, target);
    const bool want_keys = options.json || target.Format() == ".json";
    return run.Run([&](const std::string& file) { return ResultsOf(file, want_keys, target); });
}

}  // namespace tarvokol::cli
