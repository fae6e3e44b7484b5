// SPDX-License-Identifier: GPL-3.0-or-later
// tarvokol-cli of a system without the toolkit: everything but pictures, PDF and workbooks.
#include "cli/commands/commands.h"
#include "cli/line/command_line.h"
#include "cli/output/drawing.h"

namespace tarvokol::cli {

Drawing& TheDrawing() {
    throw UsageError{
        "-o: .png, .svg, .pdf and .xlsx are not written by this tarvokol-cli, which was built without the "
        "toolkit"};
}

}  // namespace tarvokol::cli

int main(int argc, char** argv) {
    return tarvokol::cli::RunCommandLine(tarvokol::cli::AllCommands(), argc, argv);
}
