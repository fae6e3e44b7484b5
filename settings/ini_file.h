// A small layer over INI files: one key, an equal sign and its value on a line under a section in square brackets.
// Names match without regard to case, blanks around them are ignored; other keys and comments stay as they are.
#pragma once

#include <string>

namespace tarvokol {

// The value of a key, at most 254 characters of it; `default_text` where it is missing or empty.
std::string GetIniString(const std::string& section, const std::string& key, const std::string& ini_path,
                         const std::string& default_text = "");

// Replaces the key's value in place or appends it to its section, creating section and file as needed. Returns 0 on
// failure and another number on success.
int PutIniString(const std::string& section, const std::string& key, const std::string& value,
                 const std::string& ini_path);

}  // namespace tarvokol
