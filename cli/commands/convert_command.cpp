// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"
#include "core/files/file_system.h"
#include "core/project/file_conversion.h"

namespace tarvokol::cli {
namespace {

constexpr int16_t kEnglish = 0;
constexpr int16_t kMetric = 1;

// A name beside the original.
std::string BesideOriginal(const std::string& original, const std::string& name) {
    return (std::filesystem::path(original).parent_path() / name).string();
}

std::string OutputOf(const std::string& file, int16_t units, const OutputTarget& target) {
    const std::string name = ConvertedName(file, units);
    return target.ToFile() ? target.PathFor(file, name) : BesideOriginal(file, name);
}

FileResult ConvertOne(const std::string& file, int16_t units, const OutputTarget& target,
                      FileMessages& messages) {
    FileResult result;
    auto document = DocumentAt(file, messages);
    result.ok = document.has_value();
    if (!result.ok) return result;
    if (document->unit_system == units) {
        messages.push_back(std::string("The project is already in ") +
                           (units == kMetric ? "Metric" : "English") + " units");
        result.ok = false;
        return result;
    }
    ConvertInputs(document->inputs, units);
    document->unit_system = units;
    const std::string output = OutputOf(file, units, target);
    AddWrittenProject(result, *document, file, output, target);
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
        AddThreads(options, options_);
    }

    int Run(HeadlessPlatform& host) override {
        if (options_.stdin_project && options_.output.empty())
            throw UsageError{"--stdin-project: name the converted project with -o, - for standard output"};
        const OutputTarget target(options_, {});
        BulkRun run(options_, host, target);
        const int16_t units = unit_system_ == "metric" ? kMetric : kEnglish;
        return run.RunOnThreads(
            [&](const std::string& file, FileMessages& messages) {
                return ConvertOne(file, units, target, messages);
            },
            [&](const std::string& file) { return OutputOf(file, units, target); });
    }

  private:
    std::string unit_system_;
};

}  // namespace

std::unique_ptr<Command> ConvertCommand() {
    return std::make_unique<Convert>();
}

}  // namespace tarvokol::cli
