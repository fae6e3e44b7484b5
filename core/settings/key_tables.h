// SPDX-License-Identifier: GPL-3.0-or-later
// The one table of the configuration file: section by section every key with the variable that holds it, its
// range and what is read where it is missing, in the order in which the keys are written. Reading, writing
// and the listing of the command line go over it; the value that a new file gets is the variable's own
// built-in value.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace tarvokol {

// Selectors of the sections.
namespace section {
constexpr int All = 1;
constexpr int Settings = 2;
constexpr int FileMenu = 3;
constexpr int TextBrowse = 4;
constexpr int Graph = 5;
constexpr int Options = 6;
constexpr int First = Settings;
constexpr int Last = Options;
}  // namespace section

// One key and the variable that holds it. A number outside low to high reads as low.
struct KeyRule {
    const char* name;
    std::variant<int16_t*, float*, std::string*> value;
    double low = 0;
    double high = 0;
    const char* missing = "";      // read where the key is missing or empty
    const char* read_name = name;  // name under which it is read, where that differs
};

// Name of a section, "Settings" to "TARVOKOLOptions".
const char* SectionName(int selector);

// The keys of a section. Those of the recent files go on up to the present count of entries.
std::span<const KeyRule> KeysOf(int selector);

// The variable's value as it is written, and the variable set from a text of the file.
std::string KeyText(const KeyRule& rule);
void SetFromText(const KeyRule& rule, const std::string& text);

// The recent files that the list holds at most.
constexpr int16_t MostLastFiles = 4;

// The value after the range rule: one outside low to high becomes `low`, also when it lies above `high`.
int16_t ClampToRange(int16_t& value, int16_t low, int16_t high);
float ClampToRange(float& value, float low, float high);

}  // namespace tarvokol
