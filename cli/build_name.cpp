// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/build_name.h"

#include "core/report/report_builder.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kCommit = TARVOKOL_COMMIT;  // empty for sources outside of a repository

#ifdef __clang__
constexpr const char* kCompiler = "Clang " __clang_version__;
#else
constexpr const char* kCompiler = "GCC " __VERSION__;
#endif

}  // namespace

std::string BuildName() {
    std::string build = "Built";
    if (*kCommit != '\0') build += std::string(" of commit ") + kCommit;
    return "tarvokol-cli " + VersionString() + "\n" + build + " by " + kCompiler;
}

}  // namespace tarvokol::cli
