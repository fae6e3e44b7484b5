// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_design.h"

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <pybind11/stl.h>

#include "core/statistics/study_numbers.h"
#include "core/studies/design_study.h"
#include "core/studies/study_names.h"
#include "python/module/py_study.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

py::dict DictOf(const DesignPoint& point) {
    py::dict dict = DictOfShare(point.below);
    dict["value"] = point.value;
    dict["refused"] = point.refused;
    return dict;
}

py::dict DictOf(const FoundValue& found) {
    const DesignDemand& demand = found.demand;
    py::dict until;
    until["factor"] = kStudyFigures[demand.target.factor].name;
    until["target"] = demand.target.target;
    until["probability"] = demand.probability;
    py::list range;
    range.append(demand.low);
    range.append(demand.high);
    py::list curve;
    for (const DesignPoint& point : found.curve) curve.append(DictOf(point));
    py::dict dict;
    dict["field"] = NameOfField(demand.field);
    dict["until"] = until;
    dict["range"] = range;
    dict["bound"] = found.falls ? "at-least" : "at-most";
    dict["value"] = found.value;
    dict["low"] = found.low;
    dict["high"] = found.high;
    dict["coverage"] = kConfidence;
    dict["used"] = found.used;
    dict["before"] = DictOf(found.before);
    dict["after"] = DictOf(found.after);
    dict["curve"] = curve;
    return dict;
}

using Demands = std::vector<std::tuple<std::string, std::string, double, double>>;
using Ranges = std::vector<std::tuple<std::string, double, double>>;

py::dict DictOf(const DesignRequest& request, const DesignResult& result) {
    py::list found;
    for (const FoundValue& value : result.found) found.append(DictOf(value));
    py::dict together = DictOfShare(result.any);
    together["coverage"] = kConfidence;
    together["refused"] = result.refused;
    py::dict dict;
    dict["samples"] = request.risk.samples;
    dict["seed"] = request.risk.seed;
    dict["method"] = request.risk.latin ? "latin-hypercube" : "plain";
    dict["step"] = request.step > 0.0 ? py::object(py::float_(request.step)) : py::object(py::none());
    dict["found"] = found;
    dict["together"] = together;
    return dict;
}

py::dict Design(const PyPanel& panel, const Distributions& random, const Demands& demands,
                const Correlations& correlations, const Ranges& ranges, std::optional<double> step,
                std::uint32_t samples, std::uint64_t seed, bool latin, unsigned threads) {
    DesignRequest request;
    request.risk = RequestOf(panel, random, correlations, {samples, seed, latin, threads});
    for (const auto& [field, factor, target, probability] : demands)
        request.AddDemand(RequiredField(field), RequiredFigure(factor), target, probability);
    for (const auto& [field, low, high] : ranges) request.SetRange(RequiredField(field), low, high);
    if (step) request.SetStep(*step);
    SignalWatch watch;
    std::optional<DesignResult> result;
    {
        const py::gil_scoped_release release;
        result = RunDesign(request, watch);
    }
    if (!result) throw py::error_already_set();
    return DictOf(request, *result);
}

}  // namespace

void BindDesign(py::module_& module) {
    module.def("design", &Design);
}

}  // namespace tarvokol::python
