// SPDX-License-Identifier: GPL-3.0-or-later
// The worked figures of the reference notes, recomputed by the program.
#include <QFile>
#include <QRegularExpression>
#include <cmath>
#include <functional>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "core/engine/panel_texts.h"
#include "core/project/file_conversion.h"
#include "core/project/input_check.h"
#include "core/project/pillar_sizing.h"
#include "core/project/project_record.h"
#include "core/project/sizing_solver.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/runtime/numbers.h"
#include "core/settings/unit_calculator.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using Figures = std::map<std::string, std::string>;

// The marked figures of a note by their names, without the commas of the thousands.
Figures FiguresOf(const std::string& note) {
    QFile file(QString::fromStdString(TARVOKOL_SOURCE_DIR "/resources/notes/" + note + ".htm"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression mark("<span class=\"fig\" id=\"([^\"]+)\">([^<]+)</span>");
    Figures figures;
    auto found = mark.globalMatch(text);
    while (found.hasNext()) {
        const auto match = found.next();
        figures[match.captured(1).toStdString()] = match.captured(2).remove(',').toStdString();
    }
    return figures;
}

PanelInputs Panel(double height, double depth, double hole, double web, double barrier, int16_t holes,
                  double strength, double weight, double angle) {
    PanelInputs panel;
    panel.Height = height;
    panel.DepthCover = depth;
    panel.HoleWidth = hole;
    panel.WebThickness = web;
    panel.BarrierPillarWidth = barrier;
    panel.NumberHoles = holes;
    panel.CoalStrength = strength;
    panel.UnitWeight = weight;
    panel.AbutmentAngle = angle;
    panel.CrosscutAngle = 90;
    panel.CrosscutSpacing = 1000000;
    panel.SFWeb = 1.6f;
    panel.SFBarrier = 2.0f;
    return panel;
}

PanelInputs WidePanel() {
    return Panel(10, 100, 10, 10, 20, 5, 900, 162, 21);
}
PanelInputs CutOffPanel() {
    return Panel(10, 300, 10, 10, 40, 10, 900, 162, 21);
}
PanelInputs DesignPanel(double web, double barrier) {
    return Panel(4.5, 240, 9.5, web, barrier, 10, 900, 162, 21);
}

// Checks every marked figure of one note; a figure that no line here recomputes is a failure, too.
class NoteTest : public CoreTest {
  protected:
    explicit NoteTest(const std::string& note) : figures_(FiguresOf(note)) { UnitSystem = 0; }

    ~NoteTest() override {
        for (const auto& [name, text] : figures_)
            ADD_FAILURE() << name << " is recomputed by nothing: " << text;
        UnitSystem = 0;
    }

    void Figure(const std::string& name, double value, const char* picture) {
        const auto place = figures_.find(name);
        if (place == figures_.end()) {
            ADD_FAILURE() << "the note has no figure " << name;
            return;
        }
        EXPECT_EQ(place->second, PictureText(value, picture)) << name;
        figures_.erase(place);
    }
    void Whole(const std::string& name, double value) {
        std::string text = PictureText(value, "0.");
        text.pop_back();  // the point
        const auto place = figures_.find(name);
        if (place == figures_.end()) {
            ADD_FAILURE() << "the note has no figure " << name;
            return;
        }
        EXPECT_EQ(place->second, text) << name;
        figures_.erase(place);
    }
    void Hundredths(const std::string& name, double value) { Figure(name, value, "0.00"); }

    static const AnalysisState& Analyse(const PanelInputs& panel) {
        ProjectRecord = panel;
        EXPECT_TRUE(PrepareWorkingParameters());
        RunStabilityAnalysis();
        return WorkingParameters;
    }
    static double Reach() {
        return WorkingParameters.CalcDepth * std::tan(WorkingParameters.AbutmentAngleRad[2]);
    }
    static double Extraction(const PanelInputs& panel) {
        const double holes = panel.NumberHoles * panel.HoleWidth;
        return 100 * holes /
               ((panel.NumberHoles - 1) * panel.WebThickness + panel.BarrierPillarWidth + holes);
    }
    void Factors(const std::string& prefix, const PanelInputs& panel, const std::string& overall,
                 const std::string& webs, const std::string& barrier) {
        const AnalysisState& state = Analyse(panel);
        Hundredths(prefix + overall, state.StabilityFactor[1]);
        Hundredths(prefix + webs, state.StabilityFactor[2]);
        Hundredths(prefix + barrier, state.StabilityFactor[3]);
    }

    Figures figures_;
};

struct PillarStrengthNote : NoteTest {
    PillarStrengthNote() : NoteTest("PillarStrength") {}
};

TEST_F(PillarStrengthNote, HoldsTheProgramsFigures) {
    const double ratios[] = {0.5, 1, 1.5, 2, 3, 4};
    for (int i = 1; i <= 6; ++i) {
        const AnalysisState& state = Analyse(Panel(10, 100, 10, 10, ratios[i - 1] * 10, 5, 900, 162, 21));
        const std::string number = std::to_string(i);
        Figure("ps-factor-" + number, state.PillarStrength[1] / 129600, "0.000");
        Whole("ps-strength-" + number, state.PillarStrength[1] / 144);
    }
    const AnalysisState& state = Analyse(WidePanel());
    const double length = 1000000;
    Whole("ps-a-strength-web", state.PillarStrength[2]);
    Whole("ps-a-strength-barrier", state.PillarStrength[1]);
    Whole("ps-a-capacity-web", state.PillarCapacity[2] / length);
    Whole("ps-a-capacity-barrier", state.PillarCapacity[1] / length);
    Whole("ps-a-capacity-panel", state.CapacityTotal[1] / length);
    Whole("ps-a-load-web", state.TotalLoad[2] / length);
    Whole("ps-a-load-panel", state.TotalLoad[1] / length);
    Whole("ps-a-load-barrier", state.TotalLoad[3]);
    Factors("ps-a-sf-", WidePanel(), "overall", "webs", "barrier");
    Whole("ps-a-span", state.PanelSpan[2]);
    Hundredths("ps-a-extraction", Extraction(WidePanel()));
}

struct AbutmentLoadNote : NoteTest {
    AbutmentLoadNote() : NoteTest("AbutmentLoad") {}

    void Example(const std::string& prefix, const PanelInputs& panel) {
        const AnalysisState& state = Analyse(panel);
        Whole(prefix + "span", state.PanelSpan[2]);
        Hundredths(prefix + "reach", Reach());
        Whole(prefix + "side", state.SideAbutmentLoad[2]);
        Whole(prefix + "own", state.DevelopmentLoad[3]);
        Whole(prefix + "total", state.TotalLoad[3]);
        Whole(prefix + "capacity", state.CapacityTotal[3]);
        Hundredths(prefix + "sf", state.StabilityFactor[3]);
    }
};

TEST_F(AbutmentLoadNote, HoldsTheProgramsFigures) {
    Example("al-a-", WidePanel());
    Example("al-b-", CutOffPanel());
    for (int16_t holes : {2, 3, 4, 5, 10}) {
        const std::string prefix = "al-n" + std::to_string(holes) + "-";
        const AnalysisState& state = Analyse(Panel(10, 100, 10, 10, 20, holes, 900, 162, 21));
        Whole(prefix + "span", state.PanelSpan[2]);
        Whole(prefix + "side", state.SideAbutmentLoad[2]);
        Hundredths(prefix + "sf", state.StabilityFactor[3]);
    }
    for (int angle : {15, 21, 25, 30}) {
        const std::string prefix = "al-ang" + std::to_string(angle) + "-";
        const AnalysisState& state = Analyse(Panel(10, 100, 10, 10, 20, 5, 900, 162, angle));
        Hundredths(prefix + "reach", Reach());
        Whole(prefix + "side", state.SideAbutmentLoad[2]);
        Hundredths(prefix + "sf", state.StabilityFactor[3]);
    }
}

struct SizingEquationsNote : NoteTest {
    SizingEquationsNote() : NoteTest("SizingEquations") {}

    void Balance(const std::string& name, double value) {
        Figure(name, value, std::abs(value) >= 1000 ? "0.00E+00" : "0.000");
    }

    // The rows of a table of steps; returns their number less the start.
    int Steps(const std::string& prefix) {
        double width = 1200;
        for (int step = 0;; ++step) {
            const std::string number = std::to_string(step);
            const double balance = SizingFunction(width), slope = SizingSlope(width);
            Figure(prefix + "-b" + number, width, "0.000");
            Balance(prefix + "-f" + number, balance);
            Balance(prefix + "-s" + number, slope);
            if (std::abs(balance) <= 0.001) return step;
            width -= balance / slope;
        }
    }
};

double Root(double a, double b, double c) {
    return (-b + std::sqrt(b * b - 4 * a * c)) / (2 * a);
}

TEST_F(SizingEquationsNote, HoldsTheProgramsFigures) {
    ProjectRecord = WidePanel();
    const SuggestedSizes sizes = SuggestPillarSizes(TextsOfRecord(ProjectRecord));
    Whole("se-span", SizingBlock.SizePanelWidth);
    Figure("se-reach", double{SizingBlock.SizeDepth} * SizingBlock.SizeTanAbutment, "0.0");
    Whole("se-bar-steps", Steps("se-bar"));
    Figure("se-bar-root",
           Root(0.54 * 900 / 120, 0.64 * 900 - 2 * 112.5, -2 * 112.5 * 1200 * SizingBlock.SizeTanAbutment),
           "0.000");
    SizingBlock.SizeMode = SizeModeWeb;
    SizingBlock.SizeTargetSF = 1.6f;
    Whole("se-web-steps", Steps("se-web"));
    const double k = 900 / (double{1.6f} * 112.5), length = 1000000, hole = 120;
    Figure("se-web-root",
           Root(0.54 * k * length / 120, 0.64 * k * length - (length + hole), -hole * (length + hole)),
           "0.000");
    Hundredths("se-web-in", sizes.SuggestedWeb);
    Hundredths("se-bar-in", sizes.SuggestedBarrier);
    Hundredths("se-web-ft", StrictNumber(sizes.txtSugWeb));
    Hundredths("se-bar-ft", StrictNumber(sizes.txtSugBarrier));
    PanelInputs sized = WidePanel();
    sized.WebThickness = sizes.SuggestedWeb / 12.0;
    Hundredths("se-web-back", Analyse(sized).StabilityFactor[2]);
    sized = WidePanel();
    sized.BarrierPillarWidth = sizes.SuggestedBarrier / 12.0;
    Hundredths("se-bar-back", Analyse(sized).StabilityFactor[3]);
    UnitSystem = 1;
    const SuggestedSizes metric =
        SuggestPillarSizes(TextsOfRecord(Panel(3.05, 30.48, 3.05, 3.05, 6.1, 5, 6.21, 25.45, 21)));
    Hundredths("se-metric-web", StrictNumber(metric.txtSugWeb));
    Hundredths("se-metric-bar", StrictNumber(metric.txtSugBarrier));
    Hundredths("se-metric-web-m", metric.SuggestedWeb * 0.0254);
    Hundredths("se-metric-bar-m", metric.SuggestedBarrier * 0.0254);
}

struct UnitsConversionsNote : NoteTest {
    UnitsConversionsNote() : NoteTest("UnitsConversions") {}

    void Fields(const std::string& prefix) {
        Hundredths(prefix + "h", ProjectRecord.Height);
        Hundredths(prefix + "H", ProjectRecord.DepthCover);
        Hundredths(prefix + "e", ProjectRecord.HoleWidth);
        Hundredths(prefix + "web", ProjectRecord.WebThickness);
        Hundredths(prefix + "bar", ProjectRecord.BarrierPillarWidth);
        Hundredths(prefix + "S", ProjectRecord.CoalStrength);
        Hundredths(prefix + "g", ProjectRecord.UnitWeight);
    }
    void Converted(const std::string& name, Quantity quantity, int unit, double value, std::size_t box,
                   const char* picture) {
        Figure(name, ConvertUnits(quantity, unit, value)[box], picture);
    }
};

TEST_F(UnitsConversionsNote, HoldsTheProgramsFigures) {
    Factors("uc-en-sf-", DesignPanel(6, 22), "overall", "webs", "barrier");
    ConvertTargetUnits = 1;
    ASSERT_TRUE(ConvertProject());
    Fields("uc-met-");
    Factors("uc-me-sf-", PanelInputs(ProjectRecord), "overall", "webs", "barrier");
    ConvertTargetUnits = 0;
    ASSERT_TRUE(ConvertProject());
    Fields("uc-back-");

    Converted("uc-m-in", Quantity::Length, 3, 1, 0, "0.0000");
    Converted("uc-m-ft", Quantity::Length, 3, 1, 1, "0.0000");
    Whole("uc-ton-lbs", ConvertUnits(Quantity::Load, 1, 1)[0]);
    Converted("uc-ton-kn", Quantity::Load, 1, 1, 2, "0.0000");
    Whole("uc-ton-kips", ConvertUnits(Quantity::Load, 1, 1)[4]);
    Converted("uc-lbft-lbin", Quantity::LoadGrad, 1, 1, 0, "0.0000");
    Converted("uc-lbft-knm", Quantity::LoadGrad, 1, 1, 2, "0.000000");
    Whole("uc-psi-psf", ConvertUnits(Quantity::Stress, 0, 900)[2]);
    Converted("uc-psi-mpa", Quantity::Stress, 0, 900, 4, "0.0000");
    Converted("uc-psi-ksi", Quantity::Stress, 0, 900, 1, "0.0");
    Converted("uc-grad-psiin", Quantity::StressGrad, 1, 1, 0, "0.0000");
    Converted("uc-grad-pam", Quantity::StressGrad, 1, 1, 2, "0.0");
    Converted("uc-grad-mpam", Quantity::StressGrad, 1, 1, 3, "0.000000");
    Converted("uc-psf-box-psi", Quantity::Stress, 2, 144, 0, "0.000");
    Whole("uc-psf-box-ksi", ConvertUnits(Quantity::Stress, 2, 144)[1]);
}

struct WorkedDesignNote : NoteTest {
    WorkedDesignNote() : NoteTest("WorkedDesign") {}

    void Case(int number, const PanelInputs& panel) {
        Factors("wd-s" + std::to_string(number) + "-", panel, "overall", "webs", "barrier");
    }
    void Sizes(const std::string& prefix, double web) {
        const SuggestedSizes sizes = SuggestPillarSizes(TextsOfRecord(DesignPanel(web, 22)));
        Hundredths(prefix + "web", StrictNumber(sizes.txtSugWeb));
        Hundredths(prefix + "bar", StrictNumber(sizes.txtSugBarrier));
    }
};

TEST_F(WorkedDesignNote, HoldsTheProgramsFigures) {
    Factors("wd-t-", DesignPanel(4, 16), "overall", "webs", "barrier");
    Hundredths("wd-t-span", WorkingParameters.PanelSpan[2]);
    Hundredths("wd-t-ext", Extraction(DesignPanel(4, 16)));
    Sizes("wd-z1-", 4);
    Sizes("wd-z2-", 6);

    const PanelInputs design = DesignPanel(6, 22);
    Factors("wd-sf-", design, "overall", "webs", "barrier");
    const AnalysisState& state = WorkingParameters;
    Hundredths("wd-span", state.PanelSpan[2]);
    Hundredths("wd-web-ratio", design.WebThickness / design.Height);
    Hundredths("wd-bar-ratio", design.BarrierPillarWidth / design.Height);
    Whole("wd-web-strength", state.PillarStrength[2] / 144);
    Whole("wd-bar-strength", state.PillarStrength[1] / 144);
    Hundredths("wd-reach", Reach());
    Whole("wd-side", state.SideAbutmentLoad[2]);
    Whole("wd-bar-load", state.TotalLoad[3]);
    Hundredths("wd-ext", Extraction(design));
    const double module = state.PanelSpan[2] + design.BarrierPillarWidth;
    Whole("wd-module", module);
    Whole("wd-panels", std::floor(2000 / module));
    Whole("wd-holes", design.NumberHoles * std::floor(2000 / module));
    Whole("wd-rest", 2000 - module * std::floor(2000 / module));

    Case(0, design);
    Case(1, Panel(4.5, 264, 9.5, 6, 22, 10, 900, 162, 21));
    Case(2, Panel(5, 240, 9.5, 6, 22, 10, 900, 162, 21));
    Case(3, Panel(4.5, 240, 10, 5.5, 21.5, 10, 900, 162, 21));
    Case(4, Panel(4.5, 240, 9.5, 6, 22, 10, 800, 162, 21));
    Case(5, DesignPanel(5, 22));
}

}  // namespace
}  // namespace tarvokol
