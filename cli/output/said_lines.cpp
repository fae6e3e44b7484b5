// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/said_lines.h"

#include <iostream>

#include <unistd.h>

#include "core/runtime/shown_text.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kLayout = "\n\t";

}  // namespace

void Say(const std::string& line) {
    std::cerr << WithControlsShown(line) << '\n';
}

void SayOf(const std::string& name, const std::string& text) {
    std::cerr << WithControlsShown(name) << ": " << WithControlsShown(text, kLayout) << '\n';
}

std::string ForStandardOutput(const std::string& text) {
    return ::isatty(STDOUT_FILENO) == 0 ? text : WithControlsShown(text, kLayout);
}

}  // namespace tarvokol::cli
