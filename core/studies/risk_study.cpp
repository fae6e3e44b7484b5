// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/risk_study.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>

#include "core/runtime/run_time_error.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/shortage.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

constexpr double kBelowOne = 1.0 - 0x1p-53;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kMostRefusalTexts = 10;
constexpr std::uint32_t kPiece = 4096;

using Matrix = std::vector<std::vector<double>>;

bool IsNormal(const Distribution& distribution) {
    return distribution.Text().starts_with("normal:");
}

std::size_t IndexOf(const std::vector<RandomField>& fields, PanelField field) {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [field](const RandomField& one) { return one.field == field; });
    return static_cast<std::size_t>(found - fields.begin());
}

// Streams of random numbers, of each field its own, in whatever order the fields are given: one for the place inside a
// stratum, one for the order of the strata.
std::uint32_t PlaceStream(PanelField field) {
    return 2 * static_cast<std::uint32_t>(field);
}
std::uint32_t OrderStream(PanelField field) {
    return 2 * static_cast<std::uint32_t>(field) + 1;
}

// The random fields of a request by their positions, in the order of PanelField: whatever depends on an order takes this one.
std::vector<std::size_t> OrderedFields(const RiskRequest& request) {
    std::vector<std::size_t> order(request.fields.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return request.fields[a].field < request.fields[b].field;
    });
    return order;
}

// The lower triangle L with L x transposed L = the matrix of correlations (Cholesky), of the fields in this order.
Matrix Triangle(const RiskRequest& request, const std::vector<std::size_t>& order) {
    const std::size_t n = order.size();
    const auto row_of = [&](PanelField field) {
        const auto found = std::find(order.begin(), order.end(), IndexOf(request.fields, field));
        return static_cast<std::size_t>(found - order.begin());
    };
    Matrix a(n, std::vector<double>(n, 0.0));
    for (std::size_t i = 0; i < n; ++i) a[i][i] = 1.0;
    for (const FieldCorrelation& one : request.correlations) {
        const std::size_t i = row_of(one.first);
        const std::size_t j = row_of(one.second);
        a[i][j] = a[j][i] = one.value;
    }
    for (std::size_t j = 0; j < n; ++j) {
        for (std::size_t k = 0; k < j; ++k) a[j][j] -= a[j][k] * a[j][k];
        if (!(a[j][j] > 0.0))
            throw StudyRefusal(
                "the correlations contradict one another (their matrix is not positive definite); bring some "
                "of "
                "them nearer to 0");
        a[j][j] = std::sqrt(a[j][j]);
        for (std::size_t i = j + 1; i < n; ++i) {
            for (std::size_t k = 0; k < j; ++k) a[i][j] -= a[i][k] * a[j][k];
            a[i][j] /= a[j][j];
        }
        for (std::size_t i = 0; i < j; ++i) a[i][j] = 0.0;
    }
    return a;
}

// A task has its thread's memory for sorting.
using SortingTask = std::function<void(SortedSample& sorted)>;

void RunTasks(const std::vector<SortingTask>& tasks, unsigned threads) {
    TaskRun::Do(tasks.size(), threads, [&] {
        return
            [&tasks, sorted = std::make_shared<SortedSample>()](std::size_t task) { tasks[task](*sorted); };
    });
}

class RiskRun {
  public:
    RiskRun(const RiskRequest& request, StudyObserver& observer)
        : request_(request),
          project_(request.panel),
          observer_(observer),
          order_(OrderedFields(request)),
          triangle_(Triangle(request, order_)) {}

    std::optional<RiskResult> Run() {
        if (!observer_.Progress(0, request_.samples)) return std::nullopt;
        Prepare();
        DrawAll();
        KeepSound();
        Summarise();
        if (!observer_.Progress(request_.samples, request_.samples)) return std::nullopt;
        return std::move(result_);
    }

  private:
    std::size_t Fields() const { return request_.fields.size(); }
    bool IsRandom(PanelField field) const { return IndexOf(request_.fields, field) < Fields(); }

    void Prepare() {
        for (std::size_t field = 0; field < Fields(); ++field)
            result_.drawn.emplace_back(request_.keep_drawn || !HasStrata(field) ? request_.samples : 0);
        for (auto& factor : result_.factors) factor = BigArray<double>(request_.samples);
        if (IsRandom(PanelField::SFWeb)) target_web_ = BigArray<float>(request_.samples);
        if (IsRandom(PanelField::SFBarrier)) target_barrier_ = BigArray<float>(request_.samples);
        if (!request_.latin) return;
        orders_.resize(Fields());
        std::vector<SortingTask> tasks;
        for (std::size_t field = 0; field < Fields(); ++field)
            tasks.emplace_back([this, field](SortedSample&) {
                orders_[field] =
                    RandomOrder(request_.seed, OrderStream(request_.fields[field].field), request_.samples);
            });
        // Memory takes the system's time with its first use: here, where a thread may have nothing else to do.
        for (auto& factor : result_.factors)
            tasks.emplace_back([&factor](SortedSample&) { std::fill(factor.begin(), factor.end(), 0.0); });
        RunTasks(tasks, request_.threads);
    }

    void DrawAll() {
        const std::uint32_t pieces = (request_.samples + kPiece - 1) / kPiece;
        refusals_.resize(pieces);
        TaskRun::Do(pieces, request_.threads, [&] {
            return [this, panel = PanelEvaluator(project_, false),
                    draw = Draw(Fields())](std::size_t piece) mutable {
                DrawPiece(panel, draw, static_cast<std::uint32_t>(piece));
            };
        });
    }

    // A piece, one list a field: each is filled by a loop of its own, which the processor runs ahead in.
    struct Draw {
        using Lists = std::vector<std::vector<double>>;
        explicit Draw(std::size_t fields)
            : shares(fields, std::vector<double>(kPiece)), normals(shares), figures(shares) {}
        Lists shares;
        Lists normals;  // standard normal figures, of the fields that are drawn from them
        Lists figures;
    };

    void DrawPiece(PanelEvaluator& panel, Draw& draw, std::uint32_t piece) {
        const std::uint32_t first = piece * kPiece;
        const std::uint32_t count = std::min(request_.samples - first, kPiece);
        for (std::size_t place = 0; place < Fields(); ++place) {
            FillShares(order_[place], first, std::span(draw.shares[order_[place]]).first(count));
            FillFigures(draw, place, count);
        }
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t sample = first + i;
            if (SetFields(panel, draw, i, sample, refusals_[piece]))
                KeepFigures(panel, sample, refusals_[piece]);
            else
                for (auto& factor : result_.factors) factor[sample] = kNone;
        }
    }

    // Sets a sample's figures; false, with a word why, where a field cannot hold its figure.
    bool SetFields(PanelEvaluator& panel, const Draw& draw, std::uint32_t i, std::uint32_t sample,
                   std::vector<std::string>& refusals) {
        const char* too_large = nullptr;
        for (const std::size_t field : order_) {
            const PanelField name = request_.fields[field].field;
            double figure = draw.figures[field][i];
            try {
                panel.Set(name, figure);
                figure = ValueOfField(panel.Inputs(), name);
            } catch (const RunTimeError&) {
                if (too_large == nullptr) too_large = NameOfField(name);
            }
            if (!result_.drawn[field].empty()) result_.drawn[field][sample] = figure;
        }
        if (too_large == nullptr) return true;
        refusals.push_back(std::string(too_large) + ": a drawn figure cannot be stored in this field");
        return false;
    }

    void KeepFigures(PanelEvaluator& panel, std::uint32_t sample, std::vector<std::string>& refusals) {
        const PanelFigures& figures = panel.Evaluate();
        result_.factors[0][sample] = figures.Overall;
        result_.factors[1][sample] = figures.WebsOnly;
        result_.factors[2][sample] = figures.BarrierPillar;
        if (!target_web_.empty()) target_web_[sample] = panel.Inputs().SFWeb;
        if (!target_barrier_.empty()) target_barrier_[sample] = panel.Inputs().SFBarrier;
        if (figures.refused) refusals.push_back(figures.message);
    }

    // The shares from sample `first` on; within its stratum each has a place of its own.
    void FillShares(std::size_t field, std::uint32_t first, std::span<double> shares) const {
        FillWithUnits(request_.seed, PlaceStream(request_.fields[field].field), first, shares);
        if (!request_.latin) return;
        const std::uint32_t* stratum = &orders_[field][first];
        for (double& share : shares) share = std::min((*stratum++ + share) / request_.samples, kBelowOne);
    }

    // Of the field at a place of the order.
    void FillFigures(Draw& draw, std::size_t place, std::uint32_t count) const {
        const std::size_t field = order_[place];
        const Distribution& distribution = *request_.fields[field].distribution;
        const auto shares = std::span(draw.shares[field]).first(count);
        const auto normals = std::span(draw.normals[field]).first(count);
        const auto figures = std::span(draw.figures[field]).first(count);
        if (!distribution.IsFromNormal()) return distribution.FillQuantiles(shares, figures);
        FillWithNormalQuantiles(shares, normals);
        if (request_.correlations.empty()) return distribution.FillFromNormal(normals, figures);
        for (std::uint32_t i = 0; i < count; ++i) figures[i] = Mixed(draw, place, i);
        distribution.FillFromNormal(figures, figures);
    }

    // The normal figure of a field with its correlations to those before it.
    double Mixed(const Draw& draw, std::size_t place, std::uint32_t i) const {
        double sum = 0;
        for (std::size_t k = 0; k <= place; ++k)
            if (triangle_[place][k] != 0.0) sum += triangle_[place][k] * draw.normals[order_[k]][i];
        return sum;
    }

    // The samples that were not refused, in their order.
    void KeepSound() {
        for (const auto& texts : refusals_) {
            result_.refused += texts.size();
            for (const std::string& text : texts)
                if (result_.refusals.size() < kMostRefusalTexts &&
                    std::find(result_.refusals.begin(), result_.refusals.end(), text) ==
                        result_.refusals.end())
                    result_.refusals.push_back(text);
        }
        if (result_.refused == 0) return;
        for (std::uint32_t sample = 0; sample < request_.samples; ++sample)
            if (!std::isnan(result_.factors[0][sample])) sound_.push_back(sample);
    }

    // The values of the samples that were not refused; `kept` holds them where some were.
    std::span<const double> SoundOf(std::span<const double> values, BigArray<double>& kept) const {
        if (result_.refused == 0) return values;
        kept = BigArray<double>(sound_.size());
        for (std::size_t i = 0; i < sound_.size(); ++i) kept[i] = values[sound_[i]];
        return kept;
    }

    // True where the strata of the draw rank the values by themselves.
    bool HasStrata(std::size_t field) const {
        const RandomField& random = request_.fields[field];
        return request_.latin && request_.correlations.empty() && random.field != PanelField::NumberHoles &&
               random.distribution->StandardDeviation() > 0.0;
    }

    // Ranks of the sound samples, and how far they deviate from their mean.
    struct Ranks {
        BigArray<std::uint32_t> strata;   // those of a field with strata, from 0
        BigArray<std::uint64_t> doubled;  // all others, from 2
        Deviations deviations;
    };

    void RankField(std::size_t field, SortedSample& sorted) {
        Ranks& ranks = field_ranks_[field];
        if (HasStrata(field)) {
            ranks.strata = SoundStrata(std::move(orders_[field]));
            ranks.deviations = DeviationsOf(ranks.strata);
            return;
        }
        BigArray<double> kept;
        sorted.Sort(SoundOf(result_.drawn[field], kept));
        ranks.doubled = sorted.DoubledRanks();
        ranks.deviations = DeviationsOf(ranks.doubled);
    }

    // The strata of the samples that were not refused, numbered without those of the others.
    BigArray<std::uint32_t> SoundStrata(BigArray<std::uint32_t> strata) const {
        if (result_.refused == 0) return strata;
        std::vector<std::uint32_t> below(request_.samples);
        for (const std::uint32_t sample : sound_) below[strata[sample]] = 1;
        std::exclusive_scan(below.begin(), below.end(), below.begin(), 0U);
        BigArray<std::uint32_t> numbers(sound_.size());
        for (std::size_t i = 0; i < sound_.size(); ++i) numbers[i] = below[strata[sound_[i]]];
        return numbers;
    }

    void RankFactor(std::size_t factor, SortedSample& sorted) {
        FactorRisk& risk = result_.risk[factor];
        BigArray<double> kept;
        sorted.Sort(SoundOf(result_.factors[factor], kept));
        for (std::size_t i = 0; i < kRiskShares.size(); ++i)
            risk.quantiles[i] = sorted.Quantile(kRiskShares[i]);
        Ranks& ranks = factor_ranks_[factor];
        ranks.doubled = sorted.DoubledRanks();
        ranks.deviations = DeviationsOf(ranks.doubled);
    }

    void CountFactor(std::size_t factor) {
        FactorRisk& risk = result_.risk[factor];
        BigArray<double> kept;
        const auto values = SoundOf(result_.factors[factor], kept);
        risk.moments = MomentsOf(values);
        if (factor == 1) risk.below.push_back(Below(values, project_.SFWeb, target_web_));
        if (factor == 2) risk.below.push_back(Below(values, project_.SFBarrier, target_barrier_));
        risk.below.push_back(Below(values, 1.0, {}));
    }

    // Each sample is held against its own target, where targets are given; `target` is the project's.
    BelowTarget Below(std::span<const double> values, double target, std::span<const float> targets) const {
        std::uint64_t hits = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::size_t sample = sound_.empty() ? i : sound_[i];
            if (values[i] < (targets.empty() ? target : double{targets[sample]})) ++hits;
        }
        return {target, ShareOf(hits, values.size()), !targets.empty()};
    }

    static double RankCorrelation(const Ranks& field, const Ranks& factor) {
        if (field.strata.empty())
            return Correlation(field.doubled, factor.doubled, field.deviations, factor.deviations);
        return Correlation(field.strata, factor.doubled, field.deviations, factor.deviations);
    }

    void Summarise() {
        field_ranks_.resize(Fields());
        std::vector<SortingTask> tasks;
        // The long ones first, so that no thread waits for another's at the end.
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            tasks.emplace_back([this, factor](SortedSample& sorted) { RankFactor(factor, sorted); });
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            tasks.emplace_back([this, factor](SortedSample&) { CountFactor(factor); });
        for (std::size_t field = 0; field < Fields(); ++field)
            tasks.emplace_back([this, field](SortedSample& sorted) { RankField(field, sorted); });
        RunTasks(tasks, request_.threads);
        tasks.clear();
        for (std::size_t factor = 0; factor < kFactors; ++factor) {
            auto& list = result_.risk[factor].rank_correlation;
            list.resize(Fields());
            for (std::size_t field = 0; field < Fields(); ++field)
                tasks.emplace_back([this, factor, field, &list](SortedSample&) {
                    list[field] = RankCorrelation(field_ranks_[field], factor_ranks_[factor]);
                });
        }
        RunTasks(tasks, request_.threads);
    }

    const RiskRequest& request_;
    const Panel& project_;
    StudyObserver& observer_;
    std::vector<std::size_t> order_;
    Matrix triangle_;
    RiskResult result_;
    std::vector<BigArray<std::uint32_t>> orders_;  // of the strata, one list a field
    BigArray<float> target_web_;                   // of each sample, where it is random; else empty
    BigArray<float> target_barrier_;
    std::vector<std::vector<std::string>> refusals_;  // by pieces
    std::vector<std::uint32_t> sound_;                // samples not refused; empty where none was
    std::vector<Ranks> field_ranks_;
    std::array<Ranks, kFactors> factor_ranks_;
};

}  // namespace

void RiskRequest::AddField(PanelField field, std::string_view distribution) {
    About(NameOfField(field), [&] {
        if (IndexOf(fields, field) < fields.size()) throw StudyRefusal("the field is given twice");
        DistributionPtr parsed = ParseDistribution(distribution, ValueOfField(panel, field));
        const DistributionPtr whole = IsWholeField(field) ? parsed->OverWholeNumbers() : nullptr;
        fields.push_back({field, whole ? whole : parsed});
    });
}

void RiskRequest::AddCorrelation(PanelField first, PanelField second, double value) {
    About(std::string(NameOfField(first)) + ',' + NameOfField(second), [&] {
        if (!(value > -1.0 && value < 1.0))
            throw StudyRefusal("the correlation must lie between -1 and 1, both left out");
        if (first == second) throw StudyRefusal("a field is not correlated with itself");
        for (const PanelField field : {first, second}) {
            const std::size_t index = IndexOf(fields, field);
            if (index == fields.size() || !IsNormal(*fields[index].distribution))
                throw StudyRefusal("both fields must be drawn from a normal distribution");
        }
        for (const FieldCorrelation& other : correlations)
            if ((other.first == first && other.second == second) ||
                (other.first == second && other.second == first))
                throw StudyRefusal("the pair is given twice");
        correlations.push_back({first, second, value});
    });
}

std::optional<RiskResult> RunRisk(const RiskRequest& request, StudyObserver& observer) {
    return WithinMemory("take fewer samples", [&] { return RiskRun(request, observer).Run(); });
}

RiskResult RunRisk(const RiskRequest& request) {
    StudyObserver nobody;
    return *RunRisk(request, nobody);
}

}  // namespace tarvokol
