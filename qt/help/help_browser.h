// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

namespace tarvokol {

// The topic pane: pages and images come out of the compiled help, links to the outside go to the desktop.
class HelpBrowser : public QTextBrowser {
  public:
    explicit HelpBrowser(QHelpEngineCore& engine, QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

  private:
    QHelpEngineCore& engine_;
};

}  // namespace tarvokol
