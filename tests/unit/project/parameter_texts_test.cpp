// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/parameter_texts.h"

#include <gmock/gmock.h>

#include "core/engine/engine.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/parameter_validation.h"
#include "core/project/pillar_sizing.h"
#include "core/project/preview_record.h"
#include "tests/support/random_panels.h"
#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ParameterTexts ShallowTexts() {
    return {"10", "100", "10", "10", "20", "5", "900.", "162.", "21", "1.6", "2"};
}

class DialogTexts : public CalculationTest {
  protected:
    DialogTexts() { SetMessageTitles(2); }

    void ExpectBox(std::size_t index, const std::string& message, int style) {
        ASSERT_LT(index, Host.Messages.Shown.size());
        EXPECT_EQ(Host.Messages.Shown[index].message, message);
        EXPECT_EQ(Host.Messages.Shown[index].style, style);
        EXPECT_EQ(Host.Messages.Shown[index].title, "Project Parameters: Range Error");
    }
};

TEST_F(DialogTexts, LoadInTheFormatsOfTheirBoxes) {
    EnterShallowPanel();
    ProjectRecord.Height = 6.25;
    ProjectRecord.DepthCover = 1e16;
    ProjectRecord.HoleWidth = 1.0 / 3.0;
    ProjectRecord.CoalStrength = 900.0;
    ProjectRecord.UnitWeight = 25.446483;
    ProjectRecord.AbutmentAngle = 0.00005;
    ProjectRecord.SFWeb = 1.3f;
    ProjectRecord.SFBarrier = 1.0f / 3.0f;
    const ParameterTexts texts = TextsOfRecord(ProjectRecord);
    EXPECT_EQ(texts.txtHeight, "6.25");
    EXPECT_EQ(texts.txtDepthCover, "1E+16");
    EXPECT_EQ(texts.txtHoleWidth, "0.333333333333333");
    EXPECT_EQ(texts.txtWebThickness, "10");
    EXPECT_EQ(texts.txtBarrierPillarWidth, "20");
    EXPECT_EQ(texts.txtNumberHoles, "5");
    EXPECT_EQ(texts.txtCoalStrength, "900.");
    EXPECT_EQ(texts.txtUnitWeight, "25.45");
    EXPECT_EQ(texts.txtAbutmentAngleActiveGob, "5E-05");
    EXPECT_EQ(texts.txtSFWeb, "1.3");
    EXPECT_EQ(texts.txtSFBarrier, "0.3333333");
}

TEST_F(DialogTexts, ANewProjectLoadsWithZeros) {
    ResetProjectRecord();
    const ParameterTexts texts = TextsOfRecord(ProjectRecord);
    EXPECT_EQ(texts.txtHeight, "0");
    EXPECT_EQ(texts.txtNumberHoles, "2");
    EXPECT_EQ(texts.txtCoalStrength, "900.");
    EXPECT_EQ(texts.txtSFBarrier, "2");
}

TEST_F(DialogTexts, StoreByTheNumericParseAndLeaveTheRest) {
    ProjectRecord.CrosscutSpacing = 77.0;
    ProjectRecord.CrosscutAngle = 60.0;
    ProjectRecord.SpareSingle = 5.0f;
    ProjectRecord.CenterDistance.Fill(3.0);
    const ParameterTexts texts{" 6 ft", "1 00",    "9.5x", "",     "2E1", "3.5",
                               "8D2",   "160 pcf", "-",    "1.55", ".5"};
    StoreParameterTexts(texts, ProjectRecord);
    EXPECT_EQ(ProjectRecord.Height, 6.0);
    EXPECT_EQ(ProjectRecord.DepthCover, 100.0);
    EXPECT_EQ(ProjectRecord.HoleWidth, 9.5);
    EXPECT_EQ(ProjectRecord.WebThickness, 0.0);
    EXPECT_EQ(ProjectRecord.BarrierPillarWidth, 20.0);
    EXPECT_EQ(ProjectRecord.NumberHoles, 4);  // halves go to the even number
    EXPECT_EQ(ProjectRecord.CoalStrength, 800.0);
    EXPECT_EQ(ProjectRecord.UnitWeight, 160.0);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 0.0);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.55f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 0.5f);
    EXPECT_EQ(ProjectRecord.CrosscutSpacing, 77.0);
    EXPECT_EQ(ProjectRecord.CrosscutAngle, 60.0);
    EXPECT_EQ(ProjectRecord.SpareSingle, 5.0f);
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 3.0);
}

TEST_F(DialogTexts, FillThePreviewAroundTheProjectsSpacing) {
    ProjectRecord.CrosscutSpacing = 1000000.1;
    ProjectRecord.CrosscutAngle = 60.5;
    PreviewRecord.SpareSingle = 5.0f;
    LoadPreviewFromTexts(ShallowTexts());
    EXPECT_EQ(PreviewRecord.Height, 10.0);
    EXPECT_EQ(PreviewRecord.DepthCover, 100.0);
    EXPECT_EQ(PreviewRecord.NumberHoles, 5);
    EXPECT_EQ(PreviewRecord.CenterDistance[1], 30.0);
    EXPECT_EQ(PreviewRecord.CenterDistance[5], 20.0);
    EXPECT_EQ(PreviewRecord.CenterDistance[6], 0.0);
    EXPECT_EQ(PreviewRecord.CrosscutSpacing, 1000000.1);
    EXPECT_EQ(PreviewRecord.CrosscutAngle, 60.5);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutSpacing[1], 1000000.125f);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutSpacing[5], 1000000.125f);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutSpacing[6], 0.0f);
    EXPECT_EQ(PreviewRecord.PreviewCrosscutAngle, 60.5f);
    EXPECT_EQ(PreviewRecord.CoalStrength, 900.0);
    EXPECT_EQ(PreviewRecord.UnitWeight, 162.0);
    EXPECT_EQ(PreviewRecord.AbutmentAngle, 21.0);
    EXPECT_EQ(PreviewRecord.SFWeb, 1.6f);
    EXPECT_EQ(PreviewRecord.SFBarrier, 2.0f);
    EXPECT_EQ(PreviewRecord.SpareSingle, 5.0f);
    EXPECT_EQ(ProjectRecord.Height, 0.0);
}

TEST_F(DialogTexts, MoreHolesThanTheArraysAreASubscriptError) {
    ParameterTexts texts = ShallowTexts();
    texts.txtNumberHoles = "21";
    EXPECT_EQ(RaisedError([&] { LoadPreviewFromTexts(texts); }), 9);
}

TEST_F(DialogTexts, CalculatedFieldsOfThreeHoles) {
    ParameterTexts texts;
    texts.txtHoleWidth = "10";
    texts.txtWebThickness = "5";
    texts.txtBarrierPillarWidth = "20";
    texts.txtNumberHoles = "3";
    EXPECT_EQ(PanelWidthText(texts), "40.");
    EXPECT_EQ(ExtractionRatioText(texts), "50.0");
}

TEST_F(DialogTexts, CalculatedFieldsOfEmptyBoxes) {
    ParameterTexts texts;
    texts.txtNumberHoles = "3";
    EXPECT_EQ(PanelWidthText(texts), "0.");
    EXPECT_EQ(ExtractionRatioText(texts), "");
}

TEST_F(DialogTexts, CalculatedFieldsRoundTheHolesToAWholeNumber) {
    ParameterTexts texts = ShallowTexts();
    texts.txtNumberHoles = "2.5";
    EXPECT_EQ(PanelWidthText(texts), "30.");        // 2 holes and a web
    EXPECT_EQ(ExtractionRatioText(texts), "40.0");  // 20 of 50
    texts.txtNumberHoles = "40000";
    EXPECT_EQ(RaisedError([&] { PanelWidthText(texts); }), 6);
}

TEST_F(DialogTexts, CalculatedFieldsWithUnevenFigures) {
    ParameterTexts texts;
    texts.txtHoleWidth = "9.5";
    texts.txtWebThickness = "7.3";
    texts.txtBarrierPillarWidth = "22.1";
    texts.txtNumberHoles = "20";
    EXPECT_EQ(PanelWidthText(texts), "329.");       // 328.7
    EXPECT_EQ(ExtractionRatioText(texts), "54.2");  // 190 of 350.8
}

class DialogTests : public DialogTexts {
  protected:
    void ExpectRefused(const ParameterTexts& texts, PanelField field, const std::string& message) {
        Host.Messages.Shown.clear();
        EXPECT_EQ(ValidateParameterTexts(texts), field);
        ASSERT_EQ(Host.Messages.Shown.size(), 1u);
        ExpectBox(0, message, box_style::Critical);
    }

    void ExpectSizingRefused(const ParameterTexts& texts, PanelField field, const std::string& message) {
        Host.Messages.Shown.clear();
        EXPECT_EQ(ValidateSizingTexts(texts), field);
        ASSERT_EQ(Host.Messages.Shown.size(), 1u);
        ExpectBox(0, message, box_style::Plain);
    }
};

TEST_F(DialogTests, PassSoundTextsSilently) {
    EXPECT_EQ(ValidateParameterTexts(ShallowTexts()), std::nullopt);
    EXPECT_EQ(ValidateSizingTexts(ShallowTexts()), std::nullopt);
    EXPECT_THAT(Messages(), IsEmpty());
}

struct DialogRow {
    std::string ParameterTexts::*text;
    const char* value;
    PanelField field;
    const char* message;
    int tab;
};

TEST_F(DialogTests, RefuseInTheOrderOfTheirTable) {
    using P = ParameterTexts;
    using F = PanelField;
    const DialogRow rows[] = {
        {&P::txtHeight, "0", F::Height, "Invalid extraction height", 0},
        {&P::txtDepthCover, "-1", F::DepthCover, "Invalid depth of cover", 0},
        {&P::txtHoleWidth, "wide", F::HoleWidth, "Invalid hole width", 0},
        {&P::txtWebThickness, "", F::WebThickness, "Invalid web thickness width", 0},
        {&P::txtBarrierPillarWidth, "0.0", F::BarrierPillarWidth, "Invalid barrier pillar width", 0},
        {&P::txtBarrierPillarWidth, "10", F::BarrierPillarWidth,
         "Barrier pillar width should be greater than web thickness width", 0},
        {&P::txtNumberHoles, "1.9", F::NumberHoles, "Invalid number of Holes", 0},
        {&P::txtCoalStrength, "0.", F::CoalStrength, "Invalid in situ coal strength", 1},
        {&P::txtUnitWeight, " ", F::UnitWeight, "Invalid overburden unit weight", 1},
        {&P::txtAbutmentAngleActiveGob, "90.01", F::AbutmentAngle, "Invalid abutment angle of gob", 1},
        {&P::txtAbutmentAngleActiveGob, "-0.01", F::AbutmentAngle, "Invalid abutment angle of gob", 1},
        {&P::txtSFWeb, "0", F::SFWeb, "Invalid Stability Factor for webs", 2},
        {&P::txtSFBarrier, "x", F::SFBarrier, "Invalid Stability Factor for barriers", 2},
    };
    // Each row alone, then with every later row broken as well.
    for (const DialogRow& row : rows) {
        ParameterTexts texts = ShallowTexts();
        texts.*row.text = row.value;
        ExpectRefused(texts, row.field, row.message);
        EXPECT_EQ(TabOfField(row.field), row.tab);
    }
    ParameterTexts texts = ShallowTexts();
    for (std::size_t i = std::size(rows); i-- > 0;) {
        texts.*rows[i].text = rows[i].value;
        ExpectRefused(texts, rows[i].field, rows[i].message);
    }
}

// Beside 1E18, doubles stand 128 apart: a web of 10 is lost, one of 200 is not.
TEST_F(DialogTests, RefuseAHoleBesideWhichTheWebIsLost) {
    ParameterTexts texts = ShallowTexts();
    texts.txtHoleWidth = "1E18";
    ExpectRefused(texts, PanelField::HoleWidth, "Invalid hole width");
    texts.txtWebThickness = "200";
    texts.txtBarrierPillarWidth = "400";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
}

TEST_F(DialogTests, AdmitThinWebsAndBarriers) {
    ParameterTexts texts = ShallowTexts();
    texts.txtWebThickness = "0.25";
    texts.txtBarrierPillarWidth = "0.5";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
}

// A hundred times the panel must be a single, the largest of which is 3.4028E38: the panel may have 3.40E36.
TEST_F(DialogTests, RefuseTheLargestWidthOfAPanelBeyondAHundredthOfASingle) {
    using F = PanelField;
    ParameterTexts texts = ShallowTexts();
    const auto set = [&texts](const char* holes, const char* hole, const char* web, const char* barrier) {
        texts.txtNumberHoles = holes;
        texts.txtHoleWidth = hole;
        texts.txtWebThickness = web;
        texts.txtBarrierPillarWidth = barrier;
    };
    set("2", "1E36", "2E35", "1.2E36");
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    set("2", "1E36", "2E35", "1.21E36");
    ExpectRefused(texts, F::HoleWidth, "Invalid hole width");
    set("2", "1E35", "1.5E36", "1.7E36");
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    set("2", "1E35", "1.5E36", "1.71E36");
    ExpectRefused(texts, F::BarrierPillarWidth, "Invalid barrier pillar width");
    set("4", "2.5E34", "8E35", "9E35");
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    set("4", "2.8E34", "8E35", "9E35");
    ExpectRefused(texts, F::WebThickness, "Invalid web thickness width");
}

// A thousand times the stress of the cover must be a single.
TEST_F(DialogTests, RefuseTheLargerFactorOfACoverBeyondAThousandthOfASingle) {
    using F = PanelField;
    ParameterTexts texts = ShallowTexts();
    texts.txtUnitWeight = "100";
    texts.txtDepthCover = "3.4E33";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    EXPECT_EQ(ValidateSizingTexts(texts), std::nullopt);
    texts.txtDepthCover = "3.41E33";
    ExpectRefused(texts, F::DepthCover, "Invalid depth of cover");
    ExpectSizingRefused(texts, F::DepthCover, "Invalid depth of cover");
    texts.txtDepthCover = "100";
    texts.txtUnitWeight = "3.4E33";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    texts.txtUnitWeight = "3.41E33";
    ExpectRefused(texts, F::UnitWeight, "Invalid overburden unit weight");
}

TEST_F(DialogTests, ShortTestRefusesAFigureBeyondAThousandthOfASingle) {
    using P = ParameterTexts;
    using F = PanelField;
    struct Row {
        std::string ParameterTexts::*text;
        const char* largest;
        const char* larger;
        F field;
        const char* message;
    };
    const Row rows[] = {
        {&P::txtHeight, "3.4E35", "3.41E35", F::Height, "Invalid extraction height"},
        {&P::txtCoalStrength, "3.4E35", "3.41E35", F::CoalStrength, "Invalid pillar strength"},
        {&P::txtSFBarrier, "3.4E35", "3.41E35", F::SFBarrier, "Invalid Stability Factor for barriers"},
        // Two holes and two webs.
        {&P::txtHoleWidth, "1.7E35", "1.71E35", F::HoleWidth, "Invalid hole width"},
        {&P::txtWebThickness, "1.7E35", "1.71E35", F::WebThickness, "Invalid web thickness width"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.message);
        ParameterTexts texts = ShallowTexts();
        texts.txtNumberHoles = "2";
        texts.*row.text = row.largest;
        EXPECT_EQ(ValidateSizingTexts(texts), std::nullopt);
        texts.*row.text = row.larger;
        ExpectSizingRefused(texts, row.field, row.message);
    }
    ParameterTexts texts = ShallowTexts();
    texts.txtUnitWeight = "3.41E35";
    ExpectSizingRefused(texts, F::UnitWeight, "Invalid overburden unit weight");
    texts = ShallowTexts();
    texts.txtAbutmentAngleActiveGob = "1E999";
    ExpectSizingRefused(texts, F::AbutmentAngle, "Invalid abutment angle of gob");
    texts.txtAbutmentAngleActiveGob = "1E300";
    EXPECT_EQ(ValidateSizingTexts(texts), std::nullopt);
}

TEST_F(DialogTests, AdmitTheAnglesZeroAndNinety) {
    ParameterTexts texts = ShallowTexts();
    texts.txtAbutmentAngleActiveGob = "0";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
    texts.txtAbutmentAngleActiveGob = "90";
    EXPECT_EQ(ValidateParameterTexts(texts), std::nullopt);
}

TEST_F(DialogTests, ShortTestRefusesInItsOwnOrder) {
    using F = PanelField;
    ParameterTexts texts = ShallowTexts();
    texts.txtCoalStrength = "0";
    ExpectSizingRefused(texts, F::CoalStrength, "Invalid pillar strength");
    texts.txtHoleWidth = "0";
    ExpectSizingRefused(texts, F::HoleWidth, "Invalid hole width");
    texts.txtHeight = "0";
    ExpectSizingRefused(texts, F::Height, "Invalid extraction height");
    texts.txtSFWeb = "0.99";
    Host.Messages.Shown.clear();
    EXPECT_EQ(ValidateSizingTexts(texts), F::SFWeb);
    ExpectBox(0, "Value '0.99' is outside input range\r\nValid range is: 1-10", box_style::Critical);
    texts.txtDepthCover = "0";
    ExpectSizingRefused(texts, F::DepthCover, "Invalid depth of cover");
}

TEST_F(DialogTests, ShortTestTakesTheWebFactorFromOneToTen) {
    ParameterTexts texts = ShallowTexts();
    for (const char* good : {"1", "10", "1.6x"}) {
        texts.txtSFWeb = good;
        EXPECT_EQ(ValidateSizingTexts(texts), std::nullopt) << good;
    }
    texts.txtSFWeb = "10.1";
    EXPECT_EQ(ValidateSizingTexts(texts), PanelField::SFWeb);
    texts.txtSFWeb = " ";
    EXPECT_EQ(ValidateSizingTexts(texts), PanelField::SFWeb);
    ExpectBox(1, "Blank field not allowed", box_style::Critical);
}

TEST_F(DialogTests, ShortTestLetsBlanksThroughThatTheSolverReadsAsZero) {
    ParameterTexts texts = ShallowTexts();
    texts.txtUnitWeight = texts.txtWebThickness = texts.txtSFBarrier = texts.txtBarrierPillarWidth = "";
    EXPECT_EQ(ValidateSizingTexts(texts), std::nullopt);
}

class HolesBox : public DialogTexts {};

TEST_F(HolesBox, ALoneOneBecomesTen) {
    for (const char* text : {"1", "1.", " 1 ", "1.0"}) {
        const HolesVerdict verdict = JudgeHolesText(text);
        EXPECT_TRUE(verdict.single_one) << text;
        EXPECT_FALSE(verdict.refused) << text;
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HolesBox, NumbersInRangeMoveTheScrollBar) {
    EXPECT_EQ(JudgeHolesText("15").scroll_value, 15);
    EXPECT_EQ(JudgeHolesText("20").scroll_value, 20);
    EXPECT_EQ(JudgeHolesText("2").scroll_value, 2);
    EXPECT_EQ(JudgeHolesText("1.5").scroll_value, 2);
    EXPECT_EQ(JudgeHolesText("2.5").scroll_value, 2);
    EXPECT_EQ(JudgeHolesText("7 holes").scroll_value, 7);
    EXPECT_FALSE(JudgeHolesText("15").single_one);
    EXPECT_FALSE(JudgeHolesText("15").refused);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HolesBox, NumbersOutsideAreRefusedInTheWordsOfTheRange) {
    EXPECT_TRUE(JudgeHolesText(" 21 ").refused);
    ExpectBox(0, "Value '21' is outside input range\r\nValid range is: 2-20", box_style::Critical);
    EXPECT_TRUE(JudgeHolesText("0.5").refused);
    ExpectBox(1, "Value '0.5' is outside input range\r\nValid range is: 2-20", box_style::Critical);
    EXPECT_TRUE(JudgeHolesText("").refused);
    ExpectBox(2, "Value '' is outside input range\r\nValid range is: 2-20", box_style::Critical);
    EXPECT_TRUE(JudgeHolesText("20.01").refused);
    EXPECT_EQ(JudgeHolesText("-3").scroll_value, 0);
}

TEST_F(HolesBox, LoadsWithTheNumberOfTheProject) {
    EXPECT_EQ(HolesTextAfterLoad(2), "2");
    EXPECT_EQ(HolesTextAfterLoad(20), "20");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HolesBox, LoadsOneHoleAsTen) {
    EXPECT_EQ(HolesTextAfterLoad(1), "10");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HolesBox, LoadsANumberOutsideAsAnEmptyBoxWithTwoMessages) {
    EXPECT_EQ(HolesTextAfterLoad(21), "");
    EXPECT_THAT(Messages(), ElementsAre("Value '21' is outside input range\r\nValid range is: 2-20",
                                        "Value '' is outside input range\r\nValid range is: 2-20"));
    Host.Messages.Shown.clear();
    EXPECT_EQ(HolesTextAfterLoad(-5), "");
    EXPECT_THAT(Messages(), ElementsAre("Value '-5' is outside input range\r\nValid range is: 2-20",
                                        "Value '' is outside input range\r\nValid range is: 2-20"));
}

class SizeButton : public DialogTexts {};

TEST_F(SizeButton, SizesWebAndBarrier) {
    const SuggestedSizes sizes = SuggestPillarSizes(ShallowTexts());
    EXPECT_EQ(sizes.SuggestedWeb, 38.9991340637207f);
    EXPECT_EQ(sizes.SuggestedBarrier, 122.40354919433594f);
    EXPECT_EQ(sizes.txtSugWeb, "3.25");
    EXPECT_EQ(sizes.txtSugBarrier, "10.20");
    EXPECT_THAT(Messages(), IsEmpty());
}

// What a study calculates is what the button shows for the same figures.
TEST_F(SizeButton, SizesAsTheCalculationDoesForThePanelOfItsTexts) {
    for (std::uint64_t number = 0; number < 2000; ++number) {
        PanelDice dice(number);
        Panel panel = SoundPanel(dice);
        UnitSystem = static_cast<int16_t>(panel.units);
        const ParameterTexts texts = TextsOfRecord(panel);
        StoreParameterTexts(texts, panel);
        const SuggestedSizes shown = SuggestPillarSizes(texts);
        const PillarSizes sizes = SizePillars(panel);
        ASSERT_EQ(shown.SuggestedWeb, sizes.web.width) << number;
        ASSERT_EQ(shown.SuggestedBarrier, sizes.barrier.width) << number;
    }
}

TEST_F(SizeButton, FillsTheBlockInInchesAndPsi) {
    SuggestPillarSizes(ShallowTexts());
    const SizingParameters& p = SizingBlock;
    EXPECT_EQ(p.SizeMode, 2.0f);
    EXPECT_EQ(p.SizeHeight, 120.0f);
    EXPECT_EQ(p.SizeHoleWidth, 120.0f);
    EXPECT_EQ(p.SizeStrength, 900.0f);
    EXPECT_EQ(p.SizeLength, 1000000.0f);
    EXPECT_EQ(p.SizeDepth, 1200.0f);
    EXPECT_EQ(p.SizePanelWidth, 1200.0f);  // five holes and five webs
    EXPECT_EQ(p.SizeTanAbutment, 0.38386404514312744f);
    EXPECT_EQ(p.SizeVertStress, 112.5f);
    EXPECT_EQ(p.SizeStressGradient, 0.09375f);
    EXPECT_EQ(p.SizeTargetSF, 2.0f);
}

TEST_F(SizeButton, ShowsTheWebBeforeTheBarrierIsTried) {
    std::string shown;
    float mode = 0;
    SuggestPillarSizes(ShallowTexts(), [&](const std::string& text) {
        shown = text;
        mode = SizingBlock.SizeMode;
    });
    EXPECT_EQ(shown, "3.25");
    EXPECT_EQ(mode, SizeModeWeb);
}

TEST_F(SizeButton, MetricResultsStayInInches) {
    UnitSystem = 1;
    const SuggestedSizes sizes =
        SuggestPillarSizes({"2.1", "120", "2.9", "2.5", "8", "12", "6.5", "25.", "21", "1.3", "1.8"});
    const SizingParameters& p = SizingBlock;
    EXPECT_EQ(p.SizeHeight, 82.67716217041016f);
    EXPECT_EQ(p.SizeHoleWidth, 114.17322540283203f);
    EXPECT_EQ(p.SizeStrength, 942.7450561523438f);
    EXPECT_EQ(p.SizeDepth, 4724.4091796875f);
    EXPECT_EQ(p.SizePanelWidth, 2551.18115234375f);
    EXPECT_EQ(p.SizeVertStress, 435.1420593261719f);
    EXPECT_EQ(p.SizeStressGradient, 0.09210506826639175f);
    EXPECT_EQ(sizes.SuggestedWeb, 99.41361236572266f);
    EXPECT_EQ(sizes.SuggestedBarrier, 473.5246887207031f);
    EXPECT_EQ(sizes.txtSugWeb, "99.41");
    EXPECT_EQ(sizes.txtSugBarrier, "473.52");
}

TEST_F(SizeButton, AFailureIsShownLikeAResultAndTheBarrierIsTriedAllTheSame) {
    ParameterTexts texts = ShallowTexts();
    texts.txtCoalStrength = "10";
    const SuggestedSizes sizes = SuggestPillarSizes(texts);
    EXPECT_EQ(sizes.SuggestedWeb, -1.0f);
    EXPECT_EQ(sizes.SuggestedBarrier, -1.0f);
    EXPECT_EQ(sizes.txtSugWeb, "-0.08");
    EXPECT_EQ(sizes.txtSugBarrier, "-0.08");
    EXPECT_EQ(Host.Messages.Shown.size(), 2u);
}

TEST_F(SizeButton, AMetricFailureReadsMinusOne) {
    UnitSystem = 1;
    ParameterTexts texts = ShallowTexts();
    texts.txtCoalStrength = "0.01";
    EXPECT_EQ(SuggestPillarSizes(texts).txtSugWeb, "-1.00");
}

TEST_F(SizeButton, WithoutAUnitWeightTheStartComesBack) {
    ParameterTexts texts = ShallowTexts();
    texts.txtUnitWeight = "";
    const SuggestedSizes sizes = SuggestPillarSizes(texts);
    EXPECT_EQ(sizes.txtSugWeb, "100.00");
    EXPECT_EQ(sizes.txtSugBarrier, "0.00");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizeButton, TheAngleMustBeANumber) {
    ParameterTexts texts = ShallowTexts();
    for (const char* text : {"", " ", "21x", "2 1"}) {
        texts.txtAbutmentAngleActiveGob = text;
        EXPECT_EQ(RaisedError([&] { SuggestPillarSizes(texts); }), 13) << text;
    }
    texts.txtAbutmentAngleActiveGob = " 21 ";
    EXPECT_EQ(SuggestPillarSizes(texts).txtSugWeb, "3.25");
}

TEST_F(SizeButton, FiguresBeyondASingleOverflow) {
    ParameterTexts texts = ShallowTexts();
    texts.txtDepthCover = "1E38";
    EXPECT_EQ(RaisedError([&] { SuggestPillarSizes(texts); }), 6);
}

}  // namespace
}  // namespace tarvokol
