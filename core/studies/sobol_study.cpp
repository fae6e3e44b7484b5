// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/sobol_study.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "core/runtime/no_number.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/drawn_fields.h"
#include "core/studies/panel_figures.h"
#include "core/studies/risk_draw.h"
#include "core/studies/shortage.h"
#include "core/studies/study_watch.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

// Numbers of these streams belong to the two matrices of base samples; those of samples and hypercubes lie below.
constexpr std::uint32_t kStreamsOfA = 0x20000;
constexpr std::uint32_t kStreamsOfB = 0x30000;

using Factors = std::array<double, kFactors>;

// What the ratio u / v of two means, and its deviation, are made of.
struct RatioSums {
    double u = 0;
    double v = 0;
    double uu = 0;
    double uv = 0;
    double vv = 0;

    void Take(double of_u, double of_v) {
        u += of_u;
        v += of_v;
        uu += of_u * of_u;
        uv += of_u * of_v;
        vv += of_v * of_v;
    }
    void Add(const RatioSums& other) {
        u += other.u;
        v += other.v;
        uu += other.uu;
        uv += other.uv;
        vv += other.vv;
    }
};

// `mean` is what the variance was taken beside: one that is lost in it is none.
SobolIndex IndexOf(const RatioSums& sums, double count, double mean) {
    constexpr double kQuantile = 1.959963984540054;
    constexpr double kLost = 1e-13;
    const double lost = kLost * mean;
    if (!(count > 1.0) || !(sums.v > count * lost * lost)) return {kNoNumber, kNoNumber, kNoNumber};
    const double ratio = sums.u / sums.v;
    // The mean of (u - ratio v)^2, over the mean of v.
    const double squares = std::max(sums.uu - 2.0 * ratio * sums.uv + ratio * ratio * sums.vv, 0.0);
    const double half = kQuantile * std::sqrt(squares) / sums.v;
    return {ratio, ratio - half, ratio + half};
}

// Of one piece of the base samples.
struct PieceSums {
    explicit PieceSums(std::size_t fields) {
        for (auto& of_factor : first) of_factor.resize(fields);
        total = first;
    }
    void Add(const PieceSums& other) {
        for (std::size_t factor = 0; factor < kFactors; ++factor) {
            sum[factor] += other.sum[factor];
            for (std::size_t field = 0; field < first[factor].size(); ++field) {
                first[factor][field].Add(other.first[factor][field]);
                total[factor][field].Add(other.total[factor][field]);
            }
        }
        sound += other.sound;
    }

    Factors sum{};  // over both matrices
    std::uint64_t sound = 0;
    std::array<std::vector<RatioSums>, kFactors> first;
    std::array<std::vector<RatioSums>, kFactors> total;
};

class SobolRun {
  public:
    SobolRun(const RiskRequest& request, StudyObserver& observer)
        : request_(request), watch_(observer, request.samples, Panels()) {
        if (!request.correlations.empty())
            throw StudyRefusal(
                "the fields are correlated; shares of the variance are told of independent ones");
    }

    SobolResult Run() {
        // The first look gives the means, beside which the second one squares: no digits are lost in great figures.
        PieceSums all = Look(false);
        const double both = 2.0 * static_cast<double>(all.sound);
        for (std::size_t factor = 0; factor < kFactors; ++factor) mean_[factor] = all.sum[factor] / both;
        all = Look(true);
        SobolResult result;
        result.refused = request_.samples - all.sound;
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            for (std::size_t field = 0; field < Fields(); ++field)
                result.indices[factor].push_back(
                    {Index(all.first, factor, field, all.sound), Index(all.total, factor, field, all.sound)});
        watch_.Finish();
        return result;
    }

  private:
    using SumsOfFactors = std::array<std::vector<RatioSums>, kFactors>;
    SobolIndex Index(const SumsOfFactors& sums, std::size_t factor, std::size_t field,
                     std::uint64_t count) const {
        return IndexOf(sums[factor][field], static_cast<double>(count), mean_[factor]);
    }

    std::size_t Fields() const { return request_.fields.size(); }
    std::uint64_t Panels() const { return std::uint64_t{request_.samples} * (4 + request_.fields.size()); }

    // Sums of all pieces in their order, so that no bit depends on threads.
    PieceSums Look(bool with_fields) {
        const std::size_t pieces = (request_.samples + std::size_t{RiskDraw::kPiece} - 1) / RiskDraw::kPiece;
        std::vector<PieceSums> sums(pieces, PieceSums(Fields()));
        TaskRun::Do(pieces, request_.threads, [&] {
            return [&, panel = PanelEvaluator(request_.panel, false), a = Matrix(),
                    b = Matrix()](std::size_t piece) mutable {
                const auto first = static_cast<std::uint32_t>(piece * RiskDraw::kPiece);
                const std::uint32_t count = std::min(RiskDraw::kPiece, request_.samples - first);
                Draw(kStreamsOfA, first, count, a);
                Draw(kStreamsOfB, first, count, b);
                for (std::uint32_t i = 0; i < count; ++i)
                    TakeSample(panel, a, b, i, with_fields, sums[piece]);
                watch_.Reach(std::uint64_t{count} * (with_fields ? 2 + Fields() : 2));
            };
        });
        PieceSums all(Fields());
        for (const PieceSums& one : sums) all.Add(one);
        return all;
    }

    using Figures = std::vector<std::vector<double>>;  // by fields
    Figures Matrix() const { return Figures(Fields(), std::vector<double>(RiskDraw::kPiece)); }

    void Draw(std::uint32_t streams, std::uint32_t first, std::uint32_t count, Figures& figures) const {
        std::array<double, RiskDraw::kPiece> shares;
        for (std::size_t field = 0; field < Fields(); ++field) {
            const std::uint32_t stream = streams + static_cast<std::uint32_t>(request_.fields[field].field);
            const auto drawn = std::span(shares).first(count);
            FillWithUnits(request_.seed, stream, first, drawn);
            request_.fields[field].distribution->FillQuantiles(drawn, std::span(figures[field]).first(count));
        }
    }

    // The factors beside their means; nothing of a panel that is refused.
    std::optional<Factors> FactorsOf(PanelEvaluator& panel) const {
        const PanelFigures& figures = panel.Evaluate();
        if (figures.refused) return std::nullopt;
        Factors factors;
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            factors[factor] = figures.*kStudyFigures[factor].value - mean_[factor];
        return factors;
    }

    std::optional<Factors> SetAll(PanelEvaluator& panel, const Figures& figures, std::uint32_t i) const {
        if (!SetDrawnFields(panel, request_.fields, [&](std::size_t field) { return figures[field][i]; }))
            return std::nullopt;
        return FactorsOf(panel);
    }

    // A sample of A with one field of B; the panel holds that of A before and after.
    std::optional<Factors> SetOne(PanelEvaluator& panel, std::size_t field, double of_b, double of_a) const {
        try {
            panel.Set(request_.fields[field].field, of_b);
        } catch (const RunTimeError&) {
            return std::nullopt;
        }
        std::optional<Factors> factors = FactorsOf(panel);
        panel.Set(request_.fields[field].field, of_a);
        return factors;
    }

    void TakeSample(PanelEvaluator& panel, const Figures& a, const Figures& b, std::uint32_t i,
                    bool with_fields, PieceSums& sums) const {
        const std::optional<Factors> of_b = SetAll(panel, b, i);
        const std::optional<Factors> of_a = SetAll(panel, a, i);
        if (!of_a || !of_b) return;
        std::array<std::optional<Factors>, kPanelFields.size()> of_field;
        for (std::size_t field = 0; with_fields && field < Fields(); ++field) {
            of_field[field] = SetOne(panel, field, b[field][i], a[field][i]);
            if (!of_field[field]) return;
        }
        ++sums.sound;
        for (std::size_t factor = 0; factor < kFactors; ++factor) {
            const double fa = (*of_a)[factor];
            const double fb = (*of_b)[factor];
            sums.sum[factor] += fa + fb;
            const double variance = (fa * fa + fb * fb) / 2.0;
            for (std::size_t field = 0; with_fields && field < Fields(); ++field) {
                const double fi = (*of_field[field])[factor];
                sums.first[factor][field].Take(fb * (fi - fa), variance);
                sums.total[factor][field].Take((fa - fi) * (fa - fi) / 2.0, variance);
            }
        }
    }

    const RiskRequest& request_;
    StudyWatch watch_;
    Factors mean_{};
};

}  // namespace

std::optional<SobolResult> RunSobol(const RiskRequest& request, StudyObserver& observer) {
    return WithinMemory("take fewer samples",
                        [&] { return UnlessEnded([&] { return SobolRun(request, observer).Run(); }); });
}

SobolResult RunSobol(const RiskRequest& request) {
    StudyObserver nobody;
    return *RunSobol(request, nobody);
}

}  // namespace tarvokol
