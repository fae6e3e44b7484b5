// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/copy_note.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdio>

#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::string_view kHead = "##Unsaved##\r\n";
constexpr std::string_view kProject = "Project";
constexpr std::string_view kDialog = "Dialog";
constexpr std::string_view kBox = "Box ";

// Bytes that are no plain character stand as "%" and two digits.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 127 && c != '%' && c != '=') {
            escaped += c;
            continue;
        }
        std::array<char, 4> digits{};
        std::snprintf(digits.data(), digits.size(), "%%%02X", static_cast<unsigned>(byte));
        escaped += digits.data();
    }
    return escaped;
}

std::string Plain(std::string_view escaped) {
    std::string text;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        unsigned byte = 0;
        const char* digits = escaped.data() + i + 1;
        if (escaped[i] == '%' && i + 2 < escaped.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            text += static_cast<char>(byte);
            i += 2;
        } else {
            text += escaped[i];
        }
    }
    return text;
}

std::string Line(std::string_view name, std::string_view text) {
    return std::string(name) + "=" + Escaped(text) + std::string(CrLf);
}

void TakeLine(std::string_view line, CopyNote& note) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return;
    const std::string_view name = line.substr(0, equals);
    const std::string text = Plain(line.substr(equals + 1));
    if (name == kProject)
        note.project = text;
    else if (name == kDialog)
        note.typed.dialog = text;
    else if (name.starts_with(kBox))
        note.typed.boxes.emplace_back(Plain(name.substr(kBox.size())), text);
}

}  // namespace

std::string TextOfNote(const CopyNote& note) {
    std::string text = std::string(kHead) + Line(kProject, note.project);
    if (note.typed.dialog.empty()) return text;
    text += Line(kDialog, note.typed.dialog);
    for (const auto& [name, typed] : note.typed.boxes) text += Line(std::string(kBox) + Escaped(name), typed);
    return text;
}

CopyNote NoteOf(std::string_view copy) {
    CopyNote note;
    const std::size_t head = copy.rfind(std::string(CrLf) + std::string(kHead));
    if (head == std::string_view::npos) return note;
    std::string_view rest = copy.substr(head + CrLf.size() + kHead.size());
    for (std::size_t end = rest.find(CrLf); end != std::string_view::npos; end = rest.find(CrLf)) {
        TakeLine(rest.substr(0, end), note);
        rest.remove_prefix(end + CrLf.size());
    }
    return note;
}

}  // namespace tarvokol
