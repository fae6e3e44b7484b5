// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/numbers.h"

#include <cmath>
#include <limits>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

struct PictureCase {
    double value;
    const char* texts[7];  // under the pictures below
};
constexpr const char* kPictures[] = {"##0.00", "##0.", "#.##", "#0", "0.00", "##0.0", "00"};

struct ScientificCase {
    double value;
    const char* text;
};
using GeneralCase = ScientificCase;
struct SingleCase {
    float value;
    const char* text;
};
struct ParseCase {
    const char* text;
    double value;
};

#include "number_cases.inc"

TEST(Pictures, AgreeWithExactDecimalArithmetic) {
    for (const PictureCase& row : kPictureCases)
        for (int i = 0; i < 7; ++i)
            EXPECT_EQ(PictureText(row.value, kPictures[i]), row.texts[i]) << row.value << " " << kPictures[i];
}

TEST(Pictures, AgreeWithExactDecimalArithmeticInScientificForm) {
    for (const ScientificCase& row : kScientificCases)
        EXPECT_EQ(PictureText(row.value, "#.00E+00"), row.text) << row.value;
}

TEST(GeneralForm, AgreesWithExactDecimalArithmetic) {
    for (const GeneralCase& row : kGeneralCases) EXPECT_EQ(GeneralText(row.value), row.text);
}

TEST(GeneralForm, AgreesWithExactDecimalArithmeticForSingles) {
    for (const SingleCase& row : kSingleCases) EXPECT_EQ(GeneralText(row.value), row.text);
}

TEST(NumericParsing, AgreesWithExactDecimalArithmetic) {
    for (const ParseCase& row : kParseCases) EXPECT_EQ(NumericParse(row.text), row.value) << row.text;
}

TEST(Pictures, WriteAtLeastOneWholeDigitAndTwoDecimals) {
    EXPECT_EQ(PictureText(1.6, "##0.00"), "1.60");
    EXPECT_EQ(PictureText(0.5, "##0.00"), "0.50");
    EXPECT_EQ(PictureText(1234.5, "##0.00"), "1234.50");
    EXPECT_EQ(PictureText(1234.567, "##0.00"), "1234.57");
    EXPECT_EQ(PictureText(0, "##0.00"), "0.00");
}

TEST(Pictures, RoundHalvesOfTheDecimalAwayFromZero) {
    EXPECT_EQ(PictureText(9.995, "##0.00"), "10.00");  // stored just below the half
    EXPECT_EQ(PictureText(1.005, "##0.00"), "1.01");   // likewise
    EXPECT_EQ(PictureText(0.125, "##0.00"), "0.13");
    EXPECT_EQ(PictureText(-0.125, "##0.00"), "-0.13");
    EXPECT_EQ(PictureText(2.5, "##0."), "3.");
    EXPECT_EQ(PictureText(-2.5, "#0"), "-3");
    EXPECT_EQ(PictureText(999999.5, "##0."), "1000000.");
    EXPECT_EQ(PictureText(0.5, "#0"), "1");
    EXPECT_EQ(PictureText(0.49999999999999994, "#0"), "1");  // 0.500000000000000 to 15 digits
    EXPECT_EQ(PictureText(0.499999999999999, "#0"), "0");
}

TEST(Pictures, RoundTheFifteenDigitDecimal) {
    EXPECT_EQ(PictureText(0.00499999999999999, "##0.00"), "0.00");
    EXPECT_EQ(PictureText(0.004999999999999999, "##0.00"), "0.01");  // 0.005 to 15 digits
    EXPECT_EQ(PictureText(0.0449999999999999, "##0.0"), "0.0");      // not by way of 0.045
}

TEST(Pictures, AlwaysWriteTheirPoint) {
    EXPECT_EQ(PictureText(900, "#.##"), "900.");
    EXPECT_EQ(PictureText(12, "##0."), "12.");
    EXPECT_EQ(PictureText(0, "#.##"), ".");
    EXPECT_EQ(PictureText(0.5, "#.##"), ".5");
    EXPECT_EQ(PictureText(6.2052831, "#.##"), "6.21");
    EXPECT_EQ(PictureText(25.4465, "#.##"), "25.45");
    EXPECT_EQ(PictureText(12, "#0"), "12");
}

TEST(Pictures, WriteNoMinusBeforeZero) {
    EXPECT_EQ(PictureText(-0.001, "##0.00"), "0.00");
    EXPECT_EQ(PictureText(-0.0, "0.00"), "0.00");
    EXPECT_EQ(PictureText(-0.4, "#0"), "0");
    EXPECT_EQ(PictureText(-0.001, "#.##"), ".");
    EXPECT_EQ(PictureText(-0.005, "##0.00"), "-0.01");
    EXPECT_EQ(PictureText(-0.0, "#.00E+00"), "0.00E+00");
}

TEST(Pictures, WriteTheScientificForm) {
    EXPECT_EQ(PictureText(125000, "#.00E+00"), "1.25E+05");
    EXPECT_EQ(PictureText(0, "#.00E+00"), "0.00E+00");
    EXPECT_EQ(PictureText(9.995, "#.00E+00"), "1.00E+01");
    EXPECT_EQ(PictureText(999499.999, "#.00E+00"), "9.99E+05");
    EXPECT_EQ(PictureText(0.0001234, "#.00E+00"), "1.23E-04");
    EXPECT_EQ(PictureText(-20000000, "#.00E+00"), "-2.00E+07");
    EXPECT_EQ(PictureText(1e100, "#.00E+00"), "1.00E+100");
    EXPECT_EQ(PictureText(std::numeric_limits<double>::denorm_min(), "#.00E+00"), "4.94E-324");
    EXPECT_EQ(PictureText(std::numeric_limits<double>::max(), "#.00E+00"), "1.80E+308");
}

TEST(Pictures, FillLargeNumbersWithZerosBehindTheFifteenthDigit) {
    EXPECT_EQ(PictureText(1e15, "##0.00"), "1000000000000000.00");
    EXPECT_EQ(PictureText(1234567890123456789.0, "##0.00"), "1234567890123460000.00");
    EXPECT_EQ(PictureText(std::numeric_limits<double>::denorm_min(), "##0.00"), "0.00");
}

TEST(Pictures, FillWholePlacesWithZeros) {
    EXPECT_EQ(PictureText(2, "00"), "02");
    EXPECT_EQ(PictureText(12, "00"), "12");
    EXPECT_EQ(PictureText(123, "00"), "123");
}

TEST(GeneralForm, LeavesOutWhatIsNotNeeded) {
    EXPECT_EQ(GeneralText(1000000.0), "1000000");
    EXPECT_EQ(GeneralText(0.5), "0.5");
    EXPECT_EQ(GeneralText(-0.25), "-0.25");
    EXPECT_EQ(GeneralText(10.0), "10");
    EXPECT_EQ(GeneralText(0.0), "0");
    EXPECT_EQ(GeneralText(-0.0), "0");
    EXPECT_EQ(GeneralText(900.0 / 145.0377), "6.20528317809783");
    EXPECT_EQ(GeneralText(162.0 / 6.3663022639200495), "25.446482633743");
}

TEST(GeneralForm, HoldsFifteenDigitsOfADouble) {
    EXPECT_EQ(GeneralText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(GeneralText(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
    EXPECT_EQ(GeneralText(123456789.123456789), "123456789.123457");
}

TEST(GeneralForm, HoldsSevenDigitsOfASingle) {
    EXPECT_EQ(GeneralText(1.6f), "1.6");
    EXPECT_EQ(GeneralText(1.0f / 3.0f), "0.3333333");
    EXPECT_EQ(GeneralText(1234567.9f), "1234568");
    EXPECT_EQ(GeneralText(9999999.0f), "9999999");
    EXPECT_EQ(GeneralText(1e7f), "1E+07");
    EXPECT_EQ(GeneralText(1.25e-5f), "1.25E-05");
}

TEST(GeneralForm, TurnsToTheExponentAtItsBounds) {
    EXPECT_EQ(GeneralText(0.0001), "0.0001");
    EXPECT_EQ(GeneralText(0.00012), "0.00012");
    EXPECT_EQ(GeneralText(0.00009), "9E-05");
    EXPECT_EQ(GeneralText(9.999999999999995E-05), "0.0001");  // rounds up to the bound
    EXPECT_EQ(GeneralText(9.99999999999999E-05), "9.99999999999999E-05");
    EXPECT_EQ(GeneralText(999999999999999.0), "999999999999999");
    EXPECT_EQ(GeneralText(1e15), "1E+15");
    EXPECT_EQ(GeneralText(999999999999999.9), "1E+15");
    EXPECT_EQ(GeneralText(1.5e300), "1.5E+300");
    EXPECT_EQ(GeneralText(-1.25e-5), "-1.25E-05");
}

TEST(GeneralForm, WritesWholeNumbers) {
    EXPECT_EQ(GeneralText(0), "0");
    EXPECT_EQ(GeneralText(-12), "-12");
    EXPECT_EQ(GeneralText(int16_t{16384}), "16384");
    EXPECT_EQ(SignedText(482), " 482");
    EXPECT_EQ(SignedText(0), " 0");
    EXPECT_EQ(SignedText(-3), "-3");
}

TEST(NumericParsing, TakesTheLongestLeadingNumber) {
    EXPECT_EQ(NumericParse("12.5 ft"), 12.5);
    EXPECT_EQ(NumericParse("12abc"), 12.0);
    EXPECT_EQ(NumericParse("1.2.3"), 1.2);
    EXPECT_EQ(NumericParse("1,5"), 1.0);
    EXPECT_EQ(NumericParse("5."), 5.0);
    EXPECT_EQ(NumericParse(".5"), 0.5);
    EXPECT_EQ(NumericParse("-.5"), -0.5);
    EXPECT_EQ(NumericParse("+7"), 7.0);
    EXPECT_EQ(NumericParse("1e5"), 100000.0);
    EXPECT_EQ(NumericParse("1D-2x"), 0.01);
    EXPECT_EQ(NumericParse("2d+3"), 2000.0);
    EXPECT_EQ(NumericParse("1e"), 1.0);
    EXPECT_EQ(NumericParse("1e+"), 1.0);
    EXPECT_EQ(NumericParse("1e+x"), 1.0);
    EXPECT_EQ(NumericParse("1ee5"), 1.0);
    EXPECT_EQ(NumericParse("00012"), 12.0);
}

TEST(NumericParsing, SkipsBlanksWhereverTheyStand) {
    EXPECT_EQ(NumericParse("  1 2 . 5  "), 12.5);
    EXPECT_EQ(NumericParse("- 3"), -3.0);
    EXPECT_EQ(NumericParse("1 e + 2"), 100.0);
    EXPECT_EQ(NumericParse("\t5"), 0.0);  // only the space is a blank
}

TEST(NumericParsing, GivesZeroWithoutANumber) {
    for (const char* text : {"", "   ", "abc", "-", "+", ".", "-.", "e5", ".e5", "--5", "+-5", "$5", "(5)",
                             "inf", "nan", "infinity", "x1", "\xC2\xB2"})
        EXPECT_EQ(NumericParse(text), 0.0) << text;
    EXPECT_FALSE(std::signbit(NumericParse("-0")));
}

TEST(NumericParsing, ReadsHexadecimalPrefixesAsZero) {
    EXPECT_EQ(NumericParse("0x10"), 0.0);
    EXPECT_EQ(NumericParse("&H10"), 0.0);
}

TEST(NumericParsing, OverflowsBeyondADouble) {
    EXPECT_EQ(NumericParse("1.7976931348623157E308"), std::numeric_limits<double>::max());
    for (const char* text : {"1E309", "-1E309", "1.8e308", "1e99999", "1e99999999999999999999", "0.001e312",
                             "10e9223372036854775807", "1e9223372036854775806"})
        EXPECT_EQ(RaisedError([text] { NumericParse(text); }), 6) << text;
    EXPECT_EQ(RaisedError([] { NumericParse(std::string(310, '9')); }), 6);
}

TEST(NumericParsing, FallsToZeroBelowADouble) {
    EXPECT_EQ(NumericParse("1E-400"), 0.0);
    EXPECT_EQ(NumericParse("-1E-99999999999999999999"), 0.0);
    EXPECT_EQ(NumericParse("0.1e-9223372036854775807"), 0.0);
    EXPECT_EQ(NumericParse("1234e-340"), 0.0);
    EXPECT_EQ(NumericParse("0e99999999999999999999"), 0.0);
    EXPECT_EQ(NumericParse("0.000e400"), 0.0);
    EXPECT_EQ(NumericParse("5E-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(NumericParse("2.5E-310"), 2.5e-310);
}

TEST(NumericParsing, WeighsManyDigitsAgainstTheExponent) {
    EXPECT_EQ(NumericParse("0." + std::string(400, '0') + "1e401"), 1.0);
    EXPECT_EQ(NumericParse("1" + std::string(400, '0') + "e-400"), 1.0);
    EXPECT_EQ(NumericParse("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(NumericParse(std::string(1000, '0') + "25"), 25.0);
}

TEST(StrictConversion, TakesAWholeNumberWithBlanksAround) {
    EXPECT_EQ(StrictNumber("21"), 21.0);
    EXPECT_EQ(StrictNumber("  -1.5e2  "), -150.0);
    EXPECT_EQ(StrictNumber(".5"), 0.5);
    EXPECT_EQ(StrictNumber("5."), 5.0);
    EXPECT_EQ(StrictNumber("1D3"), 1000.0);
}

TEST(StrictConversion, RefusesEverythingElse) {
    for (const char* text :
         {"", "   ", "abc", "12abc", "1 2", "1,5", "1.2.3", "-", ".", "1e", "e5", "0x10", "21 deg"})
        EXPECT_EQ(RaisedError([text] { StrictNumber(text); }), 13) << text;
}

TEST(StrictConversion, OverflowsBeyondADouble) {
    EXPECT_EQ(RaisedError([] { StrictNumber("1e309"); }), 6);
}

TEST(ThroughTextAndBack, KeepsFifteenDigits) {
    EXPECT_EQ(ThroughText(10.0), 10.0);
    EXPECT_EQ(ThroughText(1.0 / 3.0), 0.333333333333333);
    EXPECT_EQ(ThroughText(0.1 + 0.2), 0.3);
    EXPECT_EQ(ThroughText(1.25e-7), 1.25e-7);
    EXPECT_EQ(RaisedError([] { ThroughText(std::numeric_limits<double>::max()); }), 6);
}

}  // namespace
}  // namespace tarvokol
