// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/study_base.h"

#include <algorithm>
#include <iostream>
#include <new>

#include <fcntl.h>

#include "cli/commands/bulk_run.h"
#include "cli/line/help_text.h"
#include "cli/line/settings_file.h"
#include "cli/line/standard_input.h"
#include "cli/output/failure.h"
#include "cli/output/json.h"
#include "cli/output/output_target.h"
#include "cli/output/said_lines.h"
#include "core/files/csv_reader.h"
#include "core/files/descriptor.h"
#include "core/program/start_up.h"
#include "core/project/pillar_sizing.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/unit_system.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_names.h"

namespace tarvokol::cli {
namespace {

std::string FieldsText() {
    std::string fields = "Fields, in the project's units: ";
    for (const PanelFieldFacts& facts : kPanelFields)
        fields += std::string(facts.name) + (facts.field == PanelField::SFBarrier ? "." : ", ");
    return Folded(fields, kHelpWidth, "") + "\n\n";
}

// A command that is too long for a line goes on in the next, as a shell takes it.
std::string ExampleText(std::string command) {
    // An option stays beside its value.
    constexpr char kUnbroken = '\1';
    for (std::size_t at = command.find(" -"); at != std::string::npos; at = command.find(" -", at + 1))
        if (const std::size_t value = command.find(' ', at + 1); value != std::string::npos)
            command[value] = kUnbroken;
    const std::string indent(6, ' ');
    std::string text = "\n  " + Folded(command, kHelpWidth - indent.size(), indent, " \\");
    std::replace(text.begin(), text.end(), kUnbroken, ' ');
    return text;
}

int Tell(const std::string& text, int status) {
    Say(text);
    return status;
}

}  // namespace

std::string StudyCommand::Footer() const {
    std::string footer = FieldsText() + "Examples:";
    for (const std::string& example : Examples()) footer += ExampleText(example);
    return footer;
}

void StudyCommand::AddStudy(CommandOptions& options, ResultOf result, const std::string& output_help,
                            const std::vector<std::string>& formats) {
    AddSettings(options, options_, result);
    AddOutput(options, options_, result, output_help, formats);
    AddThreads(options, options_);
    options.Text({.spelling = "PROJECT", .help = "The project to start from", .required = true}, project_);
}

void StudyCommand::AddRowOptions(CommandOptions& options) {
    options.Flag(
        {.spelling = "--size", .help = "The suggested sizes, too: SuggestedWeb and SuggestedBarrier, inches"},
        sizes_);
    random_.DescribeForRows(options);
    AddBareHeader(options, bare_header_);
}

Panel StudyCommand::ReadProject(HeadlessPlatform& host) const {
    host.Messages.Shown.clear();
    try {
        ResetProgram();
        ReadConfiguration(options_.settings);
        if (kept_) PutIntoRecords(kept_->project);
        if (kept_ || OpenProject(project_)) return {ProjectRecord, ProjectUnits()};
    } catch (const RunTimeError& error) {
        throw DataError{
            project_ + ": " + error.text + HintAtStandardInput(project_), {}, error.number, error.text};
    }
    DataError refusal{project_ + ": is no project"};
    for (const BoxRequest& box : host.Messages.Shown) refusal.messages.push_back(box.message);
    if (!refusal.messages.empty()) refusal.line = project_ + ": " + refusal.messages.front();
    throw refusal;
}

RowJob StudyCommand::JobFor(const Panel& project) const {
    if (sizes_ && UnitSystem != 0) SayOf(project_, SuggestedUnitNote());
    return {project,      project_,  Title(),        sizes_,
            bare_header_, Threads(), options_.quiet, random_.RequestForRows()};
}

std::string StudyCommand::Title() const {
    return ProjectTitle.empty() ? project_ : ProjectTitle;
}

// With --json the failure is an object for the project. A file of objects is left as it was, as one of another form is.
int StudyCommand::TellFailure(const DataError& error) const {
    if (!options_.json) return Tell(error.line, exit_status::Refused);
    JsonMembers object = FailureMembers(project_, error.messages);
    if (error.error_number != 0) object.Append(ErrorMember(error.error_number, error.error_text));
    object.Add("schema", kSchemaVersion);
    std::cout << object.Line();
    return exit_status::Refused;
}

int StudyCommand::Attempt(HeadlessPlatform& host) {
    try {
        return Study(host);
    } catch (const StudyShortage& shortage) {
        return Tell(shortage.what(), exit_status::Refused);
    } catch (const StudyRefusal& refusal) {
        throw UsageError{refusal.what()};
    } catch (const DataError& error) {
        return TellFailure(error);
    } catch (const TableFault& fault) {
        return TellFailure({fault.what(), {fault.what()}});
    }
}

int StudyCommand::Run(HeadlessPlatform& host) {
    try {
        return Attempt(host);
    } catch (const OutputError& error) {
        return Tell(error.text, exit_status::NotWritten);
    } catch (const RunTimeError& error) {
        return Tell(error.text, exit_status::NotWritten);
    } catch (const std::bad_alloc&) {
        return Tell("out of memory", exit_status::Refused);
    }
}

FieldOption SplitFieldOption(const std::string& option, const std::string& text, const std::string& form) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageError{option + ": \"" + text + "\" has no \"=\"; write " + form};
    return {RequiredField(std::string_view(text).substr(0, equals)), text.substr(equals + 1)};
}

UsageError RefusedOption(const std::string& option, const StudyRefusal& refusal) {
    return {option + (refusal.Subject().empty() ? "" : ' ' + refusal.Subject()) + ": " + refusal.Fault()};
}

void RequireReadableFile(const std::string& path) {
    try {
        const Descriptor file(path, O_RDONLY);
    } catch (const RunTimeError& error) {
        const std::string line = path + ": " + error.text;
        throw DataError{line, {line}};
    }
}

}  // namespace tarvokol::cli
