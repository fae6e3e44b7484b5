// SPDX-License-Identifier: GPL-3.0-or-later
// The help of the built program, in a window, with a cache of the test's own.
#pragma once

#include <QTemporaryDir>
#include <QTextBrowser>
#include <string>

#include <gtest/gtest.h>

#include "qt/help/help_window.h"
#include "qt/help/qt_help_viewer.h"

namespace tarvokol {

inline const std::string kHelpFile = TARVOKOL_PROGRAM_DIR "/TARVOKOL.CHM";

class HelpFixture : public testing::Test {
  protected:
    HelpFixture() { qputenv("XDG_CACHE_HOME", Cache.path().toUtf8()); }

    HelpWindow& Window() { return *Viewer.Window(); }
    QTextBrowser& Page() { return Find<QTextBrowser>("topic"); }
    QString Topic() { return Page().source().fileName(); }

    template <typename Widget>
    Widget& Find(const char* name) {
        return *Viewer.Window()->findChild<Widget*>(name);
    }

    QTemporaryDir Cache;
    QtHelpViewer Viewer;
};

}  // namespace tarvokol
