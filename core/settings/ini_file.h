// SPDX-License-Identifier: GPL-3.0-or-later
// A small layer over INI files: one key, an equal sign and its value on a line under a section in square
// brackets. Names match without regard to case, blanks around them are ignored; other keys and comments stay
// as they are. Of several sections or keys of one name the first counts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/files/whole_file.h"

namespace tarvokol {

// The longest value, in characters, that is read.
constexpr long kLongestIniValue = 254;

// A file beyond this size is no settings file: it reads as one without keys and is never written.
constexpr std::size_t kLargestIniFile = std::size_t{16} * 1024 * 1024;

// The lines of one section, valid as long as its document is unchanged.
class IniSection {
  public:
    explicit IniSection(std::string_view body) : body_(body) {}

    // The value of a key; `default_text` where it is missing or empty.
    std::string Get(std::string_view key, const std::string& default_text = "") const;

  private:
    std::string_view body_;
};

// One file in memory: loaded once, read and changed key by key, saved once.
class IniDocument {
  public:
    // Never fails: a file that is missing or cannot be read gives a document without keys.
    static IniDocument Load(const std::string& path);
    static IniDocument FromText(std::string text);

    // How the reading went; Read for a document from a text.
    ReadOutcome Outcome() const { return outcome_; }

    bool HasSection(std::string_view name) const;

    // The section's lines, none where it is missing.
    IniSection Section(std::string_view name) const;

    // Replaces the key's value in place or appends it to its section, creating the section as needed. A value
    // ends where its line does.
    void Put(std::string_view section, std::string_view key, std::string_view value);

    // False on any failure, and for a file that was there but could not be read: its content would be lost.
    bool Save(const std::string& path) const;

    const std::string& Text() const { return text_; }

  private:
    std::string text_;
    ReadOutcome outcome_ = ReadOutcome::Read;
};

// The value of a key, at most 254 characters of it; `default_text` where it is missing or empty.
std::string GetIniString(const std::string& section, const std::string& key, const std::string& ini_path,
                         const std::string& default_text = "");

// Replaces the key's value in place or appends it to its section, creating section and file as needed.
// Returns 0 on failure and another number on success.
int PutIniString(const std::string& section, const std::string& key, const std::string& value,
                 const std::string& ini_path);

}  // namespace tarvokol
