// SPDX-License-Identifier: GPL-3.0-or-later
// Every text box of every form takes every text and can be left in every way: no run-time error is left
// unhandled, each of which would end the program. The forms come from the table of all forms, their boxes and
// buttons from the forms themselves.
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextEdit>
#include <filesystem>

#include "core/settings/graph_settings.h"
#include "core/settings/program_name.h"
#include "desktop/base/form_registry.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::IsSupersetOf;

constexpr int kTypeMismatch = 13;

std::vector<QString> HostileTexts() {
    return {"1E39", "-1E39",  "3.4E38",          "1E38",   "2.9E37", "1E308", "1E309", "1E400", "-1E400",
            "",     "5E-324", QString(400, '9'), "-1,5E+", "0x1FD9", "\u2603"};
}

// Ways to leave a box that are the same on every form; a press on one of the form's buttons, named by the
// button, is one more each.
const std::vector<std::string> kWays{"Tab",        "Enter", "Escape", "click elsewhere",
                                     "scroll bar", "page",  "close"};

class HostileTextsInForms : public CurvesOn<MainWindowTest>,
                            public ::testing::WithParamInterface<std::string> {
  protected:
    HostileTextsInForms() {
        PrepareProgram();
        QObject::connect(&closer_, &QTimer::timeout, &closer_, [this] { CloseModal(); });
        closer_.start(1);
    }

    void PrepareProgram() {
        PersonalDataFolder = DataPath = ChosenPath = Folder.string() + "/";
        ExeNameUpper = "TARVOKOL";
        FillCurves(3, 5);
        EnterProject();
    }

    // The form under test, with a project of its own whenever it is loaded anew.
    FormBase& Form() {
        FormBase* form = FindForm(GetParam());
        if (form != nullptr && form->isEnabled()) return *form;
        UnloadAllForms();
        RunEvents();
        EnterProject();
        FormBase& fresh = FormNamed(GetParam());
        fresh.ShowModeless();
        RunEvents();
        return fresh;
    }

    // A form that a button opened modally has nothing to do with the box.
    void CloseModal() {
        auto* modal = qobject_cast<FormBase*>(QApplication::activeModalWidget());
        if (modal != nullptr && modal->objectName() != ToQt(GetParam())) modal->Abandon();
    }

    static bool TakesText(const QWidget& control) {
        if (const auto* line = qobject_cast<const QLineEdit*>(&control)) return !line->isReadOnly();
        if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&control)) return !plain->isReadOnly();
        const auto* rich = qobject_cast<const QTextEdit*>(&control);
        return rich != nullptr && !rich->isReadOnly();
    }

    static std::vector<QWidget*> Boxes(FormBase& form) {
        std::vector<QWidget*> boxes;
        for (QWidget* control : form.findChildren<QWidget*>())
            if (TakesText(*control)) boxes.push_back(control);
        return boxes;
    }

    static std::vector<std::string> Buttons(FormBase& form) {
        std::vector<std::string> buttons;
        for (const QPushButton* button : form.findChildren<QPushButton*>())
            buttons.push_back(FromQt(button->objectName()));
        return buttons;
    }

    // Brings up the page of the tabs on which a control stands.
    static void ShowPageOf(FormBase& form, const QWidget& control) {
        for (auto* tabs : form.findChildren<QTabWidget*>())
            for (int page = 0; page < tabs->count(); ++page)
                if (tabs->widget(page)->isAncestorOf(&control)) tabs->setCurrentIndex(page);
    }

    // A key that nothing need accept.
    static void Send(QWidget& control, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = "") {
        QPointer<QWidget> target = &control;
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        if (target != nullptr) QApplication::sendEvent(target, &release);
    }

    // Short texts are typed, long ones pasted.
    static void Enter(QWidget& box, const QString& text) {
        box.setFocus();
        Send(box, Qt::Key_A, Qt::ControlModifier);
        Send(box, Qt::Key_Delete);
        if (text.size() < 10) {
            for (const QChar letter : text) Send(box, 0, Qt::NoModifier, letter);
            return;
        }
        QApplication::clipboard()->setText(text);
        Send(box, Qt::Key_V, Qt::ControlModifier);
    }

    static void ClickElsewhere(FormBase& form, const QWidget& box) {
        for (QWidget* other : form.findChildren<QWidget*>())
            if (other != &box && TakesText(*other) && other->isVisible() && other->isEnabled()) {
                QTest::mouseClick(other, Qt::LeftButton);
                return;
            }
    }

    static void Leave(FormBase& form, QWidget& box, const std::string& way) {
        if (way == "Tab") Send(box, Qt::Key_Tab);
        if (way == "Enter") Send(box, Qt::Key_Return);
        if (way == "Escape") Send(box, Qt::Key_Escape);
        if (way == "click elsewhere") ClickElsewhere(form, box);
        if (way == "close") form.close();
        if (way == "scroll bar")
            for (auto* bar : form.findChildren<QScrollBar*>())
                for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_End}) Send(*bar, key);
        if (way == "page")
            for (auto* tabs : form.findChildren<QTabWidget*>())
                tabs->setCurrentIndex((tabs->currentIndex() + 1) % tabs->count());
        if (auto* button = form.findChild<QPushButton*>(ToQt(way)); button != nullptr && button->isEnabled())
            Send(*button, Qt::Key_Space);
    }

    // The strict conversion of the abutment angle under "Size pillars" ends the program on a text that is no
    // number.
    static bool EndsByTypeMismatch(const std::string& box, const std::string& way) {
        return box == "txtAbutmentAngleActiveGob" && way == "cmdSize" &&
               UnhandledErrors().back().number == kTypeMismatch;
    }

    void TryWay(std::size_t box_index, const QString& text, const std::string& way) {
        FormBase& form = Form();
        QWidget& box = *Boxes(form).at(box_index);
        const std::string name = FromQt(box.objectName());
        const std::size_t before = UnhandledErrors().size();
        ShowPageOf(form, box);
        Enter(box, text);
        Leave(form, box, way);
        RunEvents();
        if (UnhandledErrors().size() == before || EndsByTypeMismatch(name, way)) return;
        ADD_FAILURE() << name << ", \"" << FromQt(text.left(40)) << "\", " << way << ": "
                      << UnhandledErrors().back().text;
    }

  private:
    QTimer closer_;
};

TEST_P(HostileTextsInForms, EndNoProgram) {
    const std::size_t boxes = Boxes(Form()).size();
    std::vector<std::string> ways = kWays;
    for (const std::string& button : Buttons(Form())) ways.push_back(button);
    int turn = 0;
    for (std::size_t box = 0; box < boxes; ++box)
        for (const QString& text : HostileTexts()) {
            ViewChildWindow = static_cast<int16_t>(++turn % 2);
            UnitSystem = static_cast<int16_t>(turn / 2 % 2);
            for (const std::string& way : ways) {
                TryWay(box, text, way);
                if (HasFailure()) return;
            }
        }
}

INSTANTIATE_TEST_SUITE_P(Forms, HostileTextsInForms, ::testing::ValuesIn(FormNames()),
                         [](const auto& form) { return form.param; });

// The main window is loaded by the program's start.
TEST(FormTable, HoldsEveryFormThatIsDrawn) {
    std::vector<std::string> known = FormNames();
    for (const std::string& name : GraphFormNames()) known.push_back(name);
    known.push_back("frmMain");
    std::vector<std::string> drawn;
    for (const auto& file : std::filesystem::recursive_directory_iterator(TARVOKOL_SOURCE_DIR "/desktop"))
        if (file.path().extension() == ".ui") drawn.push_back(file.path().stem().string());
    EXPECT_GT(drawn.size(), 15u);
    EXPECT_THAT(known, IsSupersetOf(drawn));
}

}  // namespace
}  // namespace tarvokol
