// SPDX-License-Identifier: GPL-3.0-or-later
// What the studies of uncertain figures have in common: their request, Ctrl+C, probabilities as dicts.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <pybind11/pybind11.h>

#include "core/statistics/probability_interval.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_observer.h"
#include "python/module/py_panel.h"

namespace tarvokol::python {

// Ctrl+C ends the study; the interpreter is asked a few times per second.
class SignalWatch : public StudyObserver {
  public:
    bool Progress(std::uint64_t, std::optional<std::uint64_t>) override;

  private:
    std::chrono::steady_clock::time_point next_{};
};

// A probability with its interval, by the keys of the command line's JSON.
pybind11::dict DictOfShare(const Share& share);

using Distributions = std::vector<std::pair<std::string, std::string>>;  // by fields
using Correlations = std::vector<std::tuple<std::string, std::string, double>>;

struct SampleOptions {
    std::uint32_t samples;
    std::uint64_t seed;
    bool latin;
    unsigned threads;
};

// Raises StudyRefusal for unknown fields and what RiskRequest refuses.
RiskRequest RequestOf(const PyPanel& panel, const Distributions& random, const Correlations& correlations,
                      const SampleOptions& options);

}  // namespace tarvokol::python
