// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the studies with the worked project open, and hands to use it with.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSlider>
#include <QTabWidget>
#include <QtTest>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>

#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "qt/charts/study_view.h"
#include "qt/session/qt_text.h"
#include "studies/pages/map_page.h"
#include "studies/window/studies_window.h"
#include "tests/studies/model/worked_project.h"
#include "tests/support/core_fixture.h"
#include "tests/support/waiting.h"

namespace tarvokol {

class StudiesWindowTest : public CoreTest {
  protected:
    StudiesWindowTest() {
        TempDataFolder = Folder.string() + "/temp/";
        DataPath = Folder.string() + "/";
        std::filesystem::create_directory(TempDataFolder);
        WriteBytes(PathTo("panel.TKL"), WorkedProjectBytes());
        window = std::make_unique<StudiesWindow>();
        window->resize(1180, 720);
        window->show();
        Find<QTabWidget>("Pages").setCurrentIndex(0);  // whichever was looked at last
        window->OpenPath(PathTo("panel.TKL"));
        EXPECT_TRUE(WaitUntilActive(*window));
    }
    ~StudiesWindowTest() override {
        window.reset();
        TempDataFolder.clear();
        DataPath.clear();
    }

    template <typename Control = QWidget>
    Control& Find(const std::string& name) {
        auto* control = window->findChild<Control*>(ToQt(name));
        if (control == nullptr) throw std::runtime_error("no control " + name);
        return *control;
    }
    std::string TextOf(const std::string& name) {
        if (auto* label = qobject_cast<QLabel*>(&Find(name))) return FromQt(label->text());
        return FromQt(Find<QLineEdit>(name).text());
    }
    void Type(const std::string& name, const std::string& text) {
        QLineEdit& box = Find<QLineEdit>(name);
        box.setFocus();
        box.selectAll();
        if (text.empty()) QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, ToQt(text));
    }
    bool Choose(const std::string& action) {
        auto& chosen = Find<QAction>(action);
        if (!chosen.isEnabled()) return false;
        chosen.trigger();
        return true;
    }
    void Drop(const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(ToQt(path))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &drop);
    }
    std::string Notice() { return Find("Notice").isHidden() ? "" : TextOf("Notice_Text"); }

    // Waits for the picture of what is asked for now.
    void WaitForMap() {
        EXPECT_TRUE(WaitUntil([this] { return !Map().IsBusy(); }));
        QApplication::processEvents();
    }
    MapPage& Map() { return *window->findChild<MapPage*>(); }
    StudyView& View() { return Find<StudyView>("Map_View"); }

    std::unique_ptr<StudiesWindow> window;
};

}  // namespace tarvokol
