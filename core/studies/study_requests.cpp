// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_requests.h"

#include <cmath>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/field_digits.h"
#include "core/studies/study_names.h"

namespace tarvokol {
namespace {

// As many steps as a map is divided into: its panels are those of the request and no others.
constexpr const char* kMapPlaces = "241";

std::string FieldWithValues(const StudyAxis& axis) {
    return std::string(NameOfField(axis.field)) + "=" + ValuesOfAxis(axis);
}

// As it is written in the project: 1.6, and not the digits that a single has as a double.
std::string TargetOfWidth(PanelField field, const Panel& panel) {
    return DigitsOfField(panel, *FactorOfWidth(field).target);
}

// "5%", "0.05".
double ProbabilityOf(const std::string& text) {
    constexpr double kPercentOfOne = 100.0;
    std::string number = Trim(text);
    const bool is_percent = number.ends_with('%');
    if (is_percent) number = Trim(number.substr(0, number.size() - 1));
    return About("Probability", [&] { return RequiredNumber(number) / (is_percent ? kPercentOfOne : 1.0); });
}

}  // namespace

std::string FaultOfRange(PanelField field, const FieldRange& range) {
    if (!std::isfinite(range.low) || !std::isfinite(range.high)) return "a range needs two numbers";
    if (!(range.low < range.high)) return "the lower end of a range lies below the upper one";
    if (!std::isfinite(range.high - range.low)) return "the range is too wide";
    if (!FitsField(field, range.low) || !FitsField(field, range.high)) return FaultOfUnfit(field);
    if (IsWholeField(field) && (range.low < 1 || range.high > MaxHoles))
        return "the number of holes lies from 1 to " + std::to_string(MaxHoles);
    return "";
}

std::string ValuesOfAxis(const StudyAxis& axis) {
    std::string values;
    AppendShortest(values, axis.range.low);
    values += ':';
    AppendShortest(values, axis.range.high);
    return values + (IsWholeField(axis.field) ? ":1" : std::string("/") + kMapPlaces);
}

SweepRequest SweepOf(const MapRequest& request, const Panel& panel) {
    SweepRequest sweep;
    sweep.panel = panel;
    sweep.sizes = request.figure->NeedsSizes();
    sweep.AddAxis(ValueAxis::Parse(request.x.field, ValuesOfAxis(request.x)));
    if (request.y) sweep.AddAxis(ValueAxis::Parse(request.y->field, ValuesOfAxis(*request.y)));
    return sweep;
}

std::vector<std::string> WordsOfMap(const MapRequest& request) {
    std::vector<std::string> words{"--vary", FieldWithValues(request.x)};
    if (request.y) words.insert(words.end(), {"--vary", FieldWithValues(*request.y)});
    if (request.figure->NeedsSizes()) words.emplace_back("--size");
    if (request.y || !request.figure->IsFactor()) words.insert(words.end(), {"--of", request.figure->name});
    return words;
}

RiskRequest RequestOf(const RiskPlan& plan, const Panel& panel) {
    RiskRequest request;
    request.panel = panel;
    request.samples = plan.samples;
    request.seed = plan.seed;
    for (const UncertainField& field : plan.fields) request.AddField(field.field, field.distribution);
    for (const FieldCorrelation& one : plan.correlations)
        request.AddCorrelation(one.first, one.second, one.value);
    return request;
}

std::vector<std::string> WordsOfRisk(const RiskPlan& plan) {
    std::vector<std::string> words;
    words.reserve(2 * (plan.fields.size() + plan.correlations.size() + 2));
    for (const UncertainField& field : plan.fields) {
        words.emplace_back("--random");
        words.push_back(std::string(NameOfField(field.field)) + "=" + field.distribution);
    }
    for (const FieldCorrelation& one : plan.correlations) {
        words.emplace_back("--correlate");
        std::string& pair = words.emplace_back(NameOfField(one.first));
        pair.append(",").append(NameOfField(one.second)).append("=");
        AppendShortest(pair, one.value);
    }
    words.insert(words.end(),
                 {"--samples", std::to_string(plan.samples), "--seed", std::to_string(plan.seed)});
    return words;
}

const StudyFigure& FactorOfWidth(PanelField field) {
    return *FigureNamed(field == PanelField::BarrierPillarWidth ? "BarrierPillar" : "WebsOnly");
}

DesignRequest RequestOf(const WidthQuestion& question, const RiskPlan& plan, const Panel& panel) {
    DesignRequest request;
    request.risk = RequestOf(plan, panel);
    request.AddDemand(question.field, FactorOfWidth(question.field),
                      RequiredNumber(TargetOfWidth(question.field, panel)),
                      ProbabilityOf(question.probability));
    const std::string step = Trim(question.step);
    if (!step.empty()) About("Step", [&] { request.SetStep(RequiredNumber(step)); });
    return request;
}

std::vector<std::string> WordsOfWidth(const WidthQuestion& question, const RiskPlan& plan,
                                      const Panel& panel) {
    std::vector<std::string> words = WordsOfRisk(plan);
    words.insert(words.end(), {"--find", NameOfField(question.field), "--until",
                               std::string(FactorOfWidth(question.field).name) + "<" +
                                   TargetOfWidth(question.field, panel),
                               "--probability", Trim(question.probability)});
    if (const std::string step = Trim(question.step); !step.empty())
        words.insert(words.end(), {"--step", step});
    return words;
}

}  // namespace tarvokol
