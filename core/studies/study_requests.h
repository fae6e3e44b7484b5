// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages of a study ask for, as values: the same for the window, a kept study and the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "core/studies/design_study.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_figures.h"
#include "core/studies/sweep_study.h"

namespace tarvokol {

// In the project's units.
struct FieldRange {
    double low = 0;
    double high = 1;

    bool Holds(double value) const { return value >= low && value <= high; }
    bool operator==(const FieldRange&) const = default;
};

// What is wrong with a range, empty where nothing is.
std::string FaultOfRange(PanelField field, const FieldRange& range);

// A field and where it is looked at.
struct StudyAxis {
    PanelField field = PanelField::WebThickness;
    FieldRange range;

    bool operator==(const StudyAxis&) const = default;
};

struct MapRequest {
    StudyAxis x;
    std::optional<StudyAxis> y{};  // nothing: curves over x
    const StudyFigure* figure = &kStudyFigures.front();

    bool operator==(const MapRequest&) const = default;
};

// "5:15/241", of a count "2:15:1": the values of an axis as the command line reads them.
std::string ValuesOfAxis(const StudyAxis& axis);

// Of the request for a panel. Raises StudyRefusal for a range that leads nowhere.
SweepRequest SweepOf(const MapRequest& request, const Panel& panel);

// The words that follow project and command: "--vary", "WebThickness=5:15/241", ...
std::vector<std::string> WordsOfMap(const MapRequest& request);

// A field and how it is distributed, as it is written: "lognormal:100%:15%".
struct UncertainField {
    PanelField field = PanelField::CoalStrength;
    std::string distribution;

    bool operator==(const UncertainField&) const = default;
};

struct RiskPlan {
    std::vector<UncertainField> fields;
    std::uint32_t samples = 100000;
    std::uint64_t seed = 1;
    std::vector<FieldCorrelation> correlations{};
    bool design_points = false;  // of the targets that few samples lie below

    bool operator==(const RiskPlan&) const = default;
};

// The most samples of a window: they stand in memory, some 60 bytes each.
constexpr std::uint32_t kMostPlannedSamples = 4000000;
constexpr double kLargestPlannedSeed = 9007199254740992.0;

// Of the plan for a panel. Raises StudyRefusal for a row that is none, and for a correlation that is none.
RiskRequest RequestOf(const RiskPlan& plan, const Panel& panel);

// How wide webs or barrier must be so that they are unlikely enough to fall below their targets.
struct WidthQuestion {
    PanelField field = PanelField::WebThickness;  // or that of the barrier
    std::string probability = "5%";  // as it is typed: of the factor below the project's target, at most
    std::string step{};              // the width is rounded up to its multiples; empty: it is not

    bool operator==(const WidthQuestion&) const = default;
};

// The factor that goes with a width: of webs or of the barrier.
const StudyFigure& FactorOfWidth(PanelField field);

// Of question and plan for a panel. Raises StudyRefusal for what a design study refuses.
DesignRequest RequestOf(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel);

// The words of the plan, and "--find", "WebThickness", "--until", "WebsOnly<1.6", ...
std::vector<std::string> WordsOfWidth(const WidthQuestion& question, const RiskPlan& plan,
                                      const Panel& panel);

// "--random", "CoalStrength=lognormal:100%:15%", ..., "--samples", "100000", "--seed", "1".
std::vector<std::string> WordsOfRisk(const RiskPlan& plan);

}  // namespace tarvokol
