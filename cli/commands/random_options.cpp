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
        std::string bounds;
        AppendShortest(bounds, low);
        AppendShortest(bounds += " to ", high);
        throw UsageError{std::string(name) + ": \"" + text + "\" is not a whole number from " + bounds};
    }
    return static_cast<Whole>(value);
}

// "FIELD,FIELD=R".
void AddCorrelation(RiskRequest& request, const std::string& text) {
    const std::size_t comma = text.find(',');
    const std::size_t equals = text.find('=');
    if (comma == std::string::npos || equals == std::string::npos || comma > equals)
        throw UsageError{"--correlate: \"" + text + "\" is no correlation; write FIELD,FIELD=R"};
    const PanelField first = RequiredField(text.substr(0, comma));
    const PanelField second = RequiredField(text.substr(comma + 1, equals - comma - 1));
    OfOption("--correlate",
             [&] { request.AddCorrelation(first, second, RequiredNumber(text.substr(equals + 1))); });
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
    options.Texts(
        {.spelling = "--correlate",
         .help = "FIELD,FIELD=R: a pair of fields moves together; R, between -1 and 1, is the correlation of "
                 "their normal scores: of normal fields their own, of lognormal ones that of the logarithms",
         .value = "A,B=R"},
        correlations_);
    options.Text({.spelling = "--samples",
                  .help = "Number of samples (default 100000)",
                  .value = "N",
                  .refusal = WhyEmpty},
                 samples_);
    options.Text({.spelling = "--seed",
                  .help = "Seed of the random numbers (default 1)",
                  .value = "S",
                  .refusal = WhyEmpty},
                 seed_);
    options.Flag({.spelling = "--plain", .help = "Independent draws instead of Latin hypercubes"}, plain_);
}

RiskRequest RandomOptions::RequestFor(const Panel& project, unsigned threads) const {
    constexpr double kMostSamples = 4294967295.0;
    constexpr double kLargestSeed = 9007199254740992.0;
    RiskRequest request;
    request.panel = project;
    for (const std::string& text : random_) {
        const FieldOption option = SplitFieldOption("--random", text, "FIELD=normal:MEAN:SD");
        OfOption("--random", [&] { request.AddField(option.field, option.text); });
    }
    for (const std::string& text : correlations_) AddCorrelation(request, text);
    if (!samples_.empty())
        request.samples = WholeOption<std::uint32_t>(samples_, "--samples", 1, kMostSamples);
    if (!seed_.empty()) request.seed = WholeOption<std::uint64_t>(seed_, "--seed", 0, kLargestSeed);
    request.latin = !plain_;
    request.threads = threads;
    return request;
}

}  // namespace tarvokol::cli
