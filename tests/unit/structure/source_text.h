// SPDX-License-Identifier: GPL-3.0-or-later
// The source files of the houses, and their code without what is none.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>

namespace tarvokol {

// Comments, preprocessor lines and the insides of texts go; the rest stays.
inline std::string CodeOf(const std::string& source) {
    static const std::regex noise(
        R"re(//[^\n]*|/\*[\s\S]*?\*/|^[ \t]*#[^\n]*|("(?:[^"\\\n]|\\.)*")|('(?:[^'\\\n]|\\.)'))re",
        std::regex::ECMAScript | std::regex::multiline);
    return std::regex_replace(source, noise, " ");
}

// Path from the source folder, and text, of every source file of the houses.
inline std::map<std::string, std::string> SourceFiles() {
    const std::filesystem::path root = TARVOKOL_SOURCE_FOLDER;
    std::map<std::string, std::string> files;
    for (const char* house : {"core", "qt", "desktop", "cli", "studies"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / house)) {
            const std::string ending = entry.path().extension().string();
            if (ending != ".cpp" && ending != ".h") continue;
            std::ostringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            files[entry.path().lexically_relative(root).generic_string()] = text.str();
        }
    return files;
}

}  // namespace tarvokol
