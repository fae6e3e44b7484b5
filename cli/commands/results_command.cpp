// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>
#include <utility>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/drawing.h"
#include "cli/output/project_json.h"
#include "core/engine/engine.h"
#include "core/project/project_document.h"
#include "core/report/report_builder.h"
#include "core/report/report_pages.h"

namespace tarvokol::cli {
namespace {

// The results as the analysis leaves them, before output units.
void AddResults(JsonMembers& keys, const PanelAnalysis& state) {
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
JsonMembers ResultUnits(int16_t unit_system) {
    const bool english = unit_system == 0;
    const std::string length = english ? "ft" : "m";
    const std::string force = english ? "lbs" : "kN";
    const std::string by_length = force + '/' + length;
    const std::vector<std::string> cases{force, force, by_length};
    JsonMembers units = ProjectUnitsJson(unit_system);
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

void AddPages(JsonMembers& keys, const ReportPages& pages, int16_t unit_system) {
    keys.Add("pages", std::vector<std::string>{pages.inputs, pages.factors, pages.pillars});
    keys.Add("units", ResultUnits(unit_system));
}

// The project with the center distances that the check builds, and its analysis; nothing, with its message, for one that
// the check refuses. Raises the errors of both.
std::optional<Analysis> AnalysisOf(ProjectDocument& project, FileMessages& messages) {
    Analysis analysis{{}, static_cast<Units>(project.unit_system)};
    if (const auto refusal = CheckPanel(project.inputs, analysis.units, analysis)) {
        messages.push_back(refusal->Message());
        return std::nullopt;
    }
    AnalysePanel(analysis);
    return analysis;
}

class Results : public Command {
  public:
    std::string Name() const override { return "results"; }
    std::string Summary() const override { return "Input check, analysis and report"; }

    void Describe(CommandOptions& options) override {
        AddFiles(options, options_, "Write the report: .txt, .pdf or .json, or a folder",
                 {"txt", "pdf", "json", "jsonl"});
        AddThreads(options, options_);
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".txt", ".pdf", ".json", ".jsonl"});
        if (target.IsDrawn()) TheDrawing();
        BulkRun run(options_, host, target);
        run.FreshProgram();
        const ReportSettings settings = ReportSettingsInUse();
        return run.RunOnThreads(
            [&](const std::string& file, FileMessages& messages) {
                return ResultsOf(file, settings, {run, target}, messages);
            },
            PathsOf(target));
    }

  private:
    struct Outputs {
        BulkRun& run;
        const OutputTarget& target;
    };

    FileResult ResultsOf(const std::string& file, const ReportSettings& settings, const Outputs& outputs,
                         FileMessages& messages) const {
        FileResult result;
        auto project = DocumentAt(file, messages);
        result.ok = project.has_value();
        if (!result.ok) return result;
        const bool want_keys = options_.json || outputs.target.Format() == ".json";
        if (want_keys) result.keys.Add("project", ProjectJson(*project));
        const auto analysis = AnalysisOf(*project, messages);
        result.ok = analysis.has_value();
        if (!result.ok) return result;
        if (want_keys) AddResults(result.keys, *analysis);
        const ReportPages pages = PagesOf(file, *project, *analysis, settings);
        if (want_keys) AddPages(result.keys, pages, project->unit_system);
        result.text = pages.inputs + pages.factors + pages.pillars;
        const std::string& format = outputs.target.Format();
        if (format == ".txt" || format == ".pdf")
            result.hand_in = [outputs, file, read = std::move(*project)](const FileResult& report,
                                                                         const FileMessages&) {
                WriteReport(outputs, file, read, report.text);
            };
        return result;
    }

    // A printed report is drawn by the program that has the project open.
    static void WriteReport(const Outputs& outputs, const std::string& file, const ProjectDocument& project,
                            const std::string& text) {
        const std::string path = outputs.target.PathFor(file);
        if (outputs.target.Format() == ".txt") {
            outputs.target.WriteBytes(path, text);
            return;
        }
        outputs.run.OpenInRecords(file, project);
        outputs.target.Write(path,
                             [&text](const std::string& place) { TheDrawing().PrintToPdf(place, text); });
    }
};

}  // namespace

std::unique_ptr<Command> ResultsCommand() {
    return std::make_unique<Results>();
}

}  // namespace tarvokol::cli
