// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing of one project file, the description's scratch kept in memory.
#include <string>

#include <benchmark/benchmark.h>

#include "bench/saved_project.h"
#include "core/project/description.h"

namespace tarvokol {
namespace {

void ReadProject(benchmark::State& state) {
    const SavedProject project;
    for (auto _ : state) benchmark::DoNotOptimize(ReadProjectFile());
}
BENCHMARK(ReadProject);

void WriteProject(benchmark::State& state) {
    const SavedProject project;
    for (auto _ : state) benchmark::DoNotOptimize(FileSave());
}
BENCHMARK(WriteProject);

void WrapLine(benchmark::State& state) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(state.range(0)))
        text += "pillar strength and abutment load ";
    for (auto _ : state) {
        std::string line = text;
        int count = 0;
        WrapLongLine(line, count);
        benchmark::DoNotOptimize(line);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(WrapLine)->Arg(1 << 10)->Arg(1 << 20);

}  // namespace
}  // namespace tarvokol
