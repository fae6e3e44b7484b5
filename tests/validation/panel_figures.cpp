// SPDX-License-Identifier: GPL-3.0-or-later
// The engine behind a pipe: reads panels as rows of doubles, writes their figures as doubles, all in the
// machine's own form. The validation asks it for a million panels at a time.
//
//   panel_figures factors|analysis|sizes|sf-height|sf-depth|sf-hole|web|barrier <panels >figures
//
// tests/support/panel_calculation tells what a row holds. Each panel is answered by the number of its figures
// and the figures; the number is 0 if the input check refuses it, and minus the error's number after a
// run-time error.
#include <iostream>
#include <string>
#include <vector>

#include "core/headless/headless_platform.h"
#include "core/messages/history_log.h"
#include "core/runtime/run_time_error.h"
#include "tests/support/panel_calculation.h"

namespace tarvokol {
namespace {

using Request = std::vector<double> (*)(const std::string& name);

Request RequestOf(const std::string& name) {
    if (name == "factors") return [](const std::string&) { return StabilityFactors(); };
    if (name == "analysis") return [](const std::string&) { return AnalysisFigures(); };
    if (name == "sizes") return [](const std::string&) { return SizingFigures(); };
    for (const char* curve : {"sf-height", "sf-depth", "sf-hole", "web", "barrier"})
        if (name == curve) return CurveFigures;
    return nullptr;
}

void Write(const std::vector<double>& values) {
    std::cout.write(reinterpret_cast<const char*>(values.data()),
                    static_cast<std::streamsize>(values.size() * sizeof(double)));
}

void Answer(const PanelRow& panel, Request request, const std::string& name) {
    try {
        EnterPanel(panel);
        const std::vector<double> figures = request(name);
        Write({static_cast<double>(figures.size())});
        Write(figures);
    } catch (const RunTimeError& error) {
        Write({static_cast<double>(-error.number)});
    }
}

int Run(const std::string& name) {
    const Request request = RequestOf(name);
    if (request == nullptr) {
        std::cerr << "panel_figures: unknown request " << name << "\n";
        return 2;
    }
    HeadlessPlatform host;
    host.Install();
    DisplayHistoryWin = 0;
    std::ios::sync_with_stdio(false);
    for (PanelRow panel; std::cin.read(reinterpret_cast<char*>(panel.data()), sizeof panel);) {
        Answer(panel, request, name);
        host.Messages.Shown.clear();
    }
    return std::cout.flush() ? 0 : 3;
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    if (argc == 2) return tarvokol::Run(argv[1]);
    std::cerr << "usage: panel_figures REQUEST <panels >figures\n";
    return 2;
}
