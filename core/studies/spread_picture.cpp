// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/spread_picture.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace tarvokol {
namespace {

constexpr std::size_t kBars = 60;
constexpr std::size_t kStepsOfShare = 240;  // of the cumulative curve; a multiple of the bars

std::string Short(double value) {
    return RoundedText(value, kShareDigits);
}

// The lowest and the highest of the sound samples.
std::pair<double, double> EndsOf(std::span<const double> samples) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const double value : samples) {
        if (std::isnan(value)) continue;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    return {low, high};
}

// From beyond the lowest hundredth of the samples to beyond the highest, as far as there are samples: where those of a
// normal figure get as rare as one in a thousand. Targets near them belong to it.
void ChooseView(SpreadPanel& panel, const FactorRisk& risk, std::span<const double> samples,
                std::span<const SpreadTarget> targets) {
    constexpr double kBeyond = 0.17;
    const double low = risk.quantiles.front();
    const double high = risk.quantiles.back();
    const double beyond = kBeyond * (high - low);
    const auto [lowest, highest] = EndsOf(samples);
    panel.x.low = std::max(low - beyond, lowest);
    panel.x.high = std::min(high + beyond, highest);
    const double near_low = panel.x.low - (panel.x.high - panel.x.low);
    const double near_high = panel.x.high + (panel.x.high - panel.x.low);
    for (const SpreadTarget& target : targets) {
        if (target.value <= near_low || target.value >= near_high) continue;
        panel.x.low = std::min(panel.x.low, target.value);
        panel.x.high = std::max(panel.x.high, target.value);
    }
    Widen(panel.x.low, panel.x.high);
    for (const SpreadTarget& target : targets)
        if (target.value >= panel.x.low && target.value <= panel.x.high) panel.targets.push_back(target);
}

// Counts in fine steps over the view give the bars and, with what lies below the view, the cumulative curve.
void CountSamples(SpreadPanel& panel, std::span<const double> samples) {
    std::vector<double> counts(kStepsOfShare);
    const double step = (panel.x.high - panel.x.low) / kStepsOfShare;
    double sound = 0;
    double below = 0;
    for (const double value : samples) {
        if (std::isnan(value)) continue;
        ++sound;
        const double at = std::floor((value - panel.x.low) / step);
        if (at < 0) ++below;
        if (at >= 0 && at < kStepsOfShare) ++counts[static_cast<std::size_t>(at)];
    }
    panel.bars.assign(kBars, 0.0);
    panel.below.push_back({panel.x.low, below / sound});
    for (std::size_t i = 0; i < counts.size(); ++i) {
        panel.bars[i * kBars / kStepsOfShare] += counts[i] / sound;
        below += counts[i];
        panel.below.push_back({panel.x.low + step * static_cast<double>(i + 1), below / sound});
    }
}

std::vector<SpreadTarget> TargetsOf(const StudyFigure& figure, const FactorRisk& risk) {
    std::vector<SpreadTarget> targets;
    for (const BelowTarget& below : risk.below) {
        if (below.own_target) continue;  // no line stands for the targets of all samples
        const bool again = std::any_of(targets.begin(), targets.end(), [&](const SpreadTarget& other) {
            return other.value == below.target;
        });
        const bool own = figure.target && &below == &risk.below.front();
        if (!again)
            targets.push_back(
                {(own ? "target " : "") + RoundedText(below.target, kFigureDigits), below.target});
    }
    return targets;
}

void AddWords(SpreadPanel& panel, const StudyFigure& figure, const FactorRisk& risk, bool any_refused) {
    for (const BelowTarget& below : risk.below) {
        const bool own = figure.target && &below == &risk.below.front();
        std::string what = own ? "the target " + std::string(NameOfField(*figure.target)) + " " : "";
        what += below.own_target ? "of each sample" : RoundedText(below.target, kFigureDigits);
        std::string words = "Probability below " + what + ": " + InWords(below.share);
        if (any_refused) words += "; with the refused " + InWords(below.with_refused);
        panel.words.push_back(words);
    }
}

std::string JointInWords(const RiskResult& result) {
    std::string words =
        "Probability of webs or barrier (or both) below their targets: " + InWords(result.joint.share);
    if (result.refused > 0) words += "; with the refused " + InWords(result.joint.with_refused);
    return words;
}

}  // namespace

std::string InWords(const RandomField& field, Units units) {
    return std::string(TitleOfField(field.field)) + " " +
           field.distribution->InWords(UnitOfField(field.field, units));
}

std::string InWords(const FieldCorrelation& pair) {
    return std::string(TitleOfField(pair.first)) + " and " + TitleOfField(pair.second) + " correlated by " +
           RoundedText(pair.value, kFigureDigits);
}

std::string InWords(const Share& share) {
    // One of which no sample shows anything is known by its bound alone.
    if (share.value == 0.0) return "less than " + Short(share.high);
    if (share.value == 1.0) return "more than " + Short(share.low);
    return Short(share.value) + " (" + Short(share.low) + " to " + Short(share.high) + ")";
}

const char* MethodInWords(bool latin) {
    return latin ? " (Latin hypercube)" : " (independent)";
}

std::string SamplingInWords(const RiskRequest& request, const RiskResult& result) {
    return std::to_string(request.samples) + " samples" + MethodInWords(request.latin) + ", seed " +
           std::to_string(request.seed) + ", " + std::to_string(result.refused) + " refused";
}

SpreadPicture SpreadOf(const RiskRequest& request, const RiskResult& result, const std::string& title) {
    if (result.refused == request.samples)
        throw NothingToShow(result.refusals.empty() ? "" : result.refusals.front());
    SpreadPicture picture;
    picture.title = title;
    for (const RandomField& field : request.fields)
        picture.words.push_back(InWords(field, request.panel.units));
    for (const FieldCorrelation& pair : request.correlations) picture.words.push_back(InWords(pair));
    picture.words.push_back(SamplingInWords(request, result) + "; probabilities with their 95 % interval");
    picture.words.push_back(JointInWords(result));
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        const StudyFigure& figure = kStudyFigures[factor];
        const std::span<const double> samples(result.factors[factor].begin(), result.factors[factor].end());
        SpreadPanel panel;
        panel.x.title = figure.title;
        ChooseView(panel, result.risk[factor], samples, TargetsOf(figure, result.risk[factor]));
        CountSamples(panel, samples);
        AddWords(panel, figure, result.risk[factor], result.refused > 0);
        picture.panels.push_back(std::move(panel));
    }
    return picture;
}

}  // namespace tarvokol
