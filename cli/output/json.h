// SPDX-License-Identifier: GPL-3.0-or-later
// Results as JSON: every object that the command line prints is written here, with its keys in the order in which they are
// added. Thousands of objects a second are printed by some scripts, so an object is text from the beginning.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

#include "core/runtime/one_based.h"

namespace tarvokol::cli {

// The schemas in docs/schema that the objects of the commands follow.
constexpr int kSchemaVersion = 1;

class JsonMembers;

// The values of an array, written as they are added.
class JsonValues {
  public:
    // Whole numbers stand without a fraction, others with the shortest digits that read back; no finite number is null.
    void Add(double value);
    // A text between quotes; bytes that are no UTF-8, as a path may hold, are replaced.
    void Add(std::string_view value);
    void Add(const JsonMembers& object);
    void Add(const JsonValues& array);

    std::string Array() const { return '[' + text_ + ']'; }

  private:
    void Separate();

    std::string text_;
};

// A key that many objects have, written once.
class JsonKey {
  public:
    explicit JsonKey(std::string_view name);

  private:
    friend class JsonMembers;
    std::string written_;
};

// The members of an object, written as they are added.
class JsonMembers {
  public:
    void Add(std::string_view key, double value);
    void Add(std::string_view key, std::integral auto value) { AddWritten(key, std::to_string(value)); }
    void Add(std::string_view key, bool value) { AddWritten(key, value ? "true" : "false"); }
    void Add(std::string_view key, std::string_view value);
    void Add(std::string_view key, const std::string& value) { Add(key, std::string_view(value)); }
    void Add(std::string_view key, const char* value) { Add(key, std::string_view(value)); }
    void Add(std::string_view key, const std::vector<std::string>& values);
    void Add(std::string_view key, const JsonMembers& object);
    void Add(std::string_view key, const JsonValues& array);

    // Elements 1 to `count` of an array.
    template <typename T, std::size_t N>
    void Add(std::string_view key, const OneBased<T, N>& values, long count = static_cast<long>(N)) {
        JsonValues array;
        for (long i = 1; i <= count; ++i) array.Add(static_cast<double>(values[i]));
        Add(key, array);
    }

    // The digits of a number that are written already; none for one that there is not.
    void AddDigits(const JsonKey& key, std::string_view digits);

    // The members of another object after these.
    void Append(const JsonMembers& other);

    std::string Object() const { return '{' + text_ + '}'; }

    // The object as a line of JSON Lines.
    std::string Line() const { return '{' + text_ + "}\n"; }
    void AppendLine(std::string& lines) const;

  private:
    void Separate();
    void AddKey(std::string_view key);
    void AddWritten(std::string_view key, std::string_view value);

    std::string text_;
};

// The member "error": the run-time error that ended the work on a file.
JsonMembers ErrorMember(int number, const std::string& text);

}  // namespace tarvokol::cli
