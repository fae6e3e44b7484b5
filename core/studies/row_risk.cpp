// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/row_risk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/statistics/study_refusal.h"
#include "core/studies/drawn_fields.h"
#include "core/studies/risk_draw.h"
#include "core/studies/spread_picture.h"

namespace tarvokol {
namespace {

std::vector<BigArray<double>> AllFiguresOf(RiskDraw& draw) {
    return draw.AllFigures([](std::uint32_t) {});
}

void AddMessage(PanelFigures& figures, const std::string& text) {
    figures.message += (figures.message.empty() ? "" : "\n") + text;
}

}  // namespace

std::string InWords(const RowRiskRequest& request, const Panel& project, const std::vector<PanelField>& set) {
    RiskRequest drawn;
    drawn.panel = project;
    std::string words;
    for (const RowRandom& one : request.random) {
        if (std::find(set.begin(), set.end(), one.field) != set.end()) {
            words += std::string(TitleOfField(one.field)) + ' ' + one.distribution + "; ";
            continue;
        }
        drawn.AddField(one.field, one.distribution);
        words += InWords(drawn.fields.back(), project.units) + "; ";
    }
    for (const FieldCorrelation& pair : request.correlations) words += InWords(pair) + "; ";
    return words + std::to_string(request.samples) + " samples of each panel" + MethodInWords(request.latin) +
           ", seed " + std::to_string(request.seed);
}

RowRisk::RowRisk(const RowRiskRequest& request, const Panel& project, const std::vector<PanelField>& set)
    : request_(request) {
    for (const RowRandom& one : request_.random) {
        if (std::find(set.begin(), set.end(), one.field) == set.end()) continue;
        if (one.distribution.find('%') == std::string::npos)
            throw StudyRefusal(NameOfField(one.field),
                               "each row sets this field; write its distribution in percent of it");
        of_each_row_ = true;
    }
    const RiskRequest of_project = RequestFor(project);
    RiskDraw draw(of_project);
    if (!of_each_row_) drawn_ = AllFiguresOf(draw);
}

RiskRequest RowRisk::RequestFor(const Panel& panel) const {
    RiskRequest request;
    request.panel = panel;
    request.samples = request_.samples;
    request.seed = request_.seed;
    request.latin = request_.latin;
    for (const RowRandom& one : request_.random) request.AddField(one.field, one.distribution);
    for (const FieldCorrelation& pair : request_.correlations)
        request.AddCorrelation(pair.first, pair.second, pair.value);
    return request;
}

void RowRisk::AddTo(PanelFigures& figures, const Panel& row) const {
    if (figures.refused) return;
    if (!of_each_row_) {
        Count(figures, row, drawn_);
        return;
    }
    try {
        const RiskRequest request = RequestFor(row);
        RiskDraw draw(request);
        Count(figures, row, AllFiguresOf(draw));
    } catch (const StudyShortage&) {
        throw;
    } catch (const StudyRefusal& refusal) {
        AddMessage(figures, refusal.what());
    }
}

void RowRisk::Count(PanelFigures& figures, const Panel& row, const Lists& drawn) const {
    PanelEvaluator panel(row, false);
    std::uint64_t webs = 0;
    std::uint64_t barrier = 0;
    std::uint64_t any = 0;
    std::uint64_t refused = 0;
    for (std::uint32_t sample = 0; sample < request_.samples; ++sample) {
        const bool fits =
            SetDrawnFields(panel, request_.random, [&](std::size_t field) { return drawn[field][sample]; });
        const PanelFigures* const one = fits ? &panel.Evaluate() : nullptr;
        if (one == nullptr || one->refused) {
            ++refused;
            continue;
        }
        const bool webs_below = one->WebsOnly < panel.Inputs().SFWeb;
        const bool barrier_below = one->BarrierPillar < panel.Inputs().SFBarrier;
        webs += webs_below ? 1 : 0;
        barrier += barrier_below ? 1 : 0;
        any += webs_below || barrier_below ? 1 : 0;
    }
    if (refused > 0)
        AddMessage(figures, std::to_string(refused) + " of " + std::to_string(request_.samples) +
                                " samples were refused");
    if (refused == request_.samples) return;
    const auto sound = static_cast<double>(request_.samples - refused);
    figures.ProbabilityOfWebs = static_cast<double>(webs) / sound;
    figures.ProbabilityOfBarrier = static_cast<double>(barrier) / sound;
    figures.ProbabilityOfAny = static_cast<double>(any) / sound;
}

}  // namespace tarvokol
