// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog of the settings over a folder of the test's own.
#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <string>

#include "core/program/start_up.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "desktop/settings/frmSet.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {

class SettingsFixture : public GuiTest {
  protected:
    SettingsFixture() {
        ResetProgram();
        AppFolder = Folder.string() + "/";
        PersonalDataFolder = Folder.string() + "/";
        TempDataFolder = Folder.string() + "/";
        IniPath = PathTo("TARVOKOL.INI");
        DataPath = Folder.string() + "/";
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
    }

    frmSet& Open() {
        frmSet& form = frmSet::Instance();
        ShowAndActivate(form);
        return form;
    }

    // The form was closed by its own button.
    static bool Closed() {
        RunEvents();
        return !frmSet::IsLoaded();
    }

    static bool IsOn(QWidget& form, const std::string& name) {
        return Find<QAbstractButton>(form, name).isChecked();
    }
    static bool IsEnabled(QWidget& form, const std::string& name) { return Find(form, name).isEnabled(); }
    static bool HasLabel(QWidget& form, const std::string& text) {
        for (const QLabel* label : form.findChildren<QLabel*>())
            if (FromQt(label->text().remove('&')) == text) return true;
        return false;
    }
    static std::string FrameOf(QWidget& form, const std::string& name) {
        for (QWidget* at = Find(form, name).parentWidget(); at != nullptr; at = at->parentWidget())
            if (auto* frame = qobject_cast<QGroupBox*>(at)) return FromQt(frame->title());
        return "";
    }
    static bool HasFocus(QWidget& form, const std::string& name) {
        return form.focusWidget() == &Find(form, name);
    }

    // OK with one box changed; the messages are what the form says to that.
    void Submit(const std::string& box, const std::string& text) {
        frmSet& form = Open();
        Type(form, box, text);
        Click(form, "cmdOK");
    }

    void ExpectBox(std::size_t index, const std::string& message, int style, const std::string& title) {
        ASSERT_GT(Host.Messages.Shown.size(), index);
        EXPECT_EQ(Host.Messages.Shown[index].message, message);
        EXPECT_EQ(Host.Messages.Shown[index].style, style);
        EXPECT_EQ(Host.Messages.Shown[index].title, title);
    }

    std::string Ini() const { return ReadBytes(IniPath); }
};

}  // namespace tarvokol
