// SPDX-License-Identifier: GPL-3.0-or-later
// The project file "*.TKL": a small text file of title, description and fourteen inputs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/project/project_state.h"

namespace tarvokol {

// The first line, the lines around the description block, and the format level that every reading sets.
inline constexpr std::string_view ProjectMagic = "TARVOKOL_101";
inline constexpr std::string_view DescriptionStart = "##StartDesc##";
inline constexpr std::string_view DescriptionEnd = "##EndDesc##";
constexpr int16_t PresentFormatLevel = 50;

// Writes the project to `ProjectFileName`, replacing what is there; true when it ran to the end. What the
// file held before is kept as a copy in the temporary data folder first (kept_copy.h); false, with the file as it
// was, if that failed and the user does not want to go on. Raises the errors of the files.
bool FileSave();

// The open project as a file's text. Nothing in memory is changed: the description stands as it is,
// unwrapped.
std::string ProjectFileText();

// The reading half of Open: reads `ProjectFileName`. False if the magic does not match. Raises the errors of
// the files
// ("Input past end of file" for one that ends early) and of the numbers ("Overflow").
bool ReadProjectFile();

// Breaks `line` in place into pieces of at most 60 columns, joined by CR LF: behind a blank from column 40
// on, or through a word that leaves none. `count` returns the pieces plus one.
void WrapLongLine(std::string& line, int& count);

// Rewrites `ProjectDescription` in place: blank lines dropped, lines of 61 columns and more wrapped, no line
// end at its end. Errors of the scratch file are asked about, never raised; a description that could not pass
// through the file stays as it is.
void ReformatDescription();

// Appends the description block of an open file to `ProjectDescription`: the first line whole, every later
// one cut at its commas. `formatFlag` 0 reads the five lines of an older format. More text than
// `kLongestText` raises "Out of memory".
void ReadDescription(int fileNumber, int formatFlag);

// The general number form with "." as its decimal separator.
std::string NumberToFileText(double value);
std::string NumberToFileText(float value);

// True if the texts are equal; otherwise shows "Invalid file format".
bool CheckMagic(const std::string& found, const std::string& expected);

}  // namespace tarvokol
