// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/ini_file.h"

#include <algorithm>
#include <optional>

#include "core/files/file_replacement.h"
#include "core/files/links.h"
#include "core/runtime/charset.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

bool SameName(std::string_view left, std::string_view right) {
    return EqualIgnoringCase(Trimmed(left), Trimmed(right));
}

// Walks over the lines of a text; offsets are those of the text.
class LineWalker {
  public:
    explicit LineWalker(std::string_view text, std::size_t start = 0) : text_(text), next_(start) {}

    // Steps to the next line; false after the last.
    bool Next() {
        if (next_ >= text_.size()) return false;
        begin_ = next_;
        const std::size_t feed = text_.find('\n', begin_);
        next_ = feed == std::string_view::npos ? text_.size() : feed + 1;
        end_ = feed == std::string_view::npos ? text_.size() : feed;
        if (end_ < text_.size() && end_ > begin_ && text_[end_ - 1] == '\r') --end_;
        return true;
    }

    std::size_t Begin() const { return begin_; }
    std::size_t End() const { return end_; }     // before the line end
    std::size_t After() const { return next_; }  // after the line end
    std::string_view Line() const { return text_.substr(begin_, end_ - begin_); }

  private:
    std::string_view text_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t next_;
};

// The name in a section header; nothing for any other line.
std::optional<std::string_view> HeaderName(std::string_view line) {
    const std::string_view trimmed = Trimmed(line);
    if (trimmed.empty() || trimmed.front() != '[') return std::nullopt;
    const std::size_t close = trimmed.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return trimmed.substr(1, close - 1);
}

struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The lines between the first header of the name and the next header.
std::optional<Span> FindSection(std::string_view text, std::string_view name) {
    LineWalker lines(text);
    std::optional<Span> found;
    while (lines.Next()) {
        const auto header = HeaderName(lines.Line());
        if (!header) continue;
        if (found) return Span{found->begin, lines.Begin()};
        if (SameName(*header, name)) found = Span{lines.After(), text.size()};
    }
    return found;
}

// Where the value of the first key of the name stands, with the blanks after it, without those before it.
std::optional<Span> FindValue(std::string_view text, Span section, std::string_view key) {
    LineWalker lines(text.substr(0, section.end), section.begin);
    while (lines.Next()) {
        const std::string_view line = lines.Line();
        const std::size_t equal = line.find('=');
        if (equal == std::string_view::npos || !SameName(line.substr(0, equal), key)) continue;
        const std::size_t value = line.find_first_not_of(' ', equal + 1);
        const std::size_t begin = value == std::string_view::npos ? equal + 1 : value;
        return Span{lines.Begin() + begin, lines.End()};
    }
    return std::nullopt;
}

// After the last line of a section that is not blank.
std::size_t EndOfLastEntry(std::string_view text, Span section) {
    LineWalker lines(text.substr(0, section.end), section.begin);
    std::size_t end = section.begin;
    while (lines.Next())
        if (!Trimmed(lines.Line()).empty()) end = lines.After();
    return end;
}

void EndLastLine(std::string& text) {
    if (!text.empty() && text.back() != '\n') text += CrLf;
}

void InsertEntry(std::string& text, std::size_t position, const std::string& entry) {
    const bool line_open = position > 0 && text[position - 1] != '\n';
    text.insert(position, (line_open ? std::string(CrLf) : std::string()) + entry + std::string(CrLf));
}

std::string_view FirstLineOf(std::string_view value) {
    constexpr std::string_view kEnds("\r\n\0", 3);
    return value.substr(0, value.find_first_of(kEnds));
}

// False for a path that a link of another user may lead anywhere.
bool IsTrusted(const std::string& path) {
    try {
        PlaceBehindLinks(path);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace

std::string IniSection::Get(std::string_view key, const std::string& default_text) const {
    const auto span = FindValue(body_, {0, body_.size()}, key);
    if (!span) return default_text;
    std::string_view value = body_.substr(span->begin, span->end - span->begin);
    value = Trimmed(value.substr(0, value.find('\0')));
    return value.empty() ? default_text : Left(value, kLongestIniValue);
}

IniDocument IniDocument::Load(const std::string& path) {
    std::string bytes;
    const ReadOutcome outcome =
        IsTrusted(path) ? ReadWholeFile(path, kLargestIniFile, bytes) : ReadOutcome::Refused;
    IniDocument document = FromText(DecodeText(bytes, DetectCharset(bytes)));
    document.outcome_ = outcome;
    return document;
}

IniDocument IniDocument::FromText(std::string text) {
    IniDocument document;
    document.text_ = std::move(text);
    return document;
}

bool IniDocument::HasSection(std::string_view name) const {
    return FindSection(text_, name).has_value();
}

IniSection IniDocument::Section(std::string_view name) const {
    const auto span = FindSection(text_, name);
    if (!span) return IniSection({});
    return IniSection(std::string_view(text_).substr(span->begin, span->end - span->begin));
}

void IniDocument::Put(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line_value(FirstLineOf(value));
    const std::string entry = std::string(Trimmed(key)) + "=" + line_value;
    const auto span = FindSection(text_, section);
    if (!span) {
        EndLastLine(text_);
        text_ += "[" + std::string(section) + "]" + std::string(CrLf) + entry + std::string(CrLf);
    } else if (const auto old = FindValue(text_, *span, key)) {
        // Blanks in front of a value take the place of those that stood there: they must not grow with each save.
        const bool brings_blanks = line_value.starts_with(' ');
        const std::size_t begin =
            brings_blanks ? text_.find('=', text_.rfind('\n', old->begin - 1) + 1) + 1 : old->begin;
        text_.replace(begin, old->end - begin, line_value);
    } else {
        InsertEntry(text_, EndOfLastEntry(text_, *span), entry);
    }
}

bool IniDocument::Save(const std::string& path) const {
    if (outcome_ == ReadOutcome::Refused) return false;
    try {
        ReplaceWholeFile(path, EncodeFileText(text_));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string GetIniString(const std::string& section, const std::string& key, const std::string& ini_path,
                         const std::string& default_text) {
    return IniDocument::Load(ini_path).Section(section).Get(key, default_text);
}

int PutIniString(const std::string& section, const std::string& key, const std::string& value,
                 const std::string& ini_path) {
    IniDocument document = IniDocument::Load(ini_path);
    document.Put(section, key, value);
    return document.Save(ini_path) ? 1 : 0;
}

}  // namespace tarvokol
