// SPDX-License-Identifier: GPL-3.0-or-later
// The calculations of one project. To reach: an analysis of 20 holes in 250 ns, one sizing in 1 microsecond,
// a curve of 51 points in 20 microseconds.
#include <benchmark/benchmark.h>

#include "core/engine/engine.h"
#include "core/engine/panel_texts.h"
#include "core/headless/headless_platform.h"
#include "core/project/curves.h"
#include "core/project/input_check.h"
#include "core/project/pillar_sizing.h"
#include "core/project/project_record.h"
#include "core/project/sizing_solver.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"

namespace tarvokol {
namespace {

void EnterPanel(int16_t holes) {
    static HeadlessPlatform host;
    host.Install();
    UnitSystem = 0;
    ProjectRecord = PanelInputs{};
    ProjectRecord.Height = 6.5;
    ProjectRecord.DepthCover = 250;
    ProjectRecord.HoleWidth = 9.5;
    ProjectRecord.CrosscutSpacing = 1000000;
    ProjectRecord.CrosscutAngle = 90;
    ProjectRecord.WebThickness = 7.3;
    ProjectRecord.BarrierPillarWidth = 22.1;
    ProjectRecord.NumberHoles = holes;
    ProjectRecord.CoalStrength = 850;
    ProjectRecord.UnitWeight = 158;
    ProjectRecord.AbutmentAngle = 21;
    ProjectRecord.SFWeb = 1.3f;
    ProjectRecord.SFBarrier = 2.0f;
}

void InputCheck(benchmark::State& state) {
    EnterPanel(static_cast<int16_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(PrepareWorkingParameters());
}
BENCHMARK(InputCheck)->Arg(20);

void Analysis(benchmark::State& state) {
    EnterPanel(static_cast<int16_t>(state.range(0)));
    PrepareWorkingParameters();
    for (auto _ : state) {
        RunStabilityAnalysis();
        benchmark::DoNotOptimize(WorkingParameters.StabilityFactor);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Analysis)->Arg(2)->Arg(5)->Arg(20);

// The block as the Size button leaves it, then the solver alone.
void Sizing(benchmark::State& state) {
    EnterPanel(20);
    SuggestPillarSizes(TextsOfRecord(ProjectRecord));
    SizingBlock.SizeMode = static_cast<float>(state.range(0));
    SizingBlock.SizeTargetSF = state.range(0) == 1 ? ProjectRecord.SFWeb : ProjectRecord.SFBarrier;
    const float start = 3000.0f;
    for (auto _ : state) benchmark::DoNotOptimize(SolvePillarSize(start));
}
BENCHMARK(Sizing)->ArgName("mode")->Arg(1)->Arg(2);

// What a study asks of each of a million panels, without the program's records.
Panel PanelOfRecord() {
    EnterPanel(20);
    return {ProjectRecord, ProjectUnits()};
}

void FactorsAlone(benchmark::State& state) {
    Panel panel = PanelOfRecord();
    for (auto _ : state) {
        benchmark::DoNotOptimize(panel);
        benchmark::DoNotOptimize(FactorsOf(panel));
    }
}
BENCHMARK(FactorsAlone);

void CheckAnalyseSize(benchmark::State& state) {
    Panel panel = PanelOfRecord();
    for (auto _ : state) {
        benchmark::DoNotOptimize(panel);
        const CheckOutcome outcome = Check(panel);
        benchmark::DoNotOptimize(Analyse(std::get<CheckedPanel>(outcome)));
        benchmark::DoNotOptimize(SizePillars(panel));
    }
}
BENCHMARK(CheckAnalyseSize);

void StabilityCurve(benchmark::State& state) {
    EnterPanel(20);
    for (auto _ : state) benchmark::DoNotOptimize(ComputeStabilityCurves(static_cast<int>(state.range(0))));
    state.counters["points"] = CurvePoints;
}
BENCHMARK(StabilityCurve)->ArgName("index")->Arg(1)->Arg(2);

void SizingCurve(benchmark::State& state) {
    EnterPanel(20);
    for (auto _ : state) benchmark::DoNotOptimize(ComputeSizingCurve(static_cast<int>(state.range(0))));
    state.counters["points"] = CurvePoints;
}
BENCHMARK(SizingCurve)->ArgName("index")->Arg(0)->Arg(1);

}  // namespace
}  // namespace tarvokol
