// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/report_builder.h"

#include "core/messages/history_log.h"
#include "core/project/description.h"
#include "core/project/input_check.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/runtime/checked.h"
#include "core/runtime/text.h"
#include "core/settings/option_settings.h"

namespace tarvokol {
namespace {

constexpr std::size_t kInputDots = 50;
constexpr std::size_t kFactorDots = 35;
constexpr std::size_t kColumnWidth = 14;
constexpr std::size_t kFirstColumnWithName = 21;
constexpr int kPathWidth = 70;
constexpr int kPillarsListed = 2;  // the barrier and the first web: all webs are alike

constexpr const char* kTwoDecimals = "##0.00";
constexpr const char* kScientific = "#.00E+00";

// One page under construction.
class Page {
  public:
    explicit Page(int index) : text_(OutputBuffers[index]) { text_.clear(); }

    void Row(const std::string& text) { text_.append(text).append(CrLf); }
    void Blank(int rows = 1) {
        for (int i = 0; i < rows; ++i) text_.append(CrLf);
    }

    // Rows that bring their own line ends.
    void Lines(const std::string& text) { text_.append(text); }

  private:
    std::string& text_;
};

void InputRow(Page& page, const char* label, const std::string& value, const std::string& unit) {
    page.Row(DotPad(label, kInputDots) + value + unit);
}

void InputRow(Page& page, const char* label, double value, const std::string& unit) {
    InputRow(page, label, GeneralText(value), unit);
}

void WriteModuleHeader(Page& page) {
    page.Row("TARVOKOL module build: " + VersionString());
    page.Lines(WrapText("Project File: " + ProjectFileName, kPathWidth));
    page.Blank();
    page.Row("Input Units: " + UnitLabels(unit_row::Length) + UnitLabels(unit_row::Strength));
    page.Blank();
}

void WriteIdentity(Page& page) {
    page.Row("[PROJECT TITLE]");
    page.Row(ProjectTitle);
    page.Blank();
    page.Row("[PROJECT DESCRIPTION]");
    ReformatDescription();
    page.Row(ProjectDescription);
    page.Blank();
}

void WriteInputs(Page& page) {
    const std::string& length = UnitLabels(unit_row::Length);
    page.Row("[DEVELOPMENT GEOMETRY PARAMETERS]");
    InputRow(page, "Extraction Thickness", ProjectRecord.Height, length);
    InputRow(page, "Depth of Cover", ProjectRecord.DepthCover, length);
    InputRow(page, "Hole Width", ProjectRecord.HoleWidth, length);
    InputRow(page, "Web Thickness", ProjectRecord.WebThickness, length);
    InputRow(page, "Barrier Pillar Width", ProjectRecord.BarrierPillarWidth, length);
    InputRow(page, "Number of Holes", GeneralText(ProjectRecord.NumberHoles), "");
    page.Blank();
    page.Row("[DEFAULT PARAMETERS]");
    InputRow(page, "In Situ Coal Strength", ProjectRecord.CoalStrength, UnitLabels(unit_row::Strength));
    InputRow(page, "Unit Weight of Overburden", ProjectRecord.UnitWeight, UnitLabels(unit_row::UnitWeight));
    InputRow(page, "Abutment Angle of Gob", ProjectRecord.AbutmentAngle, " (deg)");
    page.Blank();
}

// The hole width takes a trip through text here, and nowhere else.
double PanelWidth(const PanelInputs& record) {
    const int holes = WorkingParameters.CalcHoles;
    return Checked((holes - 1) * record.WebThickness + holes * ThroughText(WorkingParameters.CalcHoleWidth));
}

// Percent.
double ExtractionRatio(const PanelInputs& record) {
    const int holes = WorkingParameters.CalcHoles;
    const double mined = holes * WorkingParameters.CalcHoleWidth;
    const double panel = (holes - 1) * record.WebThickness + record.BarrierPillarWidth + mined;
    return Checked(Divide(100.0 * mined, panel));
}

void DerivedRow(Page& page, const char* label, double value, const std::string& unit) {
    InputRow(page, label, PictureText(value, kTwoDecimals), unit);
}

void WriteDerivedValues(Page& page, const PanelInputs& record) {
    DerivedRow(page, "Panel width (excluding barriers)", PanelWidth(record), UnitLabels(unit_row::Length));
    if (record.Height != 0.0) {
        DerivedRow(page, "Barrier pillar width-to-height ratio",
                   Checked(record.BarrierPillarWidth / record.Height), "");
        DerivedRow(page, "Web thickness-to-height ratio", Checked(record.WebThickness / record.Height), "");
    }
    DerivedRow(page, "Extraction ratio", ExtractionRatio(record), " %");
}

using PillarValues = OneBased<double, MaxHoles>;

// One row a listed pillar: its name and two figures. The pillar loops share the analysis's index and leave it
// after their last pillar.
void WritePillarRows(Page& page, const PillarValues& first, const PillarValues& second, const char* picture) {
    int16_t& pillar = WorkingParameters.CalcLoopIndex;
    for (pillar = 1; pillar <= kPillarsListed; ++pillar)
        page.Row(PillarClassNames[pillar] + RightJustify(PictureText(first[pillar], picture), kColumnWidth) +
                 RightJustify(PictureText(second[pillar], picture), kColumnWidth));
}

void UnitRow(Page& page, const std::string& first, const std::string& second) {
    page.Row(RightJustify(first, kFirstColumnWithName) + RightJustify(second, kColumnWidth));
}

void WritePlotReminder(Page& page) {
    page.Blank();
    page.Row("To view the distribution of Pillar Load Bearing Capacity");
    page.Row("select 'View Plots->Settings->Pillar Load Bearing Capacity'");
}

}  // namespace

void LoadOutBuf0(const int16_t&) {
    Page page(0);
    if (PrintModuleHeader == 1) WriteModuleHeader(page);
    WriteIdentity(page);
    WriteInputs(page);
}

void WriteStabilitySection() {
    WriteStabilitySection(ProjectRecord);
}

void WriteStabilitySection(const PanelInputs& record) {
    Page page(1);
    page.Row("[TARVO-KOL STABILITY FACTORS]");
    page.Blank();
    for (int k = stability_case::Overall; k <= stability_case::Barrier; ++k)
        page.Row(DotPad(StabilityCaseNames[k], kFactorDots) +
                 PictureText(WorkingParameters.StabilityFactor[k], kTwoDecimals));
    page.Blank(2);
    WriteDerivedValues(page, record);
    page.Blank(2);
    LogMessage("TARVO-KOL stability factors calculated");
    ConvertToOutputUnits();
}

void WritePillarSection() {
    const AnalysisState& results = WorkingParameters;
    const std::string& length = UnitLabels(unit_row::Length);
    const std::string bare_length = Trim(length);
    Page page(2);
    page.Row("[PILLAR PARAMETERS]");
    page.Blank();
    page.Row("PILLAR          ENTRY       MINIMUM");
    page.Row("               CENTER     DIMENSION");
    UnitRow(page, length, length);
    WritePillarRows(page, results.CenterDist, results.PillarMinDim, kTwoDecimals);
    page.Blank();
    page.Row("PILLAR           AREA      STRENGTH");
    UnitRow(page, bare_length + "*" + bare_length, results.StressUnitLabel);
    WritePillarRows(page, results.PillarArea, results.PillarStrength, kScientific);
    page.Blank();
    if (PrintPlotReminder == 1) WritePlotReminder(page);
    page.Blank(3);
}

bool CalculateReport(PanelInputs& record) {
    LastOutputPage = 2;
    if (!PrepareWorkingParameters(record)) return false;
    RunStabilityAnalysis();
    WriteStabilitySection(record);
    WritePillarSection();
    return true;
}

}  // namespace tarvokol
