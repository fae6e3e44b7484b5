// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/sample_passes.h"

#include <algorithm>
#include <cstddef>

#include "core/studies/drawn_fields.h"
#include "core/studies/task_run.h"

namespace tarvokol {

SamplePasses::SamplePasses(const RiskRequest& request, StudyWatch& watch)
    : request_(request), watch_(watch), draw_(request) {
    if (KeepsDrawn()) kept_ = draw_.AllFigures([this](std::uint32_t samples) { watch_.Reach(samples); });
}

bool SamplePasses::KeepsDrawn() const {
    constexpr std::uint64_t kMostFigures = 1 << 23;  // 64 MB
    return std::uint64_t{request_.samples} * request_.fields.size() <= kMostFigures;
}

std::vector<std::span<const double>> SamplePasses::Kept(const DrawPiece& piece) const {
    std::vector<std::span<const double>> figures;
    figures.reserve(kept_.size());
    for (const auto& list : kept_) figures.emplace_back(list.data() + piece.first, piece.count);
    return figures;
}

PassResult SamplePasses::Count(const Panel& panel, std::span<const AskedTarget> targets) {
    const Tally none{std::vector<std::uint64_t>(targets.size() + 1), 0};
    std::vector<Tally> cubes(draw_.Plan().count, none);
    for (const DrawBatch& batch : draw_.Batches()) {
        if (kept_.empty()) draw_.Prepare(batch, draw_.Order(), [this] { watch_.Reach(0); });
        const std::vector<DrawPiece> pieces = draw_.PiecesOf(batch);
        std::vector<Tally> tallies(pieces.size(), none);
        TaskRun::Do(pieces.size(), request_.threads, [&] {
            return [&, evaluator = PanelEvaluator(panel, false),
                    lists = RiskDraw::Lists(kept_.empty() ? request_.fields.size() : 0)](
                       std::size_t number) mutable {
                const DrawPiece& piece = pieces[number];
                std::vector<std::span<const double>> figures = Kept(piece);
                if (kept_.empty()) {
                    figures.resize(request_.fields.size());
                    draw_.Begin(lists, piece);
                    for (const std::size_t field : draw_.Order())
                        figures[field] = draw_.Figures(lists, field, piece);
                }
                CountPiece(evaluator, figures, targets, piece, tallies[number]);
                watch_.Reach(piece.count);
            };
        });
        for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
            Tally& cube = cubes[pieces[piece].cube];
            cube.refused += tallies[piece].refused;
            for (std::size_t i = 0; i < cube.below.size(); ++i) cube.below[i] += tallies[piece].below[i];
        }
    }
    PassResult result;
    for (std::size_t i = 0; i < targets.size(); ++i) result.below.push_back(ShareOfCubes(cubes, i));
    result.any = ShareOfCubes(cubes, targets.size());
    for (const Tally& cube : cubes) result.refused += cube.refused;
    return result;
}

void SamplePasses::CountPiece(PanelEvaluator& panel, const std::vector<std::span<const double>>& figures,
                              std::span<const AskedTarget> targets, const DrawPiece& piece,
                              Tally& tally) const {
    const auto is_sound = [&](std::uint32_t i) {
        return SetDrawnFields(panel, request_.fields, [&](std::size_t field) { return figures[field][i]; }) &&
               !panel.Evaluate().refused;
    };
    for (std::uint32_t i = 0; i < piece.count; ++i) {
        const bool sound = is_sound(i);
        tally.refused += sound ? 0 : 1;
        bool any = false;
        for (std::size_t target = 0; target < targets.size(); ++target) {
            const StudyFigure& factor = kStudyFigures[targets[target].factor];
            const bool below = !sound || panel.Figures().*factor.value < targets[target].target;
            tally.below[target] += below ? 1 : 0;
            any |= below;
        }
        tally.below.back() += any ? 1 : 0;
    }
}

Share SamplePasses::ShareOfCubes(std::span<const Tally> tallies, std::size_t target) const {
    std::vector<HitCount> cubes;
    cubes.reserve(tallies.size());
    for (std::uint32_t cube = 0; cube < tallies.size(); ++cube)
        cubes.push_back({tallies[cube].below[target], draw_.Plan().Size(cube)});
    return request_.latin ? ShareOfReplicates(cubes) : ShareOf(cubes[0].hits, cubes[0].count);
}

}  // namespace tarvokol
