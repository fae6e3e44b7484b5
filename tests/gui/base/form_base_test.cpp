// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/form_base.h"

#include <QFontMetrics>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/messages/titles.h"
#include "desktop/base/form_services.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Events;

// A form with a text box, three options, three buttons and a menu command.
class frmSample : public SingleForm<frmSample> {
  public:
    frmSample() {
        setObjectName("frmSample");
        auto* body = new QWidget(this);
        auto* layout = new QVBoxLayout(body);
        for (const char* name : {"Text1", "Text2"}) Add(new QLineEdit, name, layout);
        for (const char* name : {"Option1_0", "Option1_1", "Option1_2"})
            Add(new QRadioButton(name), name, layout);
        for (const char* name : {"cmdOK", "cmdCancel", "cmdOther"}) Add(new QPushButton(name), name, layout);
        setCentralWidget(body);
        findChild<QPushButton*>("cmdOK")->setDefault(true);
        findChild<QPushButton*>("cmdCancel")->setProperty("cancel", true);
        QAction* command = menuBar()->addMenu("&Menu")->addAction("&Command");
        command->setObjectName("mnuItem");
        command->setShortcut(QKeySequence("Ctrl+K"));
        connect(command, &QAction::triggered, this, [] { Events.push_back("command"); });
        connect(findChild<QPushButton*>("cmdOK"), &QPushButton::clicked, this, &frmSample::cmdOK_Click);
        connect(findChild<QPushButton*>("cmdCancel"), &QPushButton::clicked, this, &FormBase::Unload);
        connect(findChild<QPushButton*>("cmdOther"), &QPushButton::clicked, this, [] { Raise(9); });
        ConnectClicks(OptionGroup(*this, "Option1"), this, &frmSample::Option1_Click);
    }

    static inline bool RefuseUnload = false;
    static inline int RaiseInLoad = 0;

  private:
    template <typename Control>
    static void Add(Control* control, const char* name, QVBoxLayout* layout) {
        control->setObjectName(name);
        layout->addWidget(control);
    }

    void Form_Load() override {
        Events.push_back("load");
        if (RaiseInLoad != 0) Raise(RaiseInLoad);
    }
    void Form_Activate() override { Events.push_back("activate"); }
    bool Form_QueryUnload() override {
        Events.push_back("query");
        return !RefuseUnload;
    }
    void Form_Unload() override {
        Events.push_back("unload");
        Unload();
    }
    void cmdOK_Click() {
        Events.push_back("ok");
        Unload();
        Events.push_back("after");
    }
    void Option1_Click(int index) { Events.push_back("option " + std::to_string(index)); }
};

class FormBaseTest : public GuiTest {
  protected:
    FormBaseTest() {
        Events.clear();
        frmSample::RefuseUnload = false;
        frmSample::RaiseInLoad = 0;
    }
    void ExpectGone() { EXPECT_EQ(FindForm("frmSample"), nullptr); }
};

class frmOther : public SingleForm<frmOther> {
  public:
    frmOther() { setObjectName("frmOther"); }

  private:
    void Form_Activate() override { Events.push_back("other activate"); }
    void Form_Deactivate() override { Events.push_back("other deactivate"); }
};

TEST_F(FormBaseTest, AMessageInFrontOfAFormIsNoNewActivation) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    QDialog box(&form);
    QTimer::singleShot(50, &box, &QDialog::accept);
    box.exec();
    form.activateWindow();
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    RunEvents();
    EXPECT_THAT(Events, ElementsAre("load", "activate"));
}

TEST_F(FormBaseTest, AnotherFormInFrontDeactivatesAndItsEndActivatesAgain) {
    ShowAndActivate(frmOther::Instance());
    Events.clear();
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    EXPECT_THAT(Events, ElementsAre("load", "other deactivate", "activate"));
    form.Unload();
    frmOther::Instance().activateWindow();
    EXPECT_TRUE(WaitUntil([] { return Events.back() == "other activate"; }));
}

TEST_F(FormBaseTest, TheSizeThatTheUserGaveItIsThereAtTheNextOpening) {
    const QSize drawn = frmSample::Instance().size();
    frmSample::Instance().ShowModeless();
    frmSample::Instance().resize(drawn + QSize(40, 60));
    frmSample::Instance().Unload();
    EXPECT_EQ(frmSample::Instance().size(), drawn);  // the program's own change
    frmSample& form = frmSample::Instance();
    form.ShowModeless();
    form.resize(drawn + QSize(50, 70));
    QResizeEvent by_user(form.size(), drawn);
    QSpontaneKeyEvent::setSpontaneous(&by_user);
    qApp->notify(&form, &by_user);
    form.Unload();
    EXPECT_EQ(frmSample::Instance().size(), drawn + QSize(50, 70));
}

// A form that needs more than the screen of 800 x 800.
class frmLarge : public SingleForm<frmLarge> {
  public:
    frmLarge() {
        setObjectName("frmLarge");
        auto* body = new QWidget(this);
        body->setObjectName("body");
        auto* layout = new QVBoxLayout(body);
        for (int row = 0; row < 60; ++row)
            layout->addWidget(new QPushButton("Button " + QString::number(row)));
        setCentralWidget(body);
    }
};

TEST_F(FormBaseTest, AFormLargerThanTheScreenScrollsAndStaysOnIt) {
    frmLarge& form = frmLarge::Instance();
    ShowAndActivate(form);
    EXPECT_LE(form.height(), form.screen()->availableGeometry().height());
    auto& view = Find<QScrollArea>(form, "contentsView");
    EXPECT_EQ(view.widget()->objectName(), "body");
    EXPECT_GT(view.verticalScrollBar()->maximum(), 0);
    auto* last = form.findChildren<QPushButton*>().last();
    view.ensureWidgetVisible(last);
    EXPECT_TRUE(view.viewport()->rect().contains(last->mapTo(view.viewport(), last->rect().center())));
}

// Long captions of pages above a narrow page.
class frmTabs : public SingleForm<frmTabs> {
  public:
    frmTabs() {
        setObjectName("frmTabs");
        auto* tabs = new QTabWidget;
        for (const char* caption : {"Program control", "Results and graphs", "Panel layout plots", "Others"})
            tabs->addTab(new QWidget, caption);
        setCentralWidget(tabs);
        resize(100, 100);
    }
};

TEST_F(FormBaseTest, AllCaptionsOfTabsFit) {
    frmTabs& form = frmTabs::Instance();
    ShowAndActivate(form);
    const auto* bar = form.findChild<QTabBar*>();
    EXPECT_GE(bar->width(), bar->sizeHint().width());
}

TEST_F(FormBaseTest, LoadsOnFirstUseOnly) {
    EXPECT_FALSE(frmSample::IsLoaded());
    EXPECT_EQ(FindForm("frmSample"), nullptr);
    frmSample& form = frmSample::Instance();
    EXPECT_EQ(&form, &frmSample::Instance());
    EXPECT_EQ(FindForm("frmSample"), &form);
    EXPECT_THAT(Events, ElementsAre("load"));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FormBaseTest, UnloadAsksThenRunsUnloadOnceAndTheNextUseLoadsAgain) {
    QPointer<FormBase> first = &frmSample::Instance();
    EXPECT_TRUE(first->Unload());
    EXPECT_FALSE(frmSample::IsLoaded());
    EXPECT_THAT(Events, ElementsAre("load", "query", "unload"));
    RunEvents();
    EXPECT_EQ(first, nullptr);
    frmSample::Instance();
    EXPECT_THAT(Events, ElementsAre("load", "query", "unload", "load"));
}

TEST_F(FormBaseTest, ARefusedUnloadKeepsTheForm) {
    frmSample& form = frmSample::Instance();
    form.ShowModeless();
    frmSample::RefuseUnload = true;
    EXPECT_FALSE(form.Unload());
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(FindForm("frmSample"), &form);
}

TEST_F(FormBaseTest, AnErrorInLoadLeavesTheFormUnloaded) {
    frmSample::RaiseInLoad = 53;
    EXPECT_EQ(RaisedError([] { frmSample::Instance(); }), 53);
    EXPECT_FALSE(frmSample::IsLoaded());
    ExpectGone();
}

TEST_F(FormBaseTest, ModalShowReturnsAfterTheUnloadInsideAHandler) {
    WhenShown("frmSample", [](FormBase& form) { Click(form, "cmdOK"); });
    frmSample::Instance().ShowModal();
    ExpectGone();
    EXPECT_THAT(Events, ElementsAre("load", "activate", "ok", "query", "unload", "after"));
}

TEST_F(FormBaseTest, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
    WhenShown("frmSample", [](FormBase& form) {
        Find<QLineEdit>(form, "Text1").setFocus();
        Press(form, Qt::Key_Return);
    });
    frmSample::Instance().ShowModal();
    EXPECT_EQ(std::count(Events.begin(), Events.end(), "ok"), 1);
    WhenShown("frmSample", [](FormBase& form) { Press(form, Qt::Key_Escape); });
    frmSample::Instance().ShowModal();
    EXPECT_EQ(std::count(Events.begin(), Events.end(), "ok"), 1);
    ExpectGone();
}

TEST_F(FormBaseTest, EnterPressesTheButtonThatHasTheFocus) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    Find<QPushButton>(form, "cmdCancel").setFocus();
    Press(form, Qt::Key_Enter);
    ExpectGone();
    EXPECT_EQ(std::count(Events.begin(), Events.end(), "ok"), 0);
}

TEST_F(FormBaseTest, ClosingTheWindowUnloads) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    EXPECT_TRUE(form.close());
    ExpectGone();
}

TEST_F(FormBaseTest, ADisabledFormRefusesToCloseAndTakesNoShortcut) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    Press(form, Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(std::count(Events.begin(), Events.end(), "command"), 1);
    form.setEnabled(false);
    QTest::keyClick(&form, Qt::Key_K, Qt::ControlModifier);
    QTest::keyClick(form.windowHandle(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(std::count(Events.begin(), Events.end(), "command"), 1);
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    QTest::keyClick(form.windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(FindForm("frmSample"), &form);
}

TEST_F(FormBaseTest, EnablingGivesTheFocusBackAndRunsTheMissedActivation) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    Find<QLineEdit>(form, "Text2").setFocus();
    form.setEnabled(false);
    QEvent activation(QEvent::WindowActivate);
    Events.clear();
    QCoreApplication::sendEvent(&form, &activation);
    EXPECT_TRUE(Events.empty());
    EnableAndFocus("frmSample");
    EXPECT_THAT(Events, ElementsAre("activate"));
    EXPECT_EQ(form.focusWidget(), &Find<QLineEdit>(form, "Text2"));
    EnableAndFocus("frmNotLoaded");
}

TEST_F(FormBaseTest, F1AsksForTheTopicOfTheForm) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    Find<QLineEdit>(form, "Text1").setFocus();
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmSample.htm"));
}

TEST_F(FormBaseTest, AnErrorOutOfAHandlerIsNotedAsUnhandled) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    Click(form, "cmdOther");
    ASSERT_EQ(UnhandledErrors().size(), 1u);
    EXPECT_EQ(UnhandledErrors()[0].number, 9);
}

TEST_F(FormBaseTest, UnloadingRestoresThePointer) {
    frmSample& form = frmSample::Instance();
    SetScreenPointer(MousePointer::Hourglass);
    SetScreenPointer(MousePointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    form.Unload();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FormBaseTest, CentersOnTheScreen) {
    EXPECT_EQ(CenteredOffset(800, 300), 250);
    EXPECT_EQ(CenteredOffset(800, 800), 0);
    EXPECT_EQ(CenteredOffset(800, 801), 0);
    EXPECT_EQ(CenteredOffset(600, 2000), 0);
    frmSample& form = frmSample::Instance();
    form.resize(400, 300);
    NoteFrame(form);  // none yet, as it has no window
    CenterForm(form);
    EXPECT_EQ(form.pos(), QPoint(200, 250));
    form.resize(900, 1000);
    CenterForm(form);
    EXPECT_EQ(form.pos(), QPoint(0, 0));
}

TEST_F(FormBaseTest, OptionIndexIsTheLastOneOnOrTheLowest) {
    frmSample& form = frmSample::Instance();
    OptionGroup group(form, "Option1");
    EXPECT_EQ(GetOptionIndex(group), 0);
    SetArrayIndex(group, 2);
    EXPECT_EQ(GetOptionIndex(group), 2);
    SetArrayIndex(group, 1);
    EXPECT_EQ(GetOptionIndex(group), 1);
    EXPECT_FALSE(group[2].isChecked());
    EXPECT_THAT(Events, ElementsAre("load", "option 2", "option 1"));
}

TEST_F(FormBaseTest, AnIndexOutsideTheGroupIsToldAndFailsOnTheMissingElement) {
    frmSample& form = frmSample::Instance();
    OptionGroup group(form, "Option1");
    SetArrayIndex(group, 1);
    RangeErrorTitle = "Settings: Range Error";
    EXPECT_EQ(RaisedError([&] { SetArrayIndex(group, 3); }), 340);
    EXPECT_THAT(Messages(), ElementsAre("Internal Error: SetArrayIndex. Check input/form data."));
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Settings: Range Error");
    EXPECT_EQ(RaisedError([&] { GetOptionIndex(OptionGroup(form, "Option9")); }), 340);
}

TEST_F(FormBaseTest, BoxesSelectTheirTextOnFocus) {
    frmSample& form = frmSample::Instance();
    SelectAllOnFocus(form);
    ShowAndActivate(form);
    auto& box = Find<QLineEdit>(form, "Text2");
    box.setText("12.5");
    box.deselect();
    Click(form, "Text2");
    EXPECT_EQ(box.selectedText(), "12.5");
    box.deselect();
    SelectAllText();
    EXPECT_EQ(box.selectedText(), "12.5");
}

TEST_F(FormBaseTest, AClickThatSelectsAPartKeepsIt) {
    frmSample& form = frmSample::Instance();
    SelectAllOnFocus(form);
    ShowAndActivate(form);
    auto& box = Find<QLineEdit>(form, "Text2");
    box.setText("1234567890");
    Find(form, "Text1").setFocus();
    const int letter = box.fontMetrics().horizontalAdvance('0');
    const QPoint begin = box.rect().center() + QPoint(-box.width() / 2 + 2, 0);
    QTest::mousePress(&box, Qt::LeftButton, {}, begin);
    QTest::mouseMove(&box, begin + QPoint(4 * letter, 0));
    QTest::mouseRelease(&box, Qt::LeftButton, {}, begin + QPoint(4 * letter, 0));
    EXPECT_GT(box.selectedText().size(), 1);
    EXPECT_LT(box.selectedText().size(), 8);
}

TEST_F(FormBaseTest, ARangeCheckedBoxGetsTheFocusWhenItIsWrong) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    auto& box = Find<QLineEdit>(form, "Text2");
    box.setText("4");
    EXPECT_TRUE(CheckRangeOf(box, 1, 5));
    Find<QLineEdit>(form, "Text1").setFocus();
    box.setText("6");
    EXPECT_FALSE(CheckRangeOf(box, 1, 5, "Size"));
    EXPECT_EQ(form.focusWidget(), &box);
    EXPECT_THAT(Messages(), ElementsAre("Size: Value '6' is outside input range\r\nValid range is: 1-5"));
}

const char* const kLongFigure = "9.84251968503937";

TEST_F(FormBaseTest, ALongFigureShowsItsFirstDigits) {
    frmSample& form = frmSample::Instance();
    ShowAndActivate(form);
    QLineEdit& first = Find<QLineEdit>(form, "Text1");
    QLineEdit& second = Find<QLineEdit>(form, "Text2");
    first.setFocus();
    second.setText(kLongFigure);
    EXPECT_EQ(second.cursorPosition(), 0);
    first.clear();
    QTest::keyClicks(&first, kLongFigure);
    EXPECT_EQ(first.cursorPosition(), 16);  // where the user types
    EXPECT_EQ(first.text(), kLongFigure);
    second.setFocus();
    EXPECT_EQ(first.cursorPosition(), 0);
}

TEST_F(FormBaseTest, ASelectedFigureShowsItsFirstDigits) {
    frmSample& form = frmSample::Instance();
    SelectAllOnFocus(form);
    ShowAndActivate(form);
    QLineEdit& box = Find<QLineEdit>(form, "Text2");
    box.setText(kLongFigure);
    box.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(box.selectedText(), kLongFigure);
    EXPECT_EQ(box.cursorPosition(), 0);
}

TEST_F(FormBaseTest, BoxesOfAFixedWidthGrowWithTheirFont) {
    QWidget body;
    QFont large = body.font();
    large.setPointSize(3 * large.pointSize());
    for (const int most : {32767, 2}) {
        QLineEdit box(&body);
        box.setMaxLength(most);
        box.setFixedWidth(40);
        box.setFont(large);
        WidenBoxes(body);
        const int digits = QFontMetrics(large).horizontalAdvance(QString(std::min(most, 10), '0'));
        EXPECT_GE(box.minimumWidth(), digits);
        EXPECT_LE(box.maximumWidth(), digits + 40);
        WidenBoxes(body);
        EXPECT_LE(box.maximumWidth(), digits + 40);
    }
}

}  // namespace
}  // namespace tarvokol
