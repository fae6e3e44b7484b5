// SPDX-License-Identifier: GPL-3.0-or-later
// Results as JSON: keys in the order in which they are added.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "core/project/project_document.h"
#include "core/runtime/one_based.h"

namespace tarvokol::cli {

using Json = nlohmann::ordered_json;

// The schemas in docs/schema that the objects of the commands follow.
constexpr int kSchemaVersion = 1;

// A number; whole ones without a fraction, so that 10 reads "10", and no NaN or infinity (they are null).
Json NumberJson(double value);

// One line of text; bytes of a path that are no UTF-8 are replaced.
std::string JsonLine(const Json& object);

// A text between quotes.
std::string JsonText(const std::string& text);

// Appends a number as JSON, by the rule of NumberJson.
void AppendNumber(std::string& text, double value);

// The members of an object, written as they are added: thousands of objects a second are printed by some
// scripts.
class JsonMembers {
  public:
    void Add(std::string_view key, double value);
    void Add(std::string_view key, std::integral auto value) { AddWritten(key, std::to_string(value)); }
    void Add(std::string_view key, bool value) { AddWritten(key, value ? "true" : "false"); }
    void Add(std::string_view key, const std::string& value);
    void Add(std::string_view key, const char* value) { Add(key, std::string(value)); }
    void Add(std::string_view key, const std::vector<std::string>& values);
    void Add(std::string_view key, const JsonMembers& object);
    void Add(std::string_view key, const Json& value);

    // Elements 1 to `count` of an array.
    template <typename T, std::size_t N>
    void Add(std::string_view key, const OneBased<T, N>& values, long count = static_cast<long>(N)) {
        AddKey(key);
        text_ += '[';
        for (long i = 1; i <= count; ++i) {
            if (i > 1) text_ += ',';
            AppendNumber(text_, static_cast<double>(values[i]));
        }
        text_ += ']';
    }

    // A value that is JSON already.
    void AddWritten(std::string_view key, std::string_view value);

    // The members of another object behind these.
    void Append(const JsonMembers& other);

    const std::string& Members() const { return text_; }
    std::string Object() const { return '{' + text_ + '}'; }

  private:
    void AddKey(std::string_view key);

    std::string text_;
};

// A project, and the units of its figures in a unit system, 0 English or 1 Metric.
JsonMembers ProjectJson(const ProjectDocument& document);
JsonMembers ProjectUnitsJson(int16_t unit_system);

}  // namespace tarvokol::cli
