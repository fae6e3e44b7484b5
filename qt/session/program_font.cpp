// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/program_font.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QString>

namespace tarvokol {

void SetProgramFont() {
    constexpr int kPoints = 10;
    const QString family = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    if (!family.isEmpty() && !family.startsWith("sans", Qt::CaseInsensitive)) return;
    QApplication::setFont(QFont("Liberation Sans", kPoints));
}

}  // namespace tarvokol
