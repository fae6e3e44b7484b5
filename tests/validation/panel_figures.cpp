// The engine behind a pipe: reads panels as lines of numbers, writes their figures as lines of numbers, each
// in the shortest form that reads back to the same bits. The validation asks it for a million panels at a
// time.
//
//   panel_figures factors|analysis|sizes|sf-height|sf-depth|sf-hole|web|barrier <panels >figures
//
// tests/support/panel_calculation tells what a panel's line holds. A panel that the input check refuses gives
// "refused", one that ends in a run-time error "error" and its number.
#include <charconv>
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

std::vector<double> Values(const std::vector<NamedFigure>& figures) {
    std::vector<double> values;
    for (const NamedFigure& figure : figures) values.push_back(figure.value);
    return values;
}

Request RequestOf(const std::string& name) {
    if (name == "factors") return [](const std::string&) { return Values(StabilityFactors()); };
    if (name == "analysis") return [](const std::string&) { return Values(AnalysisFigures()); };
    if (name == "sizes") return [](const std::string&) { return Values(SizingFigures()); };
    for (const char* curve : {"sf-height", "sf-depth", "sf-hole", "web", "barrier"})
        if (name == curve) return CurveFigures;
    return nullptr;
}

std::string LineOf(const std::vector<double>& figures) {
    if (figures.empty()) return "refused";
    std::string line;
    for (const double figure : figures) {
        char digits[32];
        if (!line.empty()) line += ' ';
        line.append(digits, std::to_chars(digits, digits + sizeof digits, figure).ptr);
    }
    return line;
}

std::string Answer(const std::string& panel, Request request, const std::string& name) {
    try {
        EnterPanel(panel.c_str());
        return LineOf(request(name));
    } catch (const RunTimeError& error) {
        return "error " + std::to_string(error.number);
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
    for (std::string panel; std::getline(std::cin, panel);) {
        std::cout << Answer(panel, request, name) << '\n';
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
