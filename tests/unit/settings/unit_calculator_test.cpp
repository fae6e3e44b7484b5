// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/unit_calculator.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using Texts = std::vector<std::string>;

// The values of 37.73 in the unit of an index, to the last bit.
void ExpectRow(Quantity quantity, int unit, const std::vector<double>& expected) {
    EXPECT_EQ(ConvertUnits(quantity, unit, 37.73), expected) << unit;
}

TEST(UnitCalculator, ComputesEveryCellOfLength) {
    ExpectRow(Quantity::Length, 0, {37.73, 3.1441666666666666, 95.8342, 0.9583419999999999});  // in
    ExpectRow(Quantity::Length, 1, {452.76, 37.73, 1150.0104, 11.500103999999999});            // ft
    ExpectRow(Quantity::Length, 2,
              {14.854330708661417, 1.2378608923884513, 37.73, 0.37729999999999997});  // cm
    ExpectRow(Quantity::Length, 3, {1485.4330708661416, 123.78608923884514, 3772.9999999999995, 37.73});  // m
}

TEST(UnitCalculator, ComputesEveryCellOfLoad) {
    ExpectRow(Quantity::Load, 0,
              {37.73, 0.018865, 0.1678313590648061, 0.00016783135906480609, 0.03773});               // lbsF
    ExpectRow(Quantity::Load, 1, {75460.0, 37.73, 335.66271812961224, 0.33566271812961224, 75.46});  // tonsF
    ExpectRow(Quantity::Load, 2, {8482.04357, 4.241021785, 37.73, 0.03773, 8.48204357});             // kN
    ExpectRow(Quantity::Load, 3, {8482043.57, 4241.021785, 37730.0, 37.73, 8482.043570000002});      // MN
    ExpectRow(Quantity::Load, 4, {37730.0, 18.865, 167.8313590648061, 0.1678313590648061, 37.73});   // kips
}

TEST(UnitCalculator, ComputesEveryCellOfLoadGrad) {
    ExpectRow(Quantity::LoadGrad, 0, {37.73, 452.76, 6.60753382144906, 0.00660753382144906});  // lbsF/in
    ExpectRow(Quantity::LoadGrad, 1,
              {3.144166666666666, 37.73, 0.5506278184540883, 0.0005506278184540883});            // lbsF/ft
    ExpectRow(Quantity::LoadGrad, 2, {215.44390667799996, 2585.3268801359995, 37.73, 0.03773});  // kN/m
    ExpectRow(Quantity::LoadGrad, 3, {215443.906678, 2585326.880136, 37730.0, 37.73});           // MN/m
}

TEST(UnitCalculator, ComputesEveryCellOfStress) {
    ExpectRow(Quantity::Stress, 0, {37.73, 0.03773, 5433.12, 260139.19266488997, 0.26013919266489});   // psi
    ExpectRow(Quantity::Stress, 1, {37730.0, 37.73, 5433120.0, 260139192.66488996, 260.13919266489});  // ksi
    ExpectRow(Quantity::Stress, 2,
              {0.0002620138888888889, 0.2620138888888889, 37.73, 1806.5221712839582,
               0.0018065221712839582});  // psf
    ExpectRow(Quantity::Stress, 3,
              {0.005472273844694419, 5.472273844694419e-06, 0.7880074336359965, 37.73, 3.773e-05});  // Pa
    ExpectRow(Quantity::Stress, 4,
              {5472.27384469442, 5.472273844694421, 788007.4336359965, 37730000.0, 37.73});  // MPa
}

TEST(UnitCalculator, ComputesEveryCellOfStressGrad) {
    ExpectRow(Quantity::StressGrad, 0, {37.73, 452.76, 10241700.498617716, 10.241700498617716});  // psi/in
    ExpectRow(Quantity::StressGrad, 1,
              {3.144166666666666, 37.73, 853475.0415514762, 0.8534750415514762});  // psi/ft
    ExpectRow(Quantity::StressGrad, 2,
              {0.00013899575565523825, 0.001667949067862859, 37.73, 3.773e-05});                      // Pa/m
    ExpectRow(Quantity::StressGrad, 3, {138.99575565523827, 1667.9490678628592, 37730000.0, 37.73});  // MPa/m
}

TEST(UnitCalculator, ShowsAMetreInEveryUnit) {
    EXPECT_EQ(UnitBoxTexts(Quantity::Length, 3, "1"),
              (Texts{"39.3700787401575", "3.28083989501312", "100", "1"}));
}

TEST(UnitCalculator, ExchangesTheFirstTwoBoxesForPsf) {
    EXPECT_EQ(UnitBoxTexts(Quantity::Stress, 2, "144"),
              (Texts{"0.001", "1", "144", "6894.757293", "0.006894757293"}));
}

TEST(UnitCalculator, ShowsZeroForZeroAndForNoNumber) {
    for (const Quantity quantity :
         {Quantity::Length, Quantity::Load, Quantity::LoadGrad, Quantity::Stress, Quantity::StressGrad}) {
        const Texts zeros(UnitCaptions(quantity).size(), "0");
        for (int unit = 0; unit < static_cast<int>(zeros.size()); ++unit)
            for (const char* typed : {"0", "", "abc", "-0", "  "})
                EXPECT_EQ(UnitBoxTexts(quantity, unit, typed), zeros) << typed;
    }
}

TEST(UnitCalculator, TakesTheLeadingNumber) {
    EXPECT_EQ(UnitBoxTexts(Quantity::Length, 1, " 2ft"), (Texts{"24", "2", "60.96", "0.6096"}));
    EXPECT_EQ(UnitBoxTexts(Quantity::Load, 1, "-1.5 tons"),
              (Texts{"-3000", "-1.5", "-13.3446614681797", "-0.0133446614681797", "-3"}));
}

TEST(UnitCalculator, CaptionsAreThoseOfTheDialog) {
    EXPECT_EQ(UnitCaptions(Quantity::Length), (Texts{"in", "ft", "cm", "m"}));
    EXPECT_EQ(UnitCaptions(Quantity::Load), (Texts{"lbsF", "tonsF (short)", "kN", "MN", "kips"}));
    EXPECT_EQ(UnitCaptions(Quantity::LoadGrad), (Texts{"lbsF/in", "lbsF/ft", "kN/m", "MN/m"}));
    EXPECT_EQ(UnitCaptions(Quantity::Stress), (Texts{"psi", "ksi", "psf", "Pa", "MPa"}));
    EXPECT_EQ(UnitCaptions(Quantity::StressGrad), (Texts{"psi/in", "psi/ft", "Pa/m", "MPa/m"}));
    EXPECT_EQ(UnitBoxCaptions(Quantity::Load), (Texts{"lbsF", "tonsF", "kN", "MN", "kips"}));
    EXPECT_EQ(UnitBoxCaptions(Quantity::StressGrad), (Texts{"psi/in", "psi/ft", "Pa/m", "MPa/m"}));
}

TEST(UnitCalculator, AnUnknownUnitIsOutOfRange) {
    EXPECT_EQ(RaisedError([] { ConvertUnits(Quantity::Length, 4, 1); }), 9);
    EXPECT_EQ(RaisedError([] { ConvertUnits(Quantity::Stress, -1, 1); }), 9);
}

TEST(UnitCalculator, AResultBeyondADoubleOverflows) {
    EXPECT_EQ(RaisedError([] { ConvertUnits(Quantity::Length, 3, 1E308); }), 6);
}

TEST(UnitCalculator, ABoxWithoutAValueIsEmpty) {
    EXPECT_EQ(UnitBoxTexts(Quantity::Length, 3, "1E308"), (Texts{"", "", "", "1E+308"}));
    EXPECT_EQ(UnitBoxTexts(Quantity::Length, 0, "1E308"), (Texts{"1E+308", "8.33333333333333E+306", "", ""}));
    for (const Quantity quantity :
         {Quantity::Length, Quantity::Load, Quantity::LoadGrad, Quantity::Stress, Quantity::StressGrad})
        for (const char* typed : {"1E309", "-1E400"})
            for (const std::string& text : UnitBoxTexts(quantity, 0, typed)) EXPECT_EQ(text, "") << typed;
}

}  // namespace
}  // namespace tarvokol
