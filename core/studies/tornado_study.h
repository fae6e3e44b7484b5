// SPDX-License-Identifier: GPL-3.0-or-later
// What each uncertain field moves: the factors at its low and its high values, all other fields at their medians.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/studies/picture_parts.h"
#include "core/studies/risk_study.h"
#include "core/studies/spread_picture.h"

namespace tarvokol {

// The shares of a field's figures below its low and its high value.
constexpr double kTornadoLow = 0.05;
constexpr double kTornadoHigh = 0.95;

// A factor at the low and at the high value of a field; NaN where that panel is refused.
struct TornadoBar {
    double low = 0;
    double high = 0;

    // How far apart both are; NaN where one of them is none.
    double Span() const { return high > low ? high - low : low - high; }
};

// By the fields of the request. A correlation changes nothing: one field is moved at a time.
struct TornadoResult {
    std::vector<TornadoBar> fields;         // their low and high values, as the panel keeps them
    std::array<double, kFactors> middle{};  // all fields at their medians
    std::array<std::vector<TornadoBar>, kFactors> factors;
    std::string message;  // why the first refused panel was
};

TornadoResult RunTornado(const RiskRequest& request);

struct TornadoRow {
    std::string field;  // "In situ coal strength"
    std::string low;    // its low value with its unit: "695.1 psi"
    std::string high;
    TornadoBar bar;
};

// One factor.
struct TornadoPanel {
    PictureAxis x;                      // with room round all bars
    double middle = 0;                  // the factor with all fields at their medians
    std::vector<TornadoRow> rows;       // the longest bar first; fields without a bar left out
    std::vector<SpreadTarget> targets;  // that of the factor, if it is on x
};

struct TornadoPicture {
    std::string title;
    std::vector<std::string> words;    // distributions, and what a bar is
    std::vector<TornadoPanel> panels;  // one below the other
};

// Raises NothingToShow where no field has a bar.
TornadoPicture TornadoOf(const RiskRequest& request, const TornadoResult& result, const std::string& title);

}  // namespace tarvokol
