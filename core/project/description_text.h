// SPDX-License-Identifier: GPL-3.0-or-later
// The description of a project: lines joined by CR LF, wrapped to 60 columns on the way to the file and the report,
// read back line by line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/files/text_input.h"

namespace tarvokol {

// The count of the lines of a description that has none.
constexpr int16_t CountOfNoLines = 2;

// Breaks `line` in place into pieces of at most 60 columns, joined by CR LF: after a blank from column 40
// on, or through a word that leaves none. `count` returns the pieces plus one.
void WrapLongLine(std::string& line, int& count);

// The description with blank lines dropped, lines of 61 columns and more wrapped, and no line end at its end.
// `count` becomes the number of its pieces plus 2, at most what it can hold; of an empty description 2.
std::string WrappedDescription(const std::string& description, int16_t& count);

// Appends a description block, up to and with its end mark: the first line whole, every later one cut at its commas.
// `count` becomes the number of its lines plus 1. More text than `kLongestText` raises "Out of memory".
void ReadDescriptionBlock(TextInput& input, std::string& description, int16_t& count);

// The lines joined, without the blank ones, the long ones wrapped; to `count` is added the number of their pieces.
std::string WrappedLines(std::vector<std::string> lines, int16_t& count);

// The five lines of an older format, which no reader of this program asks for; `count` becomes 7.
void ReadOldDescription(TextInput& input, std::string& description, int16_t& count);

}  // namespace tarvokol
