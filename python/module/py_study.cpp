// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_study.h"

#include "core/studies/study_names.h"

namespace py = pybind11;

namespace tarvokol::python {

bool SignalWatch::Progress(std::uint64_t, std::optional<std::uint64_t>) {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return true;
    next_ = now + std::chrono::milliseconds(100);
    const py::gil_scoped_acquire lock;
    return ::PyErr_CheckSignals() == 0;
}

namespace {

py::object IntervalOf(const Share& share) {
    if (share.kind == IntervalKind::None) return py::none();
    return py::str(share.kind == IntervalKind::Exact ? "clopper-pearson" : "replicates");
}

}  // namespace

py::dict DictOfShare(const Share& share) {
    py::dict dict;
    dict["probability"] = share.value;
    dict["low"] = share.low;
    dict["high"] = share.high;
    dict["interval"] = IntervalOf(share);
    return dict;
}

RiskRequest RequestOf(const PyPanel& panel, const Distributions& random, const Correlations& correlations,
                      const SampleOptions& options) {
    RiskRequest request;
    request.panel = panel;
    request.samples = options.samples;
    request.seed = options.seed;
    request.latin = options.latin;
    request.threads = options.threads;
    for (const auto& [field, distribution] : random) request.AddField(RequiredField(field), distribution);
    for (const auto& [first, second, value] : correlations)
        request.AddCorrelation(RequiredField(first), RequiredField(second), value);
    return request;
}

}  // namespace tarvokol::python
