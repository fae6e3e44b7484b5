// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/build_name.h"

#include "core/report/report_builder.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kCommit = TARVOKOL_COMMIT;  // empty for sources outside of a repository

#ifdef __clang__
constexpr const char* kCompiler = "Clang";
constexpr int kCompilerVersion[] = {__clang_major__, __clang_minor__, __clang_patchlevel__};
#else
constexpr const char* kCompiler = "GCC";
constexpr int kCompilerVersion[] = {__GNUC__, __GNUC_MINOR__, __GNUC_PATCHLEVEL__};
#endif

std::string CompilerName() {
    std::string name = kCompiler;
    for (const int number : kCompilerVersion)
        name += (name == kCompiler ? " " : ".") + std::to_string(number);
    return name;
}

}  // namespace

std::string BuildName() {
    std::string build = "Built";
    if (*kCommit != '\0') build += std::string(" of commit ") + kCommit;
    return "tarvokol-cli " + VersionString() + "\n" + build + " by " + CompilerName();
}

}  // namespace tarvokol::cli
