// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/random_options.h"

#include <cmath>

#include "cli/commands/study_base.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

template <typename Whole>
Whole WholeOption(const std::string& text, const char* name, double low, double high) {
    const double value = OfOption(name, [&] { return RequiredNumber(text); });
    if (value != std::floor(value) || value < low || value > high) {
        const auto digits = [](double bound) { return std::to_string(static_cast<std::uint64_t>(bound)); };
        throw UsageError{std::string(name) + ": \"" + text + "\" is not a whole number from " + digits(low) +
                         " to " + digits(high)};
    }
    return static_cast<Whole>(value);
}

constexpr double kMostSamples = 4294967295.0;
constexpr double kMostSamplesOfRow = 10000000;  // take a second or two

std::uint64_t SeedOf(const std::string& text) {
    constexpr double kLargestSeed = 9007199254740992.0;
    return WholeOption<std::uint64_t>(text, "--seed", 0, kLargestSeed);
}

FieldOption SplitRandom(const std::string& text) {
    return SplitFieldOption("--random", text, "FIELD=normal:MEAN:SD");
}

// "FIELD,FIELD=R".
FieldCorrelation CorrelationOf(const std::string& text) {
    const std::size_t comma = text.find(',');
    const std::size_t equals = text.find('=');
    if (comma == std::string::npos || equals == std::string::npos || comma > equals)
        throw UsageError{"--correlate: \"" + text + "\" is no correlation; write FIELD,FIELD=R"};
    return {RequiredField(text.substr(0, comma)), RequiredField(text.substr(comma + 1, equals - comma - 1)),
            OfOption("--correlate", [&] { return RequiredNumber(text.substr(equals + 1)); })};
}

}  // namespace

void RandomOptions::Describe(CommandOptions& options) {
    options.Texts(
        {.spelling = "--random",
         .help =
             "FIELD=" + KnownDistributions() +
             "; a figure that ends in % is a share of the project's own, but SD of the MEAN beside it: of a "
             "strength of 900 normal:80%:10% is normal:720:72; once per field",
         .value = "FIELD=DISTRIBUTION",
         .required = true},
        random_);
    DescribeDrawing(options, "Number of samples (default 100000)");
}

void RandomOptions::DescribeForRows(CommandOptions& options) {
    options.Texts(
        {.spelling = "--random",
         .help = "The probabilities that webs, barrier, or either lie below their targets, too: P(WebsOnly), "
                 "P(BarrierPillar), P(any); FIELD=DISTRIBUTION as risk takes it, in % of the row's own "
                 "figure; once per field",
         .value = "FIELD=DISTRIBUTION"},
        random_);
    DescribeDrawing(options, "Number of samples of each row (default 10000)");
}

void RandomOptions::DescribeDrawing(CommandOptions& options, const std::string& samples) {
    options.Texts(
        {.spelling = "--correlate",
         .help = "FIELD,FIELD=R: a pair of fields moves together; R, between -1 and 1, is the correlation of "
                 "their normal scores: of normal fields their own, of lognormal ones that of the logarithms",
         .value = "A,B=R"},
        correlations_);
    options.Text({.spelling = "--samples", .help = samples, .value = "N", .refusal = WhyEmpty}, samples_);
    options.Text({.spelling = "--seed",
                  .help = "Seed of the random numbers (default 1)",
                  .value = "S",
                  .refusal = WhyEmpty},
                 seed_);
    options.Flag({.spelling = "--plain", .help = "Independent draws instead of Latin hypercubes"}, plain_);
}

RiskRequest RandomOptions::RequestFor(const Panel& project, unsigned threads) const {
    RiskRequest request;
    request.panel = project;
    for (const std::string& text : random_) {
        const FieldOption option = SplitRandom(text);
        OfOption("--random", [&] { request.AddField(option.field, option.text); });
    }
    for (const std::string& text : correlations_) {
        const FieldCorrelation pair = CorrelationOf(text);
        OfOption("--correlate", [&] { request.AddCorrelation(pair.first, pair.second, pair.value); });
    }
    if (!samples_.empty())
        request.samples = WholeOption<std::uint32_t>(samples_, "--samples", 1, kMostSamples);
    if (!seed_.empty()) request.seed = SeedOf(seed_);
    request.latin = !plain_;
    request.threads = threads;
    return request;
}

void RandomOptions::RequireRandom() const {
    const char* const given = !samples_.empty()        ? "--samples"
                              : !seed_.empty()         ? "--seed"
                              : !correlations_.empty() ? "--correlate"
                              : plain_                 ? "--plain"
                                                       : nullptr;
    if (random_.empty() && given != nullptr) throw UsageError{std::string(given) + ": needs --random"};
}

RowRiskRequest RandomOptions::RequestForRows() const {
    RequireRandom();
    RowRiskRequest request;
    request.random.reserve(random_.size());
    for (const std::string& text : random_) {
        const FieldOption option = SplitRandom(text);
        request.random.push_back({option.field, option.text});
    }
    request.correlations.reserve(correlations_.size());
    for (const std::string& text : correlations_) request.correlations.push_back(CorrelationOf(text));
    if (!samples_.empty())
        request.samples = WholeOption<std::uint32_t>(samples_, "--samples", 1, kMostSamplesOfRow);
    if (!seed_.empty()) request.seed = SeedOf(seed_);
    request.latin = !plain_;
    return request;
}

}  // namespace tarvokol::cli
