// SPDX-License-Identifier: GPL-3.0-or-later
// What the page of the risk asks for and what comes of it: the spread of the factors where figures are known within bounds
// only.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "core/engine/panel.h"
#include "core/studies/risk_study.h"
#include "core/studies/spread_picture.h"
#include "core/studies/study_observer.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

// A distribution as it can be chosen: its name, and the names of its figures: "lognormal", {"MEAN", "SD"}. All of them are
// made of KnownDistributions, but for measured values, which stand in a file.
struct DistributionForm {
    std::string name;
    std::vector<std::string> figures;
};
std::vector<DistributionForm> DistributionForms();

// What is wrong with row number i of the plan, empty where nothing is.
std::string FaultOfRow(const RiskPlan& plan, std::size_t i, const Panel& panel);

// The same of correlation number i, once no row is at fault.
std::string FaultOfCorrelation(const RiskPlan& plan, std::size_t i, const Panel& panel);

struct RiskReading {
    SpreadPicture picture;
    std::array<FactorRisk, kFactors> risk;
    std::vector<std::string>
        design_points;  // a line for each target that is rare, where the plan asks for them
};

// The reading, or in words why there is none; nothing of both where the observer ended it.
using RiskOutcome = std::variant<std::monostate, RiskReading, std::string>;

// Draws and calculates, on so many threads. Raises nothing.
RiskOutcome CalculateRisk(const RiskPlan& plan, const Panel& panel, const std::string& title,
                          unsigned threads, StudyObserver& observer);

// A row for each factor: mean, standard deviation, quantiles, and the probabilities below its targets with their intervals.
std::string CsvOfRisk(const RiskReading& reading);

// The line of the command line that draws the same picture of the project's file, or tells its design points.
std::string CommandOfRisk(const RiskPlan& plan, const std::string& project_path);

}  // namespace tarvokol
