// SPDX-License-Identifier: GPL-3.0-or-later
// Requests of studies as short texts, for tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/statistics/study_numbers.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_names.h"
#include "core/studies/value_axis.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {

// "Height=1:3:1".
inline ValueAxis AxisOf(std::string_view text) {
    const std::size_t equals = text.find('=');
    return ValueAxis::Parse(RequiredField(text.substr(0, equals)), text.substr(equals + 1));
}

// "Height=uniform:5:7".
inline void AddRandom(RiskRequest& request, std::string_view text) {
    const std::size_t equals = text.find('=');
    request.AddField(RequiredField(text.substr(0, equals)), text.substr(equals + 1));
}

// "Height,HoleWidth=0.5".
inline void Correlate(RiskRequest& request, std::string_view text) {
    const std::size_t comma = text.find(',');
    const std::size_t equals = text.find('=');
    request.AddCorrelation(RequiredField(text.substr(0, comma)),
                           RequiredField(text.substr(comma + 1, equals - comma - 1)),
                           RequiredNumber(text.substr(equals + 1)));
}

// Of the worked panel, with these random fields.
inline RiskRequest WorkedRisk(const std::vector<const char*>& fields, std::uint32_t samples = 100000) {
    RiskRequest request;
    request.panel = WorkedPanel();
    request.samples = samples;
    for (const char* field : fields) AddRandom(request, field);
    return request;
}

}  // namespace tarvokol
