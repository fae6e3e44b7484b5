// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_calculation.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <variant>

#include <pybind11/numpy.h>

#include "core/engine/engine.h"
#include "core/studies/panel_figures.h"
#include "python/module/py_panel.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

// The panel once it has passed the check; raises its words otherwise.
CheckedPanel Passed(const PyPanel& panel) {
    const CheckOutcome outcome = Check(panel);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) throw PanelRefusal(refusal->Message());
    return std::get<CheckedPanel>(outcome);
}

template <std::size_t size>
py::array_t<double> ArrayOf(const OneBased<double, size>& values, int count = static_cast<int>(size)) {
    py::array_t<double> array(count);
    for (int i = 1; i <= count; ++i) array.mutable_at(i - 1) = values[i];
    return array;
}

py::dict AnalysisOf(const PyPanel& panel) {
    const Analysis analysis = Analyse(Passed(panel));
    const int pillars = panel.NumberHoles;
    py::dict figures;
    figures["StabilityFactor"] = ArrayOf(analysis.StabilityFactor);
    figures["CapacityTotal"] = ArrayOf(analysis.CapacityTotal);
    figures["DevelopmentLoad"] = ArrayOf(analysis.DevelopmentLoad);
    figures["SideAbutmentLoad"] = ArrayOf(analysis.SideAbutmentLoad);
    figures["PanelSpan"] = ArrayOf(analysis.PanelSpan);
    figures["AppliedAbutmentLoad"] = ArrayOf(analysis.AppliedAbutmentLoad);
    figures["TotalLoad"] = ArrayOf(analysis.TotalLoad);
    figures["CenterDist"] = ArrayOf(analysis.CenterDist, pillars);
    figures["PillarWidth"] = ArrayOf(analysis.PillarWidth, pillars);
    figures["PillarStrength"] = ArrayOf(analysis.PillarStrength, pillars);
    figures["PillarArea"] = ArrayOf(analysis.PillarArea, pillars);
    figures["PillarCapacity"] = ArrayOf(analysis.PillarCapacity, pillars);
    return figures;
}

py::dict SizesOf(const PyPanel& panel) {
    // Sizing reads neither crosscuts nor the barrier that the panel has, so a fault of theirs is not to be told.
    Panel sized = panel;
    sized.CrosscutSpacing = PyPanel().CrosscutSpacing;
    sized.CrosscutAngle = PyPanel().CrosscutAngle;
    sized.BarrierPillarWidth = 1;
    PanelEvaluator evaluator(sized, true);
    const PanelFigures& figures = evaluator.Evaluate();
    if (std::isnan(figures.SuggestedWeb)) throw PanelRefusal(figures.message);
    py::dict sizes;
    sizes["SuggestedWeb"] = figures.SuggestedWeb;
    sizes["SuggestedBarrier"] = figures.SuggestedBarrier;
    sizes["message"] = figures.message;
    return sizes;
}

py::array_t<float> RowsOf(const Curve& curve, int columns) {
    py::array_t<float> rows({static_cast<py::ssize_t>(curve.points), static_cast<py::ssize_t>(columns)});
    auto cells = rows.mutable_unchecked<2>();
    for (long row = 0; row < curve.points; ++row)
        for (int column = 0; column < columns; ++column) cells(row, column) = curve.table(column, row + 1);
    return rows;
}

// The rows of a curve: column 0 is what varies.
py::array_t<float> CurveOf(const PyPanel& panel, const std::string& kind, float low, float high) {
    constexpr int kFactorColumns = 4;
    constexpr int kSizeColumns = 2;
    const CheckedPanel checked = Passed(panel);
    const PlotRange range{low, high};
    const auto stability = [&](VariedInput input) {
        return RowsOf(StabilityCurve(checked, input, range), kFactorColumns);
    };
    if (kind == "sf-height") return stability(VariedInput::Height);
    if (kind == "sf-depth") return stability(VariedInput::DepthCover);
    if (kind == "sf-hole") return stability(VariedInput::HoleWidth);
    if (kind == "web") return RowsOf(SizeOverDepth(checked, SizedPillar::Web, range), kSizeColumns);
    if (kind == "barrier") return RowsOf(SizeOverDepth(checked, SizedPillar::Barrier, range), kSizeColumns);
    throw py::value_error('"' + kind + "\" is none of sf-height, sf-depth, sf-hole, web, barrier");
}

}  // namespace

void BindCalculation(py::module_& module) {
    module.def("check", [](const PyPanel& panel) { Passed(panel); });
    module.def("analyse", &AnalysisOf);
    module.def("size", &SizesOf);
    module.def("curve", &CurveOf);
}

}  // namespace tarvokol::python
