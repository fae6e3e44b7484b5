// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help/qt_help_viewer.h"

#include <QDir>
#include <QFileInfo>

#include "qt/help/help_window.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Beside the program in a build tree, in the shared folder of an installation.
QString CompiledFile(const std::string& file) {
    const QFileInfo named(ToQt(file));
    const QString name = named.completeBaseName() + ".qch";
    const QString beside = named.dir().absoluteFilePath(name);
    const QString shared = QDir::cleanPath(named.dir().absoluteFilePath("../share/tarvokol/" + name));
    return !QFileInfo::exists(beside) && QFileInfo::exists(shared) ? shared : beside;
}

}  // namespace

QtHelpViewer::QtHelpViewer() = default;
QtHelpViewer::~QtHelpViewer() = default;

void QtHelpViewer::ShowContents(const std::string& file) {
    WindowFor(file).ShowContents();
}

void QtHelpViewer::ShowIndex(const std::string& file) {
    WindowFor(file).ShowIndex();
}

void QtHelpViewer::ShowTopic(const std::string& file, const std::string& topic) {
    WindowFor(file).ShowTopic(ToQt(topic));
}

void QtHelpViewer::Uninitialize(const std::string&) {
    window_.reset();
}

HelpWindow& QtHelpViewer::WindowFor(const std::string& file) {
    const QString compiled = CompiledFile(file);
    if (!window_ || window_->CompiledFile() != compiled) window_ = std::make_unique<HelpWindow>(compiled);
    return *window_;
}

}  // namespace tarvokol
