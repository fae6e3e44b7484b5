// SPDX-License-Identifier: GPL-3.0-or-later
// The services that all forms share, each by itself.
#include "desktop/base/form_services.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

#include "core/messages/titles.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/modCapture.h"
#include "desktop/base/path_label.h"
#include "desktop/base/used_value.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

// A form of three boxes and three options, with what its options told.
class frmServices : public SingleForm<frmServices> {
  public:
    frmServices() {
        setObjectName("frmServices");
        auto* body = new QWidget;
        auto* layout = new QVBoxLayout(body);
        Add(new QLineEdit, "Text1", *layout);
        Add(new QLineEdit, "Text2", *layout);
        Add(new QPlainTextEdit, "Lines", *layout);
        Add(new QTextEdit, "Rich", *layout);
        for (const char* name : {"Option1_0", "Option1_1", "Option1_2"})
            Add(new QRadioButton(name), name, *layout);
        setCentralWidget(body);
        options = OptionGroup(*this, "Option1");
        ConnectClicks(options, this, &frmServices::Option1_Click);
    }

    OptionGroup options;
    std::vector<int> told;

  private:
    static void Add(QWidget* control, const char* name, QVBoxLayout& layout) {
        control->setObjectName(name);
        layout.addWidget(control);
    }
    void Option1_Click(int index) { told.push_back(index); }
};

class FormServices : public GuiTest {
  protected:
    static frmServices& Open() {
        ShowAndActivate(frmServices::Instance());
        return frmServices::Instance();
    }
    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(frmServices::Instance(), name); }

    // The box loses the focus and gets it again, for the reason.
    static void LeaveAndReturn(QLineEdit& box, Qt::FocusReason reason) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&box, &out);
        QFocusEvent in(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(&box, &in);
    }
};

TEST_F(FormServices, AFormCountsFifteenTwipsToThePixel) {
    EXPECT_EQ(TwipsOf(4), 60);
    EXPECT_EQ(PixelsOf(60), 4);
    EXPECT_EQ(PixelsOf(59), 3);
}

TEST_F(FormServices, AnOptionTellsEveryChoiceOnceAndTheClickOnTheChosenOneToo) {
    frmServices& form = Open();
    SetArrayIndex(form.options, 1);
    EXPECT_THAT(form.told, ElementsAre(1));
    Click(form, "Option1_1");
    EXPECT_THAT(form.told, ElementsAre(1, 1));
    Click(form, "Option1_2");
    EXPECT_THAT(form.told, ElementsAre(1, 1, 2));
    Click(form, "Option1_2");
    EXPECT_THAT(form.told, ElementsAre(1, 1, 2, 2));
}

TEST_F(FormServices, AnArrayKnowsItsElementsAndItsBounds) {
    const frmServices& form = Open();
    EXPECT_EQ(form.options.LBound(), 0);
    EXPECT_EQ(form.options.UBound(), 2);
    EXPECT_TRUE(form.options.Has(2));
    EXPECT_FALSE(form.options.Has(3));
    EXPECT_EQ(form.options[2].objectName(), "Option1_2");
    EXPECT_EQ(RaisedError([&] { form.options[3].isChecked(); }), 340);
    const OptionGroup none(form, "Option");
    EXPECT_EQ(RaisedError([&] { none.LBound(); }), 340);
    EXPECT_EQ(RaisedError([&] { none.UBound(); }), 340);
}

// Options that a form keeps apart stay apart when one of them is chosen.
TEST_F(FormServices, ChoosingByTheProgramLeavesTheOptionsAsExclusiveAsTheyWere) {
    frmServices& form = Open();
    SetArrayIndex(form.options, 1);
    for (const auto& [index, option] : form.options) EXPECT_TRUE(option->autoExclusive()) << index;
    Click(form, "Option1_2");
    EXPECT_FALSE(form.options[1].isChecked());
}

TEST_F(FormServices, AWindowOrAMenuInBetweenLeavesTheSelection) {
    frmServices& form = Open();
    SelectAllOnFocus(form);
    QLineEdit& box = Box("Text1");
    box.setText("123456");
    for (const Qt::FocusReason passing : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        box.setSelection(1, 2);
        LeaveAndReturn(box, passing);
        EXPECT_EQ(box.selectedText(), "23") << passing;
    }
    // For the menu bar the toolkit itself gives the selection up; the caret stays.
    box.setSelection(1, 2);
    LeaveAndReturn(box, Qt::MenuBarFocusReason);
    EXPECT_EQ(box.selectedText(), "");
    EXPECT_EQ(box.cursorPosition(), 3);
    for (const Qt::FocusReason coming : {Qt::TabFocusReason, Qt::ShortcutFocusReason, Qt::OtherFocusReason}) {
        box.setSelection(1, 2);
        LeaveAndReturn(box, coming);
        EXPECT_EQ(box.selectedText(), "123456") << coming;
    }
}

TEST_F(FormServices, ABoxThatWasLeftForAnotherIsSelectedWholeWhenTheWindowComesBackToIt) {
    frmServices& form = Open();
    SelectAllOnFocus(form);
    QLineEdit& box = Box("Text1");
    box.setText("123456");
    box.setFocus();
    Box("Text2").setFocus();
    box.setSelection(1, 2);
    QFocusEvent in(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&box, &in);
    EXPECT_EQ(box.selectedText(), "123456");
}

TEST_F(FormServices, ABoxThatAWindowOpensOnIsSelectedWhole) {
    frmServices& form = Open();
    SelectAllOnFocus(form);
    QLineEdit& box = Box("Text2");
    box.setText("123456");
    box.setSelection(1, 2);
    QFocusEvent in(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&box, &in);
    EXPECT_EQ(box.selectedText(), "123456");
}

TEST_F(FormServices, AClickIntoTheBoxThatHasTheFocusPutsTheCaretDown) {
    frmServices& form = Open();
    SelectAllOnFocus(form);
    Box("Text2").setText("1234567890");
    Click(form, "Text2");
    EXPECT_EQ(Box("Text2").selectedText(), "1234567890");
    Click(form, "Text2");
    EXPECT_EQ(Box("Text2").selectedText(), "");
}

TEST_F(FormServices, TheCaretStaysWhereItIsWhileAnotherWindowIsInFront) {
    Open();
    QLineEdit& box = Box("Text1");
    box.setFocus();
    QTest::keyClicks(&box, "12345");
    QFocusEvent passing(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&box, &passing);
    EXPECT_EQ(box.cursorPosition(), 5);
    QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&box, &leaving);
    EXPECT_EQ(box.cursorPosition(), 0);
}

TEST_F(FormServices, SelectAllReachesEveryKindOfTextBox) {
    frmServices& form = Open();
    auto& lines = Find<QPlainTextEdit>(form, "Lines");
    auto& rich = Find<QTextEdit>(form, "Rich");
    Box("Text1").setText("1");
    lines.setPlainText("two");
    rich.setPlainText("three");
    lines.setFocus();
    SelectAllText();
    EXPECT_EQ(lines.textCursor().selectedText(), "two");
    EXPECT_FALSE(rich.textCursor().hasSelection());
    rich.setFocus();
    SelectAllText();
    EXPECT_EQ(rich.textCursor().selectedText(), "three");
    EXPECT_FALSE(Box("Text1").hasSelectedText());
}

TEST_F(FormServices, BoxesGetTheWidthOfTenDigitsAndNoLessThanTheirOwn) {
    QWidget body;
    QLineEdit narrow(&body);
    narrow.setFixedWidth(20);
    QLineEdit wide(&body);
    wide.setFixedWidth(400);
    QLineEdit free(&body);
    const int least = free.minimumWidth();
    WidenBoxes(body);
    const int ten = narrow.fontMetrics().horizontalAdvance("0000000000");
    EXPECT_EQ(narrow.minimumWidth(), narrow.maximumWidth());
    EXPECT_GE(narrow.maximumWidth(), ten);
    EXPECT_LT(narrow.maximumWidth(), ten + 2 * narrow.fontMetrics().horizontalAdvance('0'));
    EXPECT_EQ(wide.minimumWidth(), 400);
    EXPECT_EQ(wide.maximumWidth(), 400);
    EXPECT_EQ(free.minimumWidth(), least);
    EXPECT_EQ(free.maximumWidth(), QWIDGETSIZE_MAX);
}

TEST_F(FormServices, AnotherValueThanTheTypedOneIsNotedBesideTheBox) {
    FormBase& form = Open();
    QLineEdit& box = Box("Text1");
    NoteUsedValue(box);
    const auto& note = Find<QLabel>(form, "Text1Used");
    const std::pair<const char*, const char*> cases[] = {{"4,5", "used: 4"},
                                                         {"12O", "used: 12"},
                                                         {"1 2", "used: 12"},
                                                         {"twelve", "used: 0"},
                                                         {"1E", "used: 1"}};
    for (const auto& [typed, noted] : cases) {
        Type(form, "Text1", typed);
        EXPECT_TRUE(note.isVisible()) << typed;
        EXPECT_EQ(note.text(), noted) << typed;
        EXPECT_EQ(box.accessibleDescription(), noted);
        EXPECT_EQ(box.text(), typed);
        EXPECT_FALSE(note.geometry().intersects(box.geometry()));
        for (const QLineEdit* other : form.findChildren<QLineEdit*>()) {
            if (other->parentWidget() == note.parentWidget()) {
                EXPECT_FALSE(note.geometry().intersects(other->geometry())) << typed;
            }
        }
    }
    for (const char* typed : {"4.5", " 4.5 ", "-1", "1E3", "1D5", ""}) {
        box.setText(typed);
        EXPECT_FALSE(note.isVisible()) << typed;
        EXPECT_EQ(box.accessibleDescription(), "");
    }
    box.setText("7,");
    EXPECT_TRUE(note.isVisible()) << "whoever has put it there";
}

TEST_F(FormServices, AFigureThatIsStoredWholeIsNotedSo) {
    FormBase& form = Open();
    NoteUsedValue(Box("Text1"), StoredAs::Whole);
    const auto& note = Find<QLabel>(form, "Text1Used");
    Type(form, "Text1", "2.5");
    EXPECT_EQ(note.text(), "used: 2");
    Type(form, "Text1", "3.0");
    EXPECT_FALSE(note.isVisible());
}

TEST_F(FormServices, ABoxesLinesAreJoinedByLineEndsAndKeepEveryCharacter) {
    QPlainTextEdit box;
    box.setPlainText(QString::fromUtf8("one\u00a0a\ntwo"));
    box.textCursor().insertText(QString(QChar::LineSeparator));
    EXPECT_EQ(LinesOf(box), "\r\none\u00a0a\r\ntwo");
}

TEST_F(FormServices, OnlyThePageThatShowsIsReachedByTheTabKey) {
    QTabWidget tabs;
    const auto add_page = [&tabs] {
        auto* page = new QWidget;
        for (QWidget* control :
             std::initializer_list<QWidget*>{new QLineEdit, new QComboBox, new QPushButton})
            control->setParent(page);
        tabs.addTab(page, "page");
    };
    add_page();
    add_page();
    auto* bar = new QScrollBar(tabs.widget(1));
    bar->setFocusPolicy(Qt::StrongFocus);
    const auto reached = [&tabs](int page) {
        std::vector<bool> stops;
        for (const QWidget* control : tabs.widget(page)->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            stops.push_back((control->focusPolicy() & Qt::TabFocus) != 0);
        return stops;
    };
    FixTabStops(tabs);
    EXPECT_THAT(reached(0), ElementsAre(true, true, true));
    EXPECT_THAT(reached(1), ElementsAre(false, false, false, true));
    tabs.setCurrentIndex(1);
    FixTabStops(tabs);
    EXPECT_THAT(reached(0), ElementsAre(false, false, false));
    EXPECT_THAT(reached(1), ElementsAre(true, true, true, true));
    const auto* box = tabs.widget(0)->findChild<QLineEdit*>();
    EXPECT_TRUE(box->focusPolicy() & Qt::ClickFocus);  // the mouse reaches it all the same
}

TEST_F(FormServices, ARangeThatHoldsTakesNoFocus) {
    Open();
    QLineEdit& box = Box("Text2");
    Box("Text1").setFocus();
    for (const char* edge : {"1", "5"}) {
        box.setText(edge);
        EXPECT_TRUE(CheckRangeOf(box, 1, 5, "Size")) << edge;
    }
    EXPECT_EQ(frmServices::Instance().focusWidget(), &Box("Text1"));
    EXPECT_TRUE(Messages().empty());
}

TEST_F(FormServices, ADialogsPictureGoesToTheClipboardWithAWord) {
    frmServices& form = Open();
    MessageTitle = "Message";
    QGuiApplication::clipboard()->setText("before");
    CopyDialogImage(form);
    EXPECT_EQ(QGuiApplication::clipboard()->pixmap().size(), form.size() * form.devicePixelRatioF());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
    EXPECT_THAT(Messages(), ElementsAre("Screenshot of dialog copied to clipboard"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Message");
}

TEST_F(FormServices, APictureShowsTheWindowOrItsClientArea) {
    frmServices& form = Open();
    form.setContentsMargins(0, 20, 0, 0);
    RunEvents();
    ASSERT_NE(form.centralWidget()->size(), form.size());
    const double scale = form.devicePixelRatioF();
    EXPECT_EQ(CaptureForm(form).size(), form.centralWidget()->size() * scale);
    EXPECT_EQ(CaptureWindow(form, false, form.rect()).size(), form.size() * scale);
    EXPECT_EQ(CaptureWindow(form, true, QRect(1, 2, 30, 40)).size(), QSize(30, 40) * scale);
}

TEST_F(FormServices, ALabelOfAPathShowsBothEndsAndTellsTheWholePath) {
    PathLabel label;
    const QString path = "/home/engineer/a & b/<south>/" + QString(200, 'p') + "/ridge.TKL";
    label.resize(200, 20);
    label.SetFullText(path);
    EXPECT_TRUE(label.text().startsWith("/home"));
    EXPECT_TRUE(label.text().endsWith(".TKL"));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), 200);
    EXPECT_TRUE(label.toolTip().startsWith("/home/engineer/a &amp; b/&lt;south&gt;/ppp"));
    EXPECT_EQ(label.accessibleName(), path);
    const QString narrow = label.text();
    label.resize(300, 20);
    label.show();
    EXPECT_GT(label.text().size(), narrow.size());
    const QString small = label.text();
    QFont font = label.font();
    font.setPointSize(2 * font.pointSize());
    label.setFont(font);
    EXPECT_LT(label.text().size(), small.size());
    label.SetFullText("short");
    EXPECT_EQ(label.text(), "short");
}

TEST_F(FormServices, AFormIsKnownByItsNameAndTheLastEntryCounts) {
    EnterForm("frmA sample", []() -> FormBase& { return frmServices::Instance(); });
    EXPECT_EQ(&FormNamed("frmA sample"), &frmServices::Instance());
    const std::vector<std::string> names = FormNames();
    EXPECT_EQ(names.front(), "frmA sample");
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(RaisedError([] { FormNamed("frmB sample"); }), 5);
    static int shown = 0;
    EnterGraphForm("frmGraph sample", [](int, QWidget*) { shown = -1; });
    EnterGraphForm("frmGraph sample", [](int index, QWidget*) { shown = index; });
    ShowGraphForm("frmGraph sample", 2, nullptr);
    EXPECT_EQ(shown, 2);
    EXPECT_THAT(GraphFormNames(), ElementsAre("frmGraph", "frmGraph sample", "frmGraphS"));
    EXPECT_EQ(RaisedError([] { ShowGraphForm("frmB sample", 0, nullptr); }), 5);
}

}  // namespace
}  // namespace tarvokol
