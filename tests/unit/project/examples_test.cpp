// The example projects that ship with the program. The factors were worked out apart from the program.
#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>

#include "engine/input_check.h"
#include "engine/stability_analysis.h"
#include "engine/working_parameters.h"
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

INSTANTIATE_TEST_SUITE_P(Shipped, ExampleProject, ::testing::Values(FACTORS));

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

TEST(Examples, AreAllTested) {
    const auto files = std::filesystem::directory_iterator(ExampleFolder);
    EXPECT_EQ(std::count_if(begin(files), end(files),
                            [](const auto& entry) { return entry.path().extension() == ".TKL"; }),
              8);
}

}  // namespace
}  // namespace tarvokol
