// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard in the forms that menu commands open: which command opens them, F1, Escape from every control,
// Enter, and the way of the tab key through all controls.
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTreeView>
#include <algorithm>
#include <iterator>
#include <set>

#include "core/program/program_help.h"
#include "core/settings/program_name.h"
#include "core/settings/update_reminder.h"
#include "desktop/base/form_registry.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

struct KeyboardForm {
    const char* form;
    const char* command;  // that opens it from the main window; none for the folder dialog
    std::vector<std::vector<std::string>> stops;  // of the tab key, for each page of the form's tabs
};

const KeyboardForm kForms[] = {
    {"frmSet",
     "mnuUtilItem_0",
     {{"optUnits_0",   "Text2",           "cmdSetPath",      "Text1",
       "Text4",        "cmdSelect",       "cmdSetDefault",   "chkDispHist",
       "Text3",        "Command5",        "chkKeepRecentFL", "chkShortNames",
       "chkShowDiscl", "chkMaxMenu",      "chkEnableTB",     "chkLoadLastInputFile",
       "chkUpdate",    "chkCopyExamples", "cmdOK",           "cmdCancel",
       "cmdHelp"}}},
    {"frmTARVOOpts",
     "mnuUtilItem_1",
     {{"tabBar", "Check1", "Check3", "Check8", "cmdFileAssoc", "txtDefaultAbutment", "txtDefaultSFWeb",
       "txtDefaultSFBarrier", "Command2", "Command1", "Command3"},
      {"tabBar", "Check4", "Check5", "Check7", "Check6", "Option3_0", "Check2", "Command2", "Command1",
       "Command3"},
      {"tabBar", "chkOffice", "Text1", "Text2", "Option1_0", "Option2_0", "Command2", "Command1",
       "Command3"}}},
    {"frmUnits",
     "mnuUtilItem_2",
     {{"tabBar", "txtLength", "Option2_0", "Text7", "Text8", "Text9", "Text10", "Command1", "Command3"},
      {"tabBar", "txtLoad", "Option5_0", "Text21", "Text22", "Text23", "Text24", "Text25", "Command1",
       "Command3"},
      {"tabBar", "txtLoadGrad", "Option4_0", "Text17", "Text18", "Text19", "Text20", "Command1", "Command3"},
      {"tabBar", "txtStress", "Option1_0", "Text2", "Text3", "Text4", "Text5", "Text6", "Command1",
       "Command3"},
      {"tabBar", "txtStressGrad", "Option3_0", "Text12", "Text13", "Text14", "Text15", "Command1",
       "Command3"}}},
    {"frmConvert", "mnuUtilItem_3", {{"Option1_1", "Option2_0", "Command2", "Command1", "Command3"}}},
    {"frmTARVODesc",
     "mnuEditItem_0",
     {{"Text1", "Text2", "Option1_0", "Command2", "Command1", "Command3", "Command4"}}},
    {"frmResource",
     "mnuHelpItem_4",
     {{"cmdView_0", "cmdView_1", "cmdView_2", "cmdView_3", "cmdView_4", "Command1"}}},
    {"frmDisclaimer", "mnuHelpItem_6", {{"Command1", "chkShow"}}},
    {"frmUpdate", "mnuHelpItem_8", {{"Command1", "lblURL", "chkShow"}}},
    {"frmTextBrow",
     "mnuFileItem_9",
     {{"Drive1", "Dir1", "Text2", "File1", "RichTextBox1", "Check1", "cmdSetFont", "Command1"}}},
    {"frmPath", "", {{"Drive1", "Dir1", "Option1_0", "Command2", "Command1", "Command3"}}},
};

class FormKeyboard : public MainWindowTest, public ::testing::WithParamInterface<KeyboardForm> {
  protected:
    FormKeyboard() {
        FillResourceTables();
        PersonalDataFolder = DataPath = ChosenPath = Folder.string() + "/";
        PlotXcutDims = 1;
        ExeNameUpper = "TARVOKOL";
    }

    FormBase& Open() {
        RunEvents();
        FormBase& form = FormNamed(GetParam().form);
        ShowAndActivate(form);
        return form;
    }

    static bool IsLoaded() { return FindForm(GetParam().form) != nullptr; }

    static std::string NameOf(const QWidget* control) {
        if (control == nullptr) return "nothing";
        return control->inherits("QTabBar") ? "tabBar" : FromQt(control->objectName());
    }

    // The controls that the tab key reaches, from the first one on. A group of options is one stop; the arrow
    // keys move inside.
    static std::vector<std::string> StopsOf(FormBase& form, const std::string& first) {
        QWidget* start = first == "tabBar" ? form.findChild<QTabBar*>() : &Find(form, first);
        start->setFocus();
        std::vector<std::string> stops;
        do {
            stops.push_back(NameOf(form.focusWidget()));
            Press(form, Qt::Key_Tab);
        } while (form.focusWidget() != start && stops.size() < 50);
        return stops;
    }

    // Controls that take keys, of the page that shows.
    static std::vector<std::string> TabStops() {
        std::vector<std::string> names;
        for (const std::string& name : GetParam().stops.front())
            if (name != "tabBar") names.push_back(name);
        return names;
    }
};

class FormOfTheMenu : public FormKeyboard {};

TEST_P(FormOfTheMenu, OpensModally) {
    frmMain& main_window = Start();
    EnterProject();
    bool opened = false;
    WhenShown(GetParam().form, [&](FormBase& form) {
        opened = true;
        EXPECT_TRUE(form.isModal());
        EXPECT_TRUE(form.isVisible());
        Press(form, Qt::Key_Escape);
    });
    EXPECT_TRUE(Choose(main_window, GetParam().command));
    EXPECT_TRUE(opened);
    EXPECT_FALSE(IsLoaded());
    EXPECT_TRUE(main_window.isEnabled());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_P(FormKeyboard, F1OpensItsTopicFromEveryControl) {
    FormBase& form = Open();
    const std::string topic = "topic " + RunTimeHelpFile + " " + GetParam().form + ".htm";
    for (const std::string& name : TabStops()) {
        Host.Help.Calls.clear();
        Find(form, name).setFocus();
        Press(form, Qt::Key_F1);
        EXPECT_THAT(Host.Help.Calls, ElementsAre(topic)) << name;
    }
}

TEST_P(FormKeyboard, EscapeClosesItFromEveryControl) {
    for (const std::string& name : TabStops()) {
        FormBase& form = Open();
        Find(form, name).setFocus();
        Press(form, Qt::Key_Escape);
        EXPECT_FALSE(IsLoaded()) << name;
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_P(FormKeyboard, TheTabKeyReachesEveryControlInTurn) {
    FormBase& form = Open();
    auto* tabs = form.findChild<QTabWidget*>("SSTab1");
    for (std::size_t page = 0; page < GetParam().stops.size(); ++page) {
        if (tabs != nullptr) tabs->setCurrentIndex(static_cast<int>(page));
        const auto& stops = GetParam().stops[page];
        EXPECT_THAT(StopsOf(form, stops.front()), ElementsAreArray(stops)) << page;
    }
}

TEST_P(FormKeyboard, EnterIsTheDefaultButtonFromBoxesAndOptions) {
    for (const std::string& name : TabStops()) {
        FormBase& form = Open();
        QWidget& control = Find(form, name);
        // In the pattern of the text browser Enter is for the pattern.
        const bool pattern = std::string(GetParam().form) == "frmTextBrow" && name == "Text2";
        const bool simple = (qobject_cast<QLineEdit*>(&control) && !pattern) ||
                            qobject_cast<QCheckBox*>(&control) || name.starts_with("Opt");
        if (simple) {
            control.setFocus();
            Press(form, Qt::Key_Return);
            EXPECT_FALSE(IsLoaded()) << name;
        } else {
            form.Unload();
        }
    }
}

TEST_P(FormKeyboard, EveryControlHasANameThatCanBeReadOut) {
    FormBase& form = Open();
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty() && !control->objectName().startsWith("qt_") &&
            (control->focusPolicy() & Qt::TabFocus) != 0 && control->objectName() != "SSTab1" &&
            control->window() == &form && control->isVisible()) {
            const QString caption = control->property("text").toString();
            const bool button = control->inherits("QAbstractButton");
            EXPECT_FALSE((button ? caption : control->accessibleName()).isEmpty())
                << FromQt(control->objectName());
        }
    }
}

// A name of its own would be read in place of the words on the screen.
TEST_P(FormKeyboard, TheTextOfALabelIsWhatIsReadOut) {
    FormBase& form = Open();
    for (QLabel* label : form.findChildren<QLabel*>()) {
        if (label->text().isEmpty()) continue;
        const QString shown = QString(label->text()).remove('&');
        EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name).remove('&'), shown)
            << FromQt(label->objectName());
    }
}

TEST_P(FormKeyboard, NoTwoControlsShareAMnemonic) {
    FormBase& form = Open();
    std::set<QString> used;
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        const QKeySequence key = QKeySequence::mnemonic(control->property("text").toString());
        if (key.isEmpty() || control->inherits("QLineEdit")) continue;
        EXPECT_TRUE(used.insert(key.toString()).second) << FromQt(control->objectName());
    }
}

std::vector<KeyboardForm> FormsOfTheMenu() {
    std::vector<KeyboardForm> forms;
    std::copy_if(std::begin(kForms), std::end(kForms), std::back_inserter(forms),
                 [](const KeyboardForm& form) { return *form.command != '\0'; });
    return forms;
}

std::string NameOfForm(const ::testing::TestParamInfo<KeyboardForm>& info) {
    return info.param.form;
}

INSTANTIATE_TEST_SUITE_P(Forms, FormKeyboard, ::testing::ValuesIn(kForms), NameOfForm);
INSTANTIATE_TEST_SUITE_P(Forms, FormOfTheMenu, ::testing::ValuesIn(FormsOfTheMenu()), NameOfForm);

}  // namespace
}  // namespace tarvokol
