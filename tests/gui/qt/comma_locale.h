// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tarvokol {

// A locale with a decimal comma in the test's own folder: few systems have one installed.
class CommaLocale {
  public:
    explicit CommaLocale(const std::filesystem::path& folder) {
        const std::filesystem::path source = folder / "comma.txt";
        std::ofstream(source) << "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \",\"\n"
                                 "thousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
        // Its status tells of the categories that are missing.
        QProcess::execute("localedef", {"-c", "--quiet", "-i", QString::fromStdString(source.string()),
                                        QString::fromStdString((folder / "comma").string())});
        ::setenv("LOCPATH", folder.c_str(), 1);
        holds_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, "C");
        ::unsetenv("LOCPATH");
    }

    bool Holds() const { return holds_; }

  private:
    bool holds_ = false;
};

}  // namespace tarvokol
