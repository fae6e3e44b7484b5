// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a table of measured values whose column the first line names: a refusal is an answer. What is read are numbers,
// and what is fitted to a few of them reads back as it is written, the best first.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <unistd.h>

#include "core/statistics/distributions.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/fit_study.h"
#include "core/studies/measured_column.h"
#include "core/studies/study_observer.h"

namespace tarvokol {
namespace {

// The bootstrap of more takes too long for many runs.
constexpr std::size_t kFew = 12;

void Require(bool fact) {
    if (!fact) std::abort();
}

// In memory where the system has that: each run writes it anew.
std::string TablePath() {
    std::error_code failure;
    const std::filesystem::path memory = "/dev/shm";
    const auto place =
        std::filesystem::is_directory(memory, failure) ? memory : std::filesystem::temp_directory_path();
    return (place / ("tarvokol-fuzz-" + std::to_string(::getpid()) + ".csv")).string();
}

// Removed at the end of the runs.
struct Table {
    std::string path = TablePath();
    ~Table() {
        std::error_code failure;
        std::filesystem::remove(path, failure);
    }
};

void TryFit(std::vector<double> values) {
    if (values.size() > kFew) values.resize(kFew);
    FitRequest request;
    request.values = std::move(values);
    StudyObserver nobody;
    const FitResult result = *RunFit(request, nobody);
    Require(!result.fits.empty());
    Require(std::is_sorted(
        result.fits.begin(), result.fits.end(),
        [](const DistributionFit& one, const DistributionFit& other) { return one.bic < other.bic; }));
    for (const DistributionFit& fit : result.fits) {
        Require(std::isfinite(fit.log_likelihood));
        for (const FitTest& test : {fit.kolmogorov_smirnov, fit.anderson_darling})
            Require(test.p >= 0.0 && test.p <= 1.0);
        ParseDistribution(fit.text, 1.0);
    }
}

void TryColumn(std::string_view text) {
    static const Table table;
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string column(text.substr(0, end));
    std::ofstream(table.path, std::ios::binary) << text.substr(std::min(end + 1, text.size()));
    const MeasuredColumn measured = ReadMeasuredColumn(table.path, column);
    Require(!measured.values.empty());
    for (const double value : measured.values) Require(std::isfinite(value));
    TryFit(measured.values);
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        tarvokol::TryColumn({reinterpret_cast<const char*>(data), size});
    } catch (const tarvokol::StudyRefusal&) {
    }
    return 0;
}
