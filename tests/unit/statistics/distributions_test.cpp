// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/distributions.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/sample_statistics.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

std::string RefusalOf(const char* text) {
    try {
        ParseDistribution(text, 100);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

double FromNormal(const Distribution& distribution, double z) {
    double figure = z;
    distribution.FillFromNormal({&figure, 1}, {&figure, 1});
    return figure;
}

double Ulp(double value) {
    return std::nextafter(std::fabs(value), HUGE_VAL) - std::fabs(value);
}

TEST(PortableLogarithm, IsWithinTwoUnitsInTheLastPlaceOfTheLibrarys) {
    for (int i = 1; i < 300000; ++i) {
        const double value = i * 0.00137 * (i % 7 + 1);
        ASSERT_NEAR(PortableLog(value), std::log(value), 2 * Ulp(std::log(value)) + 1e-17) << value;
    }
    EXPECT_EQ(PortableLog(1.0), 0.0);
    EXPECT_NEAR(PortableLog(5e-324), -744.4400719213812, 2e-13);
    EXPECT_NEAR(PortableLog(1.7976931348623157e308), 709.782712893384, 2e-13);
}

TEST(PortableExponential, IsWithinTwoUnitsInTheLastPlaceOfTheLibrarys) {
    for (int i = -100000; i < 100000; ++i) {
        const double power = i * 0.007;
        ASSERT_NEAR(PortableExp(power), std::exp(power), 2 * Ulp(std::exp(power))) << power;
    }
    EXPECT_EQ(PortableExp(0.0), 1.0);
    EXPECT_EQ(PortableExp(1000.0), HUGE_VAL);
    EXPECT_EQ(PortableExp(-1000.0), 0.0);
    EXPECT_NEAR(PortableExp(709.5) / 1.3549863193146328e308, 1, 4e-16);
    EXPECT_NEAR(PortableExp(-709.5), 7.38014831401258e-309, 1e-322);  // a figure of fewer bits
}

// Many at once take a shorter way, which ends before 2 ^ 1023: one of them that lies beyond it must not go that way.
TEST(PortableExponential, OfManyIsThatOfEach) {
    for (const double last : {689.0, -689.0, 690.0, 709.5, -709.5, -745.0, 1000.0, -1000.0}) {
        std::vector<double> powers{0.0, 1.0, -1.5, 300.0, last};
        FillWithExponentials(powers);
        EXPECT_EQ(powers, (std::vector<double>{PortableExp(0.0), PortableExp(1.0), PortableExp(-1.5),
                                               PortableExp(300.0), PortableExp(last)}))
            << last;
    }
}

// Quantiles of the standard normal distribution from tables of 15 digits.
TEST(NormalQuantile, GivesTheTablesFigures) {
    EXPECT_EQ(NormalQuantile(0.5), 0.0);
    EXPECT_NEAR(NormalQuantile(0.75), 0.674489750196082, 1e-14);
    EXPECT_NEAR(NormalQuantile(0.975), 1.95996398454005, 1e-13);
    EXPECT_NEAR(NormalQuantile(0.999), 3.09023230616781, 1e-13);
    EXPECT_NEAR(NormalQuantile(0.001), -3.09023230616781, 1e-13);
    EXPECT_NEAR(NormalQuantile(1e-12), -7.03448382530113, 1e-13);
    EXPECT_NEAR(NormalQuantile(1e-300), -37.0470962993612, 1e-12);
}

// The probability below a quantile by the library's error function.
TEST(NormalQuantile, TurnsTheDistributionRound) {
    for (int i = 1; i < 2000; ++i) {
        const double probability = i / 2000.0;
        ASSERT_NEAR(std::erfc(-NormalQuantile(probability) / std::sqrt(2.0)) / 2, probability, 1e-15);
    }
}

TEST(Distribution, ReadsFiguresAndSharesOfTheProjectsOwn) {
    const auto normal = ParseDistribution("normal:900:135", 1);
    EXPECT_EQ(normal->Mean(), 900);
    EXPECT_EQ(normal->StandardDeviation(), 135);
    const auto shares = ParseDistribution("normal:100%:15%", 900);
    EXPECT_EQ(shares->Mean(), 900);
    EXPECT_EQ(shares->StandardDeviation(), 135);
    EXPECT_EQ(shares->Text(), "normal:900:135");
    EXPECT_EQ(ParseDistribution("normal:80%:10%", 900)->Text(), "normal:720:72");
    EXPECT_EQ(ParseDistribution("lognormal:600:10%", 900)->Text(), "lognormal:600:60");
    EXPECT_EQ(ParseDistribution("truncnormal:100%:10%:80%:1200", 900)->Text(), "truncnormal:900:90:720:1200");
    EXPECT_EQ(ParseDistribution("triangular:50%:100%:200%", 10)->Text(), "triangular:5:10:20");
}

TEST(Distribution, QuantilesAreThoseOfTheClosedForms) {
    const auto uniform = ParseDistribution("uniform:10:20", 1);
    EXPECT_EQ(uniform->Quantile(0.25), 12.5);
    EXPECT_EQ(uniform->Mean(), 15);
    EXPECT_NEAR(uniform->StandardDeviation(), 2.88675134594813, 1e-14);
    // Below the mode the share is x^2 / (width x rise): 0.125 at half of the rise of 2 under a width of 4...
    // 1 / 8.
    const auto triangular = ParseDistribution("triangular:0:2:4", 1);
    EXPECT_DOUBLE_EQ(triangular->Quantile(0.125), 1.0);
    EXPECT_DOUBLE_EQ(triangular->Quantile(0.5), 2.0);
    EXPECT_DOUBLE_EQ(triangular->Quantile(0.875), 3.0);
    EXPECT_EQ(triangular->Mean(), 2);
    EXPECT_NEAR(triangular->StandardDeviation(), 0.816496580927726, 1e-14);
    // Median of a lognormal figure: mean / sqrt(1 + variation^2).
    const auto lognormal = ParseDistribution("lognormal:900:135", 1);
    EXPECT_NEAR(lognormal->Quantile(0.5), 900 / std::sqrt(1.0225), 1e-10);
    // Far beyond what can be squared it goes to mean^2 / deviation.
    EXPECT_NEAR(ParseDistribution("lognormal:10:1e160", 1)->Quantile(0.5) / 1e-158, 1, 1e-11);
    EXPECT_EQ(ParseDistribution("lognormal:1e-300:1", 1)->Quantile(0.5), 0);
    EXPECT_NEAR(ParseDistribution("lognormal:1e-150:1e10", 1)->Quantile(0.5) / 1e-310, 1, 1e-2);
}

// 200,000 draws: three standard errors of the mean, and as many of the deviation.
TEST(Distribution, DrawsHaveTheMomentsOfTheClosedForms) {
    constexpr std::uint32_t kDraws = 200000;
    for (const char* text :
         {"normal:100:15", "lognormal:100:15", "uniform:50:150", "triangular:50:80:170",
          "truncnormal:100:30:80:110", "pert:50:80:170", "beta:2:5:50:150", "weibull:100:1.5",
          "gumbel:100:20", "gamma:20:5", "list:90@0.2,100@0.5,130@0.3"}) {
        const auto distribution = ParseDistribution(text, 1);
        std::vector<double> draws(kDraws);
        for (std::uint32_t i = 0; i < kDraws; ++i)
            draws[i] = distribution->Quantile(UnitFromBits(RandomBits(1, 0, i)));
        const Moments moments = MomentsOf(draws);
        const double error = distribution->StandardDeviation() / std::sqrt(kDraws);
        EXPECT_NEAR(moments.mean, distribution->Mean(), 3 * error) << text;
        EXPECT_NEAR(moments.standard_deviation, distribution->StandardDeviation(), 3 * error) << text;
    }
}

TEST(Distribution, RefusesWhatIsNone) {
    EXPECT_EQ(RefusalOf("cauchy:1:2"),
              "\"cauchy:1:2\" is no distribution; write normal:MEAN:SD, lognormal:MEAN:SD, "
              "truncnormal:MEAN:SD:LO:HI, "
              "uniform:LO:HI, triangular:LO:MODE:HI, pert:LO:MODE:HI, beta:A:B:LO:HI, weibull:SCALE:SHAPE, "
              "gumbel:MODE:SCALE, gamma:SCALE:SHAPE, list:V1@P1,V2@P2,... or data:FILE.csv:COLUMN");
    EXPECT_EQ(RefusalOf("beta:1:2"), "\"beta:1:2\" is no distribution; write beta:A:B:LO:HI");
    EXPECT_THAT(RefusalOf("normal:1"), HasSubstr("is no distribution"));
    EXPECT_THAT(RefusalOf("normal:1:2:3"), HasSubstr("is no distribution"));
    EXPECT_THAT(RefusalOf(""), HasSubstr("is no distribution"));
    EXPECT_EQ(RefusalOf("normal:1:-2"), "the standard deviation must not be negative");
    EXPECT_EQ(RefusalOf("lognormal:0:1"), "the mean of a lognormal figure must be above 0");
    EXPECT_EQ(RefusalOf("uniform:2:1"), "LO must not be above HI");
    EXPECT_EQ(RefusalOf("triangular:1:3:2"), "LO, MODE and HI must stand in rising order");
    EXPECT_EQ(RefusalOf("normal:1,5:2"), "\"1,5\" is not a number with a decimal point");
    EXPECT_EQ(RefusalOf("normal:%:2"), "\"\" is not a number with a decimal point");
}

TEST(Distribution, BoundsThatFallTogetherAreOnes) {
    EXPECT_EQ(ParseDistribution("normal:5:0", 1)->Quantile(0.9), 5);
    EXPECT_NEAR(ParseDistribution("lognormal:5:0", 1)->Quantile(0.9), 5, 1e-14);
    EXPECT_EQ(ParseDistribution("uniform:5:5", 1)->Quantile(0.9), 5);
    EXPECT_EQ(ParseDistribution("triangular:5:5:5", 1)->Quantile(0.9), 5);
    EXPECT_DOUBLE_EQ(ParseDistribution("triangular:0:0:4", 1)->Quantile(0.75), 2);
    EXPECT_DOUBLE_EQ(ParseDistribution("triangular:0:4:4", 1)->Quantile(0.25), 2);
    EXPECT_EQ(RefusalOf("triangular:2:1:3"), "LO, MODE and HI must stand in rising order");
    EXPECT_EQ(RefusalOf("lognormal:-1:1"), "the mean of a lognormal figure must be above 0");
    EXPECT_EQ(RefusalOf("lognormal:1:-1"), "the standard deviation must not be negative");
}

TEST(Distribution, WritesItsFiguresAsTheyAre) {
    for (const char* text : {"normal:900:135", "lognormal:0.1:2", "uniform:-2:-1", "triangular:1:2.5:1e+22"})
        EXPECT_EQ(ParseDistribution(text, 1)->Text(), text);
    EXPECT_EQ(ParseDistribution("uniform:50%:0.25%", -800)->Text(), "uniform:-400:-2");
}

// z of 84.134474606854 % is 1; mean and deviation of the logarithm by hand: variance ln 1.25, mean ln 2 less half of it.
TEST(Distribution, ALognormalFigureIsThePowerOfANormalOne) {
    const auto lognormal = ParseDistribution("lognormal:2:1", 1);
    const double variance = std::log(1.25);
    EXPECT_NEAR(FromNormal(*lognormal, 0), 2 * std::exp(-variance / 2), 1e-14);
    EXPECT_NEAR(FromNormal(*lognormal, 1), 2 * std::exp(-variance / 2 + std::sqrt(variance)), 1e-14);
    EXPECT_NEAR(lognormal->Quantile(0.841344746068543), FromNormal(*lognormal, 1), 1e-12);
    EXPECT_EQ(lognormal->Mean(), 2);
    EXPECT_EQ(lognormal->StandardDeviation(), 1);
    EXPECT_EQ(FromNormal(*ParseDistribution("normal:2:3", 1), -1.5), -2.5);
}

// Relative to the tail itself, which the library's complementary error function knows to its last digits.
TEST(NormalQuantile, TurnsTheTailsRound) {
    for (double probability = 0.4; probability > 1e-300; probability *= 0.31) {
        const double z = NormalQuantile(probability);
        // The density times a change of the last place of z is what the tail may differ by.
        ASSERT_NEAR(std::erfc(-z / std::sqrt(2.0)) / 2 / probability, 1, 1e-15 * (4 + z * z)) << probability;
    }
    EXPECT_EQ(NormalQuantile(0.925), -NormalQuantile(1 - 0.925));
}

// A list has the figures of its members, in the middle and in both tails, also where one of them is out of range.
TEST(Distributions, ListsHoldTheFiguresOfTheirMembers) {
    const std::vector<double> shares{1e-300, 1e-9, 0.0749, 0.075, 0.5, 0.6, 0.925, 0.9251, 1 - 1e-15};
    std::vector<double> normals(shares.size());
    FillWithNormalQuantiles(shares, normals);
    for (std::size_t i = 0; i < shares.size(); ++i)
        EXPECT_EQ(normals[i], NormalQuantile(shares[i])) << shares[i];
    for (const char* text : {"normal:900:135", "lognormal:900:135", "lognormal:1:1e150", "pert:600:900:1300",
                             "gamma:20:45", "weibull:960:8"}) {
        SCOPED_TRACE(text);
        const DistributionPtr distribution = ParseDistribution(text, 1);
        std::vector<double> figures(normals.size());
        distribution->FillFromNormal(normals, figures);
        for (std::size_t i = 0; i < normals.size(); ++i)
            EXPECT_EQ(figures[i], FromNormal(*distribution, normals[i])) << i;
        std::vector<double> in_place = normals;
        distribution->FillFromNormal(in_place, in_place);
        EXPECT_EQ(in_place, figures);
    }
}

// The lower tail relative to itself, by the library's complementary error function.
TEST(NormalShare, IsTheLibrarys) {
    for (double z = -37; z < 9; z += 0.0137)
        ASSERT_NEAR(NormalShare(z) / (std::erfc(-z / std::sqrt(2.0)) / 2), 1, 1e-15 * (4 + z * z / 2)) << z;
    EXPECT_EQ(NormalShare(0), 0.5);
    EXPECT_EQ(NormalShare(40), 1);
    EXPECT_EQ(NormalShare(-40), 0);
    for (double z = -8; z <= 8; z += 0.37)
        EXPECT_NEAR(NormalDensity(z) / (std::exp(-z * z / 2) * 0.3989422804014327), 1, 1e-14) << z;
}

// A share is that below its quantile, and a density the growth of the share.
TEST(Distributions, SharesTurnQuantilesRound) {
    for (const char* text :
         {"normal:900:135", "lognormal:900:135", "lognormal:3:9", "uniform:-2:5", "triangular:1:2:5",
          "triangular:1:1:5", "triangular:1:5:5", "truncnormal:900:135:600:1000", "truncnormal:0:1:2:9",
          "truncnormal:0:1:-9:-2", "pert:600:900:1300", "beta:2:5:1:4", "beta:0.5:0.7:0:1", "weibull:960:8",
          "weibull:2:0.7", "gumbel:840:100", "gamma:20:45", "gamma:3:0.4"}) {
        SCOPED_TRACE(text);
        const DistributionPtr distribution = ParseDistribution(text, 1);
        for (const double share : {0.001, 0.1, 0.25, 0.4999, 0.75, 0.99}) {
            const double figure = distribution->Quantile(share);
            EXPECT_NEAR(distribution->ShareBelow(figure), share, 1e-13);
            // Far from 0, where some have an infinite density.
            const double step = 1e-5 * std::min(distribution->StandardDeviation(), std::fabs(figure) / 10);
            const double growth =
                (distribution->ShareBelow(figure + step) - distribution->ShareBelow(figure - step)) /
                (2 * step);
            EXPECT_NEAR(distribution->Density(figure) / growth, 1, 1e-5) << share;
        }
    }
}

TEST(Distributions, BeyondTheirBoundsThereIsNothing) {
    const auto expect_bounds = [](const char* text, double low, double high) {
        const DistributionPtr distribution = ParseDistribution(text, 1);
        EXPECT_EQ(distribution->ShareBelow(low), 0) << text;
        EXPECT_EQ(distribution->ShareBelow(high), 1) << text;
        EXPECT_EQ(distribution->Density(std::nextafter(low, -HUGE_VAL)), 0) << text;
        EXPECT_EQ(distribution->Density(std::nextafter(high, HUGE_VAL)), 0) << text;
    };
    expect_bounds("uniform:2:6", 2, 6);
    expect_bounds("triangular:2:3:6", 2, 6);
    EXPECT_EQ(ParseDistribution("lognormal:1:1", 1)->ShareBelow(0), 0);
    EXPECT_EQ(ParseDistribution("lognormal:1:1", 1)->Density(-1), 0);
}

TEST(Distributions, AFigureThatDoesNotVaryHasAllItsShareThere) {
    for (const char* text : {"normal:5:0", "lognormal:5:0", "uniform:5:5", "triangular:5:5:5"}) {
        const DistributionPtr distribution = ParseDistribution(text, 1);
        EXPECT_EQ(distribution->ShareBelow(5), 1) << text;
        EXPECT_EQ(distribution->ShareBelow(4.999), 0) << text;
        EXPECT_EQ(distribution->Density(5), HUGE_VAL) << text;
        EXPECT_EQ(distribution->Density(4.999), 0) << text;
    }
}

// Each whole number has the same part of the shares, those at the bounds too.
TEST(Distributions, AUniformCountHasEqualWeights) {
    const DistributionPtr holes = ParseDistribution("uniform:9.5:13.5", 1)->OverWholeNumbers();
    ASSERT_NE(holes, nullptr);
    EXPECT_EQ(holes->Quantile(0.001), 10);
    EXPECT_EQ(holes->Quantile(0.2499), 10);
    EXPECT_EQ(holes->Quantile(0.2501), 11);
    EXPECT_EQ(holes->Quantile(0.7499), 12);
    EXPECT_EQ(holes->Quantile(0.9999999999999999), 13);
    EXPECT_EQ(holes->Mean(), 11.5);
    EXPECT_NEAR(holes->StandardDeviation(), std::sqrt(1.25), 1e-14);  // of 10, 11, 12, 13
    EXPECT_EQ(holes->ShareBelow(11), 0.5);
    EXPECT_EQ(holes->ShareBelow(9.9), 0);
    EXPECT_EQ(holes->ShareBelow(20), 1);
    EXPECT_EQ(holes->Text(), "uniform:9.5:13.5");
    EXPECT_EQ(ParseDistribution("uniform:7:7", 1)->OverWholeNumbers()->Quantile(0.5), 7);
    EXPECT_EQ(ParseDistribution("normal:7:1", 1)->OverWholeNumbers(), nullptr);
    EXPECT_THROW(ParseDistribution("uniform:7.1:7.9", 1)->OverWholeNumbers(), StudyRefusal);
}

TEST(Distributions, EachIsToldInWords) {
    const auto words = [](const char* text, const char* unit) {
        return ParseDistribution(text, 900)->InWords(unit);
    };
    EXPECT_EQ(words("normal:100%:15%", "psi"), "normal, mean 900 psi, standard deviation 135 psi");
    EXPECT_EQ(words("lognormal:1.6:0.1", ""), "lognormal, mean 1.6, standard deviation 0.1");
    EXPECT_EQ(words("uniform:50:220.5", "ft"), "uniform from 50 to 220.5 ft");
    EXPECT_EQ(words("triangular:4:4.4:6", "ft"), "triangular from 4 to 6 ft, mode 4.4 ft");
    EXPECT_EQ(ParseDistribution("uniform:9.5:13.5", 1)->OverWholeNumbers()->InWords(""),
              "whole numbers from 10 to 13, equally likely");
}

// So little beside the mean that the logarithms do not show it.
TEST(Distributions, ADeviationThatIsNothingBesideItsMeanIsNone) {
    const DistributionPtr narrow = ParseDistribution("lognormal:1e36:4.5", 1);
    EXPECT_EQ(narrow->ShareBelow(0.999e36), 0.0);
    EXPECT_EQ(narrow->ShareBelow(1.001e36), 1.0);
    EXPECT_FALSE(std::isnan(narrow->Density(1e36)));
    EXPECT_TRUE(std::isnan(PortableExp(std::nan(""))));
}

// Figures of other kinds keep their share: z of 84.134474606854 % is 1.
TEST(Distributions, EveryKindFollowsANormalFigure) {
    EXPECT_NEAR(FromNormal(*ParseDistribution("uniform:10:20", 1), 1), 18.4134474606854, 1e-12);
    EXPECT_EQ(FromNormal(*ParseDistribution("triangular:0:2:4", 1), 0), 2);
    EXPECT_LE(FromNormal(*ParseDistribution("uniform:10:20", 1), 40), 20);
    EXPECT_GE(FromNormal(*ParseDistribution("uniform:10:20", 1), -40), 10);
}

}  // namespace
}  // namespace tarvokol
