// SPDX-License-Identifier: GPL-3.0-or-later
// Distributions whose quantiles are no elementary functions, and those of single values. Figures to compare with were calculated
// with 30 digits from the integrals.
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/statistics/distributions.h"
#include "core/statistics/gamma_functions.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

std::string RefusalOf(const std::string& text, double base = 100) {
    try {
        ParseDistribution(text, base);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

struct KnownQuantile {
    const char* distribution;
    double share;
    double figure;
};

void ExpectKnown(const KnownQuantile& known, double tolerance) {
    SCOPED_TRACE(std::string(known.distribution) + " at " + std::to_string(known.share));
    const DistributionPtr distribution = ParseDistribution(known.distribution, 1);
    EXPECT_NEAR(distribution->Quantile(known.share) / known.figure, 1, tolerance);
    EXPECT_NEAR(distribution->ShareBelow(known.figure) / known.share, 1, 1e-12);
}

TEST(GammaFunctions, AreTheTablesFigures) {
    EXPECT_NEAR(LogGamma(0.1), 2.25271265173420596, 1e-14);
    EXPECT_NEAR(LogGamma(0.5), 0.572364942924700087, 1e-14);
    EXPECT_NEAR(LogGamma(1.5), -0.120782237635245222, 1e-14);
    EXPECT_NEAR(LogGamma(20.25), 40.084110597917349, 1e-13);
    EXPECT_NEAR(LogGamma(10000), 82099.7174964423773, 1e-10);
    EXPECT_NEAR(Digamma(0.1), -10.4237549404110768, 1e-13);
    EXPECT_NEAR(Digamma(1), -0.577215664901532861, 1e-14);
    EXPECT_NEAR(Digamma(2.5), 0.703156640645243187, 1e-14);
    EXPECT_NEAR(Digamma(100), 4.6001618527380874, 1e-14);
    EXPECT_NEAR(Trigamma(0.1), 101.433299150792759, 1e-12);
    EXPECT_NEAR(Trigamma(1), 1.64493406684822644, 1e-14);
    EXPECT_NEAR(Trigamma(2.5), 0.490357756100234865, 1e-14);
    EXPECT_NEAR(Trigamma(100), 0.0100501666633335714, 1e-16);
}

TEST(PortableMath, KeepsTheDigitsOfWhatIsNearNothing) {
    EXPECT_NEAR(PortableLog1p(1e-10) / 9.9999999995e-11, 1, 4e-16);
    EXPECT_NEAR(PortableLog1p(-0.3), -0.35667494393873236, 2e-16);
    EXPECT_NEAR(PortableLog1p(20), std::log(21.0), 1e-15);
    EXPECT_NEAR(PortableExpm1(1e-10) / 1.00000000005e-10, 1, 4e-16);
    EXPECT_NEAR(PortableExpm1(-0.3), -0.25918177931828213, 1e-16);
    EXPECT_EQ(PortableExpm1(-800), -1);
    std::vector<double> logarithms{1, 0.3, 0.71, 7e300, 3e-300};
    const std::vector<double> values = logarithms;
    FillWithLogarithms(logarithms);
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(logarithms[i], PortableLog(values[i]));
    std::vector<double> tiny{5e-324, 2};
    FillWithLogarithms(tiny);
    EXPECT_EQ(tiny[0], PortableLog(5e-324));
}

TEST(Distributions, QuantilesOfGammaFiguresAreThoseOfTheIntegral) {
    for (const KnownQuantile& known : {
             KnownQuantile{"gamma:1:0.5", 1e-10, 7.8539816339744831e-21},
             {"gamma:1:0.5", 0.3, 0.074235930916272725},
             {"gamma:1:0.5", 0.9, 1.3527717270477073},
             {"gamma:1:2.5", 1e-10, 0.00016167785731248467},
             {"gamma:1:2.5", 0.5, 2.1757300955477637},
             {"gamma:1:2.5", 0.9, 4.6181784498905592},
             {"gamma:1:45", 0.001, 27.077621779836724},
             {"gamma:1:45", 0.9, 53.782504269696393},
             {"gamma:2:10000", 1e-10, 2 * 9376.9616820443875},
             {"gamma:2:10000", 0.5, 2 * 9999.6666686420474},
         })
        ExpectKnown(known, 3e-14);
    ExpectKnown({"gamma:1:0.1", 0.001, 6.0730483624078825e-31}, 1e-12);
    ExpectKnown({"gamma:1:0.1", 0.9, 0.26615455373883775}, 1e-12);
}

TEST(Distributions, QuantilesOfBetaFiguresAreThoseOfTheIntegral) {
    for (const KnownQuantile& known : {
             KnownQuantile{"beta:0.5:3:0:1", 1e-10, 2.8444444444444444e-21},
             {"beta:0.5:3:0:1", 0.5, 0.079032767076172996},
             {"beta:2:5:0:1", 0.001, 0.0082554927877466775},
             {"beta:2:5:0:1", 0.9, 0.51031630655149164},
             {"beta:3:3:0:1", 1e-10, 0.00021546668244899076},
             {"beta:3:3:0:1", 0.3, 0.38981835053095835},
             {"beta:400:1.5:0:1", 1e-10, 0.93998699985244328},
             {"beta:400:1.5:0:1", 0.5, 0.99704874204066676},
             {"beta:2:5:10:20", 0.3, 10 + 10 * 0.18180347131894917},
             // MODE at 3 sevenths of the way: shapes 1 + 12/7 and 1 + 16/7. At LO: 1 and 5.
             {"pert:600:900:1300", 0.01, 656.37705027906865},
             {"pert:600:900:1300", 0.5, 912.73320676429952},
             {"pert:600:900:1300", 0.99, 1206.0510990902022},
             {"pert:600:600:1300", 0.5, 690.6146056927131},
         })
        ExpectKnown(known, 3e-14);
}

TEST(Distributions, QuantilesOfExtremesAreThoseOfTheClosedForms) {
    for (const KnownQuantile& known : {
             KnownQuantile{"weibull:960:8", 1e-18, 5.3984767218273621},
             {"weibull:960:8", 0.001, 404.85395642174399},
             {"weibull:960:8", 0.99, 1161.9219165443499},
             {"gumbel:840:100", 1e-18, 467.55957968558795},
             {"gumbel:840:100", 0.5, 876.65129205816643},
             {"gumbel:840:100", 0.99, 1300.014922677658},
             {"truncnormal:900:135:600:1000", 0.01, 624.69044794082479},
             {"truncnormal:900:135:600:1000", 0.5, 862.94397865380611},
             {"truncnormal:900:135:600:1000", 0.99, 996.65822611222418},
             {"truncnormal:0:1:3:6", 0.01, 3.0030599071745161},
             {"truncnormal:0:1:3:6", 0.99, 4.1973980464912312},
         })
        ExpectKnown(known, 1e-14);
}

TEST(Distributions, MomentsAreThoseOfTheIntegrals) {
    const auto expect_moments = [](const char* text, double mean, double deviation) {
        SCOPED_TRACE(text);
        EXPECT_NEAR(ParseDistribution(text, 1)->Mean() / mean, 1, 1e-14);
        EXPECT_NEAR(ParseDistribution(text, 1)->StandardDeviation() / deviation, 1, 2e-12);
    };
    expect_moments("weibull:960:8", 904.07299185571343, 134.13630474777064);
    expect_moments("gumbel:840:100", 897.72156649015328, 128.25498301618641);
    expect_moments("gamma:20:45", 900, 134.16407864998738);
    expect_moments("pert:600:900:1300", 916.66666666666667, 131.68625532404603);
    expect_moments("pert:600:600:1300", 716.66666666666667, 98.601329718326934);
    expect_moments("beta:2:5:1:8", 3, 1.1180339887498949);  // 7 x root of (10 / (49 x 8))
    expect_moments("truncnormal:900:135:600:1000", 851.97556353178411, 93.318777360057429);
    expect_moments("truncnormal:0:1:3:6", 3.2830965534232958, 0.26561848237330463);
    // Nearly uniform, and far out in a tail, where the closed form has no digit left.
    expect_moments("truncnormal:0:1:0:1e-7", 5e-8, 2.8867513459481283e-8);
    expect_moments("truncnormal:0:1:30:40", 30.033259667433677, 0.033223056931746829);
}

TEST(Distributions, ListsOfOtherKindsHoldTheFiguresOfTheirMembers) {
    std::vector<double> shares{1e-300, 1e-17, 1e-9, 0.9999999999999999};
    for (int i = 1; i < 700; ++i) shares.push_back(i / 700.0);
    for (const char* text :
         {"truncnormal:900:135:600:1000", "truncnormal:0:1:3:6", "truncnormal:5:0:0:9", "pert:600:900:1300",
          "beta:0.1:10000:0:1", "weibull:960:8", "gumbel:840:100", "gamma:20:0.1", "list:1@0.5,2@0.5"}) {
        SCOPED_TRACE(text);
        const DistributionPtr distribution = ParseDistribution(text, 1);
        std::vector<double> figures(shares.size());
        distribution->FillQuantiles(shares, figures);
        for (std::size_t i = 0; i < shares.size(); ++i)
            EXPECT_EQ(figures[i], distribution->Quantile(shares[i])) << shares[i];
    }
}

// Also across the borders of the pieces that the curves are made of, and beyond the outermost.
TEST(Distributions, QuantilesNeverFall) {
    for (const char* text : {"gamma:20:45", "gamma:1:0.1", "gamma:1:10000", "beta:0.1:0.1:0:1",
                             "beta:2:5:600:1300", "beta:10000:0.1:0:1", "truncnormal:0:1:-1:5"}) {
        SCOPED_TRACE(text);
        const DistributionPtr distribution = ParseDistribution(text, 1);
        double last = -HUGE_VAL;
        for (int i = -1500; i <= 1500; ++i) {
            double figure = i / 100.0;
            distribution->FillFromNormal({&figure, 1}, {&figure, 1});
            // Their own last places may differ where the function is flat.
            EXPECT_GE(figure, last - 1e-13 * std::fabs(last)) << i;
            last = figure;
        }
    }
}

TEST(Distributions, ValuesOfAListAreDrawnByTheirProbabilities) {
    const DistributionPtr list = ParseDistribution("list:90%@20%,700@0.5,1000@0.2,700@0.1", 1000);
    EXPECT_EQ(list->Text(), "list:900@0.2,700@0.5,1000@0.2,700@0.1");
    EXPECT_EQ(list->Quantile(0.001), 700);
    EXPECT_EQ(list->Quantile(0.6), 700);
    EXPECT_EQ(list->Quantile(0.600001), 900);
    EXPECT_EQ(list->Quantile(0.8), 900);
    EXPECT_EQ(list->Quantile(0.81), 1000);
    EXPECT_EQ(list->Quantile(0.9999999999999999), 1000);
    EXPECT_DOUBLE_EQ(list->Mean(), 800);  // 420 + 180 + 200
    EXPECT_DOUBLE_EQ(list->StandardDeviation(),
                     std::sqrt(16000.0));  // 0.6 x 100^2 + 0.2 x 100^2 + 0.2 x 200^2
    EXPECT_EQ(list->ShareBelow(699), 0);
    EXPECT_DOUBLE_EQ(list->ShareBelow(700), 0.6);
    EXPECT_DOUBLE_EQ(list->ShareBelow(950), 0.8);
    EXPECT_EQ(list->ShareBelow(1000), 1);
    EXPECT_EQ(list->Density(700), HUGE_VAL);
    EXPECT_EQ(list->Density(800), 0);
    EXPECT_FALSE(list->IsContinuous());
    EXPECT_EQ(list->InWords("psi"), "700 psi (60 %), 900 psi (20 %), 1000 psi (20 %)");
}

TEST(Distributions, MeasuredValuesAreEquallyLikely) {
    std::string asked;
    const ColumnReader column = [&](const std::string& file, const std::string& name) {
        asked = file + '|' + name;
        return std::vector<double>{900, 700, 700, 1100};
    };
    const DistributionPtr data = ParseDistribution("data:lab: 2.csv:UCS: dry", 1, column);
    EXPECT_EQ(asked, "lab: 2.csv|UCS: dry");
    EXPECT_EQ(data->Text(), "data:lab: 2.csv:UCS: dry");
    EXPECT_EQ(data->Quantile(0.5), 700);
    EXPECT_EQ(data->Quantile(0.7), 900);
    EXPECT_EQ(data->Quantile(0.76), 1100);
    EXPECT_EQ(data->Mean(), 850);
    EXPECT_DOUBLE_EQ(data->StandardDeviation(), std::sqrt(27500.0));
    EXPECT_EQ(
        data->InWords("psi"),
        "4 measured values (UCS: dry of lab: 2.csv), mean 850 psi, standard deviation 165.83123951777 psi");
    EXPECT_EQ(RefusalOf("data:lab.csv:UCS"), "measured values cannot be read here");
    EXPECT_EQ(RefusalOf("data:lab.csv"), "\"data:lab.csv\" is no distribution; write data:FILE.csv:COLUMN");
    EXPECT_EQ(RefusalOf("data::UCS"), "\"data::UCS\" is no distribution; write data:FILE.csv:COLUMN");
}

TEST(Distributions, RefuseParametersThatMakeNone) {
    EXPECT_EQ(RefusalOf("truncnormal:9:1:5:5"), "LO must be below HI");
    EXPECT_EQ(RefusalOf("truncnormal:9:-1:5:6"), "the standard deviation must not be negative");
    EXPECT_EQ(RefusalOf("truncnormal:9:0:5:6"), "MEAN must lie between LO and HI where SD is 0");
    EXPECT_EQ(RefusalOf("truncnormal:0:1:50:60"),
              "nothing of the normal distribution lies between LO and HI: they are too far from MEAN or too "
              "near to "
              "each other");
    EXPECT_EQ(RefusalOf("pert:1:3:2"), "LO, MODE and HI must stand in rising order");
    EXPECT_EQ(RefusalOf("pert:-1e308:0:1e308"), "LO and HI lie too far apart");
    EXPECT_EQ(RefusalOf("beta:0:1:0:1"), "A must lie between 0.1 and 10000");
    EXPECT_EQ(RefusalOf("beta:1:1e5:0:1"), "B must lie between 0.1 and 10000");
    EXPECT_EQ(RefusalOf("beta:1:1:2:2"), "LO must be below HI");
    EXPECT_EQ(RefusalOf("beta:50%:1:0:1"), "A is a plain number, not a percentage");
    EXPECT_EQ(RefusalOf("weibull:0:8"), "SCALE must be above 0");
    EXPECT_EQ(RefusalOf("weibull:900:-8"), "SHAPE must lie between 0.1 and 10000");
    EXPECT_EQ(RefusalOf("weibull:100%:8%"), "SHAPE is a plain number, not a percentage");
    EXPECT_EQ(RefusalOf("gumbel:900:0"), "SCALE must be above 0");
    EXPECT_EQ(RefusalOf("gamma:-1:8"), "SCALE must be above 0");
    EXPECT_EQ(RefusalOf("gamma:1e306:9000"), "SCALE and SHAPE are too large");
    EXPECT_EQ(RefusalOf("uniform:0:1e308%", 900), "\"1e308%\" is too large");
    EXPECT_EQ(RefusalOf("list:"), "\"list:\" is no distribution; write list:V1@P1,V2@P2,...");
    EXPECT_EQ(RefusalOf("list:1@0.5,2"), "\"list:1@0.5,2\" is no distribution; write list:V1@P1,V2@P2,...");
    EXPECT_EQ(RefusalOf("list:1@0.5,2@0.4"), "the probabilities of a list must add up to 1, not to 0.9");
    EXPECT_EQ(RefusalOf("list:1@0,2@1"), "each probability of a list must be above 0 and at most 1");
    EXPECT_EQ(RefusalOf("list:1@-1,2@2"), "each probability of a list must be above 0 and at most 1");
    EXPECT_EQ(RefusalOf("list:a@1"), "\"a\" is not a number with a decimal point");
}

TEST(Distributions, OtherKindsAreToldInWords) {
    const auto words = [](const char* text) { return ParseDistribution(text, 900)->InWords("psi"); };
    EXPECT_EQ(words("truncnormal:100%:10%:700:1100"),
              "normal, mean 900 psi, standard deviation 90 psi, cut to 700 to 1100 psi");
    EXPECT_EQ(words("pert:700:900:1200"), "PERT from 700 to 1200 psi, mode 900 psi");
    EXPECT_EQ(words("beta:2:5:700:1200"), "beta from 700 to 1200 psi, shapes 2 and 5");
    EXPECT_EQ(words("weibull:100%:8"), "Weibull, scale 900 psi, shape 8");
    EXPECT_EQ(words("gumbel:840:100"), "Gumbel, mode 840 psi, scale 100 psi");
    EXPECT_EQ(words("gamma:20:45"), "gamma, scale 20 psi, shape 45");
}

// Nothing lies outside their bounds, and a density at a bound is what it is beside it.
TEST(Distributions, OtherKindsEndAtTheirBounds) {
    for (const char* text : {"truncnormal:4:1:2:6", "pert:2:3:6", "beta:0.5:0.5:2:6", "beta:1:1:2:6"}) {
        SCOPED_TRACE(text);
        const DistributionPtr distribution = ParseDistribution(text, 1);
        EXPECT_EQ(distribution->ShareBelow(2), 0);
        EXPECT_EQ(distribution->ShareBelow(6), 1);
        EXPECT_EQ(distribution->Density(1.999), 0);
        EXPECT_EQ(distribution->Density(6.001), 0);
        EXPECT_GE(distribution->Quantile(1e-300), 2);
        EXPECT_LE(distribution->Quantile(0.9999999999999999), 6);
    }
    EXPECT_NEAR(ParseDistribution("beta:1:1:2:6", 1)->Density(2), 0.25, 1e-12);
    EXPECT_GT(ParseDistribution("beta:0.5:0.5:2:6", 1)->Density(2), 1e6);
    EXPECT_EQ(ParseDistribution("weibull:9:2", 1)->ShareBelow(-1), 0);
    EXPECT_EQ(ParseDistribution("gamma:9:2", 1)->Density(-1), 0);
    EXPECT_NEAR(ParseDistribution("gamma:4:1", 1)->Density(0), 0.25, 1e-12);
    EXPECT_EQ(ParseDistribution("pert:5:5:5", 1)->Quantile(0.9), 5);
    EXPECT_EQ(ParseDistribution("pert:5:5:5", 1)->ShareBelow(5), 1);
    EXPECT_EQ(ParseDistribution("pert:5:5:5", 1)->Density(5), HUGE_VAL);
    EXPECT_EQ(ParseDistribution("pert:5:5:5", 1)->StandardDeviation(), 0);
}

}  // namespace
}  // namespace tarvokol
