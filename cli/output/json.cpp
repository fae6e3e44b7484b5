// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <nlohmann/json.hpp>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

// Up to here every whole double has an integer of the same digits.
constexpr double kLargestWhole = 1e15;

bool IsWhole(double value) {
    return value == std::floor(value) && std::fabs(value) < kLargestWhole;
}

// What JSON writes for a character of ASCII that may not stand in a text as it is; empty for the others.
std::string_view Escape(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\b':
            return "\\b";
        case '\f':
            return "\\f";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return "";
    }
}

void AppendEscaped(std::string& text, char c) {
    constexpr const char* kDigits = "0123456789abcdef";
    const std::string_view escape = Escape(c);
    if (!escape.empty()) {
        text += escape;
        return;
    }
    text += "\\u00";
    text += kDigits[c / 16];
    text += kDigits[c % 16];
}

// Appends a text between quotes, stretch by stretch: most of a report stands as it is. False, with nothing
// appended, for one that is not all ASCII.
bool AppendQuotedAscii(std::string& json, std::string_view text) {
    const auto stands_as_it_is = [](char c) { return c >= ' ' && c != '"' && c != '\\'; };
    const std::size_t before = json.size();
    json += '"';
    for (auto at = text.begin(); at != text.end();) {
        const auto end = std::find_if_not(at, text.end(), stands_as_it_is);
        json.append(at, end);
        at = end;
        if (at == text.end()) break;
        if (!IsAscii(*at)) {
            json.resize(before);
            return false;
        }
        AppendEscaped(json, *at);
        ++at;
    }
    json += '"';
    return true;
}

// The library knows what is no UTF-8.
void AppendText(std::string& json, std::string_view text) {
    using Json = nlohmann::json;
    if (!AppendQuotedAscii(json, text))
        json += Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void AppendNumber(std::string& text, double value) {
    if (!std::isfinite(value))
        text += "null";
    else if (IsWhole(value))
        text += std::to_string(static_cast<std::int64_t>(value));
    else
        AppendShortest(text, value);
}

}  // namespace

void JsonValues::Separate() {
    if (!text_.empty()) text_ += ',';
}

void JsonValues::Add(double value) {
    Separate();
    AppendNumber(text_, value);
}

void JsonValues::Add(std::string_view value) {
    Separate();
    AppendText(text_, value);
}

void JsonValues::Add(const JsonMembers& object) {
    Separate();
    text_ += object.Object();
}

void JsonValues::Add(const JsonValues& array) {
    Separate();
    text_ += array.Array();
}

JsonKey::JsonKey(std::string_view name) {
    AppendText(written_, name);
    written_ += ':';
}

void JsonMembers::Separate() {
    if (!text_.empty()) text_ += ',';
}

void JsonMembers::AddKey(std::string_view key) {
    Separate();
    AppendText(text_, key);
    text_ += ':';
}

void JsonMembers::AddWritten(std::string_view key, std::string_view value) {
    AddKey(key);
    text_ += value;
}

void JsonMembers::Add(std::string_view key, double value) {
    AddKey(key);
    AppendNumber(text_, value);
}

void JsonMembers::Add(std::string_view key, std::string_view value) {
    AddKey(key);
    AppendText(text_, value);
}

void JsonMembers::Add(std::string_view key, const std::vector<std::string>& values) {
    JsonValues array;
    for (const std::string& value : values) array.Add(value);
    Add(key, array);
}

void JsonMembers::Add(std::string_view key, const JsonMembers& object) {
    AddKey(key);
    text_.append(1, '{').append(object.text_).append(1, '}');
}

void JsonMembers::Add(std::string_view key, const JsonValues& array) {
    AddWritten(key, array.Array());
}

void JsonMembers::AddDigits(const JsonKey& key, std::string_view digits) {
    Separate();
    text_ += key.written_;
    text_ += digits.empty() ? "null" : digits;
}

void JsonMembers::AppendLine(std::string& lines) const {
    lines.append(1, '{').append(text_).append("}\n");
}

void JsonMembers::Append(const JsonMembers& other) {
    if (!text_.empty() && !other.text_.empty()) text_ += ',';
    text_ += other.text_;
}

JsonMembers ErrorMember(int number, const std::string& text) {
    JsonMembers error;
    error.Add("number", number);
    error.Add("text", text);
    JsonMembers member;
    member.Add("error", error);
    return member;
}

}  // namespace tarvokol::cli
