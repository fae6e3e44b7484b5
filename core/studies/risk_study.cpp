// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/risk_study.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <mutex>
#include <numeric>
#include <utility>

#include "core/runtime/no_number.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/rank_order.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/measured_column.h"
#include "core/studies/risk_draw.h"
#include "core/studies/risk_parts.h"
#include "core/studies/shortage.h"
#include "core/studies/study_watch.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

std::size_t IndexOf(const std::vector<RandomField>& fields, PanelField field) {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [field](const RandomField& one) { return one.field == field; });
    return static_cast<std::size_t>(found - fields.begin());
}

// What is counted below: Overall below 1; webs below their target and 1; barrier below its target and 1; webs or barrier
// below theirs. The targets asked for follow.
constexpr std::size_t kCounts = 6;
constexpr std::size_t kJoint = 5;

RiskTally TallyFor(const RiskRequest& request) {
    return RiskTally(kCounts + request.targets.size());
}

// Drawing a sample, and ordering the samples of a factor or a field, take about the same time.
constexpr std::uint64_t kDrawing = 2;
std::uint64_t OrderingOf(const RiskRequest& request) {
    return kFactors + request.fields.size();
}

class RiskRun {
  public:
    // Of these samples; `work` is what is to be done with each.
    RiskRun(const RiskRequest& request, const SampleRange& range, std::uint64_t work, StudyObserver& observer)
        : request_(request),
          range_(range),
          draw_(request),
          watch_(observer, std::max(range.count, 1U), std::max(range.count, 1U) * work),
          check_([this] { watch_.Reach(0); }),
          tallies_(draw_.Plan().count, TallyFor(request)) {
        if (KeepsDrawn())
            for (std::size_t field = 0; field < Fields(); ++field) result_.drawn.emplace_back(range_.count);
        for (auto& factor : result_.factors) factor = BigArray<double>(range_.count);
    }

    RiskResult Whole() {
        DrawAll();
        return SumUp();
    }

    RiskPart Part() {
        DrawAll();
        watch_.Finish();
        return {request_,           range_, "", std::move(result_.drawn), std::move(result_.factors),
                std::move(tallies_)};
    }

    // In the order of their samples.
    RiskResult Merged(const std::vector<const RiskPart*>& parts) {
        for (const RiskPart* part : parts) {
            watch_.Reach(0);
            for (std::size_t field = 0; field < result_.drawn.size(); ++field)
                Place(part->drawn[field], part->range, result_.drawn[field]);
            for (std::size_t factor = 0; factor < kFactors; ++factor)
                Place(part->factors[factor], part->range, result_.factors[factor]);
            for (std::size_t cube = 0; cube < tallies_.size(); ++cube)
                tallies_[cube].Add(part->tallies[cube]);
        }
        return SumUp();
    }

  private:
    static void Place(const BigArray<double>& values, const SampleRange& range, BigArray<double>& all) {
        std::copy(values.begin(), values.end(), all.begin() + range.first);
    }

    RiskResult SumUp() {
        CountAll();
        RankFactors();
        RankFields();
        if (!request_.keep_samples) result_.drawn.clear();
        watch_.Finish();
        return std::move(result_);
    }

    std::size_t Fields() const { return request_.fields.size(); }

    // Of so many samples the fields are drawn once more to be ordered, one at a time, for the sake of memory.
    bool AreMany() const { return request_.samples > 1 << 22; }
    bool KeepsDrawn() const { return request_.keep_samples || !AreMany(); }

    void DrawAll() {
        watch_.Reach(0);
        for (const DrawBatch& batch : draw_.Batches()) DrawBatchOf(Needed(batch));
        draw_.ForgetStrata();
    }

    // The hypercubes of the batch that have samples of the range.
    DrawBatch Needed(const DrawBatch& batch) const {
        DrawBatch needed{batch.first_cube, 0};
        const HypercubePlan& plan = draw_.Plan();
        for (std::uint32_t cube = batch.first_cube; cube < batch.first_cube + batch.cubes; ++cube) {
            if (plan.First(cube) >= range_.End() || plan.First(cube + 1) <= range_.first) continue;
            if (needed.cubes == 0) needed.first_cube = cube;
            ++needed.cubes;
        }
        return needed;
    }

    // The samples of the range among those of the batch.
    std::vector<DrawPiece> NeededPieces(const DrawBatch& batch) const {
        std::vector<DrawPiece> needed;
        for (const DrawPiece& piece : draw_.PiecesOf(batch)) {
            const std::uint32_t first = std::max(piece.first, range_.first);
            const std::uint32_t end = std::min(piece.first + piece.count, range_.End());
            if (first < end) needed.push_back({piece.cube, first, end - first});
        }
        return needed;
    }

    void DrawBatchOf(const DrawBatch& batch) {
        if (batch.cubes == 0) return;
        draw_.Prepare(batch, draw_.Order(), check_);
        const std::vector<DrawPiece> pieces = NeededPieces(batch);
        std::vector<RiskTally> tallies(pieces.size(), TallyFor(request_));
        TaskRun::Do(pieces.size(), request_.threads, [&] {
            return [&, panel = PanelEvaluator(request_.panel, false),
                    lists = RiskDraw::Lists(Fields())](std::size_t piece) mutable {
                DrawOne(panel, lists, pieces[piece], tallies[piece]);
                watch_.Reach(kDrawing * pieces[piece].count);
            };
        });
        for (std::size_t piece = 0; piece < pieces.size(); ++piece)
            tallies_[pieces[piece].cube].Add(tallies[piece]);
    }

    void DrawOne(PanelEvaluator& panel, RiskDraw::Lists& lists, const DrawPiece& piece, RiskTally& tally) {
        draw_.Begin(lists, piece);
        for (const std::size_t field : draw_.Order()) draw_.Figures(lists, field, piece);
        for (std::uint32_t i = 0; i < piece.count; ++i) {
            const std::uint32_t sample = piece.first + i - range_.first;
            if (SetFields(panel, lists, i, sample, tally))
                KeepFigures(panel, sample, tally);
            else
                for (auto& factor : result_.factors) factor[sample] = kNoNumber;
        }
    }

    // Sets a sample's figures; false, with a word why, where a field cannot hold its figure.
    bool SetFields(PanelEvaluator& panel, const RiskDraw::Lists& lists, std::uint32_t i, std::uint32_t sample,
                   RiskTally& tally) {
        const char* too_large = nullptr;
        for (const std::size_t field : draw_.Order()) {
            const PanelField name = request_.fields[field].field;
            double figure = lists.figures[field][i];
            try {
                panel.Set(name, figure);
                figure = ValueOfField(panel.Inputs(), name);
            } catch (const RunTimeError&) {
                if (too_large == nullptr) too_large = NameOfField(name);
            }
            if (KeepsDrawn()) result_.drawn[field][sample] = figure;
        }
        if (too_large == nullptr) return true;
        tally.Refuse(std::string(too_large) + ": a drawn figure cannot be stored in this field");
        return false;
    }

    // Of a refused sample no figure is below anything.
    void KeepFigures(PanelEvaluator& panel, std::uint32_t sample, RiskTally& tally) {
        const PanelFigures& figures = panel.Evaluate();
        result_.factors[0][sample] = figures.Overall;
        result_.factors[1][sample] = figures.WebsOnly;
        result_.factors[2][sample] = figures.BarrierPillar;
        const bool webs = figures.WebsOnly < panel.Inputs().SFWeb;
        const bool barrier = figures.BarrierPillar < panel.Inputs().SFBarrier;
        tally.below[0] += figures.Overall < 1.0 ? 1 : 0;
        tally.below[1] += webs ? 1 : 0;
        tally.below[2] += figures.WebsOnly < 1.0 ? 1 : 0;
        tally.below[3] += barrier ? 1 : 0;
        tally.below[4] += figures.BarrierPillar < 1.0 ? 1 : 0;
        tally.below[kJoint] += webs || barrier ? 1 : 0;
        for (std::size_t i = 0; i < request_.targets.size(); ++i) {
            const AskedTarget& asked = request_.targets[i];
            tally.below[kCounts + i] += result_.factors[asked.factor][sample] < asked.target ? 1 : 0;
        }
        if (figures.refused) tally.Refuse(figures.message);
    }

    void CountAll() {
        RiskTally all = TallyFor(request_);
        for (const RiskTally& tally : tallies_) all.Add(tally);
        result_.refused = all.refused;
        result_.refusals = all.refusals;
        const Panel& project = request_.panel;
        result_.risk[0].below = {Below(0, 1.0, std::nullopt)};
        result_.risk[1].below = {Below(1, project.SFWeb, PanelField::SFWeb), Below(2, 1.0, std::nullopt)};
        result_.risk[2].below = {Below(3, project.SFBarrier, PanelField::SFBarrier),
                                 Below(4, 1.0, std::nullopt)};
        for (std::size_t i = 0; i < request_.targets.size(); ++i) {
            const AskedTarget& asked = request_.targets[i];
            result_.risk[asked.factor].below.push_back(Below(kCounts + i, asked.target, std::nullopt));
        }
        result_.joint = Counted(kJoint);
    }

    // One of the counts; each sample is held against its own target where `field` is drawn.
    BelowTarget Below(std::size_t count, double target, std::optional<PanelField> field) const {
        const JointRisk counted = Counted(count);
        return {target, counted.share, counted.with_refused,
                field && IndexOf(request_.fields, *field) < Fields()};
    }

    JointRisk Counted(std::size_t count) const {
        std::vector<HitCount> sound;
        std::vector<HitCount> all;
        for (std::uint32_t cube = 0; cube < draw_.Plan().count; ++cube) {
            const RiskTally& tally = tallies_[cube];
            const std::uint64_t samples = draw_.Plan().Size(cube);
            sound.push_back({tally.below[count], samples - tally.refused});
            all.push_back({tally.below[count] + tally.refused, samples});
        }
        const auto share = [this](const std::vector<HitCount>& cubes) {
            return request_.latin ? ShareOfReplicates(cubes) : ShareOf(cubes[0].hits, cubes[0].count);
        };
        return {share(sound), share(all)};
    }

    // The values themselves, unless they are to be kept.
    BigArray<double> Taken(BigArray<double>& values) const {
        if (!request_.keep_samples) return std::move(values);
        BigArray<double> copy(values.size());
        std::copy(values.begin(), values.end(), copy.begin());
        return copy;
    }

    void RankFactors() {
        std::mutex one_at_a_time;
        TaskRun::Do(kFactors, request_.threads, [&] {
            return [&](std::size_t factor) {
                FactorRisk& risk = result_.risk[factor];
                BigArray<double>& values = result_.factors[factor];
                risk.moments = MomentsOf(values);
                const bool few = values.size() <= RankOrder::kFew;
                std::vector<double> quantiles;
                if (!few) quantiles = QuantilesOf(values, kRiskShares, check_);
                RankOrder order(Taken(values), check_);
                if (few) quantiles = QuantilesOf(order, kRiskShares);
                std::copy(quantiles.begin(), quantiles.end(), risk.quantiles.begin());
                // Ranks and order stand side by side here: those of one factor are enough for the memory.
                const std::scoped_lock lock(one_at_a_time);
                const RankOrder last = std::move(order);
                factor_ranks_[factor] = RanksOf(last, request_.samples, check_);
                watch_.Reach(request_.samples);
            };
        });
    }

    void RankFields() {
        for (auto& factor : result_.risk) factor.rank_correlation.resize(Fields());
        if (AreMany()) {
            for (const std::size_t field : draw_.Order()) RankField(field, DrawnAgain(field));
            return;
        }
        TaskRun::Do(Fields(), request_.threads, [&] {
            return [&](std::size_t field) {
                BigArray<double> keys = Taken(result_.drawn[field]);
                for (std::uint32_t sample = 0; sample < request_.samples; ++sample)
                    if (IsRefused(sample)) keys[sample] = kNoNumber;
                RankField(field, std::move(keys));
            };
        });
    }

    void RankField(std::size_t field, BigArray<double> keys) {
        const SampleRanks ranks = RanksOf(RankOrder(std::move(keys), check_), request_.samples, check_);
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            result_.risk[factor].rank_correlation[field] = RankCorrelation(ranks, factor_ranks_[factor]);
        watch_.Reach(request_.samples);
    }

    // Numbers in the order of the field's values; NaN where the sample was refused.
    BigArray<double> DrawnAgain(std::size_t field) {
        BigArray<double> keys(request_.samples);
        for (const DrawBatch& batch : draw_.Batches()) {
            draw_.Prepare(batch, std::span(&field, 1), check_);
            const std::vector<DrawPiece> pieces = draw_.PiecesOf(batch);
            TaskRun::Do(pieces.size(), request_.threads, [&] {
                return [&, lists = RiskDraw::Lists(Fields())](std::size_t number) mutable {
                    const DrawPiece& piece = pieces[number];
                    draw_.Begin(lists, piece);
                    const auto drawn = draw_.RankKeys(lists, field, piece);
                    for (std::uint32_t i = 0; i < piece.count; ++i)
                        keys[piece.first + i] = IsRefused(piece.first + i) ? kNoNumber : drawn[i];
                    check_();
                };
            });
        }
        draw_.ForgetStrata();
        return keys;
    }

    // Once the factors are ranked.
    bool IsRefused(std::uint32_t sample) const { return factor_ranks_[0].ranks[sample] == 0; }

    const RiskRequest& request_;
    SampleRange range_;  // samples are told by their places in it
    RiskDraw draw_;
    StudyWatch watch_;
    CheckPoint check_;
    RiskResult result_;
    std::vector<RiskTally> tallies_;  // by hypercubes
    std::array<SampleRanks, kFactors> factor_ranks_;
};

}  // namespace

void RiskRequest::AddField(PanelField field, std::string_view distribution) {
    About(NameOfField(field), [&] {
        if (IndexOf(fields, field) < fields.size()) throw StudyRefusal("the field is given twice");
        DistributionPtr parsed =
            ParseDistribution(distribution, ValueOfField(panel, field), ReaderForField(field, panel.units));
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
            if (index == fields.size()) throw StudyRefusal("both fields must be drawn");
            if (IsWholeField(field))
                throw StudyRefusal(std::string(NameOfField(field)) +
                                   " is drawn over whole numbers, which have no correlation");
            if (!fields[index].distribution->IsContinuous())
                throw StudyRefusal(std::string(NameOfField(field)) +
                                   " is drawn from single values, which have no correlation");
        }
        for (const FieldCorrelation& other : correlations)
            if ((other.first == first && other.second == second) ||
                (other.first == second && other.second == first))
                throw StudyRefusal("the pair is given twice");
        correlations.push_back({first, second, value});
    });
}

void RiskRequest::AddTarget(const StudyFigure& factor, double target) {
    About(factor.name, [&] {
        if (!factor.IsFactor()) throw StudyRefusal("is no stability factor; " + KnownFactors());
        if (!(target > 0.0)) throw StudyRefusal("the target must be above 0");
        const auto number = static_cast<std::size_t>(&factor - kStudyFigures.data());
        for (const AskedTarget& other : targets)
            if (other.factor == number && other.target == target)
                throw StudyRefusal("the target is given twice");
        if (target != 1.0) targets.push_back({number, target});
    });
}

std::optional<RiskResult> RunRisk(const RiskRequest& request, StudyObserver& observer) {
    return WithinMemory("take fewer samples", [&] {
        return UnlessEnded([&] {
            const std::uint64_t work = kDrawing + OrderingOf(request);
            return RiskRun(request, {0, request.samples}, work, observer).Whole();
        });
    });
}

std::optional<RiskPart> RunRiskPart(const RiskRequest& request, const SampleRange& range,
                                    StudyObserver& observer) {
    const std::uint32_t first = std::min(range.first, request.samples);
    const SampleRange there{first, std::min(range.count, request.samples - first)};
    return WithinMemory("take more parts", [&] {
        return UnlessEnded([&] { return RiskRun(request, there, kDrawing, observer).Part(); });
    });
}

std::optional<RiskResult> MergeRisk(std::span<const RiskPart> parts, unsigned threads,
                                    StudyObserver& observer) {
    const std::vector<const RiskPart*> order = PartsInOrder(parts);
    RiskRequest request = parts[0].request;
    request.threads = threads;
    return WithinMemory("take fewer samples", [&] {
        return UnlessEnded([&] {
            return RiskRun(request, {0, request.samples}, OrderingOf(request), observer).Merged(order);
        });
    });
}

RiskResult RunRisk(const RiskRequest& request) {
    StudyObserver nobody;
    return *RunRisk(request, nobody);
}

}  // namespace tarvokol
