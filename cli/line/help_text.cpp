// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/help_text.h"

#include <sstream>

namespace tarvokol::cli {
namespace {

constexpr std::size_t kTextColumn = 30;

// An item at column 3 and its text at column 31, on the same line where the item leaves two blanks.
std::string Item(const std::string& name, const std::string& text) {
    const std::string indent(kTextColumn, ' ');
    std::string line = "  " + name;
    if (text.empty()) return line + '\n';
    if (line.size() + 2 > kTextColumn)
        line += '\n' + indent;
    else
        line.resize(kTextColumn, ' ');
    return line + Folded(text, kHelpWidth - kTextColumn, indent) + '\n';
}

}  // namespace

std::string Folded(const std::string& text, std::size_t width, const std::string& indent,
                   const std::string& mark) {
    std::istringstream words(text);
    std::string folded;
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && line.size() + 1 + word.size() + mark.size() > width) {
            folded.append(line).append(mark).append("\n").append(indent);
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return folded + line;
}

HelpText::HelpText() {
    column_width(kTextColumn);
    label("SUBCOMMAND", "COMMAND");
}

std::string HelpText::make_description(const CLI::App* app) const {
    return app->get_description() + '\n';
}

std::string HelpText::make_option(const CLI::Option* option, bool is_positional) const {
    return Item(make_option_name(option, is_positional) + make_option_opts(option), make_option_desc(option));
}

std::string HelpText::make_option_opts(const CLI::Option* option) const {
    std::string facts = CLI::Formatter::make_option_opts(option);
    const bool again = option->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    if (!again || option->get_positional()) return facts;
    const std::size_t required = facts.find(" REQUIRED");
    return facts.insert(required == std::string::npos ? facts.size() : required, " ...");
}

std::string HelpText::make_subcommand(const CLI::App* command) const {
    return Item(command->get_name(), command->get_description());
}

}  // namespace tarvokol::cli
