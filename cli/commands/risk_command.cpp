// SPDX-License-Identifier: GPL-3.0-or-later
// How likely the factors lie below their targets when figures are only known within bounds.
#include <charconv>
#include <cmath>
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/commands/row_sink.h"
#include "cli/commands/study_pictures.h"
#include "cli/output/drawing.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "cli/output/study_rows.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/risk_study.h"

namespace tarvokol::cli {
namespace {

constexpr std::array<const char*, kFactors> kFactorNames{"Overall", "WebsOnly", "BarrierPillar"};
constexpr std::array<const char*, kRiskShares.size()> kShareNames{"1 %",  "5 %",  "10 %", "25 %", "50 %",
                                                                  "75 %", "90 %", "95 %", "99 %"};
constexpr int kTextColumn = 14;

template <typename Whole>
Whole WholeOption(const std::string& text, const char* name, double low, double high) {
    const double value = RequiredNumber(text, name);
    if (value != std::floor(value) || value < low || value > high) {
        std::string bounds;
        AppendShortest(bounds, low);
        AppendShortest(bounds += " to ", high);
        throw UsageError{std::string(name) + ": \"" + text + "\" is not a whole number from " + bounds};
    }
    return static_cast<Whole>(value);
}

RiskRequest RequestOf(const StudyOptions& options, const Panel& project) {
    constexpr double kMostSamples = 4294967295.0;
    constexpr double kLargestSeed = 9007199254740992.0;
    RiskRequest request;
    for (const std::string& text : options.random) request.AddField(text, project);
    for (const std::string& text : options.correlate) request.AddCorrelation(text);
    if (!options.samples.empty())
        request.samples = WholeOption<std::uint32_t>(options.samples, "--samples", 1, kMostSamples);
    if (!options.seed.empty())
        request.seed = WholeOption<std::uint64_t>(options.seed, "--seed", 0, kLargestSeed);
    request.latin = !options.plain;
    request.keep_drawn = !options.samples_out.empty();
    request.threads = options.Threads();
    return request;
}

std::string Padded(const std::string& text, int width) {
    const std::string room(text.size() < static_cast<std::size_t>(width) ? width - text.size() : 0, ' ');
    return text + room;
}

std::string Right(const std::string& text) {
    const std::string room(text.size() < kTextColumn ? kTextColumn - text.size() : 0, ' ');
    return room + text;
}

// Five significant digits: more would tell of the samples, not of the panel.
std::string Short(double value) {
    if (std::isnan(value)) return "-";
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 5);
    return {buffer, result.ptr};
}

template <typename Value>
void AddLine(std::string& text, const std::string& title, Value value) {
    constexpr int kTitleColumn = 34;
    text += Padded(title, kTitleColumn);
    for (std::size_t factor = 0; factor < kFactors; ++factor) text += Right(value(factor));
    text += '\n';
}

std::string BelowText(const Share& share) {
    return Short(share.value);
}

void AddTargets(std::string& text, const RiskResult& result) {
    // The project's own targets first, then 1 for each.
    AddLine(text, "Target", [&](std::size_t f) {
        return f == 0 ? std::string("-") : Short(result.risk[f].below.front().target);
    });
    const auto own = [&](std::size_t f, auto part) {
        return f == 0 ? std::string("-") : part(result.risk[f].below.front().share);
    };
    AddLine(text, "Probability below the target", [&](std::size_t f) { return own(f, BelowText); });
    AddLine(text, "  95 % interval, from",
            [&](std::size_t f) { return own(f, [](const Share& s) { return Short(s.low); }); });
    AddLine(text, "  to",
            [&](std::size_t f) { return own(f, [](const Share& s) { return Short(s.high); }); });
    AddLine(text, "Probability below 1",
            [&](std::size_t f) { return BelowText(result.risk[f].below.back().share); });
    AddLine(text, "  95 % interval, from",
            [&](std::size_t f) { return Short(result.risk[f].below.back().share.low); });
    AddLine(text, "  to", [&](std::size_t f) { return Short(result.risk[f].below.back().share.high); });
}

std::string RiskText(const RiskRequest& request, const RiskResult& result, const StudyOptions& options) {
    std::string text = StudyTitle(options) + "\n\n";
    for (const RandomField& one : request.fields)
        text += Padded(NameOfField(one.field), 20) + one.distribution.Text() + "\n";
    text += std::to_string(request.samples) +
            (request.latin ? " samples (Latin hypercube)" : " samples (independent)") + ", seed " +
            std::to_string(request.seed) + ", " + std::to_string(result.refused) + " refused\n\n";
    AddLine(text, "Factor", [](std::size_t f) { return std::string(kFactorNames[f]); });
    AddLine(text, "Mean", [&](std::size_t f) { return Short(result.risk[f].moments.mean); });
    AddLine(text, "Standard deviation",
            [&](std::size_t f) { return Short(result.risk[f].moments.standard_deviation); });
    for (std::size_t i = 0; i < kRiskShares.size(); ++i)
        AddLine(text, std::string(kShareNames[i]) + " of samples below",
                [&](std::size_t f) { return Short(result.risk[f].quantiles[i]); });
    AddTargets(text, result);
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        AddLine(text, std::string("Rank correlation ") + NameOfField(request.fields[field].field),
                [&](std::size_t f) { return Short(result.risk[f].rank_correlation[field]); });
    return text;
}

Json BelowJson(const BelowTarget& below) {
    return Json{{"target", NumberJson(below.target)},
                {"probability", NumberJson(below.share.value)},
                {"low", NumberJson(below.share.low)},
                {"high", NumberJson(below.share.high)}};
}

Json FactorJson(const RiskRequest& request, const FactorRisk& risk) {
    Json object;
    object["mean"] = NumberJson(risk.moments.mean);
    object["standard_deviation"] = NumberJson(risk.moments.standard_deviation);
    Json quantiles = Json::object();
    for (std::size_t i = 0; i < kRiskShares.size(); ++i) {
        std::string key;
        AppendShortest(key, kRiskShares[i]);
        quantiles[key] = NumberJson(risk.quantiles[i]);
    }
    object["quantiles"] = std::move(quantiles);
    object["below"] = Json::array();
    for (const BelowTarget& below : risk.below) object["below"].push_back(BelowJson(below));
    Json ranks = Json::object();
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        ranks[NameOfField(request.fields[field].field)] = NumberJson(risk.rank_correlation[field]);
    object["rank_correlation"] = std::move(ranks);
    return object;
}

Json RiskJson(const RiskRequest& request, const RiskResult& result, const StudyOptions& options,
              const Panel& project) {
    Json object{
        {"file", options.project}, {"ok", result.refused < request.samples}, {"messages", result.refusals}};
    object["samples"] = request.samples;
    object["seed"] = request.seed;
    object["method"] = request.latin ? "latin-hypercube" : "plain";
    object["refused"] = result.refused;
    object["refused_share"] = NumberJson(static_cast<double>(result.refused) / request.samples);
    Json random = Json::object();
    Json units = Json::object();
    for (const RandomField& one : request.fields) {
        random[NameOfField(one.field)] = one.distribution.Text();
        if (const std::string unit = UnitOfField(one.field, static_cast<int>(project.units)); !unit.empty())
            units[NameOfField(one.field)] = unit;
    }
    object["random"] = std::move(random);
    object["factors"] = Json::object();
    for (std::size_t factor = 0; factor < kFactors; ++factor)
        object["factors"][kFactorNames[factor]] = FactorJson(request, result.risk[factor]);
    object["units"] = std::move(units);
    object["schema"] = kSchemaVersion;
    return object;
}

void WriteSamples(const RiskRequest& request, const RiskResult& result, const StudyOptions& options) {
    const auto sink = OpenFileSink(options.samples_out, options.common.force);
    std::string text;
    for (const RandomField& one : request.fields) text += std::string(NameOfField(one.field)) + ',';
    text += "Overall,WebsOnly,BarrierPillar\r\n";
    constexpr std::size_t kEnough = 1 << 20;
    for (std::size_t sample = 0; sample < request.samples; ++sample) {
        for (const auto& drawn : result.drawn) {
            AppendShortest(text, drawn[sample]);
            text += ',';
        }
        for (std::size_t factor = 0; factor < kFactors; ++factor) {
            AppendShortest(text, result.factors[factor][sample]);
            text += factor + 1 < kFactors ? "," : "\r\n";
        }
        if (text.size() < kEnough) continue;
        sink->Write(text);
        text.clear();
    }
    sink->Write(text);
    sink->Finish();
}

}  // namespace

int RunRiskCommand(const StudyOptions& options, HeadlessPlatform& host) {
    return RunStudy([&] {
        const OutputTarget target(options.common, {".txt", ".json", ".png", ".svg", ".pdf"});
        if (target.IsDrawn()) TheDrawing();
        const Panel project = ReadStudyProject(options, host);
        const RiskRequest request = RequestOf(options, project);
        if (target.ToFile()) target.Prepare(target.PathFor(options.project));
        const RiskResult result = RunRisk(request, project);
        if (!options.samples_out.empty()) WriteSamples(request, result, options);
        const std::string json = JsonLine(RiskJson(request, result, options, project));
        const std::string path = target.PathFor(options.project);
        if (target.Format() == ".json")
            target.WriteBytes(path, json);
        else if (target.Format() == ".txt")
            target.WriteBytes(path, RiskText(request, result, options));
        else if (target.ToFile())
            target.Write(path, [&](const std::string& name) { DrawRisk(result, options, name); });
        if (options.common.json) std::cout << json;
        if (!options.common.json && !target.ToFile()) std::cout << RiskText(request, result, options);
        if (result.refused == request.samples)
            throw DataError{options.project + ": every sample was refused: " + result.refusals.front()};
        return static_cast<int>(exit_status::Done);
    });
}

}  // namespace tarvokol::cli
