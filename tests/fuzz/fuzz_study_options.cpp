// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as what a study is asked for: axes, distributions, correlations, names of fields and figures. A refusal is an answer;
// what is taken gives figures in its order and reads back as it is written.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/engine/panel_fields.h"
#include "core/statistics/distributions.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_names.h"
#include "core/studies/value_axis.h"

namespace tarvokol {
namespace {

void Require(bool fact) {
    if (!fact) std::abort();
}

// True if the step was not refused. Any other exception ends the run.
template <typename Step>
bool Runs(Step step) {
    try {
        step();
        return true;
    } catch (const StudyRefusal&) {
        return false;
    }
}

void TryAxis(std::string_view text) {
    Runs([&] {
        const ValueAxis axis = ValueAxis::Parse(PanelField::DepthCover, text);
        Require(axis.Count() > 0);
        Require(!std::isnan(axis[0]) && !std::isnan(axis[axis.Count() - 1]));
    });
}

void TryDistribution(std::string_view text) {
    Runs([&] {
        const DistributionPtr drawn = ParseDistribution(text, 600.0);
        const double low = drawn->Quantile(0.001), middle = drawn->Quantile(0.5),
                     high = drawn->Quantile(0.999);
        Require(low <= middle && middle <= high);
        const double share = drawn->ShareBelow(middle);
        Require(share >= 0.0 && share <= 1.0);
        const DistributionPtr again = ParseDistribution(drawn->Text(), 600.0);
        Require(again->Text() == drawn->Text());
    });
}

// "FIELD DISTRIBUTION" lines, then the correlation of the first two as the number at the end.
void TryRequest(std::string_view text) {
    RiskRequest request;
    request.panel.DepthCover = 600.0;
    request.panel.CoalStrength = 900.0;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        const std::string_view line = text.substr(0, end);
        const std::size_t blank = std::min(line.find(' '), line.size());
        Runs([&] {
            request.AddField(RequiredField(line.substr(0, blank)),
                             line.substr(std::min(blank + 1, line.size())));
        });
        text.remove_prefix(end + 1);
    }
    if (request.fields.size() < 2) return;
    const double value = std::strtod(std::string(text).c_str(), nullptr);
    const bool taken =
        Runs([&] { request.AddCorrelation(request.fields[0].field, request.fields[1].field, value); });
    Require(!taken || std::fabs(value) <= 1.0);
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tarvokol::TryAxis(text);
    tarvokol::TryDistribution(text);
    tarvokol::TryRequest(text);
    tarvokol::Runs([&] { tarvokol::RequiredFigure(text); });
    return 0;
}
