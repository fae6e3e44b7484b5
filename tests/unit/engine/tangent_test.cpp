// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/tangent.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/engine/tangent_tables.h"
#include "tests/support/random_panels.h"

namespace tarvokol {
namespace {

constexpr double kQuarterTurn = 1.5707963267948966;

struct Reference {
    double radians = 0;
    double tangent = 0;  // the nearest double, by another program in arithmetic of 2400 bits
};

double FromBits(const std::string& digits) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(digits, nullptr, 16)));
}

std::vector<Reference> References() {
    std::ifstream file(std::string(TARVOKOL_SOURCE_FOLDER) + "/tests/reference/tangents.csv");
    std::string line;
    std::getline(file, line);
    std::vector<Reference> references;
    while (std::getline(file, line))
        references.push_back({FromBits(line.substr(0, 16)), FromBits(line.substr(17, 16))});
    return references;
}

TEST(TangentTest, IsTheNearestDouble) {
    const std::vector<Reference> references = References();
    ASSERT_GT(references.size(), 3000u);
    for (const Reference& reference : references) {
        ASSERT_EQ(Tangent(reference.radians), reference.tangent) << reference.radians;
        ASSERT_EQ(Tangent(-reference.radians), -reference.tangent) << reference.radians;
    }
}

TEST(TangentTest, InWholeNumbersIsTheNearestDouble) {
    for (const Reference& reference : References()) {
        if (reference.radians < 1e-8) continue;
        ASSERT_EQ(TangentInWholeNumbers(reference.radians), reference.tangent) << reference.radians;
    }
}

// The C library of a processor with fused multiply-add and that of one without differ here in the last bit.
TEST(TangentTest, OfAnAngleThatProcessorsDisagreeAbout) {
    EXPECT_EQ(Tangent(1.334708 * 0.017453292519943278), 0x1.7dbc3209d6361p-6);
}

TEST(TangentTest, KnownValues) {
    EXPECT_EQ(Tangent(0.0), 0.0);
    EXPECT_TRUE(std::signbit(Tangent(-0.0)));
    EXPECT_EQ(Tangent(5e-324), 5e-324);
    EXPECT_EQ(Tangent(1e-9), 1e-9);
    EXPECT_EQ(Tangent(kQuarterTurn), 16331239353195370.0);
    EXPECT_EQ(Tangent(0.7853981633974483), 0.9999999999999999);
    EXPECT_TRUE(std::isnan(Tangent(std::numeric_limits<double>::infinity())));
    EXPECT_TRUE(std::isnan(Tangent(std::nan(""))));
}

// The three steps agree: the quick ones are the whole-number arithmetic to the bit.
TEST(TangentTest, EveryStepFindsTheSameDouble) {
    PanelDice dice(14);
    for (int i = 0; i < 4000; ++i) {
        const double angle = dice.Between(1e-6, 2.35);
        ASSERT_EQ(Tangent(angle), TangentInWholeNumbers(angle)) << angle;
    }
}

TEST(TangentTest, LiesWithinOneUnitOfTheLibrarys) {
    PanelDice dice(15);
    for (int i = 0; i < 1000000; ++i) {
        const double angle = dice.Between(0, kQuarterTurn);
        const double found = Tangent(angle), library = std::tan(angle);
        ASSERT_TRUE(found == library || std::nextafter(found, library) == library) << angle;
    }
}

}  // namespace
}  // namespace tarvokol
