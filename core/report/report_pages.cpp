// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/report_pages.h"

#include "core/project/description_text.h"
#include "core/report/report_builder.h"
#include "core/runtime/checked.h"
#include "core/runtime/text.h"

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

// One page under construction: a text that grows row by row, so that an error leaves what was written until then.
class Page {
  public:
    explicit Page(std::string& text) : text_(text) {}

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

void WriteIdentity(Page& page, const ProjectDocument& project) {
    page.Row("[PROJECT TITLE]");
    page.Row(project.title);
    page.Blank();
    page.Row("[PROJECT DESCRIPTION]");
    page.Row(project.description);
    page.Blank();
}

void WriteInputs(Page& page, const PanelInputs& inputs, int system) {
    const std::string& length = UnitLabel(system, unit_row::Length);
    page.Row("[DEVELOPMENT GEOMETRY PARAMETERS]");
    InputRow(page, "Extraction Thickness", inputs.Height, length);
    InputRow(page, "Depth of Cover", inputs.DepthCover, length);
    InputRow(page, "Hole Width", inputs.HoleWidth, length);
    InputRow(page, "Web Thickness", inputs.WebThickness, length);
    InputRow(page, "Barrier Pillar Width", inputs.BarrierPillarWidth, length);
    InputRow(page, "Number of Holes", GeneralText(inputs.NumberHoles), "");
    page.Blank();
    page.Row("[DEFAULT PARAMETERS]");
    InputRow(page, "In Situ Coal Strength", inputs.CoalStrength, UnitLabel(system, unit_row::Strength));
    InputRow(page, "Unit Weight of Overburden", inputs.UnitWeight, UnitLabel(system, unit_row::UnitWeight));
    InputRow(page, "Abutment Angle of Gob", inputs.AbutmentAngle, " (deg)");
    page.Blank();
}

// The hole width takes a trip through text here, and nowhere else.
double PanelWidth(const PanelInputs& inputs, const PanelAnalysis& analysis) {
    const int holes = analysis.CalcHoles;
    return Checked((holes - 1) * inputs.WebThickness + holes * ThroughText(analysis.CalcHoleWidth));
}

// Percent.
double ExtractionRatio(const PanelInputs& inputs, const PanelAnalysis& analysis) {
    const int holes = analysis.CalcHoles;
    const double mined = holes * analysis.CalcHoleWidth;
    const double panel = (holes - 1) * inputs.WebThickness + inputs.BarrierPillarWidth + mined;
    return Checked(Divide(100.0 * mined, panel));
}

void DerivedRow(Page& page, const char* label, double value, const std::string& unit) {
    InputRow(page, label, PictureText(value, kTwoDecimals), unit);
}

void WriteDerivedValues(Page& page, const PanelInputs& inputs, const PanelAnalysis& analysis, int system) {
    DerivedRow(page, "Panel width (excluding barriers)", PanelWidth(inputs, analysis),
               UnitLabel(system, unit_row::Length));
    if (inputs.Height != 0.0) {
        DerivedRow(page, "Barrier pillar width-to-height ratio",
                   Checked(inputs.BarrierPillarWidth / inputs.Height), "");
        DerivedRow(page, "Web thickness-to-height ratio", Checked(inputs.WebThickness / inputs.Height), "");
    }
    DerivedRow(page, "Extraction ratio", ExtractionRatio(inputs, analysis), " %");
}

using PillarValues = OneBased<double, MaxHoles>;

// Rows of the listed pillars: a pillar's name and two of its figures.
class PillarRows {
  public:
    PillarRows(Page& page, const PillarNames& names, int16_t& pillar)
        : page_(page), names_(names), pillar_(pillar) {}

    void Write(const PillarValues& first, const PillarValues& second, const char* picture) {
        for (pillar_ = 1; pillar_ <= kPillarsListed; ++pillar_)
            page_.Row(names_[pillar_] + RightJustify(PictureText(first[pillar_], picture), kColumnWidth) +
                      RightJustify(PictureText(second[pillar_], picture), kColumnWidth));
    }

  private:
    Page& page_;
    const PillarNames& names_;
    int16_t& pillar_;
};

void UnitRow(Page& page, const std::string& first, const std::string& second) {
    page.Row(RightJustify(first, kFirstColumnWithName) + RightJustify(second, kColumnWidth));
}

void WritePlotReminder(Page& page) {
    page.Blank();
    page.Row("To view the distribution of Pillar Load Bearing Capacity");
    page.Row("select 'View Plots->Settings->Pillar Load Bearing Capacity'");
}

}  // namespace

void WriteModuleHeader(std::string& text, const std::string& file, int unit_system) {
    Page page(text);
    page.Row("TARVOKOL module build: " + VersionString());
    page.Lines(WrapText("Project File: " + file, kPathWidth));
    page.Blank();
    page.Row("Input Units: " + UnitLabel(unit_system, unit_row::Length) +
             UnitLabel(unit_system, unit_row::Strength));
    page.Blank();
}

void WriteInputPage(std::string& text, const ProjectDocument& project) {
    Page page(text);
    WriteIdentity(page, project);
    WriteInputs(page, project.inputs, project.unit_system);
}

void WriteFactorPage(std::string& text, const PanelInputs& inputs, const PanelAnalysis& analysis,
                     int unit_system, const CaseNames& names) {
    Page page(text);
    page.Row("[TARVO-KOL STABILITY FACTORS]");
    page.Blank();
    for (int k = stability_case::Overall; k <= stability_case::Barrier; ++k)
        page.Row(DotPad(names[k], kFactorDots) + PictureText(analysis.StabilityFactor[k], kTwoDecimals));
    page.Blank(2);
    WriteDerivedValues(page, inputs, analysis, unit_system);
    page.Blank(2);
}

void WritePillarPage(std::string& text, PanelAnalysis& figures, const std::string& stress_label,
                     int unit_system, const PillarNames& names, bool plot_reminder) {
    const std::string& length = UnitLabel(unit_system, unit_row::Length);
    const std::string bare_length = Trim(length);
    Page page(text);
    PillarRows rows(page, names, figures.CalcLoopIndex);
    page.Row("[PILLAR PARAMETERS]");
    page.Blank();
    page.Row("PILLAR          ENTRY       MINIMUM");
    page.Row("               CENTER     DIMENSION");
    UnitRow(page, length, length);
    rows.Write(figures.CenterDist, figures.PillarMinDim, kTwoDecimals);
    page.Blank();
    page.Row("PILLAR           AREA      STRENGTH");
    UnitRow(page, bare_length + "*" + bare_length, stress_label);
    rows.Write(figures.PillarArea, figures.PillarStrength, kScientific);
    page.Blank();
    if (plot_reminder) WritePlotReminder(page);
    page.Blank(3);
}

ReportPages PagesOf(const std::string& file, const ProjectDocument& project, const Analysis& analysis,
                    const ReportSettings& settings) {
    const int system = project.unit_system;
    ReportPages pages;
    WriteFactorPage(pages.factors, project.inputs, analysis, system, settings.case_names);
    OutputFigures output = InOutputUnits(analysis, settings.output);
    WritePillarPage(pages.pillars, output.figures, output.stress_label, system, settings.pillar_names,
                    settings.plot_reminder);
    if (settings.module_header) WriteModuleHeader(pages.inputs, file, system);
    ProjectDocument shown = project;
    shown.description = WrappedDescription(project.description, shown.description_lines);
    WriteInputPage(pages.inputs, shown);
    return pages;
}

}  // namespace tarvokol
