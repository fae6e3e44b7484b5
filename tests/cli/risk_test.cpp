// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Of values without ties.
double Spearman(const std::vector<double>& x, const std::vector<double>& y) {
    const auto ranks = [](const std::vector<double>& values) {
        std::vector<std::size_t> order(values.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::sort(order.begin(), order.end(), [&](auto a, auto b) { return values[a] < values[b]; });
        std::vector<double> places(values.size());
        for (std::size_t i = 0; i < order.size(); ++i) places[order[i]] = static_cast<double>(i);
        return places;
    };
    const std::vector<double> a = ranks(x);
    const std::vector<double> b = ranks(y);
    double squares = 0;
    for (std::size_t i = 0; i < a.size(); ++i) squares += (a[i] - b[i]) * (a[i] - b[i]);
    const auto n = static_cast<double>(a.size());
    return 1 - 6 * squares / (n * (n * n - 1));
}

class RiskCommand : public CliTest {
  protected:
    json Risk(std::vector<std::string> more) {
        std::vector<std::string> arguments{"risk", "--quiet", "--json", Project("p.TKL")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 0) << answer.err;
        return answer.Object();
    }
};

// The webs' factor is 471.99928 / depth: below 1.6 where the depth is above 294.99955. Of 200 to 400 feet
// that is a share of 0.52500225; ten Latin hypercubes hit it within a few samples.
TEST_F(RiskCommand, ProbabilityOfOneUniformFieldIsThatOfTheClosedForm) {
    const json object = Risk({"--random", "DepthCover=uniform:200:400"});
    EXPECT_EQ(object["samples"], 100000);
    EXPECT_EQ(object["method"], "latin-hypercube");
    EXPECT_EQ(object["refused"], 0);
    const json& webs = object["factors"]["WebsOnly"];
    EXPECT_NEAR(webs["below"][0]["target"], 1.6, 1e-6);
    EXPECT_NEAR(webs["below"][0]["probability"], 0.52500225, 7e-5);
    EXPECT_LT(webs["below"][0]["low"], 0.52500225);
    EXPECT_GT(webs["below"][0]["high"], 0.52500225);
    EXPECT_EQ(webs["below"][0]["interval"], "replicates");
    EXPECT_EQ(webs["below"][0]["coverage"], 0.95);
    EXPECT_EQ(webs["below"][0]["with_refused"]["probability"], webs["below"][0]["probability"]);
    EXPECT_LT(webs["below"][0]["high"].get<double>() - webs["below"][0]["low"].get<double>(), 3e-4);
    EXPECT_EQ(webs["below"][1]["target"], 1);
    EXPECT_EQ(webs["below"][1]["interval"], "clopper-pearson");
    EXPECT_NEAR(webs["below"][1]["high"].get<double>(), 3.6888e-5, 1e-9);
    EXPECT_EQ(webs["below"][1]["probability"], 0);
    // Deeper is weaker, sample by sample.
    EXPECT_DOUBLE_EQ(webs["rank_correlation"]["DepthCover"], -1);
    // Quantile q of the factor stands at the depth 400 - 200 q.
    EXPECT_NEAR(webs["quantiles"]["0.5"], 471.99928 / 300, 1e-4);
    EXPECT_NEAR(webs["quantiles"]["0.05"], 471.99928 / 390, 1e-4);
    // Mean of a / x over 200 to 400: a ln 2 / 200.
    EXPECT_NEAR(webs["mean"], 471.99928 * std::log(2.0) / 200, 1e-5);
    EXPECT_EQ(object["units"], (json{{"DepthCover", "ft"}}));
    EXPECT_FALSE(object["factors"]["Overall"]["below"].size() != 1);
}

// Strength stands in every factor as it is: a factor's spread is that of the strength.
TEST_F(RiskCommand, SpreadOfTheStrengthIsThatOfTheFactors) {
    const json object = Risk({"--random", "CoalStrength=normal:100%:15%"});
    const json& webs = object["factors"]["WebsOnly"];
    EXPECT_NEAR(webs["mean"], 4.7199928, 1e-4);
    EXPECT_NEAR(webs["standard_deviation"], 0.15 * 4.7199928, 1e-3);
    EXPECT_NEAR(webs["quantiles"]["0.95"], 4.7199928 * (1 + 0.15 * 1.644853626951), 1e-3);
    EXPECT_EQ(object["random"]["CoalStrength"], "normal:900:135");
}

TEST_F(RiskCommand, SameSeedSameBytesOnAnyNumberOfThreads) {
    Project("p.TKL");
    const auto run = [this](const char* threads, const char* seed, bool plain) {
        std::vector<std::string> arguments{"risk",
                                           "p.TKL",
                                           "--json",
                                           "--random",
                                           "CoalStrength=lognormal:900:135",
                                           "--random",
                                           "DepthCover=triangular:80:100:150",
                                           "--samples",
                                           "20000",
                                           "--seed",
                                           seed,
                                           "--threads",
                                           threads,
                                           "--samples-out",
                                           "s.csv",
                                           "--force"};
        if (plain) arguments.emplace_back("--plain");
        const std::string out = Run(arguments).out;
        return out + ReadBytes(PathTo("s.csv"));
    };
    const std::string one = run("1", "7", false);
    EXPECT_EQ(one, run("2", "7", false));
    EXPECT_EQ(one, run("16", "7", false));
    EXPECT_NE(one, run("1", "8", false));
    EXPECT_EQ(run("1", "7", true), run("3", "7", true));
    EXPECT_NE(one, run("1", "7", true));
}

TEST_F(RiskCommand, RefusedSamplesAreCountedAndLeftOut) {
    // Heights of -1 to 3: a quarter is not above 0. All others have factors above their targets.
    const CliAnswer answer =
        Run({"risk", Project("p.TKL"), "--json", "--random", "Height=uniform:-1:3", "--samples", "10000"});
    EXPECT_EQ(answer.status, 0);
    const json object = answer.Object();
    const int refused = object["refused"];
    EXPECT_NEAR(refused, 2500, 6);
    EXPECT_EQ(object["refused_share"], refused / 10000.0);
    EXPECT_EQ(object["messages"], json({"Invalid entry height"}));
    EXPECT_DOUBLE_EQ(object["factors"]["WebsOnly"]["rank_correlation"]["Height"], -1);
    EXPECT_THAT(answer.err, HasSubstr("p.TKL: " + std::to_string(refused) + " of 10000 samples (2"));
    EXPECT_THAT(answer.err, HasSubstr(" %) were refused: Invalid entry height\n"));
    const json& below = object["factors"]["WebsOnly"]["below"][0];
    EXPECT_EQ(below["probability"], 0);
    EXPECT_EQ(below["interval"], "clopper-pearson");
    EXPECT_EQ(below["with_refused"]["probability"], refused / 10000.0);
    EXPECT_EQ(below["with_refused"]["interval"], "replicates");
    EXPECT_LT(below["with_refused"]["low"], 0.25);
    EXPECT_GT(below["with_refused"]["high"], 0.25);
}

TEST_F(RiskCommand, CorrelatedFieldsMoveTogether) {
    Project("p.TKL");
    ASSERT_EQ(Run({"risk", "p.TKL", "--random", "Height=normal:10:1", "--random", "HoleWidth=normal:10:1",
                   "--correlate", "Height,HoleWidth=0.8", "--samples", "50000", "--samples-out", "s.csv"})
                  .status,
              0);
    double sum_x = 0, sum_y = 0, xx = 0, yy = 0, xy = 0;
    std::istringstream samples(ReadBytes(PathTo("s.csv")));
    std::string line;
    std::getline(samples, line);
    EXPECT_EQ(line, "Height (ft),HoleWidth (ft),Overall,WebsOnly,BarrierPillar");
    int n = 0;
    for (double x = 0, y = 0; std::getline(samples, line); ++n) {
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf", &x, &y), 2);
        sum_x += x, sum_y += y, xx += x * x, yy += y * y, xy += x * y;
    }
    ASSERT_EQ(n, 50000);
    const double covariance = xy / n - sum_x / n * sum_y / n;
    const double spread = std::sqrt((xx / n - sum_x / n * sum_x / n) * (yy / n - sum_y / n * sum_y / n));
    EXPECT_NEAR(covariance / spread, 0.8, 0.01);
}

// The factor is proportional to the strength: 4.7199928 at 900 psi, so below 1.6 where the strength is below 305.0852.
TEST_F(RiskCommand, DrawsMeasuredValues) {
    WriteBytes(PathTo("lab.csv"), "Sample,UCS (psi)\nA,300\nB,900\nC,\nD,1500\nE,250\n");
    const json object = Risk({"--random", "CoalStrength=data:lab.csv:ucs", "--samples", "20000"});
    EXPECT_EQ(object["random"]["CoalStrength"], "data:lab.csv:ucs");
    const json& webs = object["factors"]["WebsOnly"];
    EXPECT_NEAR(webs["below"][0]["probability"], 0.5, 1e-3);
    EXPECT_NEAR(webs["mean"], 4.7199928 * 737.5 / 900, 0.01);
    EXPECT_NEAR(webs["quantiles"]["0.99"], 4.7199928 * 1500 / 900, 1e-4);
}

TEST_F(RiskCommand, RefusesMeasuredValuesThatAreNone) {
    const auto refused = [this](const char* csv, const char* column, const char* words) {
        SCOPED_TRACE(csv);
        WriteBytes(PathTo("lab.csv"), csv);
        const CliAnswer answer =
            Run({"risk", Project("p.TKL"), "--random", std::string("CoalStrength=data:lab.csv:") + column});
        EXPECT_EQ(answer.status, 2);
        EXPECT_EQ(answer.err.substr(0, answer.err.find('\n')), std::string("tarvokol-cli risk: ") + words);
    };
    refused("UCS\n900\n9,00\n", "UCS",
            "--random CoalStrength: lab.csv, line 3: 2 cells under 1 columns; a figure needs a decimal "
            "point, not a comma");
    refused("UCS;N\n900;1\n9,5;2\n", "UCS",
            "--random CoalStrength: lab.csv, line 3: column 1 (UCS): \"9,5\" is no number: write a decimal "
            "point and no thousands separators");
    refused("UCS,N\n,1\n", "UCS", "--random CoalStrength: lab.csv: the column UCS has no values");
    refused("UCS,N\n5,1\n", "ucs2",
            "--random CoalStrength: lab.csv: has no column ucs2; its columns are UCS, N");
    refused("UCS,ucs (psi)\n5,1\n", "UCS",
            "--random CoalStrength: lab.csv: the column UCS stands there twice");
    refused(
        "UCS (MPa)\n5\n", "UCS",
        "--random CoalStrength: lab.csv: the column UCS is in MPa, CoalStrength is in psi in this project");
    refused("", "UCS",
            "--random CoalStrength: lab.csv: the table is empty; its first line names the columns");
    const CliAnswer none = Run({"risk", Project("p.TKL"), "--random", "CoalStrength=data:nowhere.csv:UCS"});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.err.substr(0, none.err.find('\n')),
              "tarvokol-cli risk: --random CoalStrength: nowhere.csv: File not found");
}

TEST_F(RiskCommand, CorrelatesContinuousFieldsOnly) {
    const CliAnswer answer =
        Run({"risk", Project("p.TKL"), "--random", "CoalStrength=list:800@0.5,900@0.5", "--random",
             "DepthCover=pert:90%:100%:120%", "--correlate", "CoalStrength,DepthCover=0.5"});
    EXPECT_EQ(answer.status, 2);
    EXPECT_THAT(answer.err,
                HasSubstr("--correlate CoalStrength,DepthCover: CoalStrength is drawn from single "
                          "values, which have no correlation"));
    ASSERT_EQ(Run({"risk", Project("p.TKL"), "--random", "CoalStrength=gamma:20:45", "--random",
                   "UnitWeight=pert:150:162:170", "--correlate", "CoalStrength,UnitWeight=0.6", "--samples",
                   "20000", "--samples-out", "s.csv"})
                  .status,
              0);
    std::istringstream samples(ReadBytes(PathTo("s.csv")));
    std::string line;
    std::getline(samples, line);
    std::vector<double> x;
    std::vector<double> y;
    for (double one = 0, other = 0; std::getline(samples, line); x.push_back(one), y.push_back(other))
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf", &one, &other), 2);
    // Spearman's correlation of normal scores that correlate by 0.6: 6 / pi x arcsin 0.3.
    EXPECT_NEAR(Spearman(x, y), 0.58191, 0.003);
}

// The logarithms of two lognormal strengths have the correlation that is asked for.
TEST_F(RiskCommand, LognormalFieldsAreCorrelated) {
    Project("p.TKL");
    ASSERT_EQ(Run({"risk", "p.TKL", "--random", "CoalStrength=lognormal:900:270", "--random",
                   "UnitWeight=lognormal:162:30", "--correlate", "CoalStrength,UnitWeight=0.6", "--samples",
                   "20000", "--samples-out", "s.csv"})
                  .status,
              0);
    double sum_x = 0, sum_y = 0, xx = 0, yy = 0, xy = 0;
    std::istringstream samples(ReadBytes(PathTo("s.csv")));
    std::string line;
    std::getline(samples, line);
    int n = 0;
    for (double x = 0, y = 0; std::getline(samples, line); ++n) {
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf", &x, &y), 2);
        x = std::log(x), y = std::log(y);
        sum_x += x, sum_y += y, xx += x * x, yy += y * y, xy += x * y;
    }
    const double covariance = xy / n - sum_x / n * sum_y / n;
    const double spread = std::sqrt((xx / n - sum_x / n * sum_x / n) * (yy / n - sum_y / n * sum_y / n));
    EXPECT_NEAR(covariance / spread, 0.6, 0.003);
}

// The webs' factor lies below 1.3 from 363.07637 ft on and below 2 from 235.99964 ft on.
TEST_F(RiskCommand, HoldsFactorsAgainstTargetsAskedFor) {
    const json object = Risk({"--random", "DepthCover=uniform:200:400", "--below", "webSONLY=1.3", "--below",
                              "Overall=1.3", "--below", "WebsOnly=2"});
    const json& webs = object["factors"]["WebsOnly"]["below"];
    ASSERT_EQ(webs.size(), 4u);
    EXPECT_EQ(webs[2]["target"], 1.3);
    EXPECT_NEAR(webs[2]["probability"], 0.1846182, 7e-5);
    EXPECT_EQ(webs[2]["own_target"], false);
    EXPECT_EQ(webs[3]["target"], 2);
    EXPECT_NEAR(webs[3]["probability"], 0.8200018, 7e-5);
    ASSERT_EQ(object["factors"]["Overall"]["below"].size(), 2u);
    EXPECT_EQ(object["factors"]["Overall"]["below"][1]["target"], 1.3);
    EXPECT_EQ(object["factors"]["BarrierPillar"]["below"].size(), 2u);
}

// Of a product of two lognormal figures with variations of 0.15 and 0.1 the variance is 0.032725 of the squared mean: 0.0225 and
// 0.01 of it go with one of them alone, 0.022725 and 0.010225 with all that it does.
TEST_F(RiskCommand, SobolIndicesAreThoseOfTheClosedForm) {
    const std::vector<std::string> fields{"--random", "CoalStrength=lognormal:100%:15%", "--random",
                                          "UnitWeight=lognormal:100%:10%"};
    std::vector<std::string> words = fields;
    words.insert(words.end(), {"--sobol", "--samples", "40000"});
    const json object = Risk(words);
    EXPECT_EQ(object["sobol_refused"], 0);
    const json& webs = object["factors"]["WebsOnly"]["sobol"];
    EXPECT_NEAR(webs["CoalStrength"]["first"]["index"], 0.687548, 0.02);
    EXPECT_NEAR(webs["CoalStrength"]["total"]["index"], 0.694423, 0.02);
    EXPECT_NEAR(webs["UnitWeight"]["first"]["index"], 0.305577, 0.02);
    EXPECT_NEAR(webs["UnitWeight"]["total"]["index"], 0.312452, 0.02);
    EXPECT_LT(webs["UnitWeight"]["total"]["low"], 0.312452);
    EXPECT_GT(webs["UnitWeight"]["total"]["high"], 0.312452);
    // Nothing else changes.
    json without = object;
    without.erase("sobol_refused");
    for (auto& factor : without["factors"]) factor.erase("sobol");
    words = fields;
    words.insert(words.end(), {"--samples", "40000"});
    EXPECT_EQ(Risk(words), without);
}

TEST_F(RiskCommand, TextAndPictures) {
    Project("p.TKL");
    const CliAnswer text =
        Run({"risk", "p.TKL", "--random", "CoalStrength=lognormal:100%:15%", "--samples", "1000"});
    for (const char* words :
         {"Ridge Panel 4", "lognormal:900:135", "1000 samples (Latin hypercube), seed 1, 0 refused",
          "Probability below the target", "Rank correlation CoalStrength"})
        EXPECT_THAT(text.out, HasSubstr(words));
    for (const char* name : {"r.txt", "r.json", "r.png", "r.svg", "r.pdf"})
        EXPECT_EQ(
            Run({"risk", "p.TKL", "--random", "CoalStrength=normal:900:90", "--samples", "1000", "-o", name})
                .status,
            0)
            << name;
    EXPECT_THAT(ReadBytes(PathTo("r.svg")), HasSubstr("Share below"));
}

TEST_F(RiskCommand, WrongUsageIsToldInOneLine) {
    Project("p.TKL");
    const auto refused = [this](std::vector<std::string> words, const std::string& text) {
        words.insert(words.begin(), {"risk", "p.TKL"});
        const CliAnswer answer = Run(words);
        EXPECT_EQ(answer.status, 2) << text;
        EXPECT_EQ(answer.out, "");
        EXPECT_THAT(answer.err, AllOf(StartsWith("tarvokol-cli risk: "), HasSubstr(text)));
    };
    refused({"--random", "Height"}, "--random: \"Height\" has no \"=\"; write FIELD=normal:MEAN:SD\n");
    refused({"--random", "Height=normal:1,5:2"},
            "--random Height: \"1,5\" is not a number with a decimal point\n");
    refused({"--random", "Foo=normal:1:1"}, "unknown field \"Foo\"; the fields are Height,");
    refused({"--random", "Height=normal:1:-1"}, "the standard deviation must not be negative");
    refused({"--random", "Height=cauchy:1:1"}, "is no distribution; write normal:MEAN:SD");
    refused({"--random", "Height=normal:1:1", "--random", "Height=normal:1:1"}, "the field is given twice");
    refused({"--random", "Height=normal:1:1", "--correlate", "Height,DepthCover=0.5"},
            "--correlate Height,DepthCover: both fields must be drawn\n");
    refused({"--random", "Height=normal:1:1", "--random", "NumberHoles=uniform:2:5", "--correlate",
             "Height,NumberHoles=0.5"},
            "NumberHoles is drawn over whole numbers, which have no correlation\n");
    const std::vector<std::string> three{"--random", "Height=normal:10:1",
                                         "--random", "DepthCover=normal:100:1",
                                         "--random", "HoleWidth=normal:10:1"};
    const auto with = [&three](std::vector<std::string> more) {
        more.insert(more.begin(), three.begin(), three.end());
        return more;
    };
    refused(with({"--correlate", "Height,DepthCover=1"}), "must lie between -1 and 1");
    refused(with({"--correlate", "Height,DepthCover=-1.2"}), "must lie between -1 and 1");
    refused(with({"--correlate", "Height,Height=0.5"}), "a field is not correlated with itself");
    refused(with({"--correlate", "Height,DepthCover=x"}),
            "--correlate: \"x\" is not a number with a decimal point\n");
    refused(with({"--correlate", "DepthCover,Height=1"}),
            "--correlate DepthCover,Height: the correlation must lie between -1 and 1, both left out\n");
    refused(with({"--correlate", "Height,DepthCover"}),
            "--correlate: \"Height,DepthCover\" is no correlation; write FIELD,FIELD=R\n");
    refused(with({"--correlate", "Height=1,2"}), "\"Height=1,2\" is no correlation");
    refused(with({"--correlate", "Height=0.5"}), "is no correlation; write FIELD,FIELD=R");
    refused(with({"--correlate", "Height,DepthCover=0.9", "--correlate", "DepthCover,HoleWidth=0.9",
                  "--correlate", "Height,HoleWidth=-0.9"}),
            "not positive definite");
    refused(with({"--sobol", "--correlate", "Height,DepthCover=0.5"}),
            "--sobol: the indices are told of independent fields; leave out --correlate\n");
    refused(with({"--below", "WebsOnly"}), "--below: \"WebsOnly\" has no \"=\"; write FACTOR=TARGET\n");
    refused(with({"--below", "Webs=1.3"}), "--below: unknown figure \"Webs\"; the figures are Overall,");
    refused(
        with({"--below", "SuggestedWeb=30"}),
        "--below SuggestedWeb: is no stability factor; the factors are Overall, WebsOnly, BarrierPillar\n");
    refused(with({"--below", "WebsOnly=x"}), "--below: \"x\" is not a number with a decimal point\n");
    refused(with({"--below", "WebsOnly=-1"}), "--below WebsOnly: the target must be above 0\n");
    refused(with({"--below", "WebsOnly=1.3", "--below", "WebsOnly=1.3"}),
            "--below WebsOnly: the target is given twice\n");
    refused({"--random", "Height=normal:1:1", "--samples", "0"},
            "--samples: \"0\" is not a whole number from 1");
    refused({"--random", "Height=normal:1:1", "--samples", "1,000"}, "--samples: \"1,000\" is not a number");
    refused({"--random", "Height=normal:1:1", "--seed", "-1"}, "--seed: \"-1\" is not a whole number from 0");
}

TEST_F(RiskCommand, SamplesMayGoToStandardOutput) {
    Project("p.TKL");
    const CliAnswer answer = Run({"risk", "p.TKL", "--random", "Height=uniform:5:6", "--samples", "3", "-q",
                                  "-o", "s.json", "--samples-out", "-"});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_THAT(answer.out, testing::StartsWith("Height (ft),Overall,WebsOnly,BarrierPillar\n"));
    EXPECT_EQ(std::count(answer.out.begin(), answer.out.end(), '\n'), 4);
    EXPECT_EQ(json::parse(ReadBytes(PathTo("s.json")))["samples"], 3);
}

}  // namespace
}  // namespace tarvokol
