// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "core/engine/panel_texts.h"
#include "core/messages/titles.h"
#include "core/project/parameter_texts.h"
#include "core/project/parameter_validation.h"
#include "core/project/pillar_sizing.h"
#include "core/project/project_record.h"

namespace tarvokol::cli {
namespace {

// The dialog's titles, as it sets them when it loads.
constexpr int kParametersTitles = 2;

FileResult SizesOf(const std::string& file) {
    FileResult result;
    result.ok = OpenProject(file);
    if (!result.ok) return result;
    SetMessageTitles(kParametersTitles);
    ParameterTexts texts = TextsOfRecord(ProjectRecord);
    texts.txtNumberHoles = HolesTextAfterLoad(ProjectRecord.NumberHoles);
    result.ok = !ValidateSizingTexts(texts).has_value();
    if (!result.ok) return result;
    const SuggestedSizes sizes = SuggestPillarSizes(texts);
    result.keys.Add("SuggestedWeb", static_cast<double>(sizes.SuggestedWeb));
    result.keys.Add("SuggestedBarrier", static_cast<double>(sizes.SuggestedBarrier));
    result.keys.Add("txtSugWeb", sizes.txtSugWeb);
    result.keys.Add("txtSugBarrier", sizes.txtSugBarrier);
    const std::string unit = UnitSystem == 0 ? "ft" : "in";
    JsonMembers units;
    for (const char* raw : {"SuggestedWeb", "SuggestedBarrier"}) units.Add(raw, "in");
    for (const char* text : {"txtSugWeb", "txtSugBarrier"}) units.Add(text, unit);
    result.keys.Add("units", units);
    result.text = file + ": Suggested web thickness " + sizes.txtSugWeb + " " + unit +
                  ", suggested barrier thickness " + sizes.txtSugBarrier + " " + unit + "\n";
    if (UnitSystem != 0) result.comment = SuggestedUnitNote();
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
    }

    int Run(HeadlessPlatform& host) override {
        const OutputTarget target(options_, {".json", ".jsonl"});
        BulkRun run(options_, host, target);
        return run.Run(SizesOf);
    }
};

}  // namespace

std::unique_ptr<Command> SizeCommand() {
    return std::make_unique<Size>();
}

}  // namespace tarvokol::cli
