// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/risk_plan.h"

#include <algorithm>
#include <utility>

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
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
        return RiskReading{SpreadOf(request, *result, title), result->risk};
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
    words.insert(words.end(), {"-o", "risk.svg"});
    return ShellLine("tarvokol-cli risk", project_path, words);
}

}  // namespace tarvokol
