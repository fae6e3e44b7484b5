// SPDX-License-Identifier: GPL-3.0-or-later
// How --help sets out its lines.
#pragma once

#include <cstddef>
#include <string>

#include <CLI/CLI.hpp>

namespace tarvokol::cli {

// What a line of the help holds at most, in characters.
inline constexpr std::size_t kHelpWidth = 100;

// The text in lines of at most `width` bytes, broken at blanks, `indent`, which is not counted, before each but the first; `mark` ends a line that
// goes on. A word that is longer stands on a line of its own.
std::string Folded(const std::string& text, std::size_t width, const std::string& indent,
                   const std::string& mark = "");

// The library's help in lines of kHelpWidth, "..." after an option that may be given again.
class HelpText : public CLI::Formatter {
  public:
    HelpText();

    std::string make_description(const CLI::App* app) const override;
    std::string make_option(const CLI::Option* option, bool is_positional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;
};

}  // namespace tarvokol::cli
