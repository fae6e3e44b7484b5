// SPDX-License-Identifier: GPL-3.0-or-later
// A study that is kept in a file of its own, "*.TKS": the project's figures as they were, and what each page asks for. A text
// of sections and keys, each of which is checked when it is read.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

enum class StudyPages { Map, Risk, Table, Compare, Width };  // the last on the page of the risk

// By which the file and the command line call them.
inline constexpr std::array kStudyPageNames{"map", "risk", "table", "compare", "width"};

// The first line of the file.
inline constexpr std::string_view kStudyMagic = "[TARVO-KOL Study]";

constexpr std::size_t kLargestStudy = std::size_t{256} * 1024 * 1024;
constexpr std::size_t kMostKeptDesigns = 6;

struct NamedPanel {
    std::string name;
    Panel panel;
};

struct KeptStudy {
    std::string
        project;  // path of its file, seen from the study's folder; empty for one that was never saved
    std::string title;
    Panel panel;
    StudyPages page = StudyPages::Map;
    std::array<FieldRange, kPanelFields.size()> ranges;  // in the order of PanelField
    MapRequest map;                                      // whose ranges are those of the fields
    RiskPlan risk;
    WidthQuestion width;
    std::vector<std::string> columns;  // of the table: as many in each row; none where there is no table
    std::vector<std::vector<std::string>> rows;
    std::vector<NamedPanel> designs;
};

// What is wrong with a kept study, with its place: "panel.TKS, line 3: ...".
class KeptStudyFault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The text of the file, in UTF-8, each line ended by CR LF.
std::string TextOfStudy(const KeptStudy& study);

// The study of a file's bytes; `name` stands in the words of faults. Raises KeptStudyFault for what is no kept study, for one
// that ends early or holds a key that it should not, and for each value that its key does not take.
KeptStudy StudyOfBytes(std::string_view bytes, const std::string& name);

// True if the bytes begin as a kept study does.
bool IsKeptStudy(std::string_view bytes);

// The project's path as a study at `study_path` keeps it, and the other way round. Raise nothing.
std::string ProjectSeenFrom(const std::string& study_path, const std::string& project_path);
std::string ProjectPathOf(const KeptStudy& study, const std::string& study_path);

// What has changed since, in words: "Web thickness (ft) was 5 and is 6"; empty where nothing has.
std::string ChangesSince(const Panel& kept, const Panel& present);

// The table as CSV, header and all.
std::string CsvOfTable(const KeptStudy& study);

// The designs as a table of all fields, a design each row. Raises StudyRefusal for one in other units, or with other
// crosscuts, than the project.
std::string CsvOfDesigns(const KeptStudy& study);

}  // namespace tarvokol
