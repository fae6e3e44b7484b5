// SPDX-License-Identifier: GPL-3.0-or-later
// A kept study out of the bytes of its file, key by key.
#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "core/runtime/charset.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/statistics/distributions.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/kept_study.h"
#include "core/studies/study_names.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLongestName = 254;

double NumberIn(const std::string& value, double low, double high) {
    const double number = RequiredNumber(Trim(value));
    if (number >= low && number <= high) return number;
    throw StudyRefusal("\"" + value + "\" does not lie from " + GeneralText(low) + " to " +
                       GeneralText(high));
}

double WholeIn(const std::string& value, double low, double high) {
    const double number = NumberIn(value, low, high);
    if (number == std::floor(number)) return number;
    throw StudyRefusal("\"" + value + "\" is not a whole number");
}

std::string Unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\') {
            text += value[i];
            continue;
        }
        const char next = ++i < value.size() ? value[i] : '\0';
        if (next == '\\')
            text += '\\';
        else if (next == 'n')
            text += '\n';
        else if (next == 'r')
            text += '\r';
        else
            throw StudyRefusal("\"\\\" is followed by \"\\\", \"n\" or \"r\"");
    }
    return text;
}

// The cells of a record that the program itself has written: separated by commas, quotes doubled within quotes.
std::vector<std::string> CellsOf(const std::string& record) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (std::size_t i = 0; i < record.size(); ++i) {
        const char c = record[i];
        const bool doubled = quoted && c == '"' && i + 1 < record.size() && record[i + 1] == '"';
        if (doubled)
            cells.back() += record[++i];
        else if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            cells.emplace_back();
        else
            cells.back() += c;
    }
    if (quoted) throw StudyRefusal("a quote does not close");
    return cells;
}

void ReadUnits(Panel& panel, const std::string& value) {
    panel.units = static_cast<Units>(static_cast<int>(WholeIn(value, 0, 1)));
}

// A figure of a panel; false for a key that is none.
bool ReadFigure(Panel& panel, const std::string& key, const std::string& value) {
    if (key == "CrosscutSpacing" || key == "CrosscutAngle") {
        (key == "CrosscutSpacing" ? panel.CrosscutSpacing : panel.CrosscutAngle) =
            RequiredNumber(Trim(value));
        return true;
    }
    if (key == "UnitSystem") {
        ReadUnits(panel, value);
        return true;
    }
    const auto field = FieldNamed(key);
    if (!field || key != NameOfField(*field)) return false;
    const double number = RequiredNumber(Trim(value));
    if (!FitsField(*field, number)) throw StudyRefusal("\"" + value + "\" cannot be stored in this field");
    StoreInField(panel, *field, number);
    return true;
}

std::vector<std::string> FieldKeys() {
    std::vector<std::string> keys;
    keys.reserve(kPanelFields.size());
    for (const PanelFieldFacts& facts : kPanelFields) keys.emplace_back(facts.name);
    return keys;
}

std::vector<std::string> FigureKeys() {
    std::vector<std::string> keys = FieldKeys();
    keys.insert(keys.begin(), {"UnitSystem", "CrosscutSpacing", "CrosscutAngle"});
    return keys;
}

class StudyReader {
  public:
    StudyReader(std::string_view bytes, std::string name)
        : text_(DecodeText(bytes, DetectCharset(bytes))), name_(std::move(name)) {}

    KeptStudy Read();

  private:
    [[noreturn]] void Refuse(const std::string& why) const {
        throw KeptStudyFault(name_ + ", line " + std::to_string(line_) + ": " + why);
    }
    bool NextLine(std::string& line);
    void TakeLine(const std::string& line);
    void Begin(const std::string& section);
    void EndSection();
    void Take(const std::string& key, const std::string& value);
    void TakeHead(const std::string& key, const std::string& value);
    void TakeProject(const std::string& key, const std::string& value);
    void TakeRange(const std::string& key, const std::string& value);
    void TakeMap(const std::string& key, const std::string& value);
    void TakeRisk(const std::string& key, const std::string& value);
    void TakeWidth(const std::string& key, const std::string& value);
    void TakeTable(const std::string& key, const std::string& value);
    void TakeDesign(const std::string& key, const std::string& value);
    void TakeUncertain(const std::string& value);
    void TakeCorrelation(const std::string& value);
    void RequireKeys(const std::vector<std::string>& keys) const;
    bool IsNext(const std::string& key, const char* stem, std::size_t so_far) const {
        return key == stem + std::to_string(so_far + 1);
    }
    void Settle();

    [[noreturn]] static void RefuseKey() { throw StudyRefusal("the section has no such key"); }

    std::string text_;
    std::string name_;
    std::size_t at_ = 0;
    std::size_t line_ = 0;
    std::string section_;
    std::set<std::string> sections_;
    std::set<std::string> keys_;  // of the section, but for the numbered ones
    std::size_t rows_ = 0;        // that the table tells
    bool ended_ = false;
    KeptStudy study_;
};

bool StudyReader::NextLine(std::string& line) {
    if (at_ >= text_.size()) return false;
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    line = text_.substr(at_, end - at_);
    if (line.ends_with('\r')) line.pop_back();
    at_ = end + 1;
    ++line_;
    return true;
}

void StudyReader::RequireKeys(const std::vector<std::string>& keys) const {
    for (const std::string& key : keys)
        if (!keys_.contains(key)) Refuse("[" + section_ + "] ends without " + key);
}

void StudyReader::EndSection() {
    if (section_ == "TARVO-KOL Study") RequireKeys({"Version", "Page"});
    if (section_ == "Project") RequireKeys(FigureKeys());
    if (section_ == "Ranges") RequireKeys(FieldKeys());
    if (section_ == "Map") RequireKeys({"X", "Y", "Figure"});
    if (section_ == "Risk") RequireKeys({"Samples", "Seed"});
    if (section_ == "Width") RequireKeys({"Field", "Probability", "Step"});
    if (section_ == "Table") {
        RequireKeys({"Rows", "Columns"});
        if (study_.rows.size() != rows_)
            Refuse("[Table] ends after " + std::to_string(study_.rows.size()) + " of " +
                   std::to_string(rows_) + " rows");
    }
    if (section_.starts_with("Design ")) {
        RequireKeys({"Name"});
        RequireKeys(FigureKeys());
    }
}

void StudyReader::Begin(const std::string& section) {
    EndSection();
    if (!sections_.insert(section).second) Refuse("[" + section + "] stands there twice");
    const bool is_design = section == "Design " + std::to_string(study_.designs.size() + 1) &&
                           study_.designs.size() < kMostKeptDesigns;
    static const std::set<std::string> known{"Project", "Ranges", "Map", "Risk", "Width", "Table", "End"};
    if (!is_design && !known.contains(section)) Refuse("a study has no section [" + section + "]");
    if (section == "Risk") study_.risk.fields.clear();
    if (is_design) study_.designs.emplace_back();
    ended_ = section == "End";
    section_ = section;
    keys_.clear();
}

void StudyReader::Take(const std::string& key, const std::string& value) {
    if (section_ == "Table") return TakeTable(key, value);
    if (!keys_.insert(key).second) throw StudyRefusal("the key stands there twice");
    if (section_ == "TARVO-KOL Study") return TakeHead(key, value);
    if (section_ == "Project") return TakeProject(key, value);
    if (section_ == "Ranges") return TakeRange(key, value);
    if (section_ == "Map") return TakeMap(key, value);
    if (section_ == "Risk") return TakeRisk(key, value);
    if (section_ == "Width") return TakeWidth(key, value);
    if (section_.starts_with("Design ")) return TakeDesign(key, value);
    RefuseKey();
}

void StudyReader::TakeHead(const std::string& key, const std::string& value) {
    if (key == "Version") {
        if (Trim(value) != "1")
            throw StudyRefusal("a study of version " + Trim(value) + " needs a later release");
        return;
    }
    if (key != "Page") RefuseKey();
    for (std::size_t i = 0; i < kStudyPageNames.size(); ++i) {
        if (Trim(value) != kStudyPageNames[i]) continue;
        study_.page = static_cast<StudyPages>(i);
        return;
    }
    throw StudyRefusal("\"" + value + "\" is no page; the pages are map, risk, table, compare, width");
}

void StudyReader::TakeProject(const std::string& key, const std::string& value) {
    if (key == "Path")
        study_.project = Unescaped(value);
    else if (key == "Title")
        study_.title = Unescaped(value);
    else if (!ReadFigure(study_.panel, key, value))
        RefuseKey();
    if (study_.title.find_first_of("\r\n") != std::string::npos) throw StudyRefusal("a title is one line");
    if (study_.project.find('\0') != std::string::npos) throw StudyRefusal("a path has no such character");
}

void StudyReader::TakeRange(const std::string& key, const std::string& value) {
    const auto field = FieldNamed(key);
    if (!field || key != NameOfField(*field)) RefuseKey();
    const std::size_t colon = value.find(':');
    if (colon == std::string::npos) throw StudyRefusal("write LOWEST:HIGHEST");
    const FieldRange range{RequiredNumber(Trim(value.substr(0, colon))),
                           RequiredNumber(Trim(value.substr(colon + 1)))};
    if (const std::string fault = FaultOfRange(*field, range); !fault.empty()) throw StudyRefusal(fault);
    study_.ranges[static_cast<std::size_t>(*field)] = range;
}

void StudyReader::TakeMap(const std::string& key, const std::string& value) {
    const std::string name = Trim(value);
    if (key == "X")
        study_.map.x.field = RequiredField(name);
    else if (key == "Y" && name.empty())
        study_.map.y.reset();
    else if (key == "Y")
        study_.map.y = StudyAxis{RequiredField(name), {}};
    else if (key == "Figure")
        study_.map.figure = &RequiredFigure(name);
    else
        RefuseKey();
    if (keys_.contains("X") && study_.map.y && study_.map.y->field == study_.map.x.field)
        throw StudyRefusal("a map has two fields");
}

// Whether a share of the project's own figure makes sense shows when the study is answered; here its form is read.
void StudyReader::TakeUncertain(const std::string& value) {
    const std::size_t colon = value.find(':');
    if (colon == std::string::npos) throw StudyRefusal("write FIELD:DISTRIBUTION");
    const UncertainField one{RequiredField(Trim(value.substr(0, colon))), Unescaped(value.substr(colon + 1))};
    for (const UncertainField& other : study_.risk.fields)
        if (other.field == one.field) throw StudyRefusal("the field is drawn twice");
    if (Left(Trim(one.distribution), 4) == "data")
        throw StudyRefusal("measured values stand in a file of their own, which a study does not keep");
    const double own = ValueOfField(study_.panel, one.field);
    ParseDistribution(one.distribution, own > 0 ? own : 1.0);
    study_.risk.fields.push_back(one);
}

void StudyReader::TakeCorrelation(const std::string& value) {
    const std::vector<std::string> words = CellsOf(value);
    if (words.size() != 3) throw StudyRefusal("write FIELD,FIELD,CORRELATION");
    const FieldCorrelation one{RequiredField(Trim(words[0])), RequiredField(Trim(words[1])),
                               NumberIn(words[2], -1, 1)};
    for (const PanelField field : {one.first, one.second}) {
        const auto is_it = [field](const UncertainField& drawn) { return drawn.field == field; };
        if (std::none_of(study_.risk.fields.begin(), study_.risk.fields.end(), is_it))
            throw StudyRefusal("both fields must be drawn");
    }
    study_.risk.correlations.push_back(one);
}

void StudyReader::TakeRisk(const std::string& key, const std::string& value) {
    if (!sections_.contains("Project")) throw StudyRefusal("[Project] stands before [Risk]");
    if (key == "Samples")
        study_.risk.samples = static_cast<std::uint32_t>(WholeIn(value, 1, kMostPlannedSamples));
    else if (key == "Seed")
        study_.risk.seed = static_cast<std::uint64_t>(WholeIn(value, 0, kLargestPlannedSeed));
    else if (key == "DesignPoints")
        study_.risk.design_points = WholeIn(value, 0, 1) != 0;
    else if (IsNext(key, "Random", study_.risk.fields.size()))
        TakeUncertain(value);
    else if (IsNext(key, "Correlate", study_.risk.correlations.size()))
        TakeCorrelation(value);
    else
        RefuseKey();
}

void StudyReader::TakeWidth(const std::string& key, const std::string& value) {
    if (key == "Field") {
        study_.width.field = RequiredField(Trim(value));
        if (study_.width.field != PanelField::WebThickness &&
            study_.width.field != PanelField::BarrierPillarWidth)
            throw StudyRefusal("the width is WebThickness or BarrierPillarWidth");
    } else if (key == "Probability") {
        constexpr double kPercentOfOne = 100;
        study_.width.probability = Trim(value);
        const bool is_percent = study_.width.probability.ends_with('%');
        NumberIn(study_.width.probability.substr(0, study_.width.probability.size() - (is_percent ? 1 : 0)),
                 0, is_percent ? kPercentOfOne : 1);
    } else if (key == "Step") {
        study_.width.step = Trim(value);
        if (!study_.width.step.empty() && !(RequiredNumber(study_.width.step) > 0))
            throw StudyRefusal("the step must be above 0");
    } else {
        RefuseKey();
    }
}

void StudyReader::TakeTable(const std::string& key, const std::string& value) {
    if (IsNext(key, "Row", study_.rows.size())) {
        if (!keys_.contains("Columns")) throw StudyRefusal("Columns stands before the rows");
        std::vector<std::string> cells = CellsOf(Unescaped(value));
        if (cells.size() != study_.columns.size())
            throw StudyRefusal("the row has " + std::to_string(cells.size()) + " cells, the table " +
                               std::to_string(study_.columns.size()) + " columns");
        study_.rows.push_back(std::move(cells));
        return;
    }
    if (!keys_.insert(key).second) throw StudyRefusal("the key stands there twice");
    constexpr double kMostRows = 4294967295.0;
    if (key == "Rows")
        rows_ = static_cast<std::size_t>(WholeIn(value, 0, kMostRows));
    else if (key == "Columns")
        study_.columns = CellsOf(Unescaped(value));
    else
        RefuseKey();
}

void StudyReader::TakeDesign(const std::string& key, const std::string& value) {
    NamedPanel& design = study_.designs.back();
    if (key != "Name") {
        if (!ReadFigure(design.panel, key, value)) RefuseKey();
        return;
    }
    design.name = Unescaped(value);
    if (Length(design.name) > static_cast<long>(kLongestName)) throw StudyRefusal("the name is too long");
}

void StudyReader::TakeLine(const std::string& line) {
    const std::string bare = Trim(line);
    if (bare.empty() || bare.front() == ';') return;
    if (ended_) Refuse("[End] is followed by nothing");
    if (bare.front() == '[' && bare.ends_with(']')) return Begin(bare.substr(1, bare.size() - 2));
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) Refuse("\"" + Left(bare, kLongestName) + "\" is no key with its value");
    const std::string key = Trim(line.substr(0, equals));
    try {
        Take(key, line.substr(equals + 1));
    } catch (const StudyRefusal& refusal) {
        Refuse(key + ": " + refusal.what());
    } catch (const RunTimeError& error) {
        Refuse(key + ": " + error.text);
    }
}

// The map looks at its fields over their ranges.
void StudyReader::Settle() {
    study_.map.x.range = study_.ranges[static_cast<std::size_t>(study_.map.x.field)];
    if (study_.map.y) study_.map.y->range = study_.ranges[static_cast<std::size_t>(study_.map.y->field)];
}

KeptStudy StudyReader::Read() {
    std::string line;
    if (!NextLine(line) || TrimRight(line) != kStudyMagic)
        throw KeptStudyFault(name_ + ": is no kept study: its first line is not " + std::string(kStudyMagic));
    section_ = line.substr(1, kStudyMagic.size() - 2);
    sections_.insert(section_);
    while (NextLine(line)) TakeLine(line);
    if (!ended_) Refuse("the study ends early: its last line is [End]");
    for (const char* const section : {"Project", "Ranges", "Map", "Risk"})
        if (!sections_.contains(section)) Refuse(std::string("there is no [") + section + "]");
    Settle();
    return std::move(study_);
}

}  // namespace

KeptStudy StudyOfBytes(std::string_view bytes, const std::string& name) {
    return StudyReader(bytes, name).Read();
}

bool IsKeptStudy(std::string_view bytes) {
    return bytes.starts_with(kStudyMagic);
}

}  // namespace tarvokol
