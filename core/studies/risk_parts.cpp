// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/risk_parts.h"

#include <algorithm>
#include <bit>

#include "core/statistics/study_refusal.h"
#include "core/studies/part_range.h"

namespace tarvokol {
namespace {

constexpr std::size_t kMostRefusalTexts = 10;

bool SameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool SamePanel(const Panel& a, const Panel& b) {
    return a.units == b.units && SameBits(a.CrosscutSpacing, b.CrosscutSpacing) &&
           SameBits(a.CrosscutAngle, b.CrosscutAngle) &&
           std::all_of(kPanelFields.begin(), kPanelFields.end(), [&](const PanelFieldFacts& facts) {
               return SameBits(ValueOfField(a, facts.field), ValueOfField(b, facts.field));
           });
}

// The measured values of a column may have been others when the other part was drawn, with the text the same.
bool SameField(const RandomField& a, const RandomField& b) {
    return a.field == b.field && a.distribution->Text() == b.distribution->Text() &&
           SameBits(a.distribution->Mean(), b.distribution->Mean()) &&
           SameBits(a.distribution->StandardDeviation(), b.distribution->StandardDeviation());
}

bool SameTarget(const AskedTarget& a, const AskedTarget& b) {
    return a.factor == b.factor && SameBits(a.target, b.target);
}

// Threads change nothing in a study.
bool SameStudy(const RiskRequest& a, const RiskRequest& b) {
    return a.samples == b.samples && a.seed == b.seed && a.latin == b.latin &&
           a.keep_samples == b.keep_samples && a.correlations == b.correlations &&
           std::equal(a.fields.begin(), a.fields.end(), b.fields.begin(), b.fields.end(), SameField) &&
           std::equal(a.targets.begin(), a.targets.end(), b.targets.begin(), b.targets.end(), SameTarget) &&
           SamePanel(a.panel, b.panel);
}

// Counted from 1, `end` left out.
std::string SamplesInWords(std::uint32_t first, std::uint32_t end) {
    if (end - first == 1) return "sample " + std::to_string(first + 1) + " is";
    return "samples " + std::to_string(first + 1) + " to " + std::to_string(end) + " are";
}

void RefuseMissing(std::uint32_t first, std::uint32_t end) {
    if (first < end) throw StudyRefusal(SamplesInWords(first, end) + " in no part");
}

}  // namespace

SampleRange SampleRange::Part(std::uint32_t samples, std::uint64_t part, std::uint64_t parts) {
    const PartRange range = PartRange::Of(samples, part, parts);
    return {static_cast<std::uint32_t>(range.first), static_cast<std::uint32_t>(range.count)};
}

void RiskTally::Refuse(const std::string& text) {
    ++refused;
    AddText(text);
}

void RiskTally::AddText(const std::string& text) {
    if (refusals.size() < kMostRefusalTexts &&
        std::find(refusals.begin(), refusals.end(), text) == refusals.end())
        refusals.push_back(text);
}

void RiskTally::Add(const RiskTally& later) {
    for (std::size_t i = 0; i < below.size(); ++i) below[i] += later.below[i];
    refused += later.refused;
    for (const std::string& text : later.refusals) AddText(text);
}

std::vector<const RiskPart*> PartsInOrder(std::span<const RiskPart> parts) {
    if (parts.empty()) throw StudyRefusal("there is no part");
    std::vector<const RiskPart*> order;
    for (const RiskPart& part : parts) {
        if (!SameStudy(part.request, parts[0].request))
            throw StudyRefusal(part.name, "is a part of another study than the first one");
        if (part.range.count > 0) order.push_back(&part);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const RiskPart* a, const RiskPart* b) { return a->range.first < b->range.first; });
    std::uint32_t reached = 0;
    for (const RiskPart* part : order) {
        if (part->range.first < reached)
            throw StudyRefusal(part->name,
                               SamplesInWords(part->range.first, std::min(reached, part->range.End())) +
                                   " in another part, too");
        RefuseMissing(reached, part->range.first);
        reached = part->range.End();
    }
    RefuseMissing(reached, parts[0].request.samples);
    return order;
}

}  // namespace tarvokol
