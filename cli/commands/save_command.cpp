// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"

namespace tarvokol::cli {
namespace {

FileResult SaveOne(const std::string& file, const OutputTarget& target, FileMessages& messages) {
    FileResult result;
    const auto document = DocumentAt(file, messages);
    result.ok = document.has_value();
    if (!result.ok) return result;
    const std::string output = target.PathFor(file);
    AddWrittenProject(result, *document, file, output, target);
    return result;
}

class Save : public Command {
  public:
    std::string Name() const override { return "save"; }
    std::string Summary() const override { return "Read a project and write it again"; }

    void Describe(CommandOptions& options) override {
        AddFiles(options, options_, "The file or folder to write (required)", {});
        AddThreads(options, options_);
    }

    int Run(HeadlessPlatform& host) override {
        if (options_.output.empty()) throw UsageError{"-o is required: the file or folder to write"};
        const OutputTarget target(options_, {});
        BulkRun run(options_, host, target);
        return run.RunOnThreads(
            [&](const std::string& file, FileMessages& messages) { return SaveOne(file, target, messages); },
            PathsOf(target));
    }
};

}  // namespace

std::unique_ptr<Command> SaveCommand() {
    return std::make_unique<Save>();
}

}  // namespace tarvokol::cli
