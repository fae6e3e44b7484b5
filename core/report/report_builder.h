// SPDX-License-Identifier: GPL-3.0-or-later
// The report of the program's project: its records handed to the pages (report_pages.h), and the helpers of their text.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/report/report_pages.h"
#include "core/runtime/numbers.h"

namespace tarvokol {

struct ReportState {
    // `OutputBuffers` holds pages 0 (inputs), 1 (stability factors) and 2 (pillars); a new project clears 1
    // and 2.
    int16_t LastOutputPage = 2;

    // Names printed in the report, set at start-up.
    CaseNames StabilityCaseNames;
    PillarNames PillarClassNames;
};
namespace state {
inline ReportState Report;
}
// Written by core/program/built_in_values and core/report/report_builder.
inline auto& LastOutputPage = state::Report.LastOutputPage;
// Written by core/program/built_in_values.
inline auto& StabilityCaseNames = state::Report.StabilityCaseNames;
inline auto& PillarClassNames = state::Report.PillarClassNames;

// Writes page 0 from the project's inputs; `mode` is ignored. Raises the error of WrapText.
void LoadOutBuf0(const int16_t& mode);

// Writes page 1 of the project, or of the record that the analysis ran on; logs, and puts the results into
// output units at its very end.
void WriteStabilitySection();
void WriteStabilitySection(const PanelInputs& record);

// Writes page 2; must run after WriteStabilitySection.
void WritePillarSection();

// What the pages are made by, as the program's options stand.
ReportSettings ReportSettingsInUse();

// Steps of the output command after its gate, for a record in the open project's units: input check, which
// rebuilds its center distances, analysis, pages 1 and 2. False if the check refuses, and then the pages stay
// as they were.
bool CalculateReport(PanelInputs& record);

// The text with "." up to a width, or with blanks before it; longer texts stay unchanged. Widths in
// characters.
std::string DotPad(const std::string& text, std::size_t width);
std::string RightJustify(const std::string& text, std::size_t width);

// The general text of a number, right-justified.
template <typename Number>
requires std::integral<Number> || std::floating_point<Number> std::string RightJustify(Number value,
                                                                                       std::size_t width) {
    return RightJustify(GeneralText(value), width);
}

// The text in lines, each with a CR LF after it: a line that is longer than `width` characters is broken at
// its last blank there. A width of 20 or less returns the text unchanged, without a CR LF. More than `width`
// characters without a blank raise "Invalid procedure call or argument".
std::string WrapText(const std::string& text, int width);

// Version of the running program: "1.3.02".
std::string VersionString();

}  // namespace tarvokol
