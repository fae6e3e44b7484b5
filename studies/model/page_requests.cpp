// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/page_requests.h"

#include <algorithm>

namespace tarvokol {
namespace {

StepName NameOfMapChange(const MapChoice& before, const MapChoice& after) {
    const bool same_figure = before.figure == after.figure;
    return {same_figure ? "Fields of the map" : "Figure of the map", "", StudyPages::Map};
}

std::string FormOf(const UncertainField& field) {
    return field.distribution.substr(0, field.distribution.find(':'));
}

// Only what is typed goes on from one change to the next.
std::string KeyIf(bool typed, const char* what, std::size_t row) {
    return typed ? what + std::to_string(row) : "";
}

StepName NameOfFieldChange(const UncertainField& before, const UncertainField& after, std::size_t row) {
    if (before.field != after.field) return {"Uncertain field"};
    return {std::string(TitleOfField(after.field)) + ", distribution",
            KeyIf(FormOf(before) == FormOf(after), "distribution ", row)};
}

StepName NameOfCorrelationChange(const FieldCorrelation& before, const FieldCorrelation& after,
                                 std::size_t row) {
    return {"Correlation", KeyIf(before.value != after.value, "correlation ", row)};
}

StepName NameOfRowsChange(const RiskPlan& before, const RiskPlan& after) {
    if (before.fields.size() != after.fields.size())
        return {after.fields.size() > before.fields.size() ? "Uncertain field added"
                                                           : "Uncertain field removed"};
    if (before.correlations.size() != after.correlations.size())
        return {after.correlations.size() > before.correlations.size() ? "Correlation added"
                                                                       : "Correlation removed"};
    for (std::size_t i = 0; i < after.fields.size(); ++i)
        if (before.fields[i] != after.fields[i])
            return NameOfFieldChange(before.fields[i], after.fields[i], i);
    for (std::size_t i = 0; i < after.correlations.size(); ++i)
        if (before.correlations[i] != after.correlations[i])
            return NameOfCorrelationChange(before.correlations[i], after.correlations[i], i);
    return {};
}

StepName NameOfRiskChange(const RiskPlan& before, const RiskPlan& after) {
    StepName name = NameOfRowsChange(before, after);
    if (name.words.empty() && before.samples != after.samples) name = {"Samples", "samples"};
    if (name.words.empty() && before.seed != after.seed) name = {"Seed", "seed"};
    if (name.words.empty()) name = {"Design points"};
    name.page = StudyPages::Risk;
    return name;
}

StepName NameOfWidthChange(const WidthQuestion& before, const WidthQuestion& after) {
    if (before.field != after.field) return {"Width that is sought", "", StudyPages::Risk};
    if (before.probability != after.probability)
        return {"Probability of the width", "width probability", StudyPages::Risk};
    return {"Step of the width", "width step", StudyPages::Risk};
}

StepName NameOfDesignsChange(const std::vector<AskedDesign>& before, const std::vector<AskedDesign>& after) {
    const std::size_t i = static_cast<std::size_t>(std::ranges::mismatch(before, after).in1 - before.begin());
    if (after.size() > before.size()) return {after[i].name + " kept", "", StudyPages::Compare};
    if (after.size() < before.size()) return {before[i].name + " removed", "", StudyPages::Compare};
    return {before[i].name + ", name", "", StudyPages::Compare};
}

// The sliders beside every page show it as well as the map does.
StepName NameOfRangeChange(const FieldRanges& before, const FieldRanges& after) {
    for (const PanelFieldFacts& facts : kPanelFields) {
        const auto i = static_cast<std::size_t>(facts.field);
        if (before[i] != after[i]) return {std::string(facts.title) + ", range"};
    }
    return {};
}

}  // namespace

MapRequest MapRequestOf(const MapChoice& choice, const FieldRanges& ranges) {
    const auto axis = [&ranges](PanelField field) {
        return StudyAxis{field, ranges[static_cast<std::size_t>(field)]};
    };
    MapRequest request;
    request.x = axis(choice.x);
    if (choice.y && *choice.y != choice.x) request.y = axis(*choice.y);
    request.figure = choice.figure;
    return request;
}

MapChoice ChoiceOf(const MapRequest& request) {
    return {request.x.field, request.y ? std::optional<PanelField>(request.y->field) : std::nullopt,
            request.figure};
}

StepName NameOfChange(const PageRequests& before, const PageRequests& after) {
    if (before.map != after.map) return NameOfMapChange(before.map, after.map);
    if (before.risk != after.risk) return NameOfRiskChange(before.risk, after.risk);
    if (before.width != after.width) return NameOfWidthChange(before.width, after.width);
    if (before.designs != after.designs) return NameOfDesignsChange(before.designs, after.designs);
    return NameOfRangeChange(before.ranges, after.ranges);
}

}  // namespace tarvokol
