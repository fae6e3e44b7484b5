// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help/help_browser.h"

#include <QDesktopServices>
#include <QHelpEngineCore>

namespace tarvokol {
namespace {

const char* const help_scheme = "qthelp";

bool LeadsOutside(const QUrl& address) {
    const QString scheme = address.scheme();
    return scheme == "http" || scheme == "https" || scheme == "mailto";
}

}  // namespace

HelpBrowser::HelpBrowser(QHelpEngineCore& engine, QWidget* parent) : QTextBrowser(parent), engine_(engine) {
    setObjectName("topic");
    setAccessibleName(tr("Help topic"));
    document()->setDocumentMargin(12);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    const QUrl address = name.isRelative() ? source().resolved(name) : name;
    if (address.scheme() == help_scheme) return engine_.fileData(address);
    return QTextBrowser::loadResource(type, name);
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (LeadsOutside(name)) {
        QDesktopServices::openUrl(name);
        return;
    }
    QTextBrowser::doSetSource(name, type);
}

}  // namespace tarvokol
