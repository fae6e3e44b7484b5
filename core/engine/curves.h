// Parametric curves: one input is varied, the stability factors or the required width are plotted against it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/engine/project_record.h"

namespace tarvokol {

// The curve table: column 0 holds x, column i the values of curve i; rows from 1.
class CurveTable {
  public:
    // Forgets all values; `rows` below 1 raises "Subscript out of range".
    void Allocate(long rows, int columns);

    // An index outside raises "Subscript out of range".
    float& operator()(int column, long row) { return values_[Offset(column, row)]; }
    const float& operator()(int column, long row) const { return values_[Offset(column, row)]; }

    long Rows() const { return rows_; }
    int Columns() const { return columns_; }

  private:
    std::size_t Offset(int column, long row) const;

    long rows_ = 0;
    int columns_ = 0;
    std::vector<float> values_;
};

inline CurveTable CurveData;
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

// Runs the input check, then the solver over the range of depths. False if the check refuses the project.
bool ComputeSizingCurve(int index);

}  // namespace tarvokol
