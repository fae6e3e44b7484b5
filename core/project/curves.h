// SPDX-License-Identifier: GPL-3.0-or-later
// The program-wide curve table of the graph windows and the commands that fill it.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/engine.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// The table: column 0 holds x, column i the values of curve i; points: rows filled.
struct CurveValues : Curve {
    int16_t CurveCount = 0;          // curves to draw
    int16_t StabilityCurveKind = 0;  // 0 height, 1 depth of cover, 2 hole width
    int16_t SizingCurveKind = 0;     // 0 web thickness, 1 barrier width
};
namespace state {
inline CurveValues Curves;
}  // namespace state
// Written by core/project/curves.
inline auto& CurveData = state::Curves.table;
inline auto& CurvePoints = state::Curves.points;
inline auto& CurveCount = state::Curves.CurveCount;
inline auto& StabilityCurveKind = state::Curves.StabilityCurveKind;
inline auto& SizingCurveKind = state::Curves.SizingCurveKind;

// Names of the curves, set at start-up. Written by core/program/built_in_values.
inline OneBased<std::string, 3> CurveNames;
inline OneBased<std::string, 2> SizingCurveNames;

// Runs the input check, then the analysis over the range of the input that `index` names. False if the check
// refuses the project: there is no curve then. Raises the errors of the analysis.
bool ComputeStabilityCurves(int index);

// Runs the input check, then the solver over the range of depths, whose failures speak one by one. False if
// the check refuses the project.
bool ComputeSizingCurve(int index);

}  // namespace tarvokol
