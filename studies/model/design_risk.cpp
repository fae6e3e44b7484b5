// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/design_risk.h"

#include <string>
#include <utility>
#include <variant>

#include "core/statistics/study_refusal.h"
#include "core/studies/risk_study.h"
#include "core/studies/spread_picture.h"
#include "studies/model/answer_or_words.h"

namespace tarvokol {
namespace {

std::string InWords(const Share& share, const Share& with_refused, bool any_refused) {
    return InWords(share) + (any_refused ? "; with the refused " + InWords(with_refused) : "");
}

DesignRisk WordsOf(const RiskResult& result) {
    constexpr std::size_t kWebs = 1, kBarrier = 2;  // among the factors
    const bool any_refused = result.refused > 0;
    const BelowTarget& webs = result.risk[kWebs].below.front();
    const BelowTarget& barrier = result.risk[kBarrier].below.front();
    return {{InWords(webs.share, webs.with_refused, any_refused),
             InWords(barrier.share, barrier.with_refused, any_refused),
             InWords(result.joint.share, result.joint.with_refused, any_refused)},
            ""};
}

// Nothing where the observer ended it; a text where no number is given.
using Outcome = std::variant<std::monostate, DesignRisk, std::string>;

Outcome CalculateDesignRisk(const RiskPlan& plan, const Panel& panel, unsigned threads,
                            StudyObserver& observer) {
    return AnswerOrWords<Outcome>("take fewer samples", [&]() -> Outcome {
        if (plan.fields.empty()) throw StudyRefusal("no figure is uncertain: add a field on the page Risk");
        RiskRequest request = RequestOf(plan, panel);
        request.threads = threads;
        const auto result = RunRisk(request, observer);
        if (!result) return {};
        if (result->refused == request.samples) throw StudyRefusal("every sample is refused");
        return WordsOf(*result);
    });
}

}  // namespace

std::optional<std::vector<DesignRisk>> CalculateDesignRisks(const RiskPlan& plan,
                                                            const std::vector<Panel>& panels,
                                                            unsigned threads, StudyObserver& observer) {
    std::vector<DesignRisk> risks;
    risks.reserve(panels.size());
    for (const Panel& panel : panels) {
        Outcome outcome = CalculateDesignRisk(plan, panel, threads, observer);
        if (std::holds_alternative<std::monostate>(outcome)) return {};
        if (const auto* refused = std::get_if<std::string>(&outcome)) outcome = DesignRisk{{}, *refused};
        risks.push_back(std::get<DesignRisk>(std::move(outcome)));
    }
    return risks;
}

}  // namespace tarvokol
