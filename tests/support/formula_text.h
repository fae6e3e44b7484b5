// SPDX-License-Identifier: GPL-3.0-or-later
// Formulas as the help and the notes write them, with their letters replaced by figures.
#pragma once

#include <algorithm>
#include <cctype>
#include <map>
#include <stdexcept>
#include <string>

namespace tarvokol {

// A page of the help as text: no tags, an exponent as "^2", a blank between words, no entity.
inline std::string TextOfTopic(std::string html) {
    const auto replace_all = [&html](const std::string& from, const std::string& to) {
        for (std::size_t at = html.find(from); at != std::string::npos; at = html.find(from, at + to.size()))
            html.replace(at, from.size(), to);
    };
    replace_all("<sup>2</sup>", "^2");
    for (const char* end : {"</p>", "</td>", "</tr>", "</li>"}) replace_all(end, std::string("\n") + end);
    std::string text;
    bool in_tag = false;
    for (const char c : html) {
        if (c == '<') in_tag = true;
        if (!in_tag) text += c;
        if (c == '>') in_tag = false;
    }
    html = text;
    replace_all("&nbsp;", " ");
    return html;
}

// What stands between the first `begin` and the end of its line; empty if there is none.
inline std::string AfterWords(const std::string& text, const std::string& begin) {
    const std::size_t at = text.find(begin);
    if (at == std::string::npos) return {};
    const std::size_t start = at + begin.size();
    return text.substr(start, text.find('\n', start) - start);
}

// Sums, differences, products, quotients, squares and brackets over numbers and letters.
class FormulaText {
  public:
    using Letters = std::map<std::string, double>;

    // Raises std::invalid_argument for what is no formula of these letters.
    static double Value(std::string formula, const Letters& letters) {
        return FormulaText(formula, letters).Whole();
    }

  private:
    FormulaText(const std::string& formula, const Letters& letters) : text_(formula), letters_(letters) {}

    double Whole() {
        const double value = Sum();
        if (!Rest().empty()) Fail();
        return value;
    }

    double Sum() {
        double value = Take("−") ? -Product() : Product();
        while (true) {
            if (Take("+"))
                value += Product();
            else if (Take("−"))
                value -= Product();
            else
                return value;
        }
    }

    double Product() {
        double value = Power();
        while (true) {
            if (Take("×"))
                value *= Power();
            else if (Take("/"))
                value /= Power();
            else
                return value;
        }
    }

    double Power() {
        const double value = Single();
        return Take("^2") ? value * value : value;
    }

    double Single() {
        // A letter with its index in brackets goes before the letter alone.
        for (auto it = letters_.rbegin(); it != letters_.rend(); ++it)
            if (Take(it->first)) return it->second;
        if (Take("(")) {
            const double value = Sum();
            if (!Take(")")) Fail();
            return value;
        }
        const std::string rest = Rest();
        if (rest.empty() || std::isdigit(static_cast<unsigned char>(rest.front())) == 0) Fail();
        std::size_t length = 0;
        const double value = std::stod(rest, &length);
        at_ += length;
        return value;
    }

    bool Take(const std::string& word) {
        if (!Rest().starts_with(word)) return false;
        at_ += word.size();
        return true;
    }

    std::string Rest() {
        at_ = std::min(text_.find_first_not_of(" \r", at_), text_.size());
        return text_.substr(at_);
    }

    [[noreturn]] void Fail() { throw std::invalid_argument("no formula: " + text_ + ", at: " + Rest()); }

    std::string text_;
    const Letters& letters_;
    std::size_t at_ = 0;
};

}  // namespace tarvokol
