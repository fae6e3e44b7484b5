// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/desktop_shell.h"

#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "core/runtime/run_time_error.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kStarted = 33;
constexpr int kNoAssociation = 31;
constexpr int kAnswerMilliseconds = 5000;

bool IsAddress(const QString& target) {
    return target.contains("://");
}

// The desktop's opener says nothing of a document that no program is associated with, so that is asked
// before. A desktop without the means to ask is trusted.
bool HasProgramFor(const QString& file) {
    const QString asker = QStandardPaths::findExecutable("xdg-mime");
    if (asker.isEmpty()) return true;
    QProcess question;
    question.start(asker, {"query", "default", QMimeDatabase().mimeTypeForFile(file).name()});
    if (!question.waitForFinished(kAnswerMilliseconds)) return true;
    return !question.readAllStandardOutput().trimmed().isEmpty();
}

bool OpenFile(const QString& file, const QString& folder) {
    if (!HasProgramFor(file)) return false;
    const QString opener = QStandardPaths::findExecutable("xdg-open");
    if (opener.isEmpty()) return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    return QProcess::startDetached(opener, {file}, folder);
}

}  // namespace

int DesktopShell::OpenDocument(const std::string& target, const std::string& working_folder) {
    const QString document = ToQt(target);
    const bool opened = IsAddress(document) ? QDesktopServices::openUrl(QUrl(document))
                                            : OpenFile(document, ToQt(working_folder));
    return opened ? kStarted : kNoAssociation;
}

void DesktopShell::StartViewer(const std::string& viewer, const std::string& file) {
    QStringList command = QProcess::splitCommand(ToQt(viewer));
    const QString program =
        command.isEmpty() ? QString() : QStandardPaths::findExecutable(command.takeFirst());
    if (!program.isEmpty() && QProcess::startDetached(program, command << ToQt(file))) return;
    if (OpenDocument(file, "") < kStarted) Raise(error_number::FileNotFound);
}

}  // namespace tarvokol
