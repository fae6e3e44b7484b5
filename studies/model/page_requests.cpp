// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/page_requests.h"

namespace tarvokol {
namespace {

StepName NameOfMapChange(const MapChoice& before, const MapChoice& after) {
    const bool same_figure = before.figure == after.figure;
    return {same_figure ? "Fields of the map" : "Figure of the map", "", StudyPages::Map};
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
    return NameOfRangeChange(before.ranges, after.ranges);
}

}  // namespace tarvokol
