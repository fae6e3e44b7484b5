// SPDX-License-Identifier: GPL-3.0-or-later
// Texts between the program (UTF-8) and the toolkit.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarvokol {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace tarvokol
