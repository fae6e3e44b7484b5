// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/table_columns.h"

#include <algorithm>
#include <cctype>

#include "core/files/csv_writer.h"
#include "core/runtime/nearest_word.h"
#include "core/runtime/text.h"
#include "core/studies/study_figures.h"

namespace tarvokol {
namespace {

// Titles of our own outputs, which a table may bring back.
bool IsOurs(const std::string& name) {
    return FigureNamed(name) != nullptr || EqualIgnoringCase(name, "Message");
}

// Letters and digits in upper case, without what people set between words.
std::string LettersOf(std::string_view title) {
    std::string letters;
    for (const char c : title)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) letters += c;
    return UpperCase(letters);
}

// "DEPTH" of DepthCover: its first words where they are long enough to say something.
bool BeginsWithWords(const std::string& name, const std::string& letters) {
    constexpr std::size_t kLongEnough = 5;
    return letters.size() >= kLongEnough && letters.size() < name.size() &&
           std::isupper(static_cast<unsigned char>(name[letters.size()])) != 0 &&
           UpperCase(name).starts_with(letters);
}

bool IsNearly(const std::string& letters, const std::string& known) {
    constexpr std::size_t kLettersPerStep = 4;
    constexpr std::size_t kLongest = 64;  // no title of ours is half as long
    if (letters.empty() || letters.size() > kLongest) return false;
    const std::string name = LettersOf(known);
    const std::size_t most =
        std::max<std::size_t>(1, std::max(letters.size(), name.size()) / kLettersPerStep);
    return StepsBetween(letters, name) <= most;
}

std::optional<PanelField> FieldNearly(const std::string& name) {
    if (IsOurs(name)) return std::nullopt;
    const std::string letters = LettersOf(name);
    for (const PanelFieldFacts& facts : kPanelFields)
        if (IsNearly(letters, facts.name) || IsNearly(letters, facts.title) ||
            BeginsWithWords(facts.name, letters))
            return facts.field;
    return std::nullopt;
}

std::string WrongUnit(PanelField field, const std::string& unit) {
    return unit.empty() ? std::string(NameOfField(field)) + " has no unit"
                        : std::string(NameOfField(field)) + " is in " + unit + " in this project";
}

}  // namespace

ColumnMeaning MeaningOfColumn(std::string_view title, Units units) {
    const CsvTitle parts = TakenApart(title);
    if (const auto field = FieldNamed(parts.name)) {
        const std::string unit = UnitOfField(*field, units);
        if (parts.unit.empty() || EqualIgnoringCase(parts.unit, unit)) return {field, ""};
        return {std::nullopt, WrongUnit(*field, unit)};
    }
    const auto meant = FieldNearly(parts.name);
    if (!meant) return {};
    return {std::nullopt, std::string("no field of a project; did you mean ") + NameOfField(*meant) +
                              "? A column to be carried along needs another name"};
}

}  // namespace tarvokol
