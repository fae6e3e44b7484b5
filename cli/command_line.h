// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarvokol::cli {

// Reads the arguments of `main` and runs the command that they name; the exit status.
int RunCommandLine(int argc, char** argv);

}  // namespace tarvokol::cli
