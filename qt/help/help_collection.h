// SPDX-License-Identifier: GPL-3.0-or-later
// The collection through which a compiled help file is read.
#pragma once

#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

namespace tarvokol {

// Opens one compiled help file. The collection and its search index are kept in the user's cache folder, or
// in a scratch folder where that cannot be written, because the help file itself may lie in a read-only
// place.
class HelpCollection {
  public:
    explicit HelpCollection(const QString& compiled_file);

    // False if there is no compiled file or it cannot be read: then only Engine() exists, without any topic.
    bool Usable() const { return usable_; }
    QHelpEngine& Engine() { return *engine_; }

    // The address of a topic by its file name; empty if the help has no such topic.
    QUrl TopicAddress(const QString& topic) const;

  private:
    void Register(const QString& compiled_file);

    std::unique_ptr<QTemporaryDir> scratch_;
    std::unique_ptr<QHelpEngine> engine_;
    QString name_space_;
    bool usable_ = false;
};

}  // namespace tarvokol
