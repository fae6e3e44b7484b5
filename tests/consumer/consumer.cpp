// SPDX-License-Identifier: GPL-3.0-or-later
// Calls each part of the library as other programs do, and prints a line of each. consumer.py knows the lines.
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include <tarvokol/engine.h>
#include <tarvokol/project.h>
#include <tarvokol/studies.h>

using namespace tarvokol;

namespace {

Panel ReadPanel(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto document = DocumentOfBytes(bytes);
    if (!document) throw std::runtime_error("no project");
    std::cout << "project: " << document->title << '\n';
    return {document->inputs, static_cast<Units>(document->unit_system)};
}

void Calculate(const Panel& panel) {
    const CheckOutcome outcome = Check(panel);
    const CheckedPanel& checked = std::get<CheckedPanel>(outcome);
    const Analysis analysis = Analyse(checked);
    std::cout << "factors:";
    for (int i = 1; i <= 3; ++i) std::cout << ' ' << analysis.StabilityFactor[i];
    std::cout << "\nlabel:" << InOutputUnits(analysis, OutputUnits{}).force_label << '\n';
    const PillarSizes sizes = SizePillars(panel);
    std::cout << "sizes: " << sizes.web.width << ' ' << sizes.barrier.width << '\n';
    const Curve curve = StabilityCurve(checked, VariedInput::DepthCover, PlotRange{});
    std::cout << "curve: " << curve.points << " points, " << curve.table(0, 1) << ' ' << curve.table(1, 1)
              << '\n';
    const SizingCurve widths = SizeOverDepth(checked, SizedPillar::Web, PlotRange{});
    std::cout << "widths: " << widths.points << " points, " << widths.table(1, 1) << '\n';
}

void Refuse(Panel panel) {
    panel.Height = 0;
    std::cout << "refused: " << std::get<Refusal>(Check(panel)).Message() << '\n';
    panel.NumberHoles = 21;
    try {
        Check(panel);
    } catch (const RunTimeError& error) {
        std::cout << "error: " << error.number << ' ' << error.what() << '\n';
    }
    try {
        ValueAxis::Parse(PanelField::Height, "ten");
    } catch (const StudyRefusal& refusal) {
        std::cout << "study: " << refusal.what() << '\n';
    }
}

void Study(const Panel& panel) {
    SweepRequest sweep;
    sweep.panel = panel;
    sweep.threads = 2;
    sweep.AddAxis(ValueAxis::Parse(PanelField::DepthCover, "100:200:50"));
    RowsInOrder rows([](const StudyRow& row) {
        std::cout << "row: " << row.values[0] << ' ' << row.figures.WebsOnly << '\n';
        return true;
    });
    RunSweep(sweep, rows);
    RiskRequest risk;
    risk.panel = panel;
    risk.samples = 1000;
    risk.threads = 2;
    risk.AddField(PanelField::CoalStrength, "lognormal:100%:15%");
    std::cout << "risk: " << RunRisk(risk).risk[1].below.front().share.value << '\n';
    StudyObserver nobody;
    std::vector<RiskPart> parts;
    for (const int part : {1, 2, 3})
        parts.push_back(*RunRiskPart(risk, SampleRange::Part(risk.samples, part, 3), nobody));
    std::cout << "parts: " << MergeRisk(parts, 2, nobody)->risk[1].below.front().share.value << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::cout.precision(17);
    const Panel panel = ReadPanel(argv[1]);
    Calculate(panel);
    Refuse(panel);
    Study(panel);
    return 0;
}
