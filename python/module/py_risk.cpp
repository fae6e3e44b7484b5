// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_risk.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include "core/statistics/study_numbers.h"
#include "core/studies/risk_study.h"
#include "core/studies/sobol_study.h"
#include "core/studies/study_names.h"
#include "python/module/py_panel.h"
#include "python/module/py_study.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

py::dict DictOf(const BelowTarget& below) {
    py::dict dict = DictOfShare(below.share);
    dict["target"] = below.target;
    dict["own_target"] = below.own_target;
    dict["coverage"] = kConfidence;
    dict["with_refused"] = DictOfShare(below.with_refused);
    return dict;
}

py::dict DictOf(const JointRisk& joint) {
    py::dict dict = DictOfShare(joint.share);
    dict["coverage"] = kConfidence;
    dict["with_refused"] = DictOfShare(joint.with_refused);
    return dict;
}

py::dict DictOf(const SobolIndex& index) {
    py::dict dict;
    dict["index"] = index.value;
    dict["low"] = index.low;
    dict["high"] = index.high;
    return dict;
}

py::dict DictOf(const RiskRequest& request, const std::vector<FieldIndices>& indices) {
    py::dict dict;
    for (std::size_t i = 0; i < request.fields.size(); ++i) {
        py::dict field;
        field["first"] = DictOf(indices[i].first);
        field["total"] = DictOf(indices[i].total);
        dict[NameOfField(request.fields[i].field)] = field;
    }
    return dict;
}

py::dict DictOf(const RiskRequest& request, const FactorRisk& risk) {
    py::dict quantiles;
    for (std::size_t i = 0; i < kRiskShares.size(); ++i)
        quantiles[py::float_(kRiskShares[i])] = risk.quantiles[i];
    py::list below;
    for (const BelowTarget& one : risk.below) below.append(DictOf(one));
    py::dict ranks;
    for (std::size_t i = 0; i < request.fields.size(); ++i)
        ranks[NameOfField(request.fields[i].field)] = risk.rank_correlation[i];
    py::dict dict;
    dict["mean"] = risk.moments.mean;
    dict["standard_deviation"] = risk.moments.standard_deviation;
    dict["quantiles"] = quantiles;
    dict["below"] = below;
    dict["rank_correlation"] = ranks;
    return dict;
}

py::array_t<double> ArrayOf(const BigArray<double>& values) {
    py::array_t<double> array(static_cast<py::ssize_t>(values.size()));
    std::copy(values.begin(), values.end(), array.mutable_data());
    return array;
}

py::dict SamplesOf(const RiskRequest& request, const RiskResult& result) {
    py::dict samples;
    for (std::size_t i = 0; i < request.fields.size(); ++i)
        samples[NameOfField(request.fields[i].field)] = ArrayOf(result.drawn[i]);
    for (std::size_t i = 0; i < kFactors; ++i) samples[kStudyFigures[i].name] = ArrayOf(result.factors[i]);
    return samples;
}

using Targets = std::vector<std::pair<std::string, double>>;

// The indices come first: what they refuse is refused before the samples are drawn.
struct RiskAnswer {
    std::optional<SobolResult> sobol;
    std::optional<RiskResult> risk;
};

RiskAnswer AnswerOf(const RiskRequest& request, bool sobol) {
    SignalWatch watch;
    RiskAnswer answer;
    {
        const py::gil_scoped_release release;
        if (sobol) answer.sobol = RunSobol(request, watch);
        if (!sobol || answer.sobol) answer.risk = RunRisk(request, watch);
    }
    if (!answer.risk) throw py::error_already_set();
    return answer;
}

py::dict FactorsOf(const RiskRequest& request, const RiskAnswer& answer) {
    py::dict factors;
    for (std::size_t i = 0; i < kFactors; ++i) {
        py::dict factor = DictOf(request, answer.risk->risk[i]);
        if (answer.sobol) factor["sobol"] = DictOf(request, answer.sobol->indices[i]);
        factors[kStudyFigures[i].name] = factor;
    }
    return factors;
}

py::dict Risk(const PyPanel& panel, const Distributions& random, const Correlations& correlations,
              const Targets& targets, bool sobol, std::uint32_t samples, std::uint64_t seed, bool latin,
              bool keep_samples, unsigned threads) {
    RiskRequest request = RequestOf(panel, random, correlations, {samples, seed, latin, threads});
    request.keep_samples = keep_samples;
    for (const auto& [factor, target] : targets) request.AddTarget(RequiredFigure(factor), target);
    const RiskAnswer answer = AnswerOf(request, sobol);
    py::dict dict;
    dict["samples"] = request.samples;
    dict["seed"] = request.seed;
    dict["method"] = request.latin ? "latin-hypercube" : "plain";
    dict["refused"] = answer.risk->refused;
    dict["messages"] = answer.risk->refusals;
    dict["factors"] = FactorsOf(request, answer);
    dict["joint"] = DictOf(answer.risk->joint);
    if (answer.sobol) dict["sobol_refused"] = answer.sobol->refused;
    if (keep_samples) dict["drawn"] = SamplesOf(request, *answer.risk);
    return dict;
}

}  // namespace

void BindRisk(py::module_& module) {
    module.def("risk", &Risk);
}

}  // namespace tarvokol::python
