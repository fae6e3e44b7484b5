// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/risk_text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "cli/commands/share_words.h"
#include "core/studies/spread_picture.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {
namespace {

constexpr std::array<const char*, kRiskShares.size()> kShareNames{"1 %",  "5 %",  "10 %", "25 %", "50 %",
                                                                  "75 %", "90 %", "95 %", "99 %"};
template <typename Value>
void AddLine(std::string& text, const std::string& title, Value value) {
    constexpr int kNameColumn = 34;
    constexpr int kTextColumn = 14;
    text += Padded(title, kNameColumn);
    for (std::size_t factor = 0; factor < kFactors; ++factor) text += AtRight(value(factor), kTextColumn);
    text += '\n';
}

// One line each for a share and the ends and the kind of its interval, of the factors that have this target.
using ShareOfFactor = std::function<const Share*(std::size_t factor)>;

void AddShares(std::string& text, const std::string& title, const ShareOfFactor& share_of) {
    const auto line = [&](const std::string& name, auto word) {
        AddLine(text, name, [&](std::size_t f) {
            const Share* const share = share_of(f);
            return share == nullptr ? std::string("-") : word(*share);
        });
    };
    line(title, ProbabilityWord);
    line("  95 % interval, from", [](const Share& share) { return Short(share.low); });
    line("  to", [](const Share& share) { return Short(share.high); });
    line("  interval", KindWord);
}

void AddTargets(std::string& text, const RiskResult& result) {
    // The project's own targets first, then 1 for each.
    AddLine(text, "Target", [&](std::size_t f) {
        if (f == 0) return std::string("-");
        const BelowTarget& below = result.risk[f].below.front();
        return below.own_target ? std::string("each its own") : Short(below.target);
    });
    const auto own = [&](std::size_t f) { return f == 0 ? nullptr : &result.risk[f].below.front(); };
    const auto one = [&](std::size_t f) { return &result.risk[f].below[f == 0 ? 0 : 1]; };
    AddShares(text, "Probability below the target", [&](std::size_t f) {
        const BelowTarget* const below = own(f);
        return below == nullptr ? nullptr : &below->share;
    });
    AddShares(text, "Probability below 1", [&](std::size_t f) { return &one(f)->share; });
    if (result.refused == 0) return;
    AddShares(text, "Below the target or refused", [&](std::size_t f) {
        const BelowTarget* const below = own(f);
        return below == nullptr ? nullptr : &below->with_refused;
    });
    AddShares(text, "Below 1 or refused", [&](std::size_t f) { return &one(f)->with_refused; });
}

// The targets asked for, each value once, in the order in which they were asked for.
void AddAskedTargets(std::string& text, const RiskRequest& request, const RiskResult& result) {
    std::vector<double> told;
    for (const AskedTarget& asked : request.targets) {
        if (std::find(told.begin(), told.end(), asked.target) != told.end()) continue;
        told.push_back(asked.target);
        const auto below = [&](std::size_t f) -> const BelowTarget* {
            const std::size_t first = kStudyFigures[f].target ? 2 : 1;  // after the project's own and 1
            for (std::size_t i = first; i < result.risk[f].below.size(); ++i)
                if (result.risk[f].below[i].target == asked.target) return &result.risk[f].below[i];
            return nullptr;
        };
        const std::string value = Short(asked.target);
        AddShares(text, "Probability below " + value,
                  [&](std::size_t f) { return below(f) == nullptr ? nullptr : &below(f)->share; });
        if (result.refused > 0)
            AddShares(text, "Below " + value + " or refused",
                      [&](std::size_t f) { return below(f) == nullptr ? nullptr : &below(f)->with_refused; });
    }
}

void AddJoint(std::string& text, const RiskResult& result) {
    text += "Webs or barrier (or both) below the target: " + ShareInWords(result.joint.share) + '\n';
    if (result.refused > 0)
        text +=
            "Webs or barrier below the target or refused: " + ShareInWords(result.joint.with_refused) + '\n';
}

std::vector<Share> SharesOf(const RiskResult& result) {
    std::vector<Share> shares{result.joint.share, result.joint.with_refused};
    for (const FactorRisk& risk : result.risk)
        for (const BelowTarget& below : risk.below)
            shares.insert(shares.end(), {below.share, below.with_refused});
    return shares;
}

// One line each for an index of a field and the ends of its interval.
void AddIndex(std::string& text, const std::string& title, const SobolResult& sobol, std::size_t field,
              SobolIndex FieldIndices::*index) {
    const auto line = [&](const std::string& name, double SobolIndex::*figure) {
        AddLine(text, name, [&](std::size_t f) { return Short(sobol.indices[f][field].*index.*figure); });
    };
    line(title, &SobolIndex::value);
    line("  95 % interval, from", &SobolIndex::low);
    line("  to", &SobolIndex::high);
}

void AddSobol(std::string& text, const RiskRequest& request, const SobolResult& sobol) {
    for (std::size_t field = 0; field < request.fields.size(); ++field) {
        const std::string name = NameOfField(request.fields[field].field);
        AddIndex(text, "Sobol' first " + name, sobol, field, &FieldIndices::first);
        AddIndex(text, "Sobol' total " + name, sobol, field, &FieldIndices::total);
    }
    if (sobol.refused > 0)
        text += "Sobol' indices without " + RefusedWords(sobol.refused, request.samples) +
                " of which a panel was refused\n";
}

void AddTornado(std::string& text, const RiskRequest& request, const TornadoResult& tornado) {
    AddLine(text, "All fields at their medians", [&](std::size_t f) { return Short(tornado.middle[f]); });
    for (std::size_t field = 0; field < request.fields.size(); ++field) {
        const std::string name = NameOfField(request.fields[field].field);
        const TornadoBar& ends = tornado.fields[field];
        AddLine(text, " 5 % of " + name + ", " + Short(ends.low),
                [&](std::size_t f) { return Short(tornado.factors[f][field].low); });
        AddLine(text, "95 % of " + name + ", " + Short(ends.high),
                [&](std::size_t f) { return Short(tornado.factors[f][field].high); });
    }
}

void AddRare(std::string& text, const RiskRequest& request, const RiskResult& result,
             const RareEvent& event) {
    const BelowTarget& below = result.risk[event.factor].below[event.target];
    text += std::string("Rare: ") + kStudyFigures[event.factor].name + " below " +
            (below.own_target ? std::string("its target") : Short(below.target)) + ": ";
    if (event.outcome == RareOutcome::Estimated)
        text += Short(event.probability) + " (" + Short(event.low) + " to " + Short(event.high) +
                ", importance sampling, coefficient of variation " + Short(100.0 * event.variation) + " %)\n";
    else
        text += std::string(WhyPlain(event.outcome)) + '\n';
    if (event.figures.empty()) return;
    text += "  reliability index " + Short(event.index) + "; design point:";
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        text += std::string(field == 0 ? " " : ", ") + NameOfField(request.fields[field].field) + ' ' +
                Short(event.figures[field]) + " (importance " + Short(event.importance[field]) + ')';
    text += '\n';
}

// The targets that are random fields themselves.
void AddOwnTargets(std::string& text, const RiskRequest& request) {
    for (const RandomField& one : request.fields)
        if (one.field == PanelField::SFWeb || one.field == PanelField::SFBarrier)
            text += std::string(NameOfField(one.field)) + " is drawn: each sample against its own target\n";
}

}  // namespace

std::string RiskText(const RiskRequest& request, const RiskResult& result, const std::string& title,
                     const RiskExtras& extras) {
    std::string text = title + "\n\n";
    for (const RandomField& one : request.fields)
        text += Padded(NameOfField(one.field), 20) + one.distribution->Text() + "\n";
    text += SamplingInWords(request, result) + "\n";
    AddOwnTargets(text, request);
    text += '\n';
    AddLine(text, "Factor", [](std::size_t f) { return std::string(kStudyFigures[f].name); });
    AddLine(text, "Mean", [&](std::size_t f) { return Short(result.risk[f].moments.mean); });
    AddLine(text, "Standard deviation",
            [&](std::size_t f) { return Short(result.risk[f].moments.standard_deviation); });
    for (std::size_t i = 0; i < kRiskShares.size(); ++i)
        AddLine(text, std::string(kShareNames[i]) + " of samples below",
                [&](std::size_t f) { return Short(result.risk[f].quantiles[i]); });
    AddTargets(text, result);
    AddAskedTargets(text, request, result);
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        AddLine(text, std::string("Rank correlation ") + NameOfField(request.fields[field].field),
                [&](std::size_t f) { return Short(result.risk[f].rank_correlation[field]); });
    if (extras.sobol) AddSobol(text, request, *extras.sobol);
    if (extras.tornado) AddTornado(text, request, *extras.tornado);
    AddJoint(text, result);
    for (const RareEvent& event : extras.rare) AddRare(text, request, result, event);
    return text + KindsText(SharesOf(result), request.latin);
}

std::string RefusedWords(std::uint64_t refused, std::uint64_t samples) {
    return std::to_string(refused) + " of " + std::to_string(samples) + " samples (" +
           Short(100.0 * static_cast<double>(refused) / static_cast<double>(samples)) + " %)";
}

}  // namespace tarvokol::cli
