// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a study as text: CSV as RFC 4180 has it, or JSON Lines.
#pragma once

#include <array>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "core/statistics/study_numbers.h"
#include "core/studies/study_figures.h"

namespace tarvokol::cli {

enum class RowFormat { Csv, JsonLines };

// A cell in front of the figures: a figure that was set, or a text that is carried through.
struct LeadingCell {
    std::string text;  // UTF-8; of a number its shortest digits, empty for none
    bool number = true;
};

// A leading column: its title and, for a field of the project, its unit.
struct LeadingColumn {
    std::string title;
    std::string unit;
};

// Titles of the columns behind the leading ones: the factors, the extraction ratio, the suggested sizes where
// asked for, the message.
std::vector<std::string> FigureColumns(bool sizes);

// The same with their units, for people: "SuggestedWeb (in)".
std::vector<std::string> FigureTitlesWithUnits(bool sizes);
std::string TitleWithUnit(const LeadingColumn& column);

// Words on the units of the columns for people: "DepthCover ft, ExtractionRatio percent, SuggestedWeb in".
std::string UnitsInWords(std::span<const LeadingColumn> leading, bool sizes);

// The texts of a row's figures, kept for the next row: in a grid, some stay the same for many rows. One for each thread.
class FigureTexts {
  public:
    // Writes the shortest digits that read back the same, nothing for NaN, into room for kLongestNumber characters.
    // Returns the place behind them.
    char* Write(char* place, std::size_t column, double value);

  private:
    struct Kept {
        double value = std::numeric_limits<double>::quiet_NaN();
        std::size_t size = 0;
        std::array<char, kLongestNumber> digits{};
    };
    std::array<Kept, kStudyFigures.size()> kept_;
};

// Writes rows of one study.
class RowWriter {
  public:
    // `project` is the path as given; it stands in every JSON object.
    RowWriter(RowFormat format, const std::string& project, std::vector<LeadingColumn> leading, bool sizes);

    // The header of a CSV file; nothing for JSON.
    std::string Header() const;

    void Append(std::string& text, std::span<const LeadingCell* const> leading, const PanelFigures& figures,
                FigureTexts& texts) const;

  private:
    void AppendCsv(std::string& text, std::span<const LeadingCell* const> leading,
                   const PanelFigures& figures, FigureTexts& texts) const;
    void AppendJson(std::string& text, std::span<const LeadingCell* const> leading,
                    const PanelFigures& figures) const;

    RowFormat format_;
    std::vector<LeadingColumn> leading_;
    bool sizes_;
    std::string object_start_;            // of a JSON object: the file
    std::vector<std::string> lead_keys_;  // ,"DepthCover":
    std::vector<std::string> figure_keys_;
    std::string object_end_;  // the units
};

}  // namespace tarvokol::cli
