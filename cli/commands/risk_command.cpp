// SPDX-License-Identifier: GPL-3.0-or-later
// How likely the factors lie below their targets when figures are only known within bounds.
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/commands/random_options.h"
#include "cli/commands/risk_extras.h"
#include "cli/commands/risk_json.h"
#include "cli/commands/risk_text.h"
#include "cli/commands/samples_file.h"
#include "cli/commands/study_base.h"
#include "cli/commands/study_pictures.h"
#include "cli/output/drawing.h"
#include "cli/output/output_target.h"
#include "cli/output/progress_bar.h"
#include "cli/output/row_sink.h"
#include "cli/output/said_lines.h"
#include "cli/output/study_rows.h"
#include "core/files/csv_writer.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/rare_events.h"
#include "core/studies/risk_study.h"
#include "core/studies/sobol_study.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

// "FACTOR=TARGET".
void AddTarget(RiskRequest& request, const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageError{"--below: \"" + text + "\" has no \"=\"; write FACTOR=TARGET"};
    OfOption("--below", [&] {
        request.AddTarget(RequiredFigure(text.substr(0, equals)), RequiredNumber(text.substr(equals + 1)));
    });
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
                ("tarvokol-cli risk panel.TKL --random CoalStrength=normal:900:135 --random "
                 "DepthCover=triangular:90%:100%:120% -o risk.png"),
                "tarvokol-cli risk panel.TKL --random CoalStrength=data:strengths.csv:Strength",
                ("tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --below Overall=1.3 --below "
                 "WebsOnly=1.3"),
                ("tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15% --random "
                 "DepthCover=normal:100%:5% --sobol"),
                ("tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15% --random "
                 "DepthCover=normal:100%:5% --tornado -o tornado.svg"),
                "tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --samples 1000000 --json"};
    }
    int Study(HeadlessPlatform& host) override;

  private:
    RiskRequest RequestFor(const Panel& project, bool keep_samples) const;
    std::vector<std::string> SampleTitles(const RiskRequest& request) const;
    RiskExtras ExtrasOf(const RiskRequest& request, const RiskResult& result, bool told) const;
    void Write(const OutputTarget& target, const RiskRequest& request, const RiskResult& result,
               const RiskExtras& extras) const;

    RandomOptions random_;
    std::vector<std::string> below_;
    bool sobol_ = false;
    bool tornado_ = false;
    std::string samples_out_;
    bool bare_header_ = false;
};

void Risk::Describe(CommandOptions& options) {
    AddStudy(options, ResultOf::Command, "Write the summary (.txt, .json) or a picture (.png, .svg, .pdf)",
             {"txt", "json", "jsonl", "png", "svg", "pdf"});
    random_.Describe(options);
    options.Texts({.spelling = "--below",
                   .help = "FACTOR=TARGET: the probability below this target, too; Overall, WebsOnly or "
                           "BarrierPillar, any number of times",
                   .value = "FACTOR=TARGET"},
                  below_);
    options.Flag(
        {.spelling = "--sobol",
         .help = "Sobol' indices with 95 % intervals: what share of a factor's variance goes with each "
                 "field; of independent fields"},
        sobol_);
    options.Flag({.spelling = "--tornado",
                  .help = "What each field moves: the factors at 5 % and at 95 % of it, the others at their "
                          "medians; a picture shows this in place of the spread"},
                 tornado_);
    options.Text({.spelling = "--samples-out",
                  .help = "Write all samples as CSV; `-`: standard output",
                  .value = "FILE.csv",
                  .refusal = WhyEmpty},
                 samples_out_);
    AddBareHeader(options, bare_header_);
}

RiskRequest Risk::RequestFor(const Panel& project, bool keep_samples) const {
    RiskRequest request = random_.RequestFor(project, Threads());
    for (const std::string& text : below_) AddTarget(request, text);
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
                 const RiskExtras& extras) const {
    const std::string json = RiskJson(request, result, Project(), extras).Line();
    const std::string path = target.PathFor(Project());
    if (target.Format() == ".json")
        target.WriteBytes(path, json);
    else if (target.Format() == ".txt")
        target.WriteBytes(path, RiskText(request, result, Title(), extras));
    else if (target.ToFile())
        target.Write(path, [&](const std::string& name) {
            if (extras.tornado)
                DrawTornado(request, *extras.tornado, Title(), name);
            else
                DrawRisk(request, result, Title(), name);
        });
    if (options_.json) std::cout << json;
    if (!options_.json && !target.ToFile())
        std::cout << ForStandardOutput(RiskText(request, result, Title(), extras));
}

RiskExtras Risk::ExtrasOf(const RiskRequest& request, const RiskResult& result, bool told) const {
    RiskExtras extras;
    if (tornado_) extras.tornado = RunTornado(request);
    // A picture shows nothing of the rest.
    if (!told) return extras;
    if (sobol_) {
        StudyProgress progress(options_.quiet, "samples");
        extras.sobol = RunSobol(request, progress);
    }
    StudyProgress progress(options_.quiet, "samples");
    extras.rare = *RunRareEvents(request, result, progress);
    return extras;
}

int Risk::Study(HeadlessPlatform& host) {
    const OutputTarget target(options_, {".txt", ".json", ".jsonl", ".png", ".svg", ".pdf"});
    const SamplesFile samples(samples_out_, options_);
    if (target.IsDrawn()) TheDrawing();
    const Panel project = ReadProject(host);
    const RiskRequest request = RequestFor(project, samples.IsAsked() || target.IsDrawn());
    if (sobol_ && !request.correlations.empty())
        throw UsageError{"--sobol: the indices are told of independent fields; leave out --correlate"};
    if (target.ToFile()) target.Prepare(target.PathFor(Project()));
    const RiskResult result = *OfOption("--correlate", [&] {
        StudyProgress progress(options_.quiet, "samples");
        return RunRisk(request, progress);
    });
    const RiskExtras extras = ExtrasOf(request, result, options_.json || !target.IsDrawn());
    if (samples.IsAsked()) WriteSamples(request, result, SampleTitles(request), *samples.Open());
    Write(target, request, result, extras);
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
