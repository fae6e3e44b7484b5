// SPDX-License-Identifier: GPL-3.0-or-later
// The example projects that ship with the program. The factors were worked out apart from the program.
#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>

#include "core/engine/panel_texts.h"
#include "core/project/curves.h"
#include "core/project/input_check.h"
#include "core/project/pillar_sizing.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

struct Example {
    const char* name;
    int16_t units;
    int16_t holes;
    double overall, webs, barrier;  // stability factors to two decimals
};

void PrintTo(const Example& example, std::ostream* out) {
    *out << example.name;
}

const std::filesystem::path ExampleFolder = std::filesystem::path(TARVOKOL_SOURCE_FOLDER) / "examples";

class ExampleProject : public ProjectTest, public ::testing::WithParamInterface<Example> {
  protected:
    void Open() {
        ProjectFileName = (ExampleFolder / GetParam().name).string();
        ASSERT_TRUE(ReadProjectFile());
    }
};

INSTANTIATE_TEST_SUITE_P(Shipped, ExampleProject,
                         ::testing::Values(Example{"Contour_Bench_Shallow.TKL", 0, 14, 2.23, 1.75, 2.19},
                                           Example{"Deep_Cover_20_Holes.TKL", 0, 20, 2.34, 1.68, 2.03},
                                           Example{"Auger_Panel_Two_Holes.TKL", 0, 2, 3.37, 2.20, 2.49},
                                           Example{"Thick_Seam_Pit.TKL", 0, 8, 2.51, 1.71, 2.03},
                                           Example{"Ridge_Point_Narrow_Webs.TKL", 0, 12, 2.00, 1.39, 2.11},
                                           Example{"Metric_Trench_Panel.TKL", 1, 4, 2.84, 1.63, 2.08},
                                           Example{"Metric_Deep_Panel.TKL", 1, 9, 2.79, 1.67, 2.06},
                                           Example{"Metric_Shallow_5_Holes.TKL", 1, 5, 2.88, 1.57, 2.17}));

TEST_P(ExampleProject, PassesTheInputCheckWithPlausibleFactors) {
    Open();
    EXPECT_EQ(UnitSystem, GetParam().units);
    EXPECT_EQ(ProjectRecord.NumberHoles, GetParam().holes);
    EXPECT_GT(ProjectRecord.BarrierPillarWidth, ProjectRecord.WebThickness);
    ASSERT_TRUE(PrepareWorkingParameters());
    RunStabilityAnalysis();
    EXPECT_NEAR(WorkingParameters.StabilityFactor[1], GetParam().overall, 0.005);
    EXPECT_NEAR(WorkingParameters.StabilityFactor[2], GetParam().webs, 0.005);
    EXPECT_NEAR(WorkingParameters.StabilityFactor[3], GetParam().barrier, 0.005);
    EXPECT_GE(WorkingParameters.StabilityFactor[2], ProjectRecord.SFWeb);
    EXPECT_GE(WorkingParameters.StabilityFactor[3], ProjectRecord.SFBarrier);
    EXPECT_TRUE(Messages().empty());
}

TEST_P(ExampleProject, SavesToTheSameBytes) {
    Open();
    const std::string before = ReadBytes(ProjectFileName);
    ProjectFileName = PathTo("again.TKL");
    ASSERT_TRUE(FileSave());
    EXPECT_EQ(ReadBytes(ProjectFileName), before);
}

// A curve point or a suggested size that the solver did not find is -1, with a message.
TEST_P(ExampleProject, GivesSoundCurvesAndSizes) {
    Open();
    for (int index = 0; index < 3; ++index) {
        ASSERT_TRUE(ComputeStabilityCurves(index));
        for (int curve = 1; curve <= CurveCount; ++curve)
            for (long row = 1; row <= CurvePoints; ++row) EXPECT_GT(CurveData(curve, row), 0) << index;
    }
    for (int index = 0; index < 2; ++index) {
        ASSERT_TRUE(ComputeSizingCurve(index));
        for (long row = 1; row <= CurvePoints; ++row) EXPECT_GT(CurveData(1, row), 0) << index;
    }
    const SuggestedSizes sizes = SuggestPillarSizes(TextsOfRecord(ProjectRecord));
    EXPECT_GT(sizes.SuggestedWeb, 0);
    EXPECT_GT(sizes.SuggestedBarrier, 0);
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
}

TEST_P(ExampleProject, AsksADesignQuestion) {
    Open();
    EXPECT_THAT(ProjectDescription, ::testing::ContainsRegex("Question: .*[?]"));
}

TEST(Examples, AreAllTested) {
    const auto files = std::filesystem::directory_iterator(ExampleFolder);
    EXPECT_EQ(std::count_if(begin(files), end(files),
                            [](const auto& entry) { return entry.path().extension() == ".TKL"; }),
              8);
}

}  // namespace
}  // namespace tarvokol
