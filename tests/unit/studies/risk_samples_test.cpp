// SPDX-License-Identifier: GPL-3.0-or-later
// Which numbers a risk study draws, and that its figures are those of the samples, calculated anew in plain words.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

#include <gmock/gmock.h>

#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/risk_study.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using List = std::vector<double>;

RiskRequest RequestOf(const std::vector<const char*>& fields, std::uint32_t samples) {
    RiskRequest request = WorkedRisk(fields, samples);
    request.threads = 2;
    request.keep_samples = true;
    return request;
}

double MeanOf(const List& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

// The share of the values below this one and half of those that equal it: a rank but for a constant.
double PlaceIn(const List& values, double value) {
    double place = 0;
    for (const double other : values) place += other < value ? 1.0 : other == value ? 0.5 : 0.0;
    return place;
}

double RankCorrelationOf(const List& x, const List& y) {
    List a, b;
    for (std::size_t i = 0; i < x.size(); ++i) {
        a.push_back(PlaceIn(x, x[i]));
        b.push_back(PlaceIn(y, y[i]));
    }
    const double mean_a = MeanOf(a), mean_b = MeanOf(b);
    double aa = 0, bb = 0, ab = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        aa += (a[i] - mean_a) * (a[i] - mean_a);
        bb += (b[i] - mean_b) * (b[i] - mean_b);
        ab += (a[i] - mean_a) * (b[i] - mean_b);
    }
    return ab / std::sqrt(aa * bb);
}

// The value of the shares that the sorted ones have, linear between neighbours.
double QuantileIn(List values, double share) {
    std::sort(values.begin(), values.end());
    const double position = share * static_cast<double>(values.size() - 1);
    const auto low = static_cast<std::size_t>(position);
    const std::size_t high = std::min(low + 1, values.size() - 1);
    return values[low] + (position - static_cast<double>(low)) * (values[high] - values[low]);
}

double ShareBelow(const List& values, double target) {
    const auto below = std::count_if(values.begin(), values.end(), [target](double x) { return x < target; });
    return static_cast<double>(below) / static_cast<double>(values.size());
}

// All that a study says, held against its samples.
void ExpectTold(const RiskRequest& request) {
    const RiskResult result = RunRisk(request);
    std::vector<std::size_t> sound;
    for (std::size_t i = 0; i < request.samples; ++i)
        if (!std::isnan(result.factors[0][i])) sound.push_back(i);
    EXPECT_EQ(result.refused, request.samples - sound.size());
    const auto values_of = [&sound](const auto& all) {
        List values;
        for (const std::size_t i : sound) values.push_back(all[i]);
        return values;
    };
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        SCOPED_TRACE(factor);
        const FactorRisk& risk = result.risk[factor];
        const List values = values_of(result.factors[factor]);
        const double mean = MeanOf(values);
        EXPECT_NEAR(risk.moments.mean, mean, 1e-12);
        double squares = 0;
        for (const double value : values) squares += (value - mean) * (value - mean);
        EXPECT_NEAR(risk.moments.standard_deviation,
                    std::sqrt(squares / static_cast<double>(values.size() - 1)), 1e-12);
        const List shares{0.01, 0.05, 0.1, 0.25, 0.5, 0.75, 0.9, 0.95, 0.99};
        for (std::size_t i = 0; i < shares.size(); ++i)
            EXPECT_NEAR(risk.quantiles[i], QuantileIn(values, shares[i]), 1e-12) << shares[i];
        ASSERT_EQ(risk.below.size(), factor == 0 ? 1u : 2u);
        EXPECT_EQ(risk.below.back().target, 1);
        EXPECT_EQ(risk.below.back().share.value, ShareBelow(values, 1));
        if (factor == 1) {
            EXPECT_EQ(risk.below[0].target, double{1.6f});
        }
        if (factor == 2) {
            EXPECT_EQ(risk.below[0].target, 2);
        }
        ASSERT_EQ(risk.rank_correlation.size(), request.fields.size());
        for (std::size_t field = 0; field < request.fields.size(); ++field)
            EXPECT_NEAR(risk.rank_correlation[field],
                        RankCorrelationOf(values_of(result.drawn[field]), values), 1e-9)
                << field;
    }
}

TEST(RiskSamples, FiguresAreThoseOfAHypercube) {
    ExpectTold(RequestOf({"DepthCover=uniform:200:900", "CoalStrength=lognormal:100%:30%"}, 700));
}

TEST(RiskSamples, FiguresAreThoseOfIndependentDraws) {
    RiskRequest request = RequestOf({"DepthCover=triangular:200:300:900", "WebThickness=uniform:5:15"}, 600);
    request.latin = false;
    ExpectTold(request);
}

TEST(RiskSamples, FiguresAreThoseOfTheSamplesThatAreNotRefused) {
    ExpectTold(
        RequestOf({"Height=uniform:-1:3", "DepthCover=uniform:-100:900", "UnitWeight=normal:162:9"}, 800));
}

TEST(RiskSamples, FiguresAreThoseOfWholeHolesAndCorrelatedFields) {
    ExpectTold(RequestOf({"NumberHoles=uniform:2:20", "Height=uniform:5:9"}, 500));
    RiskRequest request =
        RequestOf({"Height=normal:10:1", "WebThickness=normal:10:1", "HoleWidth=normal:10:1"}, 500);
    Correlate(request, "Height,HoleWidth=0.6");
    ExpectTold(request);
}

// By their documented rule: 5,003 samples are ten hypercubes, the one of number r from sample 5,003 r / 10 on. Field f, by its
// number among the fields (Height 0, DepthCover 1), draws its place within a stratum from stream 2 f, the order of the strata
// from stream 2 f + 1 behind the number of its first sample, and from stream 65536 + f for each hypercube the place d at which
// its strata start and the place w of the sample in the stratum that is cut.
TEST(RiskSamples, AHypercubeTakesOneSampleOfEachStratum) {
    RiskRequest request = RequestOf({"DepthCover=uniform:200:400", "Height=uniform:5:9"}, 5003);
    request.seed = 77;
    const RiskResult result = RunRisk(request);
    const double low[] = {200, 5};
    const double width[] = {200, 4};
    const std::uint32_t number[] = {1, 0};
    for (std::uint32_t field = 0; field < 2; ++field)
        for (std::uint32_t cube = 0; cube < 10; ++cube) {
            const std::uint32_t first = 5003 * cube / 10;
            const std::uint32_t size = 5003 * (cube + 1) / 10 - first;
            const auto order = RandomOrder(77, 2 * number[field] + 1, size, first);
            const double d = UnitFromBits(RandomBits(77, 65536 + number[field], 2 * cube));
            const double w = UnitFromBits(RandomBits(77, 65536 + number[field], 2 * cube + 1));
            for (std::uint32_t i = 0; i < size; ++i) {
                const double place = UnitFromBits(RandomBits(77, 2 * number[field], first + i));
                double share = (order[i] + place + (w < d ? d - 1 : d)) / size;
                if (w < d && order[i] == 0) share = w / size;
                if (w >= d && order[i] == size - 1) share = (size - 1 + w) / size;
                ASSERT_NEAR(result.drawn[field][first + i], low[field] + width[field] * share, 1e-12) << i;
            }
        }
}

TEST(RiskSamples, IndependentDrawsAreThePlacesThemselves) {
    RiskRequest request = RequestOf({"DepthCover=uniform:200:400", "Height=uniform:5:9"}, 5000);
    request.latin = false;
    const RiskResult result = RunRisk(request);
    for (std::uint32_t i = 0; i < 5000; ++i) {
        ASSERT_EQ(result.drawn[0][i], 200 + 200 * UnitFromBits(RandomBits(1, 2, i)));
        ASSERT_EQ(result.drawn[1][i], 5 + 4 * UnitFromBits(RandomBits(1, 0, i)));
    }
}

// The lower triangle of the correlations 0.5 (1 and 2), -0.4 (1 and 3) and 0.3 (2 and 3) by hand: second row 0.5 and
// sqrt(0.75), third row -0.4, (0.3 + 0.2) / sqrt(0.75) and the root of what is left of 1.
TEST(RiskSamples, CorrelatedDrawsAreMixedOfIndependentOnes) {
    const std::vector<const char*> fields{"Height=normal:10:1", "HoleWidth=normal:10:1",
                                          "WebThickness=normal:10:1"};
    RiskRequest request = RequestOf(fields, 300);
    request.latin = false;
    const RiskResult plain = RunRisk(request);
    Correlate(request, "Height,HoleWidth=0.5");
    Correlate(request, "webthickness,height=-0.4");
    Correlate(request, "HoleWidth,WebThickness=0.3");
    const RiskResult mixed = RunRisk(request);
    const double l22 = std::sqrt(0.75);
    const double l32 = 0.5 / l22;
    const double l33 = std::sqrt(1 - 0.16 - l32 * l32);
    for (std::size_t i = 0; i < 300; ++i) {
        const double a = plain.drawn[0][i] - 10, b = plain.drawn[1][i] - 10, c = plain.drawn[2][i] - 10;
        EXPECT_NEAR(mixed.drawn[0][i], 10 + a, 1e-12);
        EXPECT_NEAR(mixed.drawn[1][i], 10 + 0.5 * a + l22 * b, 1e-12);
        EXPECT_NEAR(mixed.drawn[2][i], 10 - 0.4 * a + l32 * b + l33 * c, 1e-12);
    }
}

// The webs' factor stays 4.7199928 and the barrier's 4.7134064: of targets from 4.2 to 5.2 that is 0.48 of those that lie
// above, and 0.49 about.
TEST(RiskSamples, ARandomTargetIsHeldAgainstItsOwnSample) {
    const RiskResult result =
        RunRisk(RequestOf({"SFWeb=uniform:4.2:5.2", "SFBarrier=uniform:4.2:5.2"}, 10000));
    // Ten hypercubes scatter by about two samples.
    EXPECT_NEAR(result.risk[1].below[0].share.value, 5.2 - 4.7199928, 7e-4);
    EXPECT_NEAR(result.risk[2].below[0].share.value, 5.2 - 4.7134064, 7e-4);
    EXPECT_EQ(result.risk[1].below[0].target, double{1.6f});
    EXPECT_TRUE(result.risk[1].below[0].own_target);
    EXPECT_TRUE(result.risk[2].below[0].own_target);
    EXPECT_FALSE(result.risk[1].below[1].own_target);
    EXPECT_EQ(result.risk[1].below[1].share.value, 0);
}

// At this depth and strength the webs have a factor that a project can hold as its target, to the last bit, and so has the
// barrier at the other: what meets its target is not below it.
TEST(RiskSamples, AFactorThatEqualsItsTargetIsNotBelowIt) {
    const auto below = [](std::size_t factor, float depth, const char* strength, float target) {
        RiskRequest request = RequestOf({strength}, 100);
        request.panel.DepthCover = depth;
        request.panel.SFWeb = request.panel.SFBarrier = target;
        const RiskResult result = RunRisk(request);
        EXPECT_NEAR(result.factors[factor][0], double{target}, 1e-6);
        return result.risk[factor].below[0].share.value;
    };
    constexpr float kWebs = 1.4066674709320068F, kBarrier = 1.0287727117538452F;
    EXPECT_EQ(below(1, 256, "CoalStrength=list:686.6455078125@1", kWebs), 0);
    EXPECT_EQ(below(1, 256, "CoalStrength=list:686.6455078125@1", std::nextafterf(kWebs, 2)), 1);
    EXPECT_EQ(below(2, 319, "CoalStrength=list:1003.1033935546875@1", kBarrier), 0);
    EXPECT_EQ(below(2, 319, "CoalStrength=list:1003.1033935546875@1", std::nextafterf(kBarrier, 2)), 1);
}

// Also where samples are refused: what is left keeps its own target.
TEST(RiskSamples, ARandomTargetOfARefusedSampleDoesNotCount) {
    const RiskRequest request = RequestOf({"SFWeb=uniform:1:9", "Height=uniform:-10:10"}, 1000);
    const RiskResult result = RunRisk(request);
    double below = 0;
    for (std::size_t i = 0; i < 1000; ++i)
        if (result.factors[1][i] < static_cast<float>(result.drawn[0][i])) ++below;
    EXPECT_NEAR(static_cast<double>(result.refused), 500, 6);
    EXPECT_EQ(result.risk[1].below[0].share.value, below / static_cast<double>(1000 - result.refused));
    EXPECT_EQ(result.risk[1].below[0].with_refused.value,
              (below + static_cast<double>(result.refused)) / 1000);
}

TEST(RiskSamples, AnyNumberOfThreadsGivesTheSameBits) {
    RiskRequest request = RequestOf({"Height=uniform:-1:9", "DepthCover=normal:100%:20%"}, 20001);
    request.threads = 1;
    const RiskResult one = RunRisk(request);
    request.threads = 5;
    const RiskResult five = RunRisk(request);
    EXPECT_EQ(one.risk[1].moments.mean, five.risk[1].moments.mean);
    EXPECT_EQ(one.risk[1].rank_correlation, five.risk[1].rank_correlation);
    EXPECT_EQ(one.refused, five.refused);
    for (std::size_t i = 0; i < 20001; ++i) ASSERT_EQ(one.drawn[1][i], five.drawn[1][i]);
}

// Random numbers belong to fields: in which order they are given changes nothing.
TEST(RiskSamples, TheOrderOfTheFieldsChangesNoFigure) {
    const auto run = [](std::vector<const char*> fields) {
        RiskRequest request = RequestOf(fields, 3000);
        Correlate(request, "Height,HoleWidth=0.5");
        Correlate(request, "CoalStrength,HoleWidth=-0.3");
        return RunRisk(request);
    };
    const RiskResult one = run({"Height=normal:10:1", "HoleWidth=normal:10:1", "CoalStrength=normal:900:90"});
    const RiskResult other =
        run({"CoalStrength=normal:900:90", "Height=normal:10:1", "HoleWidth=normal:10:1"});
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        EXPECT_THAT(one.factors[factor], ::testing::ElementsAreArray(other.factors[factor]));
        EXPECT_EQ(one.risk[factor].moments.mean, other.risk[factor].moments.mean);
        EXPECT_EQ(one.risk[factor].rank_correlation[0], other.risk[factor].rank_correlation[1]);
        EXPECT_EQ(one.risk[factor].rank_correlation[2], other.risk[factor].rank_correlation[0]);
    }
    EXPECT_THAT(one.drawn[2], ::testing::ElementsAreArray(other.drawn[0]));
}

TEST(RiskSamples, ADrawnFigureThatItsFieldCannotHoldRefusesTheSample) {
    for (const unsigned threads : {1u, 2u}) {
        RiskRequest request = RequestOf({"NumberHoles=uniform:1:100000", "Height=uniform:5:9"}, 10000);
        request.threads = threads;
        const RiskResult result = RunRisk(request);
        // 20 of the 100,000 numbers of holes can be calculated, 32,767 stored.
        EXPECT_GE(result.refused, 9990u);
        EXPECT_THAT(result.refusals, ::testing::UnorderedElementsAre(
                                         "Subscript out of range",
                                         "NumberHoles: a drawn figure cannot be stored in this field"));
    }
    const RiskResult factors = RunRisk(RequestOf({"SFWeb=lognormal:1e38:1e39"}, 2000));
    EXPECT_GT(factors.refused, 0u);
    EXPECT_LT(factors.refused, 2000u);
    EXPECT_THAT(factors.refusals, ElementsAre("SFWeb: a drawn figure cannot be stored in this field"));
}

// 2,000 samples of 5 numbers: 400 of each, but for where ten hypercubes cut the strata.
TEST(RiskSamples, HolesAreDrawnWithEqualWeights) {
    const RiskResult result = RunRisk(RequestOf({"NumberHoles=uniform:2:6"}, 2000));
    for (const double holes : {2, 3, 4, 5, 6})
        EXPECT_NEAR(static_cast<double>(std::count(result.drawn[0].begin(), result.drawn[0].end(), holes)),
                    400, 8)
            << holes;
    RiskRequest request;
    EXPECT_THROW(request.AddField(PanelField::NumberHoles, "uniform:2.1:2.9"), StudyRefusal);
}

// The scores of two fields by their own samples: normal quantiles of their ranks.
double ScoreCorrelation(const RiskResult& result, std::size_t a, std::size_t b) {
    const auto scores_of = [&](std::size_t field) {
        const BigArray<double>& values = result.drawn[field];
        std::vector<std::uint32_t> order(values.size());
        std::iota(order.begin(), order.end(), 0U);
        std::sort(order.begin(), order.end(), [&](auto x, auto y) { return values[x] < values[y]; });
        List scores(values.size());
        for (std::size_t rank = 0; rank < order.size(); ++rank)
            scores[order[rank]] =
                NormalQuantile((static_cast<double>(rank) + 0.5) / static_cast<double>(order.size()));
        return scores;
    };
    const List x = scores_of(a), y = scores_of(b);
    return std::inner_product(x.begin(), x.end(), y.begin(), 0.0) /
           std::inner_product(x.begin(), x.end(), x.begin(), 0.0);
}

// A Gaussian copula of any continuous distributions, and each field keeps its strata: of 2,000 ordered samples the i-th has the
// share i / 2000 but for the scatter of ten hypercubes of 200.
TEST(RiskSamples, AnyContinuousFieldsAreCorrelatedAndKeepTheirStrata) {
    RiskRequest request = RequestOf({"CoalStrength=lognormal:900:135", "Height=triangular:5:6:9",
                                     "UnitWeight=uniform:150:170", "HoleWidth=normal:10:1"},
                                    2000);
    Correlate(request, "CoalStrength,Height=0.7");
    Correlate(request, "UnitWeight,Height=-0.5");
    for (const bool latin : {true, false}) {
        request.latin = latin;
        const RiskResult result = RunRisk(request);
        const double scatter = latin ? 0.01 : 0.06;
        EXPECT_NEAR(ScoreCorrelation(result, 0, 1), 0.7, scatter);
        EXPECT_NEAR(ScoreCorrelation(result, 1, 2), -0.5, scatter);
        EXPECT_NEAR(ScoreCorrelation(result, 0, 2), 0, scatter);
        EXPECT_NEAR(ScoreCorrelation(result, 3, 0), 0, 0.07);
        if (!latin) continue;
        List weights(result.drawn[2].begin(), result.drawn[2].end());
        std::sort(weights.begin(), weights.end());
        for (std::size_t i = 0; i < weights.size(); ++i)
            ASSERT_NEAR((weights[i] - 150) / 20, static_cast<double>(i) / 2000, 11.0 / 2000) << i;
    }
}

// Above 4 million samples the fields are drawn again to be ranked; below they are kept. Both give the same correlations.
TEST(RiskSamples, FieldsThatAreDrawnAgainAreTheSame) {
    RiskRequest request = WorkedRisk({"Height=uniform:5:9", "NumberHoles=uniform:2:20"}, (1 << 22) + 1);
    request.threads = 2;
    const RiskResult many = RunRisk(request);
    request.samples = 1 << 20;
    const RiskResult fewer = RunRisk(request);
    for (std::size_t factor = 0; factor < kFactors; ++factor)
        for (std::size_t field = 0; field < 2; ++field)
            EXPECT_NEAR(many.risk[factor].rank_correlation[field], fewer.risk[factor].rank_correlation[field],
                        3e-3);
}

TEST(RiskSamples, TellOfTheirProgressAndEndWhenTheyAreAsked) {
    class Watcher : public StudyObserver {
      public:
        bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
            EXPECT_EQ(total, 20000u);
            EXPECT_GE(done, last);
            last = done;
            return ++times != most;
        }
        std::uint64_t last = 0;
        int times = 0;
        int most = 0;
    };
    RiskRequest request = WorkedRisk({"Height=uniform:5:9", "DepthCover=uniform:100:400"}, 20000);
    Watcher watcher;
    ASSERT_TRUE(RunRisk(request, watcher));
    EXPECT_EQ(watcher.last, 20000u);
    EXPECT_GT(watcher.times, 20);
    for (int most = 1; most <= watcher.times; ++most) {
        Watcher ender;
        ender.most = most;
        request.threads = 1 + static_cast<unsigned>(most % 2);
        // With a second thread the first may be asked less often.
        const bool ended = !RunRisk(request, ender);
        EXPECT_EQ(ended, ender.times == most);
    }
}

TEST(RiskSamples, RefusalsAreToldOnceEachInTheirOrder) {
    const RiskResult result = RunRisk(RequestOf({"Height=uniform:-1:1", "WebThickness=uniform:-1:1"}, 400));
    EXPECT_THAT(result.refusals,
                ::testing::UnorderedElementsAre("Invalid entry height", "Invalid Web thickness"));
    EXPECT_EQ(result.refused, static_cast<std::uint64_t>(
                                  400 - std::count_if(result.factors[0].begin(), result.factors[0].end(),
                                                      [](double x) { return !std::isnan(x); })));
}

TEST(RiskRequests, RefuseInTheirWords) {
    const auto refusal = [](const std::vector<const char*>& fields, const char* correlation) {
        RiskRequest request;
        request.panel = WorkedPanel();
        try {
            for (const char* field : fields) AddRandom(request, field);
            if (correlation != nullptr) Correlate(request, correlation);
            if (correlation != nullptr) Correlate(request, "HoleWidth,Height=0.25");
            RunRisk(request);
        } catch (const StudyRefusal& refused) {
            return std::string(refused.what());
        }
        return std::string("not refused");
    };
    const std::vector<const char*> pair{"Height=normal:10:1", "HoleWidth=normal:10:1"};
    const auto correlated = [&](const char* correlation) { return refusal(pair, correlation); };
    EXPECT_EQ(refusal({"Height=normal:1:1", "height=normal:2:1"}, nullptr),
              "Height: the field is given twice");
    EXPECT_EQ(correlated("Height,HoleWidth=x"), "\"x\" is not a number with a decimal point");
    for (const char* bound : {"Height,HoleWidth=1", "Height,HoleWidth=-1"})
        EXPECT_EQ(correlated(bound),
                  "Height,HoleWidth: the correlation must lie between -1 and 1, both left out");
    EXPECT_EQ(correlated("Height,height=0.5"), "Height,Height: a field is not correlated with itself");
    EXPECT_EQ(correlated("Height,DepthCover=0.5"), "Height,DepthCover: both fields must be drawn");
    EXPECT_EQ(refusal({"NumberHoles=uniform:2:9", "HoleWidth=normal:10:1"}, "HoleWidth,NumberHoles=0.5"),
              "HoleWidth,NumberHoles: NumberHoles is drawn over whole numbers, which have no correlation");
    for (const char* same : {"Height,HoleWidth=0.5", "HoleWidth,Height=0.5"})
        EXPECT_EQ(correlated(same), "HoleWidth,Height: the pair is given twice");
    RiskRequest request =
        RequestOf({"Height=normal:10:1", "HoleWidth=normal:10:1", "WebThickness=normal:10:1"}, 10);
    Correlate(request, "Height,HoleWidth=0.9");
    Correlate(request, "HoleWidth,WebThickness=0.9");
    Correlate(request, "Height,WebThickness=-0.9");
    try {
        RunRisk(request);
        ADD_FAILURE() << "not refused";
    } catch (const StudyRefusal& refused) {
        EXPECT_STREQ(refused.what(),
                     "the correlations contradict one another (their matrix is not positive definite); "
                     "bring some of them nearer to 0");
    }
}

TEST(RiskRequests, StartFromAHundredThousandSamplesOfSeedOneInAHypercube) {
    const RiskRequest request;
    EXPECT_EQ(request.samples, 100000u);
    EXPECT_EQ(request.seed, 1u);
    EXPECT_TRUE(request.latin);
    EXPECT_THAT(kRiskShares, ElementsAre(0.01, 0.05, 0.1, 0.25, 0.5, 0.75, 0.9, 0.95, 0.99));
}

}  // namespace
}  // namespace tarvokol
