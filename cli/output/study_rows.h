// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a study as text: CSV or JSON Lines.
#pragma once

#include <array>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "cli/output/json.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {

enum class RowFormat { Csv, JsonLines };

// A cell beside the figures: the shortest digits of a figure that was set, or a text in UTF-8 that is carried along.
struct LeadingCell {
    std::string text;
};

// A column beside the figures: a field of the project with its unit, or one that a table has brought along.
struct LeadingColumn {
    std::string title;
    std::string unit;
    bool carried = false;
};

// The columns of a study's rows. They are written in this order: the fields, the factors, the extraction ratio, the suggested
// sizes and the probabilities where asked for, the message, the columns that were brought along.
struct RowLayout {
    std::vector<LeadingColumn> leading;
    bool sizes = false;
    bool probabilities = false;
    bool bare_header = false;  // titles without units
    bool from_a_table =
        false;  // an object of JSON has a member `row` for what was brought along, also where that is nothing
};

// The titles in that order, no two of them the same: of two, the one that was brought along gets a number, "Note 2".
std::vector<std::string> TitlesOf(const RowLayout& layout);

// Words on the units of the columns for people: "DepthCover ft, ExtractionRatio percent, SuggestedWeb in".
std::string UnitsInWords(const RowLayout& layout);

// The texts of a row's figures, kept for the next row: in a grid, some stay the same for many rows. One for each thread.
class FigureTexts {
  public:
    // Writes the shortest digits that read back the same, nothing for NaN, into room for kLongestNumber characters.
    // Returns the place after them.
    char* Write(char* place, std::size_t column, double value);

    // Begins a row's object as this one; its memory serves for the next row, too.
    JsonMembers& Begin(const JsonMembers& start) { return object_ = start; }

  private:
    struct Kept {
        double value = std::numeric_limits<double>::quiet_NaN();
        std::size_t size = 0;
        std::array<char, kLongestNumber> digits{};
    };
    std::array<Kept, kStudyFigures.size() + kRowProbabilities.size()> kept_;
    JsonMembers object_;
};

// Writes rows of one study.
class RowWriter {
  public:
    // `project` is the path as given; it stands in every JSON object.
    RowWriter(RowFormat format, const std::string& project, RowLayout layout);

    // The header of a CSV file; nothing for JSON.
    std::string Header() const;

    void Append(std::string& text, std::span<const LeadingCell* const> leading, const PanelFigures& figures,
                FigureTexts& texts) const;

  private:
    void AppendCsv(std::string& text, std::span<const LeadingCell* const> leading,
                   const PanelFigures& figures, FigureTexts& texts) const;
    void AppendJson(std::string& text, std::span<const LeadingCell* const> leading,
                    const PanelFigures& figures, FigureTexts& texts) const;

    RowFormat format_;
    RowLayout layout_;
    std::vector<JsonKey> field_keys_;        // one per leading column, used for those that the study sets
    std::vector<std::string> carried_keys_;  // the same, for those that are carried along
    std::vector<JsonKey> figure_keys_;
    JsonMembers start_;  // of an object: the file
    JsonMembers end_;    // the units
};

}  // namespace tarvokol::cli
