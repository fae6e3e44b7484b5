// SPDX-License-Identifier: GPL-3.0-or-later
// How wide a web or a barrier must be, or what else a field must hold, for a probability that is small enough.
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/commands/design_words.h"
#include "cli/commands/random_options.h"
#include "cli/commands/study_base.h"
#include "cli/output/drawing.h"
#include "cli/output/output_target.h"
#include "cli/output/progress_bar.h"
#include "cli/output/said_lines.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/design_picture.h"
#include "core/studies/design_study.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

std::string WithoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

// "5%", "0.05".
double ProbabilityOf(const std::string& text) {
    constexpr double kPercent = 100.0;
    if (!text.ends_with('%')) return RequiredNumber(text);
    return RequiredNumber(std::string_view(text).substr(0, text.size() - 1)) / kPercent;
}

// "WebsOnly<1.6".
struct Until {
    const StudyFigure* factor = nullptr;
    double target = 0;
};

Until UntilOf(const std::string& option) {
    const std::string text = WithoutBlanks(option);
    const std::size_t mark = text.find('<');
    if (mark == std::string::npos)
        throw UsageError{"--until: \"" + option + "\" has no \"<\"; write FACTOR<TARGET between quotes"};
    return OfOption("--until", [&]() -> Until {
        return {&RequiredFigure(text.substr(0, mark)), RequiredNumber(text.substr(mark + 1))};
    });
}

class Design : public StudyCommand {
  public:
    std::string Name() const override { return "design"; }
    std::string Summary() const override {
        return "The value of a field at which a factor is unlikely enough to lie below its target";
    }
    void Describe(CommandOptions& options) override;

  protected:
    std::vector<std::string> Examples() const override {
        return {
            "tarvokol-cli design panel.TKL --random CoalStrength=lognormal:100%:15% --find WebThickness "
            "--until \"WebsOnly<1.6\" --probability 5% --step 0.25",
            "tarvokol-cli design panel.TKL --random CoalStrength=lognormal:100%:15% --find WebThickness "
            "--until \"WebsOnly<1.6\" --find BarrierPillarWidth --until \"BarrierPillar<2\" --probability "
            "5% --json",
            "tarvokol-cli design panel.TKL --random CoalStrength=normal:900:135 --find DepthCover --until "
            "\"WebsOnly<1.3\" --probability 1% -o depth.png"};
    }
    int Study(HeadlessPlatform& host) override;

  private:
    DesignRequest RequestFor(const Panel& project) const;
    void AddDemands(DesignRequest& request) const;
    void SetRanges(DesignRequest& request) const;
    const FoundValue& Shown(const DesignResult& result) const;
    void RequireOnePicture(const DesignRequest& request) const;
    void Write(const OutputTarget& target, const DesignRequest& request, const DesignResult& result) const;

    RandomOptions random_;
    std::vector<std::string> find_;
    std::vector<std::string> until_;
    std::vector<std::string> probability_;
    std::vector<std::string> between_;
    std::string step_;
    std::string of_;
};

void Design::Describe(CommandOptions& options) {
    AddStudy(options, ResultOf::Command,
             "Write the summary (.txt, .json), the curve (.csv) or its picture (.png, .svg, .pdf)",
             {"txt", "json", "jsonl", "csv", "png", "svg", "pdf"});
    random_.Describe(options);
    options.Texts(
        {.spelling = "--find",
         .help = "The field whose value is sought; given twice, webs are found before barriers, each "
                 "with its own --until",
         .value = "FIELD",
         .required = true},
        find_);
    options.Texts({.spelling = "--until",
                   .help = "What is to be unlikely: Overall, WebsOnly or BarrierPillar below a target",
                   .value = "\"FACTOR<TARGET\"",
                   .required = true},
                  until_);
    options.Texts({.spelling = "--probability",
                   .help = "How likely it may be, 5% or 0.05; once for all, or one for each --find",
                   .value = "P",
                   .required = true},
                  probability_);
    options.Texts(
        {.spelling = "--between",
         .help = "FIELD=LO:HI: the range that is searched (default: a tenth of the project's own value "
                 "to ten times it; 1 to 20 holes, 1 to 89 degrees)",
         .value = "FIELD=LO:HI"},
        between_);
    options.Text({.spelling = "--step",
                  .help = "Round the value to a multiple of this, to the safe side: a web up",
                  .value = "WIDTH",
                  .refusal = WhyEmpty},
                 step_);
    options.Text({.spelling = "--of",
                  .help = "The field whose curve is drawn, where two are sought",
                  .value = "FIELD",
                  .refusal = WhyEmpty},
                 of_);
}

void Design::AddDemands(DesignRequest& request) const {
    if (until_.size() != find_.size())
        throw UsageError{"--until: " + std::to_string(until_.size()) + " for " +
                         std::to_string(find_.size()) + " --find; each --find has one of its own"};
    if (probability_.size() != 1 && probability_.size() != find_.size())
        throw UsageError{"--probability: " + std::to_string(probability_.size()) + " for " +
                         std::to_string(find_.size()) + " --find; write one for all or one for each"};
    for (std::size_t i = 0; i < find_.size(); ++i) {
        const PanelField field = OfOption("--find", [&] { return RequiredField(find_[i]); });
        const Until until = UntilOf(until_[i]);
        const std::string& share = probability_[probability_.size() == 1 ? 0 : i];
        const double probability = OfOption("--probability", [&] { return ProbabilityOf(share); });
        OfOption("--find", [&] { request.AddDemand(field, *until.factor, until.target, probability); });
    }
}

void Design::SetRanges(DesignRequest& request) const {
    constexpr const char* kForm = "FIELD=LO:HI";
    for (const std::string& text : between_) {
        const FieldOption option = SplitFieldOption("--between", text, kForm);
        const std::size_t colon = option.text.find(':');
        if (colon == std::string::npos)
            throw UsageError{"--between: \"" + text + "\" has no \":\"; write " + kForm};
        OfOption("--between", [&] {
            request.SetRange(option.field, RequiredNumber(option.text.substr(0, colon)),
                             RequiredNumber(option.text.substr(colon + 1)));
        });
    }
}

DesignRequest Design::RequestFor(const Panel& project) const {
    DesignRequest request;
    request.risk = random_.RequestFor(project, Threads());
    AddDemands(request);
    SetRanges(request);
    if (!step_.empty()) OfOption("--step", [&] { request.SetStep(RequiredNumber(step_)); });
    return request;
}

// Before anything is calculated.
void Design::RequireOnePicture(const DesignRequest& request) const {
    if (of_.empty() && request.demands.size() > 1)
        throw UsageError{"-o: a picture shows one field; --of names it"};
    if (of_.empty()) return;
    const PanelField field = OfOption("--of", [&] { return RequiredField(of_); });
    for (const DesignDemand& demand : request.demands)
        if (demand.field == field) return;
    throw UsageError{"--of " + of_ + ": the field is not sought"};
}

const FoundValue& Design::Shown(const DesignResult& result) const {
    for (const FoundValue& found : result.found)
        if (!of_.empty() && found.demand.field == RequiredField(of_)) return found;
    return result.found.front();
}

void Design::Write(const OutputTarget& target, const DesignRequest& request,
                   const DesignResult& result) const {
    const std::string json = DesignJson(request, result, Project()).Line();
    const std::string path = target.PathFor(Project());
    if (target.Format() == ".json")
        target.WriteBytes(path, json);
    else if (target.Format() == ".txt")
        target.WriteBytes(path, DesignText(request, result, Title()));
    else if (target.Format() == ".csv")
        target.WriteBytes(path, DesignCsv(request, result));
    else if (target.ToFile())
        target.Write(path, [&](const std::string& name) {
            TheDrawing().DrawStudy(name, DesignCurveOf(request, Shown(result), Title()));
        });
    if (options_.json) std::cout << json;
    if (!options_.json && !target.ToFile())
        std::cout << ForStandardOutput(DesignText(request, result, Title()));
}

int Design::Study(HeadlessPlatform& host) {
    const OutputTarget target(options_, {".txt", ".json", ".jsonl", ".csv", ".png", ".svg", ".pdf"});
    if (target.IsDrawn()) TheDrawing();
    const DesignRequest request = RequestFor(ReadProject(host));
    if (target.IsDrawn() || !of_.empty()) RequireOnePicture(request);
    if (target.ToFile()) target.Prepare(target.PathFor(Project()));
    const DesignResult result = *[&] {
        StudyProgress progress(options_.quiet, "samples");
        try {
            return RunDesign(request, progress);
        } catch (const NoSuchValue& none) {
            throw DataError{Project() + ": " + none.what(), {none.what()}};
        }
    }();
    Write(target, request, result);
    return exit_status::Done;
}

}  // namespace

std::unique_ptr<Command> DesignCommand() {
    return std::make_unique<Design>();
}

}  // namespace tarvokol::cli
