#include "core/engine/input_check.h"

#include <string>

#include "core/engine/options_record.h"
#include "core/engine/project_record.h"
#include "core/engine/working_parameters.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

// Strength in psf or kPa.
constexpr double kPsfPerPsi = 144.0;
constexpr double kKilopascalPerMegapascal = 1000.0;

// Nine hundred, not ninety: the check has always admitted a turn and more.
constexpr double kLargestCrosscutAngle = 900.0;

void ConvertScalars() {
    AnalysisState& w = WorkingParameters;
    const PanelInputs& record = ProjectRecord;
    w.CalcStressGrade = OptionsRecord.OutputStrGradUnits;
    w.CalcUnitWeight = record.UnitWeight;
    w.CalcStrength = Checked(record.CoalStrength * (UnitSystem == 0 ? kPsfPerPsi : kKilopascalPerMegapascal));
    w.CalcHeight = record.Height;
    w.CalcDepth = record.DepthCover;
    w.CalcHoleWidth = record.HoleWidth;
    w.CalcPillarLength = record.CrosscutSpacing;
    w.CalcCrosscutAngleRad = Checked(record.CrosscutAngle * RadiansPerDegree);
    w.CalcCrosscutClearance = Checked(record.CrosscutSpacing - record.HoleWidth);
    w.CalcCenterSum = 0.0;
    w.CalcHoles = record.NumberHoles;
    w.CalcHolesPlusOne = ToShort(record.NumberHoles + 1.0);
}

void ConvertSpansAndAngles() {
    AnalysisState& w = WorkingParameters;
    const PanelInputs& record = ProjectRecord;
    const double holes = record.NumberHoles;
    w.PanelSpan[1] = 0.0;
    w.PanelSpan[2] = w.PanelSpan[3] = Checked((holes - 1.0) * record.WebThickness + holes * record.HoleWidth);
    w.ZoneDistance[3] = w.ZoneDistance[4] = 0.0;
    w.ZoneOffset.Fill(0.0);
    w.AbutmentAngleRad.Fill(Checked(record.AbutmentAngle * RadiansPerDegree));
}

// The widths go through a sum and a difference and may differ from the record's in the last bit: the analysis
// reads these. Elements behind the last pillar keep what an earlier run left there.
void ConvertPillars() {
    AnalysisState& w = WorkingParameters;
    for (int i = 1; i <= w.CalcHoles; ++i) {
        w.CenterDist[i] = ProjectRecord.CenterDistance[i];
        w.PillarWidth[i] = Checked(w.CenterDist[i] - w.CalcHoleWidth);
        w.PillarMinDim[i] = w.PillarWidth[i];
        w.PillarLength[i] = w.CalcPillarLength;
        w.CalcCenterSum = Checked(w.CalcCenterSum + w.CenterDist[i]);
    }
}

void ConvertRecord() {
    ConvertScalars();
    ConvertSpansAndAngles();
    BuildCenterDistances(ProjectRecord);
    ConvertPillars();
    WorkingParameters.CalcValid = 1;
}

// The message of the first test that fails, empty if all pass.
std::string FirstFault() {
    const PanelInputs& record = ProjectRecord;
    if (record.Height <= 0.0) return "Invalid entry height";
    if (record.DepthCover <= 0.0) return "Invalid depth of cover";
    if (record.CrosscutAngle < 0.0 || record.CrosscutAngle > kLargestCrosscutAngle)
        return "Invalid crosscut angle";
    if (record.HoleWidth <= 0.0) return "Invalid entry width";
    if (record.CrosscutSpacing <= 0.0) return "Invalid crosscut spacing";
    if (record.WebThickness <= 0.0) return "Invalid Web thickness";
    if (record.BarrierPillarWidth <= 0.0) return "Invalid barrier pillar width";
    if (record.CoalStrength <= 0.0) return "Invalid coal strength";
    if (record.UnitWeight <= 0.0) return "Invalid unit weight";
    if (record.AbutmentAngle <= 0.0) return "Invalid abutment angle";
    // The last pillar's distance is not tested.
    for (int i = 1; i < record.NumberHoles; ++i)
        if (record.CenterDistance[i] <= 0.0) return "Invalid center-to-center distance #" + GeneralText(i);
    return "";
}

}  // namespace

bool PrepareWorkingParameters() {
    ConvertRecord();
    const std::string fault = FirstFault();
    if (fault.empty()) return true;
    Notify(fault, box_style::Plain);
    return false;
}

}  // namespace tarvokol
