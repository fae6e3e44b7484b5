// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/risk_json.h"

#include <limits>
#include <vector>

#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {
namespace {

const char* NameOfKind(IntervalKind kind) {
    return kind == IntervalKind::Exact ? "clopper-pearson" : "replicates";
}

JsonMembers BelowJson(const BelowTarget& below) {
    JsonMembers with_refused;
    AddShare(with_refused, below.with_refused);
    JsonMembers object;
    object.Add("target", below.target);
    AddShare(object, below.share);
    object.Add("coverage", kConfidence);
    object.Add("own_target", below.own_target);
    object.Add("with_refused", with_refused);
    return object;
}

JsonMembers IndexJson(const SobolIndex& index) {
    JsonMembers object;
    object.Add("index", index.value);
    object.Add("low", index.low);
    object.Add("high", index.high);
    return object;
}

JsonMembers SobolJson(const RiskRequest& request, const std::vector<FieldIndices>& indices) {
    JsonMembers object;
    for (std::size_t field = 0; field < request.fields.size(); ++field) {
        JsonMembers of_field;
        of_field.Add("first", IndexJson(indices[field].first));
        of_field.Add("total", IndexJson(indices[field].total));
        object.Add(NameOfField(request.fields[field].field), of_field);
    }
    return object;
}

JsonMembers FactorJson(const RiskRequest& request, const FactorRisk& risk,
                       const std::vector<FieldIndices>* indices) {
    JsonMembers quantiles;
    for (std::size_t i = 0; i < kRiskShares.size(); ++i) {
        std::string key;
        AppendShortest(key, kRiskShares[i]);
        quantiles.Add(key, risk.quantiles[i]);
    }
    JsonValues targets;
    for (const BelowTarget& below : risk.below) targets.Add(BelowJson(below));
    JsonMembers ranks;
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        ranks.Add(NameOfField(request.fields[field].field), risk.rank_correlation[field]);
    JsonMembers object;
    object.Add("mean", risk.moments.mean);
    object.Add("standard_deviation", risk.moments.standard_deviation);
    object.Add("quantiles", quantiles);
    object.Add("below", targets);
    object.Add("rank_correlation", ranks);
    if (indices != nullptr) object.Add("sobol", SobolJson(request, *indices));
    return object;
}

JsonMembers EndsJson(const TornadoBar& bar) {
    JsonMembers object;
    object.Add("low", bar.low);
    object.Add("high", bar.high);
    return object;
}

JsonMembers TornadoJson(const RiskRequest& request, const TornadoResult& tornado) {
    JsonMembers fields;
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        fields.Add(NameOfField(request.fields[field].field), EndsJson(tornado.fields[field]));
    JsonMembers factors;
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        JsonMembers one;
        one.Add("at_medians", tornado.middle[factor]);
        for (std::size_t field = 0; field < request.fields.size(); ++field)
            one.Add(NameOfField(request.fields[field].field), EndsJson(tornado.factors[factor][field]));
        factors.Add(kStudyFigures[factor].name, one);
    }
    JsonMembers object;
    object.Add("fields", fields);
    object.Add("factors", factors);
    return object;
}

const char* NameOfOutcome(RareOutcome outcome) {
    switch (outcome) {
        case RareOutcome::Estimated:
            return "estimated";
        case RareOutcome::RefusedSamples:
            return "refused-samples";
        case RareOutcome::NoDesignPoint:
            return "no-design-point";
        case RareOutcome::Several:
            return "several-design-points";
        case RareOutcome::FewHits:
            return "few-hits";
        case RareOutcome::Contradiction:
            return "contradiction";
    }
    return "";
}

JsonMembers RareJson(const RiskRequest& request, const RiskResult& result, const RareEvent& event) {
    const BelowTarget& below = result.risk[event.factor].below[event.target];
    JsonMembers object;
    object.Add("factor", kStudyFigures[event.factor].name);
    object.Add("target", below.target);
    object.Add("own_target", below.own_target);
    object.Add("outcome", NameOfOutcome(event.outcome));
    if (!event.figures.empty()) {
        JsonMembers importance;
        JsonMembers figures;
        for (std::size_t field = 0; field < request.fields.size(); ++field) {
            const char* const name = NameOfField(request.fields[field].field);
            importance.Add(name, event.importance[field]);
            figures.Add(name, event.figures[field]);
        }
        object.Add("reliability_index", event.index);
        object.Add("importance", importance);
        object.Add("design_point", figures);
    }
    if (event.outcome == RareOutcome::Estimated) {
        object.Add("probability", event.probability);
        object.Add("low", event.low);
        object.Add("high", event.high);
        object.Add("coverage", kConfidence);
        object.Add("variation", event.variation);
        object.Add("samples", event.samples);
    }
    return object;
}

JsonMembers JointJson(const JointRisk& joint) {
    JsonMembers with_refused;
    AddShare(with_refused, joint.with_refused);
    JsonMembers object;
    AddShare(object, joint.share);
    object.Add("coverage", kConfidence);
    object.Add("with_refused", with_refused);
    return object;
}

}  // namespace

void AddShare(JsonMembers& object, const Share& share) {
    object.Add("probability", share.value);
    object.Add("low", share.low);
    object.Add("high", share.high);
    if (share.kind == IntervalKind::None)
        object.Add("interval", std::numeric_limits<double>::quiet_NaN());
    else
        object.Add("interval", NameOfKind(share.kind));
}

JsonMembers RiskJson(const RiskRequest& request, const RiskResult& result, const std::string& file,
                     const RiskExtras& extras) {
    JsonMembers random;
    JsonMembers units;
    for (const RandomField& one : request.fields) {
        random.Add(NameOfField(one.field), one.distribution->Text());
        if (const std::string unit = UnitOfField(one.field, request.panel.units); !unit.empty())
            units.Add(NameOfField(one.field), unit);
    }
    JsonMembers factors;
    for (std::size_t factor = 0; factor < kFactors; ++factor)
        factors.Add(kStudyFigures[factor].name,
                    FactorJson(request, result.risk[factor],
                               extras.sobol ? &extras.sobol->indices[factor] : nullptr));
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", result.refused < request.samples);
    object.Add("messages", result.refusals);
    object.Add("samples", request.samples);
    object.Add("seed", request.seed);
    object.Add("method", request.latin ? "latin-hypercube" : "plain");
    object.Add("refused", result.refused);
    object.Add("refused_share", static_cast<double>(result.refused) / request.samples);
    object.Add("random", random);
    object.Add("factors", factors);
    object.Add("joint", JointJson(result.joint));
    JsonValues rare;
    for (const RareEvent& event : extras.rare) rare.Add(RareJson(request, result, event));
    object.Add("rare", rare);
    if (extras.sobol) object.Add("sobol_refused", extras.sobol->refused);
    if (extras.tornado) object.Add("tornado", TornadoJson(request, *extras.tornado));
    object.Add("units", units);
    object.Add("schema", kSchemaVersion);
    return object;
}

}  // namespace tarvokol::cli
