// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands of the studies share: the project that they start from, and how they tell what is wrong.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/commands/random_options.h"
#include "cli/line/command.h"
#include "core/engine/panel_fields.h"
#include "core/project/project_document.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/row_risk.h"

namespace tarvokol::cli {

// Data that a study cannot use, exit status 1: a line on standard error or, as JSON, an object without figures.
struct DataError {
    std::string line;
    std::vector<std::string> messages{};  // of the object
    int error_number = 0;  // the run-time error that ended the reading of the project, if one did
    std::string error_text{};
};

// How the rows of a study are calculated and told.
struct RowJob {
    Panel project;
    std::string file;    // the path of the project as given
    std::string title;   // of pictures
    bool sizes = false;  // suggested sizes, too
    bool bare_header = false;
    unsigned threads = 1;
    bool quiet = false;     // no progress
    RowRiskRequest risk{};  // the probabilities of each row, where they are asked for
};

// What a kept study brings along in place of files.
struct KeptInputs {
    ProjectDocument project;
    std::string rows{};  // of a table, as CSV
};

class StudyCommand : public Command {
  public:
    std::string Footer() const override;
    void Settle() override { options_.files = {project_}; }
    int Run(HeadlessPlatform& host) final;

    // Takes the place of the files that PROJECT and ROWS.csv name.
    void TakeKept(KeptInputs kept) { kept_ = std::move(kept); }

  protected:
    // The study itself; its refusals are reported by Run.
    virtual int Study(HeadlessPlatform& host) = 0;

    // Commands that follow the list of fields in the help, one a line.
    virtual std::vector<std::string> Examples() const = 0;

    // The options that every study has, and the argument PROJECT.
    void AddStudy(CommandOptions& options, ResultOf result, const std::string& output_help,
                  const std::vector<std::string>& formats);
    // --size, --random and what goes with it, and --bare-header, for the studies that write rows.
    void AddRowOptions(CommandOptions& options);

    // The project, read as every FILE is: into a fresh program, with the settings named. Raises DataError with what the
    // program says of a file that it refuses or cannot read.
    Panel ReadProject(HeadlessPlatform& host) const;

    // The rows of the project that was read. Says on standard error where suggested sizes stand in another unit than the
    // project's lengths.
    RowJob JobFor(const Panel& project) const;

    // Once the project is read: its own title, else its path.
    std::string Title() const;

    unsigned Threads() const { return ThreadsOf(options_); }
    bool WithSizes() const { return sizes_; }
    bool WithProbabilities() const { return random_.AreGiven(); }
    const std::string& Project() const { return project_; }
    const std::optional<KeptInputs>& Kept() const { return kept_; }

  private:
    int Attempt(HeadlessPlatform& host);
    int TellFailure(const DataError& error) const;

    std::string project_;
    bool sizes_ = false;
    bool bare_header_ = false;
    RandomOptions random_;
    std::optional<KeptInputs> kept_;
};

// A field and what an option gives it: "Height=1:3:1".
struct FieldOption {
    PanelField field;
    std::string text;
};

// Cuts it at its "="; `form` is how it should be written. Raises UsageError where there is none, StudyRefusal for an
// unknown field.
FieldOption SplitFieldOption(const std::string& option, const std::string& text, const std::string& form);

// Wrong usage of an option, by what a study refuses: the refusal names the field, this names the option.
UsageError RefusedOption(const std::string& option, const StudyRefusal& refusal);

// Does the work; what it refuses is wrong usage of the option.
template <typename Work>
decltype(auto) OfOption(const std::string& option, Work work) {
    try {
        return work();
    } catch (const StudyShortage&) {
        throw;  // no option is to blame
    } catch (const StudyRefusal& refusal) {
        throw RefusedOption(option, refusal);
    }
}

// Raises DataError for a path that is no readable regular file.
void RequireReadableFile(const std::string& path);

}  // namespace tarvokol::cli
