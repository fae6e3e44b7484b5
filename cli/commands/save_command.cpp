// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/bulk_run.h"
#include "cli/commands/commands.h"

namespace tarvokol::cli {

int RunSave(const Options& options, HeadlessPlatform& host) {
    if (options.output.empty()) throw UsageError{"-o is required: the file or folder to write"};
    const OutputTarget target(options, {});
    BulkRun run(options, host, target);
    return run.Run([&](const std::string& file) {
        FileResult result;
        result.ok = OpenProject(file);
        if (!result.ok) return result;
        const std::string output = target.PathFor(file);
        result.keys.Add("output", output);
        result.keys.Add("project", ProjectJson());
        result.keys.Add("units", ProjectUnitsJson());
        target.WriteProject(output);
        return result;
    });
}

}  // namespace tarvokol::cli
