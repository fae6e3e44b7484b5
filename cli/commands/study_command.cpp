// SPDX-License-Identifier: GPL-3.0-or-later
// A study that the window has kept: a page of it is answered by the command that gives the same figures.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "cli/commands/commands.h"
#include "cli/commands/study_base.h"
#include "cli/line/own_words.h"
#include "cli/line/word_list.h"
#include "cli/output/failure.h"
#include "cli/output/output_target.h"
#include "cli/output/said_lines.h"
#include "core/files/whole_file.h"
#include "core/project/project_document.h"
#include "core/project/project_origin.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/studies/kept_study.h"

namespace tarvokol::cli {
namespace {

// How a page is answered: by which command, and as what.
struct PageFacts {
    StudyPages page;
    std::unique_ptr<Command> (*command)();
    std::vector<std::string> formats;
};

const PageFacts& FactsOfPage(StudyPages page) {
    static const std::vector<std::string> rows{"csv", "json", "jsonl", "xlsx"};
    static const std::vector<PageFacts> facts{
        {StudyPages::Map, SweepCommand, {"csv", "json", "jsonl", "xlsx", "png", "svg", "pdf"}},
        {StudyPages::Risk, RiskCommand, {"txt", "json", "jsonl", "png", "svg", "pdf"}},
        {StudyPages::Table, TableCommand, rows},
        {StudyPages::Compare, TableCommand, rows},
        {StudyPages::Width, DesignCommand, {"txt", "json", "jsonl", "csv", "png", "svg", "pdf"}}};
    return facts[static_cast<std::size_t>(page)];
}

std::vector<std::string> PageWords() {
    return {kStudyPageNames.begin(), kStudyPageNames.end()};
}

ProjectDocument DocumentOf(const KeptStudy& study) {
    ProjectDocument document;
    document.unit_system = static_cast<std::int16_t>(study.panel.units);
    document.inputs = study.panel;
    document.title = study.title;
    // Pictures of a project without a title are called by its file, as in the window.
    if (document.title.empty()) document.title = std::filesystem::path(study.project).filename().string();
    if (document.title.empty()) document.title = kUntitled;
    return document;
}

class Study : public Command {
  public:
    std::string Name() const override { return "study"; }
    std::string Summary() const override { return "A study that the window of TARVO-KOL Studies has kept"; }

    void Describe(CommandOptions& options) override {
        AddSettings(options, options_, ResultOf::Command);
        AddOutput(options, options_, ResultOf::Command,
                  "Write figures or a picture: a map .csv, .json, .xlsx, .png, .svg, .pdf; a risk .txt, "
                  ".json, .png, .svg, .pdf; table and designs .csv, .json, .xlsx; a width .txt, .json, .csv, "
                  ".png, .svg, .pdf",
                  {"csv", "txt", "json", "jsonl", "xlsx", "png", "svg", "pdf"});
        options.Text({.spelling = "--page",
                      .help = "The page that is answered (default: the one that was open)",
                      .value = "PAGE",
                      .choices = PageWords()},
                     page_);
        options.Text({.spelling = "FILE.TKS", .help = "The kept study", .required = true}, file_);
    }

    std::string Footer() const override {
        return "The figures of the project are those that the study keeps; what has changed in the "
               "project's\n"
               "file since is told on standard error.\n\nExamples:\n"
               "  tarvokol-cli study shallow.TKS\n"
               "  tarvokol-cli study shallow.TKS --page map -o map.pdf\n"
               "  tarvokol-cli study shallow.TKS --page risk --json";
    }

    void Settle() override { options_.files = {file_}; }

    int Run(HeadlessPlatform& host) override {
        if (options_.stdin_project) throw UsageError{"--stdin-project: a study holds its project"};
        try {
            return Answer(StudyOfBytes(ReadWholeFile(file_, kLargestStudy), file_), host);
        } catch (const KeptStudyFault& fault) {
            return TellFailure(fault.what());
        } catch (const StudyRefusal& refusal) {
            return TellFailure(file_ + ": " + refusal.what());
        } catch (const RunTimeError& error) {
            return TellFailure(file_ + ": " + error.text);
        }
    }

  private:
    int TellFailure(const std::string& why) const { return TellFailureOf(file_, why, options_.json); }

    StudyPages PageOf(const KeptStudy& study) const {
        if (page_.empty()) return study.page;
        const std::vector<std::string> words = PageWords();
        return static_cast<StudyPages>(std::find(words.begin(), words.end(), page_) - words.begin());
    }

    void RequireFormat(const PageFacts& facts) const {
        if (options_.format.empty() ||
            std::count(facts.formats.begin(), facts.formats.end(), options_.format) > 0)
            return;
        throw UsageError{std::string("--format: the page ") +
                         kStudyPageNames[static_cast<std::size_t>(facts.page)] + " is written as " +
                         Listed(facts.formats)};
    }

    // The command's own words for a page.
    std::vector<std::string> WordsOf(const KeptStudy& study, StudyPages page) const {
        std::vector<std::string> words{file_};
        std::vector<std::string> more;
        if (page == StudyPages::Map)
            more = WordsOfMap(study.map);
        else if (page == StudyPages::Risk)
            more = WordsOfRisk(study.risk);
        else if (page == StudyPages::Width)
            more = WordsOfWidth(study.width, study.risk, study.panel);
        else
            more = {file_, "--size"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    // What the pages refuse is the study's fault, and no wrong usage of the command.
    static void RequireSound(const KeptStudy& study, StudyPages page) {
        if (page == StudyPages::Map) SweepOf(study.map, study.panel);
        if (page == StudyPages::Risk) RequestOf(study.risk, study.panel);
        if (page == StudyPages::Width) RequestOf(study.width, study.risk, study.panel);
    }

    static std::string RowsOf(const KeptStudy& study, StudyPages page) {
        if (page == StudyPages::Table && study.columns.empty())
            throw StudyRefusal("the study keeps no table");
        if (page == StudyPages::Compare && study.designs.empty())
            throw StudyRefusal("the study keeps no designs");
        const bool draws = page == StudyPages::Risk || page == StudyPages::Width;
        if (draws && study.risk.fields.empty()) throw StudyRefusal("no figure of the study is uncertain");
        return page == StudyPages::Table     ? CsvOfTable(study)
               : page == StudyPages::Compare ? CsvOfDesigns(study)
                                             : "";
    }

    // The study answers all the same: it holds the figures.
    void TellOfProject(const KeptStudy& study) const {
        const std::string path = ProjectPathOf(study, file_);
        if (path.empty()) return;
        std::optional<ProjectDocument> present;
        try {
            present = DocumentIfSound(ReadWholeFile(path, kLargestProject));
        } catch (const RunTimeError& error) {
            return SayOfProject(path, ": " + error.text);
        }
        if (!present) return SayOfProject(path, " is no project any more");
        const Panel panel{present->inputs, static_cast<Units>(present->unit_system)};
        const std::string changes = ChangesSince(study.panel, panel);
        if (!changes.empty()) SayOfProject(path, " has changed since: " + changes);
    }

    void SayOfProject(const std::string& path, const std::string& what) const {
        SayOf(file_, "its project " + path + what + "; the figures are those that the study keeps");
    }

    int Answer(const KeptStudy& study, HeadlessPlatform& host) const {
        const StudyPages page = PageOf(study);
        const PageFacts& facts = FactsOfPage(page);
        RequireFormat(facts);
        const std::string rows = RowsOf(study, page);
        RequireSound(study, page);
        TellOfProject(study);
        const std::unique_ptr<Command> made = facts.command();
        auto& command = static_cast<StudyCommand&>(*made);
        ReadOwnWords(command, WordsOf(study, page));
        command.Common() = options_;
        command.TakeKept({DocumentOf(study), rows});
        return command.Run(host);
    }

    std::string page_;
    std::string file_;
};

}  // namespace

std::unique_ptr<Command> KeptStudyCommand() {
    return std::make_unique<Study>();
}

}  // namespace tarvokol::cli
