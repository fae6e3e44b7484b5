// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of tarvokol-cli, one file each. Every one returns the exit status and raises UsageError.
#pragma once

#include <string>

#include "cli/commands/study_options.h"
#include "cli/line/options.h"
#include "core/headless/headless_platform.h"

namespace tarvokol::cli {

int RunResults(const Options& options, HeadlessPlatform& host);

int RunSize(const Options& options, HeadlessPlatform& host);

// `kind` is one of sf-height, sf-depth, sf-hole, web, barrier.
int RunCurve(const Options& options, HeadlessPlatform& host, const std::string& kind);

// `mode` is dimensions, strength or capacity; `view` is window or preview.
int RunPlan(const Options& options, HeadlessPlatform& host, const std::string& mode, const std::string& view);

// `target` is english or metric.
int RunConvert(const Options& options, HeadlessPlatform& host, const std::string& target);

int RunSave(const Options& options, HeadlessPlatform& host);

// Studies: a grid of panels, a table of panels, the probability of factors below their targets.
int RunSweep(const StudyOptions& options, HeadlessPlatform& host);
int RunTable(const StudyOptions& options, HeadlessPlatform& host);
int RunRiskCommand(const StudyOptions& options, HeadlessPlatform& host);

// `quantity` is length, load, load-grad, stress or stress-grad; `unit` an option caption.
int RunUnits(bool json, const std::string& quantity, const std::string& unit, const std::string& value);

// Reads the configuration file over the built-in values; an empty path stands for none. Raises UsageError for
// one that cannot be read.
void ReadConfiguration(const std::string& ini_path);

// `ini_path` may be empty: the built-in values.
int RunSettings(bool json, const std::string& ini_path);

}  // namespace tarvokol::cli
