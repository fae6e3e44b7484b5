// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of the studies remembers from run to run: its place, its pages' choices, the projects of late. It stands
// in a file of its own in the user's configuration folder.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tarvokol {

struct WindowMemory {
    QByteArray geometry;
    QByteArray splitter;
    int page = 0;
    QString map_x, map_y, map_figure;  // names; empty for those of a new user

    static WindowMemory Read();
    void Write() const;
};

// The ranges of a project's fields as they stood last, in the order of the fields, "3:9" each; empty for a project that was
// not among those of late.
QStringList RememberedRanges(const QString& path);
void RememberRanges(const QString& path, const QStringList& ranges);

// The projects that were opened or saved here, the newest first, then those of the main program.
QStringList RecentProjects();
void RememberProject(const QString& path);

}  // namespace tarvokol
