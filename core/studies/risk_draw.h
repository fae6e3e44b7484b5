// SPDX-License-Identifier: GPL-3.0-or-later
// Which figures a risk study draws: each a function of the seed, its field and the number of its sample.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/statistics/big_array.h"
#include "core/statistics/hypercube.h"
#include "core/statistics/rank_matching.h"
#include "core/studies/risk_study.h"

namespace tarvokol {

// Samples of one hypercube (of all samples, where draws are independent).
struct DrawPiece {
    std::uint32_t cube = 0;
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

// Hypercubes whose strata stand in memory at the same time.
struct DrawBatch {
    std::uint32_t first_cube = 0;
    std::uint32_t cubes = 0;
};

class RiskDraw {
  public:
    static constexpr std::uint32_t kPiece = 4096;  // samples at most

    // Raises StudyRefusal where the correlations contradict one another (no positive definite matrix). The request outlives
    // the draw.
    explicit RiskDraw(const RiskRequest& request);

    const HypercubePlan& Plan() const { return plan_; }
    std::vector<DrawBatch> Batches() const;
    std::vector<DrawPiece> PiecesOf(const DrawBatch& batch) const;

    // Brings the strata of these fields, by their positions in the request, into memory; those of another batch are forgotten.
    // Before figures are drawn.
    void Prepare(const DrawBatch& batch, std::span<const std::size_t> fields, const CheckPoint& check);
    void ForgetStrata() { strata_.clear(); }

    // The positions of the fields in the order of PanelField, which decides whatever depends on an order.
    const std::vector<std::size_t>& Order() const { return order_; }

    // What a thread draws a piece with: one list per field, each filled by a loop of its own, which the processor runs
    // ahead in.
    struct Lists {
        explicit Lists(std::size_t fields)
            : shares(fields, std::vector<double>(kPiece)), normals(shares), figures(shares) {}
        std::vector<std::vector<double>> shares;   // of the distribution
        std::vector<std::vector<double>> normals;  // standard normal figures of correlated fields
        std::vector<std::vector<double>> figures;
    };

    // Before the figures of a piece.
    void Begin(Lists& lists, const DrawPiece& piece) const;

    // The figures of all samples, one list for each field by its position. `reached` is called with the number of samples
    // of each piece, now and then with 0; what it raises ends the work.
    std::vector<BigArray<double>> AllFigures(const std::function<void(std::uint32_t)>& reached);

    // The figures of a field, by its position; they stand in the field's list until the next piece.
    std::span<double> Figures(Lists& lists, std::size_t field, const DrawPiece& piece) const;

    // Numbers in the order of the values that the field has stored.
    std::span<double> RankKeys(Lists& lists, std::size_t field, const DrawPiece& piece) const;

    // The figures of all fields at a place in the space of independent standard normal figures; both lists have one number per
    // field, by its position in the request. Correlated fields share the normal figures of those before them.
    void FiguresAt(std::span<const double> normals, std::span<double> figures) const;

  private:
    bool IsMixed(std::size_t field) const;
    bool RisesWithItsShare(std::size_t field) const;
    FieldStreams StreamsOf(std::size_t field) const;
    void FillShares(std::size_t field, const DrawPiece& piece, std::span<double> shares) const;
    void FillMixedNormals(const Lists& lists, std::size_t field, std::span<double> mixed) const;

    const RiskRequest& request_;
    HypercubePlan plan_;
    std::vector<std::size_t> order_;
    std::vector<std::size_t>
        correlated_;   // positions of the fields that stand in a correlation, in the same order
    Matrix triangle_;  // of their correlations
    DrawBatch batch_;
    std::vector<std::vector<BigArray<std::uint32_t>>> strata_;  // by hypercubes of the batch and fields
};

}  // namespace tarvokol
