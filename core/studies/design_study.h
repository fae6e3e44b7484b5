// SPDX-License-Identifier: GPL-3.0-or-later
// Which value of a field keeps the probability of a factor below its target within a demand, when other figures are
// uncertain: "how wide must the web be so that it stands below 1.6 in at most one panel of twenty?"
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/statistics/probability_interval.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_figures.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

// One value to be found.
struct DesignDemand {
    PanelField field = PanelField::WebThickness;
    AskedTarget target;
    double probability = 0;  // of the factor below its target, at most
    double low = 0;          // the range that is searched, in the panel's units
    double high = 0;
};

struct DesignRequest {
    RiskRequest risk;  // panel, random fields, samples, seed, threads
    std::vector<DesignDemand>
        demands;      // solved in the order of PanelField: a web before the barrier beside it
    double step = 0;  // found values are rounded to its multiples, to the safe side; 0: they are not

    // Adds a value to be found, in the field's range: a tenth of the project's own to ten times it; 1 to 20 holes, 1 to 89
    // degrees. Raises StudyRefusal for a field that is drawn or sought twice, a figure that is no factor, a
    // target that is not above 0, and a probability that is not between 0 and 1 or rarer than ten of the samples.
    void AddDemand(PanelField field, const StudyFigure& factor, double target, double probability);

    // Another range of a field that is sought. Raises StudyRefusal for one that is not, that does not rise, and that the field
    // cannot hold.
    void SetRange(PanelField field, double low, double high);

    // Raises StudyRefusal for a step that is not above 0.
    void SetStep(double width);
};

// A value and how likely the factor lies below its target there, a refused panel counted as below.
struct DesignPoint {
    double value = 0;
    Share below;
    std::uint64_t refused = 0;
};

struct FoundValue {
    DesignDemand demand;
    bool falls =
        true;  // the probability falls as the value rises; else the value is the greatest that meets the demand
    double value = 0;  // where the probability meets the demand, to a millionth of the value
    double low = 0;    // what 95 % of all sets of samples leave for it
    double high = 0;
    double used = 0;                 // rounded to a step
    DesignPoint before;              // the panel as it was
    DesignPoint after;               // at `used`, with all that was found
    std::vector<DesignPoint> curve;  // in rising order, around the value
};

struct DesignResult {
    std::vector<FoundValue> found;  // in the order in which they were found
    Share any;                  // of the panel with all that was found: at least one factor below its target
    std::uint64_t refused = 0;  // in that panel
};

// No value in a field's range meets the demand, or all do, or it is met and missed several times. The fault says at which end
// and what the probability is there.
class NoSuchValue : public StudyRefusal {
  public:
    using StudyRefusal::StudyRefusal;
};

// Finds the values by common random numbers: all panels have the same samples, so that the probability differs by the panel alone.
// Nothing if the observer ended it early. Same request, same bits, for any number of threads. The interval ends where the ends
// of the probability's own interval meet the demand. Raises StudyRefusal for correlations that contradict one another and a
// field that does not move the factor, and NoSuchValue.
std::optional<DesignResult> RunDesign(const DesignRequest& request, StudyObserver& observer);

// The same without anybody who looks on.
DesignResult RunDesign(const DesignRequest& request);

}  // namespace tarvokol
