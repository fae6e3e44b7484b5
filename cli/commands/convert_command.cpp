// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "cli/output/project_json.h"
#include "core/files/file_system.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/file_conversion.h"

namespace tarvokol::cli {
namespace {

constexpr int16_t kEnglish = 0;
constexpr int16_t kMetric = 1;

// A name beside the original.
std::string BesideOriginal(const std::string& original, const std::string& name) {
    return (std::filesystem::path(original).parent_path() / name).string();
}

FileResult ConvertOne(const std::string& file, const std::string& target_name, const OutputTarget& target) {
    FileResult result;
    auto document = DocumentAt(file);
    result.ok = document.has_value();
    if (!result.ok) return result;
    const bool to_metric = target_name == "metric";
    const int16_t units = to_metric ? kMetric : kEnglish;
    if (document->unit_system == units) {
        Notify(std::string("The project is already in ") + (to_metric ? "Metric" : "English") + " units",
               box_style::Plain);
        result.ok = false;
        return result;
    }
    ConvertInputs(document->inputs, units);
    document->unit_system = units;
    const std::string name = ConvertedName(file, units);
    const std::string output = target.ToFile() ? target.PathFor(file, name) : BesideOriginal(file, name);
    result.keys.Add("output", output);
    result.keys.Add("project", ProjectJson(*document));
    result.keys.Add("units", ProjectUnitsJson(document->unit_system));
    target.WriteBytes(output, BytesOfDocument(*document), file);
    if (!target.ToStandardOutput()) result.note = file + ": " + output + "\n";
    return result;
}

class Convert : public Command {
  public:
    std::string Name() const override { return "convert"; }
    std::string Summary() const override { return "Convert a project to the other unit system and save it"; }

    void Describe(CommandOptions& options) override {
        options.Text({.spelling = "--to",
                      .help = "Target unit system",
                      .required = true,
                      .choices = {"english", "metric"}},
                     unit_system_);
        AddFiles(options, options_, "The file or folder to write (default: beside the original)", {});
    }

    int Run(HeadlessPlatform& host) override {
        if (options_.stdin_project && options_.output.empty())
            throw UsageError{"--stdin-project: name the converted project with -o, - for standard output"};
        const OutputTarget target(options_, {});
        BulkRun run(options_, host, target);
        return run.Run([&](const std::string& file) { return ConvertOne(file, unit_system_, target); });
    }

  private:
    std::string unit_system_;
};

}  // namespace

std::unique_ptr<Command> ConvertCommand() {
    return std::make_unique<Convert>();
}

}  // namespace tarvokol::cli
