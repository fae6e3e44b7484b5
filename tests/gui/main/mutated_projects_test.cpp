// SPDX-License-Identifier: GPL-3.0-or-later
// Damaged and strange project files, made by seed, each opened and taken through every command of every menu and
// dialog: none ends the program. TARVOKOL_MUTATIONS tells how many; the first of them is TARVOKOL_FIRST_MUTATION.
#include <QAbstractButton>
#include <QTabWidget>
#include <algorithm>
#include <fstream>
#include <map>
#include <random>
#include <set>

#include "core/program/program_help.h"
#include "core/settings/program_name.h"
#include "desktop/base/form_registry.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/test_settings.h"

namespace tarvokol {
namespace {

const std::vector<std::string> kLines{"TARVOKOL_101",
                                      " 0 ",
                                      "Ridge 4",
                                      "##StartDesc##",
                                      "Bench 2, upper seam.",
                                      "##EndDesc##",
                                      "10",
                                      "100",
                                      "10",
                                      "10",
                                      "20",
                                      " 5 ",
                                      "90",
                                      "1000000",
                                      "900",
                                      "162",
                                      "21",
                                      "1.6",
                                      "2",
                                      "0"};
constexpr std::size_t kUnitLine = 1;
constexpr std::size_t kFirstFigure = 6;
constexpr std::size_t kHolesLine = 11;

const std::vector<std::string> kStrange{
    "1E39",   "-1E39", "3.4E38",     "1E20",  "1E200",  "1E308", "1E400", "-1E400", "5E-324",
    "1E-300", "1E-40", "NaN",        "inf",   "",       "0",     "-0",    "-1",     "1,5",
    "twelve", "1D5",   "1E",         "+",     "89.99",  "90",    "180",   "360",    "900",
    "901",    "0.001", "2147483648", "32767", "32768",  "1 2 3", "1E12",  "9.9E11", "1E-12",
    "999999", "\"7\"", "0x10",       "1e+5",  "  12  ", "-5E-7"};
const std::vector<std::string> kHoles{"-32768", "-3", "-1", "0",   "1",   "2",     "19",    "20",  "21",
                                      "22",     "23", "25", "100", "999", "32767", "32768", "1E9", "2.5"};

// A project file that nobody would write.
class Mutation {
  public:
    explicit Mutation(int seed) : random_(static_cast<std::uint32_t>(seed)), lines_(kLines) {}

    std::string Bytes() {
        ChangeFigures();
        if (OneIn(4)) lines_.at(kHolesLine) = Any(kHoles);
        if (OneIn(4)) lines_.at(kUnitLine) = OneIn(3) ? Any(kStrange) : " 1 ";
        if (OneIn(6)) ChangeLines();
        std::string bytes;
        for (const std::string& line : lines_) bytes += line + (OneIn(40) ? "\n" : "\r\n");
        if (OneIn(8)) ChangeBytes(bytes);
        return bytes;
    }

  private:
    bool OneIn(int n) { return Below(static_cast<std::size_t>(n)) == 0; }
    std::size_t Below(std::size_t n) { return random_() % n; }
    const std::string& Any(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }

    void ChangeFigures() {
        const std::size_t count = OneIn(3) ? 2 + Below(5) : 1;
        for (std::size_t i = 0; i < count; ++i)
            lines_.at(kFirstFigure + Below(kLines.size() - kFirstFigure)) = Figure();
    }

    std::string Figure() {
        if (OneIn(2)) return Any(kStrange);
        const int power = static_cast<int>(Below(OneIn(3) ? 640 : 24));
        const int middle = power >= 24 ? 320 : 12;
        return (OneIn(5) ? "-" : "") + std::to_string(1 + Below(9)) + "." + std::to_string(Below(1000)) +
               "E" + std::to_string(power - middle);
    }

    void ChangeLines() {
        const auto at = static_cast<std::ptrdiff_t>(Below(lines_.size()));
        if (OneIn(3))
            lines_.erase(lines_.begin() + at);
        else if (OneIn(2))
            lines_.insert(lines_.begin() + at, Any(kStrange));
        else
            std::swap(lines_[static_cast<std::size_t>(at)], lines_[Below(lines_.size())]);
    }

    void ChangeBytes(std::string& bytes) {
        if (OneIn(3)) bytes.resize(Below(bytes.size()));
        for (std::size_t i = Below(4); i > 0 && !bytes.empty(); --i)
            bytes[Below(bytes.size())] = static_cast<char>(random_());
    }

    std::mt19937 random_;
    std::vector<std::string> lines_;
};

// Presses every command of a form and of what it opens.
class MutatedProject : public CurvesOn<MainWindowTest> {
  protected:
    MutatedProject() {
        FillResourceTables();
        PersonalDataFolder = DataPath = ChosenPath = Folder.string() + "/";
        ExeNameUpper = "TARVOKOL";
        FileExtension = "TKL";
        PlotXcutDims = 1;
    }

    void OpenFile(const std::string& path) {
        Host.Dialogs.FileAnswers.assign(1, path);
        Choose(*FindForm("frmMain"), "mnuFileItem_1");
        Host.Dialogs.FileAnswers.clear();
        ProjectSaved = 255;
    }

    // What reads no project is pressed with few of them.
    void PressMainWindow(const std::string& path, bool all) {
        for (const std::string& command : CommandsOf(*FindForm("frmMain"))) {
            if (kEnding.contains(command) || (!all && kWithoutProject.contains(command))) continue;
            OpenFile(path);
            ViewChildWindow = static_cast<int16_t>(presses_ % 2);
            FormBase& window = *FindForm("frmMain");
            Press(window, command);
            ASSERT_NE(FindForm("frmMain"), nullptr) << command;
            ASSERT_TRUE(window.isEnabled()) << command;
            if (HasFailure()) return;
        }
    }

    int Presses() const { return presses_; }
    const std::set<std::string>& Pressed() const { return pressed_; }

  private:
    static inline const std::set<std::string> kEnding{"mnuFileItem_1", "mnuFileItem_11"};
    static inline const std::set<std::string> kWithoutProject{
        "mnuFileItem_5",  "mnuFileItem_9",  "mnuUtilItem_0",  "mnuUtilItem_1",
        "mnuUtilItem_2",  "mnuHelpItem_0",  "mnuHelpItem_1",  "mnuHelpItem_2",
        "mnuHelpItem_4",  "mnuHelpItem_6",  "mnuHelpItem_8",  "mnuHelpItem_10",
        "mnuFileArray_1", "mnuFileArray_2", "mnuFileArray_3", "mnuFileArray_4"};

    // Names of a form's menu entries and buttons, those that have closed it before at the end.
    std::vector<std::string> CommandsOf(FormBase& form) {
        std::vector<std::string> names;
        for (const QAction* action : form.findChildren<QAction*>())
            if (!action->objectName().isEmpty() && !action->isSeparator())
                names.push_back(FromQt(action->objectName()));
        for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
            if (!button->objectName().isEmpty() && button->focusPolicy() != Qt::NoFocus)
                names.push_back(FromQt(button->objectName()));
        const std::set<std::string>& closing = closing_[FromQt(form.objectName())];
        std::stable_partition(names.begin(), names.end(),
                              [&](const std::string& name) { return !closing.contains(name); });
        return names;
    }

    void Press(FormBase& form, const std::string& command) {
        const int press = ++presses_;
        unfinished_.insert(press);
        WalkModalDuring(press);
        const std::string name = FromQt(form.objectName());
        pressed_.insert(name + "." + command);
        way_.push_back(command);
        Host.Dialogs.PrinterAnswers.assign(1, presses_ % 3 != 0);
        if (form.findChild<QAction*>(ToQt(command)) != nullptr)
            Choose(form, command);
        else
            ClickOnItsPage(form, command);
        RunEvents();
        unfinished_.erase(press);
        TellErrors();
        WalkOpened();
        way_.pop_back();
        if (FindForm(name) == nullptr) closing_[name].insert(command);
    }

    static void ClickOnItsPage(FormBase& form, const std::string& command) {
        auto* button = form.findChild<QAbstractButton*>(ToQt(command));
        for (auto* tabs : form.findChildren<QTabWidget*>())
            for (int page = 0; page < tabs->count(); ++page)
                if (tabs->widget(page)->isAncestorOf(button)) tabs->setCurrentIndex(page);
        if (button->isVisible() && button->isEnabled()) Click(form, command);
    }

    void WalkOpened() {
        for (bool found = true; found;) {
            found = false;
            for (FormBase* form : LoadedForms()) {
                if (!form->isVisible() || !form->isEnabled() || IsWalked(*form)) continue;
                WalkAndClose(*form);
                found = true;
                break;
            }
        }
    }

    // A press that opens a modal window ends with it. Each press has timers of its own, as one that is at work starts no
    // second time in the loop of the next window.
    void WalkModalDuring(int press) {
        QTimer::singleShot(0, &walker_, [this, press] {
            if (!unfinished_.contains(press)) return;
            auto* modal = qobject_cast<FormBase*>(QApplication::activeModalWidget());
            if (modal != nullptr && modal->isVisible() && !IsWalked(*modal)) WalkAndClose(*modal);
            WalkModalDuring(press);
        });
    }

    bool IsWalked(const FormBase& form) const {
        const std::string name = FromQt(form.objectName());
        return name == "frmMain" || walked_.contains(name);
    }

    void WalkAndClose(FormBase& opened) {
        const std::string name = FromQt(opened.objectName());
        walked_.insert(name);
        for (const std::string& command : CommandsOf(opened)) {
            FormBase* form = FindForm(name);
            if (form == nullptr) break;
            Press(*form, command);
        }
        if (FormBase* form = FindForm(name)) form->Unload();
        RunEvents();
        walked_.erase(name);
    }

    void TellErrors() {
        for (; told_ < UnhandledErrors().size(); ++told_) {
            std::string way;
            for (const std::string& command : way_) way += " " + command;
            ADD_FAILURE() << UnhandledErrors()[told_].number << " " << UnhandledErrors()[told_].text
                          << " after" << way;
        }
    }

    std::map<std::string, std::set<std::string>> closing_;
    std::set<std::string> walked_;
    std::set<std::string> pressed_;
    std::vector<std::string> way_;
    std::size_t told_ = 0;
    int presses_ = 0;
    std::set<int> unfinished_;  // presses that have opened a window
    QObject walker_;
};

TEST_F(MutatedProject, EndsTheProgramInNoCommand) {
    const int first = NumberFrom("TARVOKOL_FIRST_MUTATION", 1);
    const int count = NumberFrom("TARVOKOL_MUTATIONS", 60);
    Start();
    int opened = 0;
    for (int seed = first; seed < first + count; ++seed) {
        const std::string path = PathTo("MUTATED.TKL");
        const std::string bytes = Mutation(seed).Bytes();
        SCOPED_TRACE("mutation " + std::to_string(seed) + ":\n" + bytes);
        WriteBytes(path, bytes);
        OpenFile(path);
        if (ProjectEmpty == 255) continue;  // told, and not opened
        ++opened;
        PressMainWindow(path, seed == first || seed % 100 == 0);
        if (HasFailure()) return;
    }
    EXPECT_GT(opened, count / 2);
    std::printf("%d projects opened, %d presses of %zu commands\n", opened, Presses(), Pressed().size());
}

}  // namespace
}  // namespace tarvokol
