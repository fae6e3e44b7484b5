// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/arguments.h"

#include <algorithm>

namespace tarvokol::cli {
namespace {

// A negative number that is an argument by itself is a VALUE, no option: it goes to the end, after "--".
void ProtectNegativeValue(std::vector<std::string>& arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), "--");
    const auto found = std::find_if(arguments.begin(), end, [](const std::string& word) {
        return word.size() > 1 && word[0] == '-' && word.find_first_of("0123456789. ", 1) == 1;
    });
    if (found == end) return;
    const std::string value = *found;
    if (end == arguments.end()) arguments.emplace_back("--");
    arguments.erase(std::find(arguments.begin(), arguments.end(), value));
    arguments.push_back(value);
}

// CLI11 takes a word in square brackets for a list. With this at its end, which no argument can hold, a path
// of that form stays whole.
constexpr char kNoList = '\0';

void ProtectBrackets(std::vector<std::string>& arguments) {
    for (std::string& word : arguments)
        if (word.size() > 1 && word.front() == '[' && word.back() == ']') word += kNoList;
}

}  // namespace

void Unprotect(std::string& word) {
    if (!word.empty() && word.back() == kNoList) word.pop_back();
}

std::vector<std::string> Arguments(std::vector<std::string> words, bool takes_numbers) {
    if (takes_numbers)
        ProtectNegativeValue(words);
    else
        ProtectBrackets(words);
    return {words.rbegin(), words.rend()};  // the library takes them last first
}

}  // namespace tarvokol::cli
