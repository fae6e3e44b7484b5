// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/row_risk.h"

#include <algorithm>
#include <cstddef>

#include "core/statistics/study_refusal.h"
#include "core/studies/drawn_fields.h"
#include "core/studies/risk_draw.h"

namespace tarvokol {
namespace {

std::vector<std::vector<double>> DrawnFor(const RiskRequest& request) {
    RiskDraw draw(request);
    const std::size_t fields = request.fields.size();
    std::vector<std::vector<double>> drawn(fields, std::vector<double>(request.samples));
    RiskDraw::Lists lists(fields);
    for (const DrawBatch& batch : draw.Batches()) {
        draw.Prepare(batch, draw.Order(), [] {});
        for (const DrawPiece& piece : draw.PiecesOf(batch)) {
            draw.Begin(lists, piece);
            for (std::size_t field = 0; field < fields; ++field) {
                const auto figures = draw.Figures(lists, field, piece);
                std::copy(figures.begin(), figures.end(), drawn[field].begin() + piece.first);
            }
        }
    }
    return drawn;
}

void AddMessage(PanelFigures& figures, const std::string& text) {
    figures.message += (figures.message.empty() ? "" : "\n") + text;
}

}  // namespace

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
    if (!of_each_row_) drawn_ = DrawnFor(of_project);
}

RiskRequest RowRisk::RequestFor(const Panel& panel) const {
    RiskRequest request;
    request.panel = panel;
    request.samples = request_.samples;
    request.seed = request_.seed;
    for (const RowRandom& one : request_.random) request.AddField(one.field, one.distribution);
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
        Count(figures, row, DrawnFor(request));
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
