// Reading and writing of one project file, the description's scratch kept in memory.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "engine/project_record.h"
#include "messages/history_log.h"
#include "platform/headless/headless_platform.h"
#include "project/project_file.h"
#include "project/project_state.h"

namespace tarvokol {
namespace {

// A saved project in a folder of its own, removed afterwards.
class SavedProject {
  public:
    SavedProject() {
        host_.Install();
        DisplayHistoryWin = 0;
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvokol-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        ProjectFileName = (folder_ / "panel.TKL").string();
        ProjectTitle = "Panel 7 under full cover";
        ProjectDescription =
            "Longest panel between barriers: 20 holes, 1000 ft deep.\r\nWide webs because the cover reaches "
            "420 "
            "ft\r\nBarrier checked against the abutment load";
        ProjectRecord = PanelInputs{};
        ProjectRecord.Height = 5.5;
        ProjectRecord.DepthCover = 420;
        ProjectRecord.HoleWidth = 11.5;
        ProjectRecord.WebThickness = 11.5;
        ProjectRecord.BarrierPillarWidth = 44;
        ProjectRecord.NumberHoles = 20;
        ProjectRecord.CrosscutAngle = 90;
        ProjectRecord.CrosscutSpacing = 1000000;
        ProjectRecord.CoalStrength = 900;
        ProjectRecord.UnitWeight = 162;
        ProjectRecord.AbutmentAngle = 21;
        ProjectRecord.SFWeb = 1.6f;
        ProjectRecord.SFBarrier = 2;
        FileSave();
    }
    SavedProject(const SavedProject&) = delete;
    SavedProject& operator=(const SavedProject&) = delete;
    ~SavedProject() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

  private:
    HeadlessPlatform host_;
    std::filesystem::path folder_;
};

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
