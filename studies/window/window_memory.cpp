// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/window_memory.h"

#include <QSettings>

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
