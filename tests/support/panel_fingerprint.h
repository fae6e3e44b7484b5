// SPDX-License-Identifier: GPL-3.0-or-later
// One number that stands for all that the calculation finds for a panel, to the last bit.
#pragma once

#include <bit>
#include <cstdint>
#include <string>

#include "core/engine/engine.h"
#include "tests/support/random_panels.h"

namespace tarvokol {

// A fingerprint of every bit that is added, in order.
class Fingerprint {
  public:
    void Add(std::uint64_t bits) { value_ = (value_ ^ bits) * 0x100000001b3u + (value_ >> 29); }
    void Add(double figure) { Add(std::bit_cast<std::uint64_t>(figure)); }
    void Add(float figure) { Add(std::bit_cast<std::uint32_t>(figure)); }
    void Add(std::uint32_t bits) { Add(std::uint64_t{bits}); }
    template <typename T, std::size_t N>
    void Add(const OneBased<T, N>& figures) {
        for (const T figure : figures) Add(figure);
    }
    void Add(const std::string& text) {
        for (const char c : text) Add(std::uint64_t{static_cast<unsigned char>(c)});
    }

    std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 0xcbf29ce484222325u;
};

inline void AddAnalysis(Fingerprint& print, const PanelAnalysis& analysis) {
    print.Add(analysis.CalcCenterSum);
    print.Add(analysis.PillarWidth);
    print.Add(analysis.PillarStrength);
    print.Add(analysis.PillarArea);
    print.Add(analysis.PillarCapacity);
    print.Add(analysis.CapacityTotal);
    print.Add(analysis.DevelopmentLoad);
    print.Add(analysis.SideAbutmentLoad);
    print.Add(analysis.TotalLoad);
    print.Add(analysis.StabilityFactor);
    print.Add(analysis.AverageStress);
}

inline void AddCurve(Fingerprint& print, const Curve& curve) {
    for (long row = 1; row <= curve.points; ++row)
        for (int column = 0; column < curve.table.Columns(); ++column) print.Add(curve.table(column, row));
}

inline void AddCurves(Fingerprint& print, const CheckedPanel& panel) {
    for (const VariedInput input : {VariedInput::Height, VariedInput::DepthCover, VariedInput::HoleWidth})
        AddCurve(print, StabilityCurve(panel, input, PlotRange{}));
    for (const SizedPillar pillar : {SizedPillar::Web, SizedPillar::Barrier})
        AddCurve(print, SizeOverDepth(panel, pillar, PlotRange{}));
}

inline void AddEverything(Fingerprint& print, const Panel& panel, bool with_curves) {
    const CheckOutcome outcome = Check(panel);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return print.Add(refusal->Message());
    const CheckedPanel& checked = std::get<CheckedPanel>(outcome);
    const Analysis analysis = Analyse(checked);
    AddAnalysis(print, analysis);
    const OutputFigures output = InOutputUnits(analysis, OutputUnits{});
    AddAnalysis(print, output.figures);
    print.Add(output.force_label);
    const PillarSizes sizes = SizePillars(panel);
    print.Add(sizes.web.width);
    print.Add(sizes.barrier.width);
    print.Add(SizingFailureMessage(sizes.barrier.failure));
    if (with_curves) AddCurves(print, checked);
}

// Of all figures of RandomPanel(number), of its refusal or of its error.
inline std::uint64_t FingerprintOf(std::uint64_t number, bool with_curves) {
    Fingerprint print;
    try {
        AddEverything(print, RandomPanel(number), with_curves);
    } catch (const RunTimeError& error) {
        print.Add(static_cast<std::uint64_t>(error.number));
    }
    return print.Value();
}

}  // namespace tarvokol
