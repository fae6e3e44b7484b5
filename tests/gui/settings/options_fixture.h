// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog of the program's options.
#pragma once

#include <QGroupBox>
#include <QTabBar>
#include <QTabWidget>

#include "core/messages/titles.h"
#include "core/settings/options_record.h"
#include "core/settings/program_name.h"
#include "desktop/settings/frmTARVOOpts.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {

inline constexpr const char* kRangeTitle = "Program Options: Range Error";
inline constexpr const char* kApplicationTitle = "Tarvo Panel Stability Evaluation - KOL";

class OptionsFixture : public MainWindowTest {
  protected:
    OptionsFixture() {
        Platform.MainWindow = &Host.MainWindow;
        ShowInputScreenOnLoad = 1;
    }

    frmTARVOOpts& Open() {
        frmTARVOOpts& form = frmTARVOOpts::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Closed() {
        RunEvents();
        return !frmTARVOOpts::IsLoaded();
    }

    static QTabWidget& Tabs(QWidget& form) { return Find<QTabWidget>(form, "SSTab1"); }
    static void ShowTab(QWidget& form, int index) {
        QTabBar& bar = *Tabs(form).tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(index).center());
    }
    static bool IsOn(QWidget& form, const std::string& name) {
        return Find<QAbstractButton>(form, name).isChecked();
    }
    static bool IsTabStop(QWidget& form, const std::string& name) {
        return (Find(form, name).focusPolicy() & Qt::TabFocus) != 0;
    }
    static std::string FrameOf(QWidget& form, const std::string& name) {
        auto* frame = qobject_cast<QGroupBox*>(Find(form, name).parentWidget());
        return frame == nullptr ? "" : FromQt(frame->title());
    }
    static int TabOf(QWidget& form, const std::string& name) {
        for (int i = 0; i < Tabs(form).count(); ++i)
            if (Tabs(form).widget(i)->isAncestorOf(&Find(form, name))) return i;
        return -1;
    }
    static int TabOfTextBox(const std::string& name) { return name.starts_with("Text") ? 2 : 0; }

    // The frame's title, its tab and the controls inside.
    static void ExpectFrame(QWidget& form, int tab, const std::string& title,
                            const std::vector<std::string>& controls) {
        for (const std::string& name : controls) {
            EXPECT_EQ(FrameOf(form, name), title) << name;
            EXPECT_EQ(TabOf(form, name), tab) << name;
        }
    }

    // OK with boxes changed.
    frmTARVOOpts& Submit(const std::vector<std::pair<std::string, std::string>>& texts) {
        frmTARVOOpts& form = Open();
        for (const auto& [box, text] : texts) {
            ShowTab(form, TabOfTextBox(box));
            Type(form, box, text);
        }
        Click(form, "Command2");
        return form;
    }

    void ExpectRefused(frmTARVOOpts& form, const std::string& message, int style, const std::string& title,
                       const std::string& control, int tab) {
        ASSERT_EQ(Host.Messages.Shown.size(), 1u);
        EXPECT_EQ(Host.Messages.Shown[0].message, message);
        EXPECT_EQ(Host.Messages.Shown[0].style, style);
        EXPECT_EQ(Host.Messages.Shown[0].title, title);
        EXPECT_TRUE(frmTARVOOpts::IsLoaded());
        EXPECT_EQ(Tabs(form).currentIndex(), tab);
        EXPECT_EQ(form.focusWidget(), &Find(form, control));
        EXPECT_EQ(Find<QLineEdit>(form, control).selectedText(), Find<QLineEdit>(form, control).text());
        EXPECT_FALSE(std::filesystem::exists(IniPath));
    }

    static void ComeToTheFrontAgain(QWidget& form) {
        LeaveNoWindowActive();
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(&form);
        QT_WARNING_POP
        RunEvents();
    }

    std::string Ini() const { return ReadBytes(IniPath); }
    const std::string& History() const { return Host.MainWindow.History; }
};

}  // namespace tarvokol
