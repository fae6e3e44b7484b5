// SPDX-License-Identifier: GPL-3.0-or-later
#include <utility>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "core/engine/panel_texts.h"
#include "core/project/parameter_texts.h"
#include "core/project/pillar_sizing.h"

namespace tarvokol::cli {
namespace {

JsonMembers SizeUnits(const std::string& shown) {
    JsonMembers units;
    for (const char* raw : {"SuggestedWeb", "SuggestedBarrier"}) units.Add(raw, "in");
    for (const char* text : {"txtSugWeb", "txtSugBarrier"}) units.Add(text, shown);
    return units;
}

FileResult SizesOf(const std::string& file, FileMessages& messages) {
    FileResult result;
    const auto project = DocumentAt(file, messages);
    result.ok = project.has_value();
    if (!result.ok) return result;
    ParameterTexts texts = TextsOfRecord(project->inputs);
    const int16_t holes = project->inputs.NumberHoles;
    for (std::string& fault : FaultsOfLoadedHoles(holes)) messages.push_back(std::move(fault));
    texts.txtNumberHoles = LoadedHolesText(holes);
    const auto refusal = RefusalOfSizing(texts);
    result.ok = !refusal;
    if (refusal) messages.push_back(refusal->message);
    if (!result.ok) return result;
    SizingParameters block{};
    const SuggestedSizes sizes = SuggestPillarSizes(
        static_cast<Units>(project->unit_system), texts, block, [&messages](const SizingOutcome& outcome) {
            if (!outcome.Solved()) messages.push_back(SizingFailureMessage(outcome.failure));
        });
    result.keys.Add("SuggestedWeb", static_cast<double>(sizes.SuggestedWeb));
    result.keys.Add("SuggestedBarrier", static_cast<double>(sizes.SuggestedBarrier));
    result.keys.Add("txtSugWeb", sizes.txtSugWeb);
    result.keys.Add("txtSugBarrier", sizes.txtSugBarrier);
    const std::string unit = project->unit_system == 0 ? "ft" : "in";
    result.keys.Add("units", SizeUnits(unit));
    result.text = file + ": Suggested web thickness " + sizes.txtSugWeb + " " + unit +
                  ", suggested barrier thickness " + sizes.txtSugBarrier + " " + unit + "\n";
    result.comment = SuggestedUnitNote(project->unit_system);
    return result;
}

class Size : public Command {
  public:
    std::string Name() const override { return "size"; }
    std::string Summary() const override {
        return "Suggested web and barrier sizes, of a metric project in inches";
    }

    void Describe(CommandOptions& options) override {
        AddFiles(options, options_, "Write the sizes: .json, or a folder", {"json", "jsonl"});
        AddThreads(options, options_);
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".json", ".jsonl"});
        BulkRun run(options_, host, target);
        return run.RunOnThreads(SizesOf, PathsOf(target));
    }
};

}  // namespace

std::unique_ptr<Command> SizeCommand() {
    return std::make_unique<Size>();
}

}  // namespace tarvokol::cli
