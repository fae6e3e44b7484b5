// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/risk_plan.h"

#include <algorithm>
#include <utility>

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/picture_parts.h"
#include "core/studies/rare_events.h"
#include "studies/model/answer_or_words.h"
#include "studies/model/map_study.h"
#include "studies/model/study_csv.h"

namespace tarvokol {
namespace {

std::vector<std::string> SplitAt(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

void AddShare(CsvWriter& line, const BelowTarget& below) {
    for (const double value : {below.target, below.share.value, below.share.low, below.share.high})
        AddNumber(line, value);
}

// "Webs ONLY below the target 1.6: reliability index 2.9, probability 0.0019 (0.0018 to 0.002); nearest at ...".
std::string InWords(const RareEvent& event, const RiskRequest& request, const RiskResult& result) {
    const StudyFigure& factor = kStudyFigures[event.factor];
    const BelowTarget& below = result.risk[event.factor].below[event.target];
    const bool own = factor.target && event.target == 0;
    const auto rounded = [](double value) { return RoundedText(value, kFigureDigits); };
    std::string words = std::string(factor.legend) + " below " + (own ? "the target " : "") +
                        (below.own_target ? "of each sample" : rounded(below.target)) + ": ";
    if (!event.figures.empty()) words += "reliability index " + rounded(event.index) + ", ";
    words += event.outcome == RareOutcome::Estimated
                 ? "probability " + rounded(event.probability) + " (" + rounded(event.low) + " to " +
                       rounded(event.high) + ")"
                 : std::string(WhyPlain(event.outcome));
    for (std::size_t i = 0; i < event.figures.size(); ++i) {
        const PanelField field = request.fields[i].field;
        const std::string unit = UnitOfField(field, request.panel.units);
        words += std::string(i == 0 ? "; nearest at " : ", ") + TitleOfField(field) + " " +
                 rounded(event.figures[i]) + (unit.empty() ? "" : " " + unit) + " (importance " +
                 rounded(event.importance[i]) + ")";
    }
    return words;
}

// False where the observer ended it.
bool AddDesignPoints(RiskReading& reading, const RiskRequest& request, const RiskResult& result,
                     StudyObserver& observer) {
    const auto events = RunRareEvents(request, result, observer);
    if (!events) return false;
    for (const RareEvent& event : *events) reading.design_points.push_back(InWords(event, request, result));
    if (events->empty())
        reading.design_points.push_back("No target is rare: at least " + std::to_string(kFewHits) +
                                        " samples lie below each");
    return true;
}

}  // namespace

// A form that reads a file is the command line's own: a project is drawn here whose folder nobody has named.
std::vector<DistributionForm> DistributionForms() {
    std::vector<DistributionForm> forms;
    std::string known = ReplaceAll(KnownDistributions(), " or ", ", ");
    for (std::size_t at = 0; at < known.size();) {
        const std::size_t end = std::min(known.find(", ", at), known.size());
        const std::vector<std::string> words = SplitAt(known.substr(at, end - at), ':');
        at = end + 2;
        if (words.front() == "data") continue;
        DistributionForm form{words.front(), {}};
        form.figures.assign(words.begin() + 1, words.end());
        forms.push_back(std::move(form));
    }
    return forms;
}

std::string FaultOfRow(const RiskPlan& plan, std::size_t i, const Panel& panel) {
    RiskRequest request;
    request.panel = panel;
    std::string fault;
    for (std::size_t row = 0; row <= i; ++row) {
        fault.clear();
        try {
            request.AddField(plan.fields[row].field, plan.fields[row].distribution);
        } catch (const StudyRefusal& refusal) {
            fault = refusal.Fault();
        }
    }
    return fault;
}

std::string FaultOfCorrelation(const RiskPlan& plan, std::size_t i, const Panel& panel) {
    RiskPlan only = plan;
    only.correlations.clear();
    std::string fault;
    try {
        RiskRequest request = RequestOf(only, panel);
        for (std::size_t row = 0; row <= i; ++row) {
            fault.clear();
            const FieldCorrelation& one = plan.correlations[row];
            try {
                request.AddCorrelation(one.first, one.second, one.value);
            } catch (const StudyRefusal& refusal) {
                fault = refusal.Fault();
            }
        }
    } catch (const StudyRefusal&) {
        return "";  // the row of a field says what is wrong
    }
    return fault;
}

RiskOutcome CalculateRisk(const RiskPlan& plan, const Panel& panel, const std::string& title,
                          unsigned threads, StudyObserver& observer) {
    return AnswerOrWords<RiskOutcome>("take fewer samples", [&]() -> RiskOutcome {
        if (plan.fields.empty()) return std::string("no figure is uncertain: add a field");
        RiskRequest request = RequestOf(plan, panel);
        request.keep_samples = true;
        request.threads = threads;
        const auto result = RunRisk(request, observer);
        if (!result) return {};
        RiskReading reading{SpreadOf(request, *result, title), result->risk, {}};
        if (plan.design_points && !AddDesignPoints(reading, request, *result, observer)) return {};
        return reading;
    });
}

std::string CsvOfRisk(const RiskReading& reading) {
    std::string csv;
    CsvWriter line(csv);
    for (const char* title : {"Factor", "Mean", "StandardDeviation"}) line.AddTitle(title);
    for (const double share : kRiskShares) {
        std::string percent;
        AppendShortest(percent, share * 100);
        line.AddTitle("Below " + percent + " %");
    }
    for (const char* target : {"Target", "One"})
        for (const char* column : {"", "Probability", "From", "To"})
            line.AddTitle(std::string(target) + column);
    line.EndLine();
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        const FactorRisk& risk = reading.risk[factor];
        line.AddText(kStudyFigures[factor].name);
        AddNumber(line, risk.moments.mean);
        AddNumber(line, risk.moments.standard_deviation);
        for (const double quantile : risk.quantiles) AddNumber(line, quantile);
        // The project's own target first, then 1; the whole panel has none of its own.
        AddShare(line, risk.below.front());
        AddShare(line, risk.below.back());
        line.EndLine();
    }
    return csv;
}

std::string CommandOfRisk(const RiskPlan& plan, const std::string& project_path) {
    std::vector<std::string> words = WordsOfRisk(plan);
    // The text tells the design points, the picture does not.
    if (!plan.design_points) words.insert(words.end(), {"-o", "risk.svg"});
    return ShellLine("tarvokol-cli risk", project_path, words);
}

}  // namespace tarvokol
