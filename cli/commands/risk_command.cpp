// SPDX-License-Identifier: GPL-3.0-or-later
// How likely the factors lie below their targets when figures are only known within bounds.
#include <cmath>
#include <functional>
#include <iostream>
#include <limits>

#include "cli/commands/commands.h"
#include "cli/commands/samples_file.h"
#include "cli/commands/study_base.h"
#include "cli/commands/study_pictures.h"
#include "cli/output/drawing.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "cli/output/progress_bar.h"
#include "cli/output/row_sink.h"
#include "cli/output/said_lines.h"
#include "cli/output/study_rows.h"
#include "core/files/csv_writer.h"
#include "core/statistics/hypercube.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/picture_parts.h"
#include "core/studies/risk_study.h"
#include "core/studies/spread_picture.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

constexpr std::array<const char*, kRiskShares.size()> kShareNames{"1 %",  "5 %",  "10 %", "25 %", "50 %",
                                                                  "75 %", "90 %", "95 %", "99 %"};
constexpr int kTextColumn = 14;

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

std::string Padded(const std::string& text, int width) {
    const std::string room(text.size() < static_cast<std::size_t>(width) ? width - text.size() : 0, ' ');
    return text + room;
}

std::string Right(const std::string& text) {
    const std::string room(text.size() < kTextColumn ? kTextColumn - text.size() : 0, ' ');
    return room + text;
}

std::string Short(double value) {
    return RoundedText(value, kShareDigits);
}

template <typename Value>
void AddLine(std::string& text, const std::string& title, Value value) {
    constexpr int kTitleColumn = 34;
    text += Padded(title, kTitleColumn);
    for (std::size_t factor = 0; factor < kFactors; ++factor) text += Right(value(factor));
    text += '\n';
}

// A probability of which no sample shows anything is known by its bound alone.
std::string ProbabilityWord(const Share& share) {
    constexpr int kBoundDigits = 2;
    if (share.value == 0.0) return "below " + RoundedText(share.high, kBoundDigits);
    if (share.value == 1.0) return "above " + Short(share.low);
    return Short(share.value);
}

std::string KindWord(const Share& share) {
    if (share.kind == IntervalKind::None) return "-";
    return share.kind == IntervalKind::Exact ? "exact" : "replicates";
}

// One line each for a share and the ends and the kind of its interval, of the factors that have this target.
using ShareOfFactor = std::function<const Share*(std::size_t factor)>;

void AddShares(std::string& text, const std::string& title, const ShareOfFactor& share_of) {
    const auto line = [&](const std::string& name, auto word) {
        AddLine(text, name, [&](std::size_t f) {
            const Share* const share = share_of(f);
            return share == nullptr ? std::string("-") : word(*share);
        });
    };
    line(title, ProbabilityWord);
    line("  95 % interval, from", [](const Share& share) { return Short(share.low); });
    line("  to", [](const Share& share) { return Short(share.high); });
    line("  interval", KindWord);
}

void AddTargets(std::string& text, const RiskResult& result) {
    // The project's own targets first, then 1 for each.
    AddLine(text, "Target", [&](std::size_t f) {
        if (f == 0) return std::string("-");
        const BelowTarget& below = result.risk[f].below.front();
        return below.own_target ? std::string("each its own") : Short(below.target);
    });
    const auto own = [&](std::size_t f) { return f == 0 ? nullptr : &result.risk[f].below.front(); };
    const auto one = [&](std::size_t f) { return &result.risk[f].below.back(); };
    AddShares(text, "Probability below the target", [&](std::size_t f) {
        const BelowTarget* const below = own(f);
        return below == nullptr ? nullptr : &below->share;
    });
    AddShares(text, "Probability below 1", [&](std::size_t f) { return &one(f)->share; });
    if (result.refused == 0) return;
    AddShares(text, "Below the target or refused", [&](std::size_t f) {
        const BelowTarget* const below = own(f);
        return below == nullptr ? nullptr : &below->with_refused;
    });
    AddShares(text, "Below 1 or refused", [&](std::size_t f) { return &one(f)->with_refused; });
}

// What the words for the kinds of intervals mean.
std::string KindsText(const RiskRequest& request, const RiskResult& result) {
    bool exact = false;
    bool replicates = false;
    for (const FactorRisk& risk : result.risk)
        for (const BelowTarget& below : risk.below)
            for (const Share& share : {below.share, below.with_refused}) {
                exact |= share.kind == IntervalKind::Exact;
                replicates |= share.kind == IntervalKind::Replicates;
            }
    std::string text;
    if (replicates)
        text += "replicates: Student's interval of the scatter of " + std::to_string(kHypercubes) +
                " independent hypercubes\n";
    if (exact)
        text += request.latin ? "exact: Clopper and Pearson's interval of the counts, where there are too "
                                "few hits or misses\n"
                              : "exact: Clopper and Pearson's interval of the counts\n";
    return text;
}

// The targets that are random fields themselves.
void AddOwnTargets(std::string& text, const RiskRequest& request) {
    for (const RandomField& one : request.fields)
        if (one.field == PanelField::SFWeb || one.field == PanelField::SFBarrier)
            text += std::string(NameOfField(one.field)) + " is drawn: each sample against its own target\n";
}

std::string RiskText(const RiskRequest& request, const RiskResult& result, const std::string& title) {
    std::string text = title + "\n\n";
    for (const RandomField& one : request.fields)
        text += Padded(NameOfField(one.field), 20) + one.distribution->Text() + "\n";
    text += SamplingInWords(request, result) + "\n";
    AddOwnTargets(text, request);
    text += '\n';
    AddLine(text, "Factor", [](std::size_t f) { return std::string(kStudyFigures[f].name); });
    AddLine(text, "Mean", [&](std::size_t f) { return Short(result.risk[f].moments.mean); });
    AddLine(text, "Standard deviation",
            [&](std::size_t f) { return Short(result.risk[f].moments.standard_deviation); });
    for (std::size_t i = 0; i < kRiskShares.size(); ++i)
        AddLine(text, std::string(kShareNames[i]) + " of samples below",
                [&](std::size_t f) { return Short(result.risk[f].quantiles[i]); });
    AddTargets(text, result);
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        AddLine(text, std::string("Rank correlation ") + NameOfField(request.fields[field].field),
                [&](std::size_t f) { return Short(result.risk[f].rank_correlation[field]); });
    return text + KindsText(request, result);
}

const char* NameOfKind(IntervalKind kind) {
    return kind == IntervalKind::Exact ? "clopper-pearson" : "replicates";
}

void AddShare(JsonMembers& object, const Share& share) {
    object.Add("probability", share.value);
    object.Add("low", share.low);
    object.Add("high", share.high);
    if (share.kind == IntervalKind::None)
        object.Add("interval", std::numeric_limits<double>::quiet_NaN());
    else
        object.Add("interval", NameOfKind(share.kind));
}

JsonMembers BelowJson(const BelowTarget& below) {
    JsonMembers with_refused;
    AddShare(with_refused, below.with_refused);
    JsonMembers object;
    object.Add("target", below.target);
    AddShare(object, below.share);
    object.Add("coverage", kConfidence);
    object.Add("own_target", below.own_target);
    object.Add("with_refused", with_refused);
    return object;
}

JsonMembers FactorJson(const RiskRequest& request, const FactorRisk& risk) {
    JsonMembers quantiles;
    for (std::size_t i = 0; i < kRiskShares.size(); ++i) {
        std::string key;
        AppendShortest(key, kRiskShares[i]);
        quantiles.Add(key, risk.quantiles[i]);
    }
    JsonValues targets;
    for (const BelowTarget& below : risk.below) targets.Add(BelowJson(below));
    JsonMembers ranks;
    for (std::size_t field = 0; field < request.fields.size(); ++field)
        ranks.Add(NameOfField(request.fields[field].field), risk.rank_correlation[field]);
    JsonMembers object;
    object.Add("mean", risk.moments.mean);
    object.Add("standard_deviation", risk.moments.standard_deviation);
    object.Add("quantiles", quantiles);
    object.Add("below", targets);
    object.Add("rank_correlation", ranks);
    return object;
}

JsonMembers RiskJson(const RiskRequest& request, const RiskResult& result, const std::string& file,
                     const Panel& project) {
    JsonMembers random;
    JsonMembers units;
    for (const RandomField& one : request.fields) {
        random.Add(NameOfField(one.field), one.distribution->Text());
        if (const std::string unit = UnitOfField(one.field, project.units); !unit.empty())
            units.Add(NameOfField(one.field), unit);
    }
    JsonMembers factors;
    for (std::size_t factor = 0; factor < kFactors; ++factor)
        factors.Add(kStudyFigures[factor].name, FactorJson(request, result.risk[factor]));
    JsonMembers object;
    object.Add("file", file);
    object.Add("ok", result.refused < request.samples);
    object.Add("messages", result.refusals);
    object.Add("samples", request.samples);
    object.Add("seed", request.seed);
    object.Add("method", request.latin ? "latin-hypercube" : "plain");
    object.Add("refused", result.refused);
    object.Add("refused_share", static_cast<double>(result.refused) / request.samples);
    object.Add("random", random);
    object.Add("factors", factors);
    object.Add("units", units);
    object.Add("schema", kSchemaVersion);
    return object;
}

void WriteSamples(const RiskRequest& request, const RiskResult& result,
                  const std::vector<std::string>& titles, RowSink& sink) {
    std::string text;
    CsvWriter line(text);
    for (const std::string& title : titles) line.AddTitle(title);
    line.EndLine();
    std::string digits;
    const auto add = [&](double value) {
        digits.clear();
        AppendShortest(digits, value);
        line.AddDigits(digits);
    };
    constexpr std::size_t kEnough = 1 << 20;
    for (std::size_t sample = 0; sample < request.samples; ++sample) {
        for (const auto& drawn : result.drawn) add(drawn[sample]);
        for (const auto& factor : result.factors) add(factor[sample]);
        line.EndLine();
        if (text.size() < kEnough) continue;
        if (!sink.Write(text)) return;
        text.clear();
    }
    sink.Write(text);
    sink.Finish();
}

// "25 of 100 samples (25 %)".
std::string RefusedWords(std::uint64_t refused, std::uint64_t samples) {
    return std::to_string(refused) + " of " + std::to_string(samples) + " samples (" +
           Short(100.0 * static_cast<double>(refused) / static_cast<double>(samples)) + " %)";
}

class Risk : public StudyCommand {
  public:
    std::string Name() const override { return "risk"; }
    std::string Summary() const override {
        return "How likely the factors lie below their targets when figures are uncertain";
    }
    void Describe(CommandOptions& options) override;

  protected:
    std::vector<std::string> Examples() const override {
        return {"tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15%",
                "tarvokol-cli risk panel.TKL --random CoalStrength=normal:900:135 --random "
                "DepthCover=triangular:90%:100%:120% -o risk.png",
                "tarvokol-cli risk panel.TKL --random CoalStrength=data:strengths.csv:Strength",
                "tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --samples 1000000 --json"};
    }
    int Study(HeadlessPlatform& host) override;

  private:
    RiskRequest RequestFor(const Panel& project, bool keep_samples) const;
    std::vector<std::string> SampleTitles(const RiskRequest& request) const;
    void Write(const OutputTarget& target, const RiskRequest& request, const RiskResult& result,
               const Panel& project) const;

    std::vector<std::string> random_;
    std::vector<std::string> correlations_;
    std::string samples_;
    std::string seed_;
    bool plain_ = false;
    std::string samples_out_;
    bool bare_header_ = false;
};

void Risk::Describe(CommandOptions& options) {
    AddStudy(options, "Write the summary (.txt, .json) or a picture (.png, .svg, .pdf)",
             {"txt", "json", "jsonl", "png", "svg", "pdf"});
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
    options.Text({.spelling = "--samples-out",
                  .help = "Write all samples as CSV; `-`: standard output",
                  .value = "FILE.csv",
                  .refusal = WhyEmpty},
                 samples_out_);
    AddBareHeader(options, bare_header_);
}

RiskRequest Risk::RequestFor(const Panel& project, bool keep_samples) const {
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

    request.threads = Threads();
    request.keep_samples = keep_samples;
    return request;
}

std::vector<std::string> Risk::SampleTitles(const RiskRequest& request) const {
    std::vector<std::string> titles;
    for (const RandomField& one : request.fields) {
        const char* const unit = UnitOfField(one.field, request.panel.units);
        titles.push_back(TitleWithUnit(NameOfField(one.field), bare_header_ ? "" : unit));
    }
    for (const StudyFigure& factor : FactorFigures()) titles.emplace_back(factor.name);
    return titles;
}

void Risk::Write(const OutputTarget& target, const RiskRequest& request, const RiskResult& result,
                 const Panel& project) const {
    const std::string json = RiskJson(request, result, Project(), project).Line();
    const std::string path = target.PathFor(Project());
    if (target.Format() == ".json")
        target.WriteBytes(path, json);
    else if (target.Format() == ".txt")
        target.WriteBytes(path, RiskText(request, result, Title()));
    else if (target.ToFile())
        target.Write(path, [&](const std::string& name) { DrawRisk(request, result, Title(), name); });
    if (options_.json) std::cout << json;
    if (!options_.json && !target.ToFile())
        std::cout << ForStandardOutput(RiskText(request, result, Title()));
}

int Risk::Study(HeadlessPlatform& host) {
    const OutputTarget target(options_, {".txt", ".json", ".jsonl", ".png", ".svg", ".pdf"});
    const SamplesFile samples(samples_out_, options_);
    if (target.IsDrawn()) TheDrawing();
    const Panel project = ReadProject(host);
    const RiskRequest request = RequestFor(project, samples.IsAsked() || target.IsDrawn());
    if (target.ToFile()) target.Prepare(target.PathFor(Project()));
    const RiskResult result = *OfOption("--correlate", [&] {
        StudyProgress progress(options_.quiet, "samples");
        return RunRisk(request, progress);
    });
    if (samples.IsAsked()) WriteSamples(request, result, SampleTitles(request), *samples.Open());
    Write(target, request, result, project);
    if (result.refused == 0) return exit_status::Done;
    const bool all = result.refused == request.samples;
    SayOf(Project(), (all ? "every sample was" : RefusedWords(result.refused, request.samples) + " were") +
                         " refused: " + result.refusals.front());
    return all ? exit_status::Refused : exit_status::Done;
}

}  // namespace

std::unique_ptr<Command> RiskCommand() {
    return std::make_unique<Risk>();
}

}  // namespace tarvokol::cli
