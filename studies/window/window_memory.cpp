// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/window_memory.h"

#include <QList>
#include <QSettings>
#include <algorithm>

#include "core/settings/recent_file_settings.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kMostRecent = 8;

// Not to be copied, so each use makes its own.
class Memory : public QSettings {
  public:
    Memory() : QSettings(QSettings::IniFormat, QSettings::UserScope, "tarvokol", "studies") {}
};

}  // namespace

WindowMemory WindowMemory::Read() {
    const Memory memory;
    WindowMemory read;
    read.geometry = memory.value("Window/Geometry").toByteArray();
    read.splitter = memory.value("Window/Splitter").toByteArray();
    read.page = memory.value("Window/Page").toInt();
    read.map_x = memory.value("Map/X").toString();
    read.map_y = memory.value("Map/Y").toString();
    read.map_figure = memory.value("Map/Figure").toString();
    return read;
}

void WindowMemory::Write() const {
    Memory memory;
    memory.setValue("Window/Geometry", geometry);
    memory.setValue("Window/Splitter", splitter);
    memory.setValue("Window/Page", page);
    memory.setValue("Map/X", map_x);
    memory.setValue("Map/Y", map_y);
    memory.setValue("Map/Figure", map_figure);
}

// The path stands first in its list: what a key may be called is no path.
QStringList RememberedRanges(const QString& path) {
    const Memory memory;
    for (int i = 0; i < kMostRecent; ++i) {
        QStringList kept = memory.value(QString("Ranges/%1").arg(i)).toStringList();
        if (!kept.isEmpty() && kept.takeFirst() == path) return kept;
    }
    return {};
}

void RememberRanges(const QString& path, const QStringList& ranges) {
    Memory memory;
    QList<QStringList> all{QStringList(path) + ranges};
    for (int i = 0; i < kMostRecent; ++i) {
        const QStringList kept = memory.value(QString("Ranges/%1").arg(i)).toStringList();
        if (!kept.isEmpty() && kept.first() != path) all.append(kept);
    }
    for (int i = 0; i < std::min(kMostRecent, static_cast<int>(all.size())); ++i)
        memory.setValue(QString("Ranges/%1").arg(i), all[i]);
}

QStringList RecentProjects() {
    const Memory memory;
    QStringList paths = memory.value("Window/Recent").toStringList();
    for (int i = 1; i <= MaxLastFiles; ++i)
        if (!LastFileLong[i].empty()) paths.append(ToQt(LastFileLong[i]));
    paths.removeDuplicates();
    return paths.mid(0, kMostRecent);
}

void RememberProject(const QString& path) {
    Memory memory;
    QStringList paths = memory.value("Window/Recent").toStringList();
    paths.removeAll(path);
    paths.prepend(path);
    memory.setValue("Window/Recent", paths.mid(0, kMostRecent));
}

}  // namespace tarvokol
