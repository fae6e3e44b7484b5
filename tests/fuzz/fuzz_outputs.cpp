// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a project file, taken through everything that is made of a project: report, plan, curves, sizes, CSV and
// JSON. A run-time error is an answer; any other end is a fault. The text of JSON reads back as it was written.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>
#include <sys/mman.h>
#include <unistd.h>

#include "cli/output/json.h"
#include "cli/output/project_json.h"
#include "core/files/text_file.h"
#include "core/graphics/TarvoGraf.h"
#include "core/graphics/chart_model.h"
#include "core/graphics/curve_export.h"
#include "core/graphics/graph_setup.h"
#include "core/graphics/recording_surface.h"
#include "core/headless/headless_platform.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/input_check.h"
#include "core/project/parameter_texts.h"
#include "core/project/parameter_validation.h"
#include "core/project/pillar_sizing.h"
#include "core/project/preview_record.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/stability_analysis.h"
#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// A file of these bytes that has a path.
std::string PathOf(std::string_view bytes) {
    static const int descriptor = ::memfd_create("project", 0);
    if (::ftruncate(descriptor, 0) != 0) std::abort();
    if (::pwrite(descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        std::abort();
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// Runs a step from a program that has just read the project.
template <typename Step>
void Try(const std::string& path, const Step& step) {
    try {
        ResetProgram();
        ProjectFileName = path;
        if (ReadProjectFile()) step();
    } catch (const RunTimeError&) {
    }
    AbandonAllFiles();
}

// What is written as text must be JSON, the same that the JSON library makes of it, to the last figure and letter.
void RequireReadable(const std::string& text) {
    const auto read = nlohmann::json::parse(text, nullptr, false);
    if (read.is_discarded() || nlohmann::json::parse(read.dump()) != read) std::abort();
}

void Report() {
    RequireReadable(cli::ProjectJson(DocumentOfRecords()).Object());
    RequireReadable(cli::ProjectUnitsJson(UnitSystem).Object());
    if (!PrepareWorkingParameters()) return;
    RunStabilityAnalysis();
    WriteStabilitySection();
    WritePillarSection();
    LoadOutBuf0(LastOutputPage);
    cli::JsonMembers pages;
    pages.Add("pages", std::vector<std::string>{OutputBuffers[0], OutputBuffers[1], OutputBuffers[2]});
    RequireReadable(pages.Object());
}

void Plan(bool preview) {
    if (PrepareWorkingParameters()) {
        RunStabilityAnalysis();
        ConvertToOutputUnits();
    }
    if (preview)
        LoadPreviewFromTexts(TextsOfRecord(ProjectRecord));
    else
        LoadWorkParms();
    RecordingSurface surface;
    if (preview)
        DrawPanelPreview(surface);
    else
        DrawPanelPlot(surface);
}

void Curve(GraphFamily family, int index) {
    const bool computed =
        family == GraphFamily::Stability ? ComputeStabilityCurves(index) : ComputeSizingCurve(index);
    if (!computed) return;
    ChartModel chart;
    InitGraph(chart, family, index);
    DrawCurves(chart, family);
    std::vector<std::string> names;
    for (int curve = 1; curve <= CurveCount; ++curve) names.push_back(LegendName(family, curve));
    if (CurveTableCsv(chart.AxisTitle(ChartAxis::X), names).empty()) std::abort();
}

void Sizes() {
    const ParameterTexts texts = TextsOfRecord(ProjectRecord);
    if (!ValidateSizingTexts(texts)) SuggestPillarSizes(texts);
}

void TryBytes(std::string_view bytes) {
    static HeadlessPlatform host;
    host.Install();
    host.Messages.Shown.clear();
    const std::string path = PathOf(bytes);
    Try(path, Report);
    Try(path, Sizes);
    for (const bool preview : {false, true}) Try(path, [preview] { Plan(preview); });
    for (int index = 0; index < 3; ++index) Try(path, [index] { Curve(GraphFamily::Stability, index); });
    for (int index = 0; index < 2; ++index) Try(path, [index] { Curve(GraphFamily::Sizing, index); });
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvokol::TryBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
