// SPDX-License-Identifier: GPL-3.0-or-later
// Which distribution the values of a column may come from, as text, object or picture, and the option that draws from it.
#include <algorithm>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "cli/commands/commands.h"
#include "cli/commands/share_words.h"
#include "cli/commands/study_base.h"
#include "cli/output/drawing.h"
#include "cli/output/failure.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "cli/output/progress_bar.h"
#include "cli/output/said_lines.h"
#include "core/files/csv_writer.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/statistics/sample_statistics.h"
#include "core/studies/fit_picture.h"
#include "core/studies/fit_study.h"
#include "core/studies/measured_column.h"
#include "core/studies/picture_parts.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

// What was measured, and what was found of it.
struct FitStudy {
    std::string file;
    std::optional<PanelField> field;
    MeasuredColumn column;
    FitRequest request;
    FitResult result;

    // What --random takes.
    std::string Random() const {
        return std::string(field ? NameOfField(*field) : "FIELD") + '=' + result.fits.front().text;
    }
};

// Words that a reader must not miss, with every output.
std::vector<std::string> RemarksOn(const FitStudy& study) {
    std::vector<std::string> remarks;
    const std::size_t count = study.request.values.size();
    if (count < kFewestToFit)
        remarks.push_back(std::to_string(count) + " values decide nothing: a fit needs at least " +
                          std::to_string(kFewestToFit));
    for (const FitLeftOut& one : study.result.left_out)
        remarks.push_back(one.name + " is left out: " + one.why);
    return remarks;
}

std::string HeadOf(const FitStudy& study) {
    const Moments moments = MomentsOf(study.request.values);
    const auto [low, high] = std::minmax_element(study.request.values.begin(), study.request.values.end());
    const std::string unit = study.column.unit.empty() ? "" : ' ' + study.column.unit;
    std::string text = study.file + ", column " + study.column.name + ": " +
                       std::to_string(study.request.values.size()) + " values from " + Short(*low) + " to " +
                       Short(*high) + unit + ", mean " + Short(moments.mean) + unit +
                       ", standard deviation " + Short(moments.standard_deviation) + unit + '\n';
    if (const auto blanks = study.column.blanks; blanks > 0)
        text += std::to_string(blanks) + (blanks == 1 ? " row" : " rows") + " without a value\n";
    return text + '\n';
}

std::string LineOf(const DistributionFit& fit) {
    constexpr int kName = 12;
    constexpr int kParameter = 30;
    constexpr int kNumber = 10;
    std::string line = Padded(fit.name, kName);
    for (const FittedParameter& one : fit.parameters)
        line += Padded(one.name + ' ' + RoundedText(one.value, kFigureDigits) + " (" +
                           RoundedText(one.standard_error, 2) + ')',
                       kParameter);
    for (const double number :
         {fit.log_likelihood, fit.bic, fit.kolmogorov_smirnov.statistic, fit.kolmogorov_smirnov.p,
          fit.anderson_darling.statistic, fit.anderson_darling.p})
        line += AtRight(Short(number), kNumber);
    return line + '\n';
}

// The kinds that the values do not tell from the best one.
std::string AsGoodAsBest(const FitResult& result) {
    constexpr double kWeak = 2.0;
    std::string names;
    for (std::size_t i = 1; i < result.fits.size(); ++i)
        if (result.fits[i].bic - result.fits.front().bic < kWeak)
            names += (names.empty() ? "" : ", ") + result.fits[i].name;
    return names.empty() ? "" : "BIC within 2 of the best, so hardly worse: " + names + '\n';
}

std::string FitText(const FitStudy& study) {
    const FitResult& result = study.result;
    constexpr double kDoubtful = 0.05;
    std::string text = HeadOf(study);
    text += Padded("Distribution", 12) + Padded(" Parameters (standard error)", 60) +
            "Log-likel.       BIC       K-S         p       A-D         p\n";
    for (const DistributionFit& fit : result.fits) text += LineOf(fit);
    text += "\np: the share of samples drawn from the fitted distribution and fitted anew (" +
            std::to_string(result.replicates) + ", seed " + std::to_string(study.request.seed) +
            ") that lie as far from theirs\n";
    for (const std::string& remark : RemarksOn(study)) text += remark + '\n';
    text += AsGoodAsBest(result);
    const DistributionFit& best = result.fits.front();
    if (std::min(best.kolmogorov_smirnov.p, best.anderson_darling.p) < kDoubtful)
        text += "Even the best does not look like the values: a p below 0.05\n";
    return text + "Best by BIC: --random " + study.Random() + '\n';
}

JsonMembers TestJson(const FitTest& test) {
    JsonMembers object;
    object.Add("statistic", test.statistic);
    object.Add("p", test.p);
    return object;
}

JsonMembers FitJson(const DistributionFit& fit) {
    JsonMembers parameters;
    for (const FittedParameter& one : fit.parameters) {
        JsonMembers parameter;
        parameter.Add("value", one.value);
        parameter.Add("standard_error", one.standard_error);
        parameters.Add(one.name, parameter);
    }
    JsonMembers object;
    object.Add("distribution", fit.name);
    object.Add("text", fit.text);
    object.Add("parameters", parameters);
    object.Add("log_likelihood", fit.log_likelihood);
    object.Add("bic", fit.bic);
    object.Add("kolmogorov_smirnov", TestJson(fit.kolmogorov_smirnov));
    object.Add("anderson_darling", TestJson(fit.anderson_darling));
    return object;
}

std::string StudyJson(const FitStudy& study) {
    const Moments moments = MomentsOf(study.request.values);
    JsonValues fits;
    for (const DistributionFit& fit : study.result.fits) fits.Add(FitJson(fit));
    JsonMembers units;
    if (!study.column.unit.empty())
        for (const char* const key : {"mean", "standard_deviation"}) units.Add(key, study.column.unit);
    JsonMembers object;
    object.Add("file", study.file);
    object.Add("ok", true);
    object.Add("messages", RemarksOn(study));
    object.Add("column", study.column.name);
    object.Add("values", study.request.values.size());
    object.Add("blanks", study.column.blanks);
    object.Add("mean", moments.mean);
    object.Add("standard_deviation", moments.standard_deviation);
    object.Add("seed", study.request.seed);
    object.Add("replicates", study.result.replicates);
    object.Add("random", study.Random());
    object.Add("fits", fits);
    object.Add("units", units);
    object.Add("schema", kSchemaVersion);
    return object.Line();
}

class Fit : public Command {
  public:
    std::string Name() const override { return "fit"; }
    std::string Summary() const override {
        return "Which distribution the measured values of a column may come from";
    }

    void Describe(CommandOptions& options) override {
        AddSettings(options, options_, ResultOf::Command);
        AddOutput(options, options_, ResultOf::Command,
                  "Write the result (.txt, .json) or a picture (.png, .svg, .pdf)",
                  {"txt", "json", "jsonl", "png", "svg", "pdf"});
        options.Text({.spelling = "--column",
                      .help = "The title of the column, with or without its unit in brackets",
                      .value = "NAME",
                      .required = true,
                      .refusal = WhyEmpty},
                     column_);
        options.Text({.spelling = "--field",
                      .help = "The field that the values are of; the option that is told names it",
                      .value = "FIELD"},
                     field_);
        options.Text({.spelling = "FILE.csv", .help = "The table of the values", .required = true}, file_);
    }

    std::string Footer() const override {
        return "normal, lognormal, weibull, gumbel and gamma are fitted by maximum likelihood; the best, of\n"
               "the lowest BIC, stands first.\n\nExamples:\n"
               "  tarvokol-cli fit strengths.csv --column Strength --field CoalStrength\n"
               "  tarvokol-cli fit strengths.csv --column Strength -o strengths.png\n"
               "  tarvokol-cli fit strengths.csv --column Strength --json";
    }

    void Settle() override { options_.files = {file_}; }

    int Run(HeadlessPlatform& /*host*/) override {
        try {
            return Study();
        } catch (const StudyShortage& shortage) {
            return Tell(shortage.what(), exit_status::Refused);
        } catch (const StudyRefusal& refusal) {
            return TellFailure(refusal.what());
        } catch (const OutputError& error) {
            return Tell(error.text, exit_status::NotWritten);
        } catch (const RunTimeError& error) {
            return Tell(error.text, exit_status::NotWritten);
        } catch (const std::bad_alloc&) {
            return Tell("out of memory", exit_status::Refused);
        }
    }

  private:
    static int Tell(const std::string& text, int status) {
        Say(text);
        return status;
    }

    int TellFailure(const std::string& why) const { return TellFailureOf(file_, why, options_.json); }

    // The column must be in a unit of the field, of one system or the other.
    void RequireUnit(PanelField field, const MeasuredColumn& column) const {
        const PanelFieldFacts& facts = FactsOf(field);
        if (column.unit.empty() || EqualIgnoringCase(column.unit, facts.english) ||
            EqualIgnoringCase(column.unit, facts.metric))
            return;
        const std::string english = facts.english;
        throw StudyRefusal(file_ + ": the column " + column.name + " is in " + column.unit + ", " +
                           NameOfField(field) +
                           (english.empty() ? " has no unit" : " is in " + english + " or " + facts.metric));
    }

    FitStudy Found() const {
        FitStudy study;
        study.file = file_;
        if (!field_.empty()) {
            try {
                study.field = RequiredField(field_);
            } catch (const StudyRefusal& refusal) {
                throw UsageError{std::string("--field: ") + refusal.what()};
            }
        }
        study.column = ReadMeasuredColumn(file_, column_);
        if (study.field) RequireUnit(*study.field, study.column);
        study.request.values = study.column.values;
        study.request.threads = std::max(1U, std::thread::hardware_concurrency());
        StudyProgress progress(options_.quiet, "samples");
        study.result = *About(file_, [&] { return RunFit(study.request, progress); });
        return study;
    }

    void Draw(const FitStudy& study, const std::string& path) const {
        const std::string column = TitleWithUnit(study.column.name, study.column.unit);
        TheDrawing().DrawStudy(
            path, FitPictureOf(study.request, study.result, study.file + ", " + study.column.name, column));
    }

    int Study() const {
        if (options_.stdin_project) throw UsageError{"--stdin-project: a fit has no project"};
        const OutputTarget target(options_, {".txt", ".json", ".jsonl", ".png", ".svg", ".pdf"});
        if (target.IsDrawn()) TheDrawing();
        const std::string path = target.PathFor(file_);
        if (target.ToFile()) target.Prepare(path);
        const FitStudy study = Found();
        if (target.Format() == ".json")
            target.WriteBytes(path, StudyJson(study));
        else if (target.Format() == ".txt")
            target.WriteBytes(path, FitText(study));
        else if (target.ToFile())
            target.Write(path, [&](const std::string& name) { Draw(study, name); });
        if (options_.json) std::cout << StudyJson(study);
        if (!options_.json && !target.ToFile()) std::cout << ForStandardOutput(FitText(study));
        if (target.ToFile())
            for (const std::string& remark : RemarksOn(study)) SayOf(file_, remark);
        return exit_status::Done;
    }

    std::string column_;
    std::string field_;
    std::string file_;
};

}  // namespace

std::unique_ptr<Command> FitCommand() {
    return std::make_unique<Fit>();
}

}  // namespace tarvokol::cli
