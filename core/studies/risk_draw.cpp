// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/risk_draw.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "core/runtime/run_time_error.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

std::vector<std::size_t> InOrderOfFields(const RiskRequest& request) {
    std::vector<std::size_t> order(request.fields.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return request.fields[a].field < request.fields[b].field;
    });
    return order;
}

bool IsCorrelated(const RiskRequest& request, PanelField field) {
    return std::any_of(
        request.correlations.begin(), request.correlations.end(),
        [field](const FieldCorrelation& one) { return one.first == field || one.second == field; });
}

// Of the fields at these positions.
Matrix CorrelationMatrix(const RiskRequest& request, const std::vector<std::size_t>& fields) {
    const auto row_of = [&](PanelField field) {
        const auto found = std::find_if(fields.begin(), fields.end(), [&](std::size_t position) {
            return request.fields[position].field == field;
        });
        return static_cast<std::size_t>(found - fields.begin());
    };
    Matrix matrix(fields.size(), std::vector<double>(fields.size(), 0.0));
    for (std::size_t i = 0; i < fields.size(); ++i) matrix[i][i] = 1.0;
    for (const FieldCorrelation& one : request.correlations) {
        const std::size_t i = row_of(one.first);
        const std::size_t j = row_of(one.second);
        matrix[i][j] = matrix[j][i] = one.value;
    }
    return matrix;
}

}  // namespace

RiskDraw::RiskDraw(const RiskRequest& request)
    : request_(request),
      plan_(request.latin ? HypercubePlan::Of(request.samples) : HypercubePlan{request.samples, 1}),
      order_(InOrderOfFields(request)) {
    for (const std::size_t field : order_)
        if (IsCorrelated(request, request.fields[field].field)) correlated_.push_back(field);
    const auto triangle = TriangleOf(CorrelationMatrix(request, correlated_));
    if (!triangle)
        throw StudyRefusal(
            "the correlations contradict one another (their matrix is not positive definite); bring some of "
            "them nearer to 0");
    triangle_ = *triangle;
}

std::vector<DrawBatch> RiskDraw::Batches() const {
    constexpr std::uint32_t kSamples = 1 << 20;  // in memory at a time, if a hypercube has not more
    const std::uint32_t cubes = std::max(kSamples / std::max(plan_.samples / plan_.count, 1U), 1U);
    std::vector<DrawBatch> batches;
    for (std::uint32_t first = 0; first < plan_.count; first += cubes)
        batches.push_back({first, std::min(cubes, plan_.count - first)});
    return batches;
}

std::vector<DrawPiece> RiskDraw::PiecesOf(const DrawBatch& batch) const {
    std::vector<DrawPiece> pieces;
    for (std::uint32_t cube = batch.first_cube; cube < batch.first_cube + batch.cubes; ++cube) {
        const std::uint32_t size = plan_.Size(cube);
        for (std::uint32_t first = 0; first < size; first += std::min(kPiece, size - first))
            pieces.push_back({cube, plan_.First(cube) + first, std::min(kPiece, size - first)});
    }
    return pieces;
}

void RiskDraw::Prepare(const DrawBatch& batch, std::span<const std::size_t> fields, const CheckPoint& check) {
    ForgetStrata();
    batch_ = batch;
    if (!request_.latin) return;
    // Who needs one of the correlated fields needs all of them.
    const auto is_correlated = [this](std::size_t field) {
        return std::find(correlated_.begin(), correlated_.end(), field) != correlated_.end();
    };
    std::vector<std::size_t> needed(fields.begin(), fields.end());
    const bool matched = std::any_of(needed.begin(), needed.end(), is_correlated);
    if (matched)
        for (const std::size_t field : correlated_)
            if (std::find(needed.begin(), needed.end(), field) == needed.end()) needed.push_back(field);
    strata_.resize(batch.cubes);
    for (auto& of_cube : strata_) of_cube.resize(order_.size());
    TaskRun::Do(batch.cubes * needed.size(), request_.threads, [&] {
        return [&](std::size_t task) {
            const auto cube = static_cast<std::uint32_t>(task / needed.size());
            const std::size_t field = needed[task % needed.size()];
            strata_[cube][field] =
                StratifiedField(StreamsOf(field), plan_, batch.first_cube + cube).RandomStrata();
            check();
        };
    });
    if (!matched) return;
    TaskRun::Do(batch.cubes, request_.threads, [&] {
        return [&](std::size_t cube) {
            std::vector<std::span<std::uint32_t>> lists;
            for (const std::size_t field : correlated_) lists.emplace_back(strata_[cube][field]);
            MatchRanks(lists, triangle_, check);
        };
    });
}

FieldStreams RiskDraw::StreamsOf(std::size_t field) const {
    return {request_.seed, static_cast<std::uint32_t>(request_.fields[field].field)};
}

// True of a field whose draws are independent of one another, but correlated with those of others.
bool RiskDraw::IsMixed(std::size_t field) const {
    return !request_.latin && std::find(correlated_.begin(), correlated_.end(), field) != correlated_.end();
}

// True where another share gives another value: not of whole numbers, single values and constants.
bool RiskDraw::RisesWithItsShare(std::size_t field) const {
    const RandomField& random = request_.fields[field];
    return !IsWholeField(random.field) && random.distribution->IsContinuous() &&
           random.distribution->StandardDeviation() > 0.0;
}

void RiskDraw::FillShares(std::size_t field, const DrawPiece& piece, std::span<double> shares) const {
    const FieldStreams streams = StreamsOf(field);
    FillWithUnits(streams.seed, streams.Place(), piece.first, shares);
    if (!request_.latin) return;
    const auto& strata = strata_[piece.cube - batch_.first_cube][field];
    StratifiedField(streams, plan_, piece.cube)
        .FillShares(std::span(strata).subspan(piece.first - plan_.First(piece.cube), piece.count), shares);
}

void RiskDraw::Begin(Lists& lists, const DrawPiece& piece) const {
    if (request_.latin) return;
    for (const std::size_t field : correlated_) {
        const auto shares = std::span(lists.shares[field]).first(piece.count);
        FillShares(field, piece, shares);
        FillWithNormalQuantiles(shares, std::span(lists.normals[field]).first(piece.count));
    }
}

void RiskDraw::FillMixedNormals(const Lists& lists, std::size_t field, std::span<double> mixed) const {
    const auto row = static_cast<std::size_t>(std::find(correlated_.begin(), correlated_.end(), field) -
                                              correlated_.begin());
    std::fill(mixed.begin(), mixed.end(), 0.0);
    for (std::size_t k = 0; k <= row; ++k)
        if (const double weight = triangle_[row][k]; weight != 0.0)
            for (std::size_t i = 0; i < mixed.size(); ++i)
                mixed[i] += weight * lists.normals[correlated_[k]][i];
}

std::span<double> RiskDraw::Figures(Lists& lists, std::size_t field, const DrawPiece& piece) const {
    const Distribution& distribution = *request_.fields[field].distribution;
    const auto figures = std::span(lists.figures[field]).first(piece.count);
    if (!IsMixed(field)) {
        const auto shares = std::span(lists.shares[field]).first(piece.count);
        FillShares(field, piece, shares);
        distribution.FillQuantiles(shares, figures);
        return figures;
    }
    FillMixedNormals(lists, field, figures);
    distribution.FillFromNormal(figures, figures);
    return figures;
}

std::vector<BigArray<double>> RiskDraw::AllFigures(const std::function<void(std::uint32_t)>& reached) {
    std::vector<BigArray<double>> all;
    all.reserve(order_.size());
    for (std::size_t field = 0; field < order_.size(); ++field) all.emplace_back(plan_.samples);
    for (const DrawBatch& batch : Batches()) {
        Prepare(batch, order_, [&] { reached(0); });
        const std::vector<DrawPiece> pieces = PiecesOf(batch);
        TaskRun::Do(pieces.size(), request_.threads, [&] {
            return [&, lists = Lists(order_.size())](std::size_t number) mutable {
                const DrawPiece& piece = pieces[number];
                Begin(lists, piece);
                for (const std::size_t field : order_) {
                    const auto figures = Figures(lists, field, piece);
                    std::copy(figures.begin(), figures.end(), all[field].begin() + piece.first);
                }
                reached(piece.count);
            };
        });
    }
    ForgetStrata();
    return all;
}

void RiskDraw::FiguresAt(std::span<const double> normals, std::span<double> figures) const {
    for (const std::size_t field : order_) {
        double z = normals[field];
        const auto found = std::find(correlated_.begin(), correlated_.end(), field);
        if (found != correlated_.end()) {
            const auto& weights = triangle_[static_cast<std::size_t>(found - correlated_.begin())];
            z = 0.0;
            for (std::size_t k = 0; k < correlated_.size(); ++k) z += weights[k] * normals[correlated_[k]];
        }
        request_.fields[field].distribution->FillFromNormal({&z, 1}, figures.subspan(field, 1));
    }
}

std::span<double> RiskDraw::RankKeys(Lists& lists, std::size_t field, const DrawPiece& piece) const {
    if (RisesWithItsShare(field)) {
        const auto keys = std::span(lists.shares[field]).first(piece.count);
        if (IsMixed(field))
            FillMixedNormals(lists, field, keys);
        else
            FillShares(field, piece, keys);
        return keys;
    }
    const auto figures = Figures(lists, field, piece);
    const PanelField name = request_.fields[field].field;
    Panel stored = request_.panel;
    for (double& figure : figures) {
        try {
            StoreInField(stored, name, figure);
            figure = ValueOfField(stored, name);
        } catch (const RunTimeError&) {
            figure = std::numeric_limits<double>::quiet_NaN();  // its sample is refused
        }
    }
    return figures;
}

}  // namespace tarvokol
