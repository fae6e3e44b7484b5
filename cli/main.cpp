// SPDX-License-Identifier: GPL-3.0-or-later
// tarvokol-cli: the program's work without a window, for scripts and bulk runs.
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <sys/auxv.h>
#include <unistd.h>

#include "cli/commands/commands.h"
#include "cli/line/command_line.h"
#include "cli/output/drawing.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kSibling = "tarvokol-cli-drawing";

// What the sibling begins with.
char** arguments = nullptr;

// The folder of this program, empty if it does not know its own place. A system without /proc, as a bare chroot is, has the
// path by which the program was started.
std::filesystem::path OwnFolder() {
    std::error_code failure;
    auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the address over as a number
    const auto* started = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
    if (failure && started != nullptr) program = std::filesystem::canonical(started, failure);
    return failure ? std::filesystem::path() : program.parent_path();
}

// Beside this program, as in a build, or where an installation keeps it. Nowhere for a program that does not know its own
// place: the sibling is never taken from the current folder.
std::filesystem::path SiblingPath() {
    std::error_code failure;
    const std::filesystem::path folder = OwnFolder();
    if (folder.empty()) return {};
    for (const auto& place : {folder, folder / TARVOKOL_LIBEXEC_FROM_BIN})
        if (std::filesystem::is_regular_file(place / kSibling, failure)) return place / kSibling;
    return {};
}

}  // namespace

Drawing& TheDrawing() {
    const std::filesystem::path sibling = SiblingPath();
    errno = ENOENT;
    if (!sibling.empty()) ::execv(sibling.c_str(), arguments);
    std::cerr << (sibling.empty() ? kSibling : sibling.string()) << ": " << std::strerror(errno)
              << "; pictures, PDF and workbooks need it: install the package tarvokol-cli-drawing, or the "
                 "program again\n";
    ::_exit(exit_status::NotWritten);
}

}  // namespace tarvokol::cli

int main(int argc, char** argv) {
    tarvokol::cli::arguments = argv;
    return tarvokol::cli::RunCommandLine(tarvokol::cli::AllCommands(), argc, argv);
}
