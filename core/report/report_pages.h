// SPDX-License-Identifier: GPL-3.0-or-later
// The three pages of the report as functions of values: no record of the program is read, so any number of reports may be
// written at once. Fixed-pitch text with CR LF line ends.
#pragma once

#include <string>

#include "core/engine/engine.h"
#include "core/project/project_document.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// Names printed in the report: of the stability cases, and of the barrier and the webs.
using CaseNames = OneBased<std::string, 3>;
using PillarNames = OneBased<std::string, 2>;

// What a report asks of the program beside the project.
struct ReportSettings {
    bool module_header = true;
    bool plot_reminder = true;
    OutputUnits output{};
    CaseNames case_names{};
    PillarNames pillar_names{};
};

struct ReportPages {
    std::string inputs;   // page 0
    std::string factors;  // page 1
    std::string pillars;  // page 2
};

// The pages of a project that the check has passed, with the center distances that it has built and the analysis in the
// project's own units. `file` is its path in the header; the description is shown wrapped. Raises what the parts raise.
ReportPages PagesOf(const std::string& file, const ProjectDocument& project, const Analysis& analysis,
                    const ReportSettings& settings);

// Its parts. Each adds to the end of the text; an error leaves there what was written until then.

// The head of page 0. Raises the error of WrapText.
void WriteModuleHeader(std::string& text, const std::string& file, int unit_system);

// The rest of page 0, the description as it stands.
void WriteInputPage(std::string& text, const ProjectDocument& project);

// Page 1, of an analysis in the panel's own units. Raises "Overflow" and "Division by zero".
void WriteFactorPage(std::string& text, const PanelInputs& inputs, const PanelAnalysis& analysis,
                     int unit_system, const CaseNames& names);

// Page 2, of an analysis in output units. `CalcLoopIndex`, which the pillar loops share, is left after the last pillar
// listed.
void WritePillarPage(std::string& text, PanelAnalysis& figures, const std::string& stress_label,
                     int unit_system, const PillarNames& names, bool plot_reminder);

}  // namespace tarvokol
