// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/file_conversion.h"

#include <filesystem>

#include "core/platform/main_window_services.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

class Conversion : public ProjectTest {
  protected:
    Conversion() {
        FillRecord();
        ProjectRecord.CenterDistance.Fill(10);
        ProjectFileName = "/mines/north/panel.v2.TKL";
        ProjectEmpty = 0;
    }

    void To(int16_t units) {
        ConvertTargetUnits = units;
        EXPECT_TRUE(ConvertProject());
    }
};

TEST_F(Conversion, ToMetricDividesAndRoundsToTwoDecimals) {
    To(1);
    EXPECT_EQ(ProjectRecord.Height, 1.37);
    EXPECT_EQ(ProjectRecord.DepthCover, 76.2);
    EXPECT_EQ(ProjectRecord.HoleWidth, 3.51);
    EXPECT_EQ(ProjectRecord.WebThickness, 1.6);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 5.18);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 304800);
    EXPECT_EQ(ProjectRecord.CoalStrength, 6.21);
    EXPECT_EQ(ProjectRecord.UnitWeight, 25.45);
}

TEST_F(Conversion, ToEnglishMultiplies) {
    UnitSystem = 1;
    To(0);
    EXPECT_EQ(ProjectRecord.Height, 14.76);
    EXPECT_EQ(ProjectRecord.DepthCover, 820.21);
    EXPECT_EQ(ProjectRecord.HoleWidth, 37.73);
    EXPECT_EQ(ProjectRecord.WebThickness, 17.22);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 55.77);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 3280839.9);
    EXPECT_EQ(ProjectRecord.CoalStrength, 130533.93);
    EXPECT_EQ(ProjectRecord.UnitWeight, 1031.34);
}

TEST_F(Conversion, LeavesTheLastCenterDistanceAndTheRest) {
    To(1);
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 3.05);
    EXPECT_EQ(ProjectRecord.CenterDistance[11], 3.05);
    EXPECT_EQ(ProjectRecord.CenterDistance[12], 10);
    EXPECT_EQ(ProjectRecord.CrosscutAngle, 90);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 21);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.6f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.0f);
    EXPECT_EQ(ProjectRecord.SpareSingle, 0.25f);
    EXPECT_EQ(ProjectRecord.NumberHoles, 12);
}

TEST_F(Conversion, OfOneHoleConvertsNoCenterDistance) {
    ProjectRecord.NumberHoles = 1;
    To(1);
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 10);
}

TEST_F(Conversion, OfTooManyHolesRunsOutOfElements) {
    ConvertTargetUnits = 1;
    ProjectRecord.NumberHoles = 22;
    EXPECT_EQ(RaisedError([] { ConvertProject(); }), 9);
}

TEST_F(Conversion, OverflowsBeyondADouble) {
    ConvertTargetUnits = 0;
    ProjectRecord.Height = 1e308;
    EXPECT_EQ(RaisedError([] { ConvertProject(); }), 6);
}

TEST_F(Conversion, RenamesMarksAndShowsTheChange) {
    To(1);
    EXPECT_EQ(ProjectFileName, "Metric_panel.v2.TKL");
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(Host.MainWindow.Caption, "TARVO-KOL: Metric_panel.v2.TKL*");
    To(0);
    EXPECT_EQ(ProjectFileName, "English_Metric_panel.v2.TKL");
    EXPECT_EQ(UnitSystem, 0);
}

TEST_F(Conversion, ThereAndBackNeedNotRestore) {
    To(1);
    To(0);
    EXPECT_EQ(ProjectRecord.Height, 4.49);
    EXPECT_EQ(ProjectRecord.HoleWidth, 11.52);
}

TEST_F(Conversion, WritesNoFile) {
    To(1);
    EXPECT_TRUE(std::filesystem::is_empty(Folder));
}

TEST(ConversionChoices, BeginWithEnglishUnitsAndTheConvertedProject) {
    EXPECT_EQ(ConversionChoice().ConvertTargetUnits, 0);
    EXPECT_EQ(ConversionChoice().ConvertKeepChoice, 0);
}

}  // namespace
}  // namespace tarvokol
