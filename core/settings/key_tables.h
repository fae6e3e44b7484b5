// The keys of the configuration file, section by section, in the order in which they are written.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace tarvokol {

// One key and the variable that holds it. A number outside low to high reads as low.
struct KeyRule {
    const char* name;
    std::variant<int16_t*, float*, std::string*> value;
    double low = 0;
    double high = 0;
    const char* missing = "";      // read where the key is missing or empty
    const char* read_name = name;  // name under which it is read, where that differs
};

std::span<const KeyRule> SettingsKeys();
std::span<const KeyRule> TextBrowseKeys();
std::span<const KeyRule> GraphKeys();
std::span<const KeyRule> OptionKeys();

}  // namespace tarvokol
