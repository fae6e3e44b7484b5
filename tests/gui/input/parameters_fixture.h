// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters dialog over a project of five holes, with the hands that its tests share.
#pragma once

#include <QTabWidget>
#include <string>

#include "core/messages/history_log.h"
#include "core/program/start_up.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/settings/option_settings.h"
#include "desktop/input/frmTARVOParm.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {

class ParametersDialog : public GuiTest {
  protected:
    ParametersDialog() {
        ResetProgram();
        RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
        ViewChildWindow = 0;
        EnterPanel();
    }

    // Overall 5.93, Webs ONLY 4.72, Barrier Pillar 4.71; sizes 39.00 in and 122.40 in.
    static void EnterPanel() {
        UnitSystem = 0;
        ProjectRecord = WorkedPanel();
        ProjectSaved = ProjectEmpty = 255;
        UnitsLocked = 0;
    }

    // The dialog on the screen, active.
    static frmTARVOParm& Open() {
        frmTARVOParm& form = frmTARVOParm::Instance();
        ShowAndActivate(form);
        return form;
    }

    // The dialog loaded anew.
    static frmTARVOParm& Reopen() {
        if (frmTARVOParm::IsLoaded()) frmTARVOParm::Instance().Abandon();
        RunEvents();
        return Open();
    }

    static QLineEdit& Box(QWidget& form, std::string_view name) { return Find<QLineEdit>(form, name); }

    static int Tab(QWidget& form) { return Find<QTabWidget>(form, "SSTab1").currentIndex(); }
    static void ShowTab(QWidget& form, int index) { Find<QTabWidget>(form, "SSTab1").setCurrentIndex(index); }

    // Brings the tab of a box up, whichever it is, and types over its text.
    static void Enter(QWidget& form, const std::string& box, const std::string& text) {
        auto& tabs = Find<QTabWidget>(form, "SSTab1");
        for (int page = 0; page < tabs.count(); ++page)
            if (tabs.widget(page)->findChild<QLineEdit*>(ToQt(box)) != nullptr) tabs.setCurrentIndex(page);
        Box(form, box).setFocus();
        Box(form, box).selectAll();
        if (text.empty())
            QTest::keyClick(&Box(form, box), Qt::Key_Delete);
        else
            QTest::keyClicks(&Box(form, box), ToQt(text));
    }

    static void Press(const std::string& button) { Click(frmTARVOParm::Instance(), button); }

    static std::string FocusName(const QWidget& form) {
        return form.focusWidget() == nullptr ? "" : FromQt(form.focusWidget()->objectName());
    }

    const std::string& History() const { return Host.MainWindow.History; }
};

}  // namespace tarvokol
