// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/system_folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

std::optional<std::string> Location(QStandardPaths::StandardLocation location) {
    const QString folder = QStandardPaths::writableLocation(location);
    if (folder.isEmpty()) return std::nullopt;
    return FromQt(folder);
}

}  // namespace

std::string SystemFolders::ProgramFile() const {
    return FromQt(QCoreApplication::applicationFilePath());
}

std::optional<std::string> SystemFolders::Documents() const {
    return Location(QStandardPaths::DocumentsLocation);
}

std::optional<std::string> SystemFolders::Desktop() const {
    return Location(QStandardPaths::DesktopLocation);
}

std::string SystemFolders::Temporary() const {
    return FromQt(QDir::tempPath());
}

}  // namespace tarvokol
