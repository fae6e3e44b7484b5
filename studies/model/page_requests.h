// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages of the studies ask for, as one value, and what a change of it is called where it is undone.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/studies/kept_study.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

using FieldRanges = std::array<FieldRange, kPanelFields.size()>;  // in the order of PanelField

// The choices of the map; where its fields are looked at stands in their ranges.
struct MapChoice {
    PanelField x = PanelField::WebThickness;
    std::optional<PanelField> y = PanelField::DepthCover;  // nothing, or x again: curves over x
    const StudyFigure* figure = FigureNamed("WebsOnly");

    bool operator==(const MapChoice&) const = default;
};

MapRequest MapRequestOf(const MapChoice& choice, const FieldRanges& ranges);
MapChoice ChoiceOf(const MapRequest& request);

// A design of the comparison. Designs are kept once and never changed but for their names: the same panel is the same object.
struct AskedDesign {
    std::string name;
    std::shared_ptr<const Panel> panel;

    bool operator==(const AskedDesign&) const = default;
};

struct PageRequests {
    FieldRanges ranges{};
    MapChoice map;
    RiskPlan risk{{{PanelField::CoalStrength, "lognormal:100%:15%"}}};
    WidthQuestion width;
    std::vector<AskedDesign> designs;  // kMostDesigns at most

    bool operator==(const PageRequests&) const = default;
};

// How a change stands among those that can be undone.
struct StepName {
    std::string words;  // "Figure of the map"
    std::string key{};  // changes of one key that follow one another are one; empty: of its own
    std::optional<StudyPages> page{};  // where it is seen; nothing: beside every page
};

// Of two requests that differ: named for their first difference.
StepName NameOfChange(const PageRequests& before, const PageRequests& after);

}  // namespace tarvokol
