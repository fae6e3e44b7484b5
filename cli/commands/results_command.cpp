// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/drawing.h"
#include "cli/output/project_json.h"
#include "core/project/input_check.h"
#include "core/project/project_file.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/report/report_builder.h"
#include "core/settings/unit_system.h"

namespace tarvokol::cli {
namespace {

// The results as the analysis leaves them; to be taken before the report puts them into output units.
void AddResults(JsonMembers& keys) {
    const AnalysisState& state = WorkingParameters;
    const long pillars = state.CalcHoles;
    keys.Add("StabilityFactor", state.StabilityFactor);
    keys.Add("CapacityTotal", state.CapacityTotal);
    keys.Add("DevelopmentLoad", state.DevelopmentLoad);
    keys.Add("SideAbutmentLoad", state.SideAbutmentLoad);
    keys.Add("PanelSpan", state.PanelSpan);
    keys.Add("AppliedAbutmentLoad", state.AppliedAbutmentLoad);
    keys.Add("TotalLoad", state.TotalLoad);
    keys.Add("CenterDist", state.CenterDist, pillars);
    keys.Add("PillarWidth", state.PillarWidth, pillars);
    keys.Add("PillarStrength", state.PillarStrength, pillars);
    keys.Add("PillarArea", state.PillarArea, pillars);
    keys.Add("PillarCapacity", state.PillarCapacity, pillars);
}

// The barrier, the third case, is calculated by length of pillar, as the abutment load that it carries; the
// others stand for whole pillars.
JsonMembers ResultUnits() {
    const bool english = UnitSystem == 0;
    const std::string length = english ? "ft" : "m";
    const std::string force = english ? "lbs" : "kN";
    const std::string by_length = force + '/' + length;
    const std::vector<std::string> cases{force, force, by_length};
    JsonMembers units = ProjectUnitsJson(UnitSystem);
    units.Add("CapacityTotal", cases);
    units.Add("DevelopmentLoad", cases);
    units.Add("SideAbutmentLoad", by_length);
    units.Add("PanelSpan", length);
    units.Add("AppliedAbutmentLoad", by_length);
    units.Add("TotalLoad", std::vector<std::string>{force, force, by_length, by_length});
    units.Add("CenterDist", length);
    units.Add("PillarWidth", length);
    units.Add("PillarStrength", english ? "psf" : "kPa");
    units.Add("PillarArea", length + '2');
    units.Add("PillarCapacity", force);
    return units;
}

std::string ReportText() {
    return OutputBuffers[0] + OutputBuffers[1] + OutputBuffers[2];
}

void AddPages(JsonMembers& keys) {
    keys.Add("pages", std::vector<std::string>{OutputBuffers[0], OutputBuffers[1], OutputBuffers[2]});
    keys.Add("units", ResultUnits());
}

FileResult ResultsOf(const std::string& file, bool want_keys, const OutputTarget& target) {
    FileResult result;
    result.ok = OpenProject(file);
    if (!result.ok) return result;
    if (want_keys) result.keys.Add("project", ProjectJson(DocumentOfRecords()));
    result.ok = PrepareWorkingParameters();
    if (!result.ok) return result;
    RunStabilityAnalysis();
    if (want_keys) AddResults(result.keys);
    WriteStabilitySection();
    WritePillarSection();
    LoadOutBuf0(LastOutputPage);
    if (want_keys) AddPages(result.keys);
    result.text = ReportText();
    if (target.Format() == ".txt") target.WriteBytes(target.PathFor(file), result.text);
    if (target.Format() == ".pdf")
        target.Write(target.PathFor(file),
                     [&](const std::string& path) { TheDrawing().PrintToPdf(path, result.text); });
    return result;
}

class Results : public Command {
  public:
    std::string Name() const override { return "results"; }
    std::string Summary() const override { return "Input check, analysis and report"; }

    void Describe(CommandOptions& options) override {
        AddFiles(options, options_, "Write the report: .txt, .pdf or .json, or a folder",
                 {"txt", "pdf", "json", "jsonl"});
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".txt", ".pdf", ".json", ".jsonl"});
        if (target.IsDrawn()) TheDrawing();
        BulkRun run(options_, host, target);
        const bool want_keys = options_.json || target.Format() == ".json";
        return run.Run([&](const std::string& file) { return ResultsOf(file, want_keys, target); });
    }
};

}  // namespace

std::unique_ptr<Command> ResultsCommand() {
    return std::make_unique<Results>();
}

}  // namespace tarvokol::cli
