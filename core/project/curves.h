// The program-wide curve table of the graph windows and the commands that fill it.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/curve_table.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

inline CurveTable CurveData;            // column 0 holds x, column i the values of curve i
inline int32_t CurvePoints = 0;         // rows filled
inline int16_t CurveCount = 0;          // curves to draw
inline int16_t StabilityCurveKind = 0;  // 0 height, 1 depth of cover, 2 hole width
inline int16_t SizingCurveKind = 0;     // 0 web thickness, 1 barrier width

// Names of the curves, set at start-up.
inline OneBased<std::string, 3> CurveNames;
inline OneBased<std::string, 2> SizingCurveNames;

// Runs the input check, then the analysis over the range of the input that `index` names. False if the check
// refuses the project: there is no curve then. Raises the errors of the analysis.
bool ComputeStabilityCurves(int index);

// Runs the input check, then the solver over the range of depths, whose failures speak one by one. False if
// the check refuses the project.
bool ComputeSizingCurve(int index);

}  // namespace tarvokol
