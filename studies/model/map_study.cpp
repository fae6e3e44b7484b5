// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/map_study.h"

#include "studies/model/answer_or_words.h"

namespace tarvokol {

std::span<const StudyFigure> CurvesOfFigure(const StudyFigure& figure) {
    return figure.IsFactor() ? FactorFigures() : std::span(&figure, 1);
}

MapOutcome CalculateMapStudy(const MapRequest& request, const Panel& panel, const std::string& title,
                             unsigned threads, StudyObserver& observer) {
    return AnswerOrWords<MapOutcome>("take narrower ranges", [&]() -> MapOutcome {
        SweepRequest sweep = SweepOf(request, panel);
        sweep.threads = threads;
        if (request.y) {
            auto picture = MapOf(sweep, *request.figure, title, observer);
            if (picture) return std::move(*picture);
        } else {
            auto picture = CurvesOf(sweep, CurvesOfFigure(*request.figure), title, observer);
            if (picture) return std::move(*picture);
        }
        return {};
    });
}

std::string CommandOfMap(const MapRequest& request, const std::string& project_path) {
    std::vector<std::string> words = WordsOfMap(request);
    words.insert(words.end(), {"-o", request.y ? "map.svg" : "curves.svg"});
    return ShellLine("tarvokol-cli sweep", project_path, words);
}

std::string ShellLine(const std::string& command, const std::string& path,
                      const std::vector<std::string>& words) {
    std::string line = command + " " + QuotedForShell(path);
    for (const std::string& word : words) line += " " + (word.starts_with('-') ? word : QuotedForShell(word));
    return line;
}

std::string QuotedForShell(const std::string& text) {
    const bool plain = !text.empty() && text.find_first_not_of(
                                            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                            "_./-+,@%:=") == std::string::npos;
    if (plain && text.front() != '-') return text;
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return (text.starts_with('-') ? "./" : "") + quoted + "'";
}

}  // namespace tarvokol
