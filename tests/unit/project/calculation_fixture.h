// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the calculation on the records start from: fresh records and options, and a panel.
#pragma once

#include <vector>

#include "core/project/curves.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/project/sizing_solver.h"
#include "core/project/working_parameters.h"
#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {

class CalculationTest : public CoreTest {
  protected:
    CalculationTest() { ForgetEverything(); }
    ~CalculationTest() override { ForgetEverything(); }

    static void ForgetEverything() {
        ProjectRecord = PanelInputs{};
        PreviewRecord = PreviewInputs{};
        WorkingParameters = AnalysisState{};
        OptionsRecord = EngineOptions{};
        SizingBlock = SizingParameters{};
        state::Curves = {};
        UnitSystem = 0;
    }

    static void EnterShallowPanel() { ProjectRecord = WorkedPanel(); }

    // The same panel under 300 of cover, behind a barrier of 40, with 10 holes.
    static void EnterDeepPanel() {
        EnterShallowPanel();
        ProjectRecord.DepthCover = 300;
        ProjectRecord.BarrierPillarWidth = 40;
        ProjectRecord.NumberHoles = 10;
    }
};

// The elements of an array, for comparisons as a whole.
template <typename T, std::size_t N>
std::vector<T> Elements(const OneBased<T, N>& array) {
    return {array.begin(), array.end()};
}

}  // namespace tarvokol
