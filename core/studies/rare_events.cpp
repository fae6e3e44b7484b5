// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/rare_events.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "core/runtime/no_number.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/reliability.h"
#include "core/studies/drawn_fields.h"
#include "core/studies/panel_figures.h"
#include "core/studies/risk_draw.h"
#include "core/studies/study_watch.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

constexpr std::uint32_t kEventPiece = RiskDraw::kPiece;
constexpr std::uint32_t kStreams = 0x40000;  // beside those of samples, hypercubes and indices

// A factor of the panel at a place in the space of independent standard normal figures, less its target. The axes are the fields
// in the order of PanelField.
class PlaceEvaluator {
  public:
    PlaceEvaluator(const RiskRequest& request, const RiskDraw& draw, const RareEvent& event, double target,
                   bool own_target)
        : request_(request),
          draw_(draw),
          panel_(request.panel, false),
          factor_(kStudyFigures[event.factor]),
          target_(target),
          own_target_(own_target),
          normals_(request.fields.size()),
          figures_(request.fields.size()) {}

    // NaN where the panel is refused.
    double At(std::span<const double> place) {
        for (std::size_t axis = 0; axis < place.size(); ++axis) normals_[draw_.Order()[axis]] = place[axis];
        draw_.FiguresAt(normals_, figures_);
        if (!SetDrawnFields(panel_, request_.fields, [&](std::size_t field) { return figures_[field]; }))
            return kNoNumber;
        const PanelFigures& figures = panel_.Evaluate();
        if (figures.refused) return kNoNumber;
        const double target = own_target_ ? TargetOfFigure(factor_, panel_.Inputs()) : target_;
        return figures.*factor_.value - target;
    }

    // The figures of the last place, as the panel keeps them.
    std::vector<double> Stored() const {
        std::vector<double> stored;
        stored.reserve(request_.fields.size());
        for (const RandomField& one : request_.fields)
            stored.push_back(ValueOfField(panel_.Inputs(), one.field));
        return stored;
    }

  private:
    const RiskRequest& request_;
    const RiskDraw& draw_;
    PanelEvaluator panel_;
    const StudyFigure& factor_;
    double target_;
    bool own_target_;
    std::vector<double> normals_;
    std::vector<double> figures_;
};

// The weights of samples that fail.
struct Weights {
    double sum = 0;
    double squares = 0;
    std::uint64_t hits = 0;
};

class RareRun {
  public:
    RareRun(const RiskRequest& request, const RiskResult& result, StudyObserver& observer)
        : request_(request),
          result_(result),
          draw_(request),
          events_(EventsOf(request, result)),
          samples_(std::clamp(request.samples, kFewest, kMost)),
          watch_(observer, Work(), Work()) {}

    std::vector<RareEvent> Run() {
        for (RareEvent& event : events_) {
            watch_.Reach(0);
            if (result_.refused > 0)
                event.outcome = RareOutcome::RefusedSamples;
            else
                Examine(event);
        }
        watch_.Finish();
        return std::move(events_);
    }

  private:
    static constexpr std::uint32_t kFewest = 10000;
    static constexpr std::uint32_t kMost = 100000;

    static std::vector<RareEvent> EventsOf(const RiskRequest& request, const RiskResult& result) {
        std::vector<RareEvent> events;
        const auto sound = static_cast<double>(request.samples - result.refused);
        for (std::size_t factor = 0; factor < kFactors; ++factor)
            for (std::size_t target = 0; target < result.risk[factor].below.size(); ++target)
                if (std::round(result.risk[factor].below[target].share.value * sound) < kFewHits) {
                    RareEvent event;
                    event.factor = factor;
                    event.target = target;
                    events.push_back(event);
                }
        return events;
    }

    std::uint64_t Work() const {
        return std::max<std::uint64_t>(std::uint64_t{samples_} * events_.size(), 1);
    }

    const BelowTarget& BelowOf(const RareEvent& event) const {
        return result_.risk[event.factor].below[event.target];
    }
    PlaceEvaluator EvaluatorOf(const RareEvent& event) const {
        return {request_, draw_, event, BelowOf(event).target, BelowOf(event).own_target};
    }

    void Examine(RareEvent& event) {
        PlaceEvaluator evaluator = EvaluatorOf(event);
        const std::vector<NearestFailure> found = NearestFailures(
            [&](std::span<const double> place) { return evaluator.At(place); }, request_.fields.size());
        if (found.empty() || found.front().index <= 0.0) return;  // RareOutcome::NoDesignPoint
        if (MatterBesides(found)) {
            event.outcome = RareOutcome::Several;
            return;
        }
        event.index = found.front().index;
        event.importance.resize(request_.fields.size());
        for (std::size_t axis = 0; axis < event.importance.size(); ++axis)
            event.importance[draw_.Order()[axis]] = found.front().importance[axis];
        evaluator.At(found.front().place);
        event.figures = evaluator.Stored();
        Estimate(event, found.front());
    }

    // True where another place has more than a hundredth of the probability of the nearest one.
    static bool MatterBesides(const std::vector<NearestFailure>& found) {
        constexpr double kShare = 0.01;
        return found.size() > 1 &&
               NormalShare(-std::fabs(found[1].index)) > kShare * NormalShare(-found.front().index);
    }

    void Estimate(RareEvent& event, const NearestFailure& centre) {
        constexpr double kQuantile = 1.959963984540054;
        const Weights weights = WeightsAround(event, centre);
        if (weights.hits < kFewHits) {
            event.outcome = RareOutcome::FewHits;
            return;
        }
        const double count = samples_;
        event.samples = samples_;
        event.probability = weights.sum / count;
        const double variance =
            std::max(weights.squares / count - event.probability * event.probability, 0.0) / (count - 1.0);
        event.variation = std::sqrt(variance) / event.probability;
        const double half = kQuantile * std::sqrt(variance);
        event.low = std::max(event.probability - half, 0.0);
        event.high = event.probability + half;
        const Share& plain = BelowOf(event).share;
        const bool apart = event.low > plain.high || event.high < plain.low;
        event.outcome = apart ? RareOutcome::Contradiction : RareOutcome::Estimated;
    }

    // Samples that scatter around the centre as those of the study do around the middle: each weighs as much as it is likelier there.
    Weights WeightsAround(const RareEvent& event, const NearestFailure& centre) {
        const std::size_t pieces = (samples_ + std::size_t{kEventPiece} - 1) / kEventPiece;
        std::vector<Weights> weights(pieces);
        double square = 0;
        for (const double one : centre.place) square += one * one;
        TaskRun::Do(pieces, request_.threads, [&] {
            return [&, evaluator = EvaluatorOf(event), place = centre.place,
                    shares = std::vector<double>(kEventPiece),
                    normals = std::vector<std::vector<double>>(
                        centre.place.size(), std::vector<double>(kEventPiece))](std::size_t piece) mutable {
                const auto first = static_cast<std::uint32_t>(piece * kEventPiece);
                const std::uint32_t count = std::min(kEventPiece, samples_ - first);
                for (std::size_t axis = 0; axis < normals.size(); ++axis) {
                    const auto drawn = std::span(shares).first(count);
                    FillWithUnits(request_.seed, StreamOf(axis), first, drawn);
                    FillWithNormalQuantiles(drawn, std::span(normals[axis]).first(count));
                }
                for (std::uint32_t i = 0; i < count; ++i) {
                    double product = 0;
                    for (std::size_t axis = 0; axis < normals.size(); ++axis) {
                        place[axis] = centre.place[axis] + normals[axis][i];
                        product += centre.place[axis] * normals[axis][i];
                    }
                    if (!(evaluator.At(place) < 0.0)) continue;
                    const double weight = PortableExp(-product - square / 2.0);
                    weights[piece].sum += weight;
                    weights[piece].squares += weight * weight;
                    ++weights[piece].hits;
                }
                watch_.Reach(count);
            };
        });
        Weights all;
        for (const Weights& one : weights) {
            all.sum += one.sum;
            all.squares += one.squares;
            all.hits += one.hits;
        }
        return all;
    }

    std::uint32_t StreamOf(std::size_t axis) const {
        return kStreams + static_cast<std::uint32_t>(request_.fields[draw_.Order()[axis]].field);
    }

    const RiskRequest& request_;
    const RiskResult& result_;
    RiskDraw draw_;
    std::vector<RareEvent> events_;
    std::uint32_t samples_;
    StudyWatch watch_;
};

}  // namespace

const char* WhyPlain(RareOutcome outcome) {
    switch (outcome) {
        case RareOutcome::RefusedSamples:
            return "samples were refused; plain sampling stands";
        case RareOutcome::NoDesignPoint:
            return "no design point was found; plain sampling stands";
        case RareOutcome::Several:
            return "there are several design points; plain sampling stands";
        case RareOutcome::FewHits:
            return "samples around the design point lie below too rarely; plain sampling stands";
        case RareOutcome::Contradiction:
            return "samples around the design point contradict the plain ones, which stand";
        case RareOutcome::Estimated:
            break;
    }
    return "";
}

std::optional<std::vector<RareEvent>> RunRareEvents(const RiskRequest& request, const RiskResult& result,
                                                    StudyObserver& observer) {
    return UnlessEnded([&] { return RareRun(request, result, observer).Run(); });
}

std::vector<RareEvent> RunRareEvents(const RiskRequest& request, const RiskResult& result) {
    StudyObserver nobody;
    return *RunRareEvents(request, result, nobody);
}

}  // namespace tarvokol
