// SPDX-License-Identifier: GPL-3.0-or-later
// Calculation alone, without output, on one thread: the evaluator of the studies, or the three formulas
// written down in a loop as one would for this one grid.   study_loop ours|strengths|loop SIDE
// The evaluator over columns in memory, with a row in memory for each panel, and the seconds that it took: study_loop rows SIDE
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "core/studies/panel_figures.h"

namespace {

using namespace tarvokol;

Panel Bench() {
    Panel panel;
    panel.Height = 4.5;
    panel.HoleWidth = 9.5;
    panel.CrosscutSpacing = 1000000;
    panel.CrosscutAngle = 90;
    panel.BarrierPillarWidth = 10;
    panel.NumberHoles = 14;
    panel.CoalStrength = 900;
    panel.UnitWeight = 162;
    panel.AbutmentAngle = 21;
    panel.SFWeb = 1.6f;
    panel.SFBarrier = 2.0f;
    return panel;
}

double Ours(int side) {
    PanelEvaluator panel(Bench(), false);
    double sum = 0;
    for (int i = 0; i < side; ++i) {
        panel.Set(PanelField::WebThickness, 2 + i * 10.0 / (side - 1));
        for (int j = 0; j < side; ++j) {
            panel.Set(PanelField::DepthCover, 50 + j * 850.0 / (side - 1));
            const PanelFigures& figures = panel.Evaluate();
            sum += figures.Overall + figures.WebsOnly + figures.BarrierPillar + figures.ExtractionRatio;
        }
    }
    return sum;
}

struct Row {
    double overall, webs_only, barrier, extraction_ratio;
    int message;
};

// What the Python module does for two arrays, without Python: the seconds of the best of five turns.
double SecondsOfRows(int side) {
    const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    std::vector<double> webs;
    std::vector<double> depths;
    webs.reserve(count);
    depths.reserve(count);
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j) {
            webs.push_back(2 + i * 10.0 / (side - 1));
            depths.push_back(50 + j * 850.0 / (side - 1));
        }
    double best = 1e9;
    for (int turn = 0; turn < 5; ++turn) {
        const auto start = std::chrono::steady_clock::now();
        const std::unique_ptr<Row[]> rows(new Row[count]);
        PanelEvaluator panel(Bench(), false);
        for (std::size_t i = 0; i < count; ++i) {
            if (i == 0 || webs[i] != webs[i - 1]) panel.Set(PanelField::WebThickness, webs[i]);
            panel.Set(PanelField::DepthCover, depths[i]);
            const PanelFigures& figures = panel.Evaluate();
            rows[i] = {figures.Overall, figures.WebsOnly, figures.BarrierPillar, figures.ExtractionRatio, 0};
        }
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

// As a grid whose strength runs fastest.
double Strengths(int side) {
    PanelEvaluator panel(Bench(), false);
    panel.Set(PanelField::DepthCover, 120);
    double sum = 0;
    for (int i = 0; i < side; ++i) {
        panel.Set(PanelField::WebThickness, 2 + i * 10.0 / (side - 1));
        for (int j = 0; j < side; ++j) {
            panel.Set(PanelField::CoalStrength, 600 + j * 600.0 / (side - 1));
            const PanelFigures& figures = panel.Evaluate();
            sum += figures.Overall + figures.WebsOnly + figures.BarrierPillar + figures.ExtractionRatio;
        }
    }
    return sum;
}

double Strength(const Panel& p, double width) {
    return p.CoalStrength * 144 *
           (0.54 * width / p.Height - 0.18 * width * width / (p.Height * p.CrosscutSpacing) + 0.64);
}

double Loop(int side) {
    const Panel p = Bench();
    const double n = p.NumberHoles;
    double sum = 0;
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j) {
            const double web = 2 + i * 10.0 / (side - 1);
            const double depth = 50 + j * 850.0 / (side - 1);
            const double t = std::tan(p.AbutmentAngle * RadiansPerDegree);
            const double webs = Strength(p, web) * web;
            const double barrier = Strength(p, p.BarrierPillarWidth) * p.BarrierPillarWidth;
            const double span = (n - 1) * web + n * p.HoleWidth;
            const double column = p.UnitWeight * depth;
            const double side_load = span / 2 > depth * t
                                         ? depth * depth * t * p.UnitWeight / 2
                                         : (depth * span / 2 - span * span / (8 * t)) * p.UnitWeight;
            double capacity = barrier;
            for (int k = 2; k <= p.NumberHoles; ++k) capacity += webs;
            sum += capacity / ((span + p.BarrierPillarWidth) * column) +
                   webs / (column * (p.HoleWidth + web)) +
                   barrier / (2 * side_load + column * p.BarrierPillarWidth) +
                   100 * n * p.HoleWidth / ((n - 1) * web + p.BarrierPillarWidth + n * p.HoleWidth);
        }
    return sum;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return EXIT_FAILURE;
    const int side = std::atoi(argv[2]);
    if (std::strcmp(argv[1], "rows") == 0) {
        std::printf("%.6f\n", SecondsOfRows(side));
        return EXIT_SUCCESS;
    }
    const auto is = [argv](const char* mode) { return std::strcmp(argv[1], mode) == 0; };
    std::printf("%.9g\n", is("ours") ? Ours(side) : is("strengths") ? Strengths(side) : Loop(side));
    return EXIT_SUCCESS;
}
