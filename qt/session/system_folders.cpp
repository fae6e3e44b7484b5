// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/system_folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <pwd.h>
#include <unistd.h>

#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

QString Location(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location);
}

bool IsFolder(const QString& path) {
    return QFileInfo(path).isDir();
}

// Of the account where the environment names none: a service, or a cleared environment.
QString HomeFolder() {
    const QString named = qEnvironmentVariable("HOME");
    if (!named.isEmpty()) return named;
    const passwd* account = ::getpwuid(::getuid());
    return account != nullptr ? QString::fromLocal8Bit(account->pw_dir) : QString();
}

// Makes the documents folder of an account that no desktop has set up yet. One outside of the home folder lies on a
// volume that is not there at the moment: that is not for us to make.
bool MadeDocuments(const QString& documents) {
    const QString home = QDir::homePath();
    return !qEnvironmentVariableIsEmpty("HOME") && IsFolder(home) && documents.startsWith(home + "/") &&
           QDir().mkpath(documents);
}

std::optional<std::string> Told(const QString& folder) {
    if (folder.isEmpty()) return std::nullopt;
    return FromQt(folder);
}

}  // namespace

std::string SystemFolders::ProgramFile() const {
    return FromQt(QCoreApplication::applicationFilePath());
}

std::optional<std::string> SystemFolders::Documents() const {
    const QString documents = Location(QStandardPaths::DocumentsLocation);
    // A desktop folder serves an account without documents; what earlier runs have written lies there.
    if (IsFolder(documents) || IsFolder(Location(QStandardPaths::DesktopLocation))) return Told(documents);
    return Told(MadeDocuments(documents) ? documents : HomeFolder());
}

std::optional<std::string> SystemFolders::Desktop() const {
    return Told(Location(QStandardPaths::DesktopLocation));
}

std::string SystemFolders::Temporary() const {
    return FromQt(QDir::tempPath());
}

}  // namespace tarvokol
