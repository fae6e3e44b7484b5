// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/width_question.h"

#include "core/statistics/study_refusal.h"
#include "core/studies/picture_parts.h"
#include "studies/model/answer_or_words.h"
#include "studies/model/map_study.h"

namespace tarvokol {
namespace {

constexpr double kPercent = 100.0;

std::string Rounded(double value) {
    return RoundedText(value, kFigureDigits);
}

std::string InPercent(double share) {
    constexpr int kDigits = 3;
    return RoundedText(kPercent * share, kDigits) + " %";
}

std::string WordsOf(const FoundValue& found, const std::string& unit) {
    std::string words = Rounded(found.value) + " " + unit + " (" + Rounded(found.low) + " to " +
                        Rounded(found.high) + ", 95 % interval of sampling)";
    if (found.used != found.value) words += ", rounded " + Rounded(found.used) + " " + unit;
    return words + ": below the target in " + InPercent(found.after.below.value) + " (" +
           InPercent(found.after.below.low) + " to " + InPercent(found.after.below.high) + "), now in " +
           InPercent(found.before.below.value);
}

// What a drawing can answer; raises what is wrong with it.
DesignRequest SoundRequest(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel) {
    if (plan.fields.empty()) throw StudyRefusal("no figure is uncertain: add a field");
    return RequestOf(question, plan, panel);
}

}  // namespace

WidthOutcome CalculateWidth(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel,
                            unsigned threads, StudyObserver& observer) {
    return AnswerOrWords<WidthOutcome>("take fewer samples", [&]() -> WidthOutcome {
        DesignRequest request = SoundRequest(question, plan, panel);
        request.risk.threads = threads;
        const auto result = RunDesign(request, observer);
        if (!result) return {};
        const FoundValue& found = result->found.front();
        return WidthAnswer{WordsOf(found, UnitOfField(question.field, panel.units)), found.used};
    });
}

std::string CommandOfWidth(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel,
                           const std::string& project_path) {
    SoundRequest(question, plan, panel);
    return ShellLine("tarvokol-cli design", project_path, WordsOfWidth(question, plan, panel));
}

}  // namespace tarvokol
