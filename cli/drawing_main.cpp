// SPDX-License-Identifier: GPL-3.0-or-later
// tarvokol-cli-drawing: the same command line, linked to the toolkit. `tarvokol-cli` becomes this program
// when a picture, a PDF or a workbook is asked for.
#include "cli/commands/commands.h"
#include "cli/line/command_line.h"
#include "cli/output/toolkit_drawing.h"

namespace tarvokol::cli {

Drawing& TheDrawing() {
    static ToolkitDrawing drawing;
    return drawing;
}

}  // namespace tarvokol::cli

int main(int argc, char** argv) {
    return tarvokol::cli::RunCommandLine(tarvokol::cli::AllCommands(), argc, argv);
}
