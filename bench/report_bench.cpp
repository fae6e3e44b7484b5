// SPDX-License-Identifier: GPL-3.0-or-later
// The report of one project, and the whole road from the file to the three pages.
#include <benchmark/benchmark.h>

#include "bench/saved_project.h"
#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

void SetReportNames() {
    StabilityCaseNames[1] = "Overall";
    StabilityCaseNames[2] = "Webs ONLY";
    StabilityCaseNames[3] = "Barrier Pillar";
    PillarClassNames[1] = "Barrier";
    PillarClassNames[2] = "Web    ";
}

// Input check, analysis and all three pages.
void BuildReport() {
    if (!CalculateReport(ProjectRecord)) Raise(error_number::InvalidCall);
    LoadOutBuf0(2);
}

void CheckAnalysisAndReport(benchmark::State& state) {
    const SavedProject project;
    SetReportNames();
    for (auto _ : state) {
        BuildReport();
        benchmark::DoNotOptimize(OutputBuffers[2]);
    }
}
BENCHMARK(CheckAnalysisAndReport);

void ReadCheckAnalysisAndReport(benchmark::State& state) {
    const SavedProject project;
    SetReportNames();
    for (auto _ : state) {
        ReadProjectFile();
        BuildReport();
        benchmark::DoNotOptimize(OutputBuffers[2]);
    }
}
BENCHMARK(ReadCheckAnalysisAndReport);

}  // namespace
}  // namespace tarvokol
