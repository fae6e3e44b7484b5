// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of forms: their size, place and kind, who is in front, and what Enter and Escape press. The screen is one
// of 800 x 800.
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

std::vector<std::string> Told;

// A form whose content a test lays out before its load.
class frmCanvas : public SingleForm<frmCanvas> {
  public:
    frmCanvas() {
        setObjectName("frmCanvas");
        if (LayOut) LayOut(*this);
    }

    static inline std::function<void(frmCanvas&)> LayOut;

  private:
    void Form_Activate() override { Told.emplace_back("activate"); }
    void Form_Deactivate() override { Told.emplace_back("deactivate"); }
    void Form_Resize() override { Told.emplace_back("resize"); }
    bool Form_QueryUnload() override {
        Told.emplace_back("query");
        return true;
    }
    void Form_Unload() override {
        Told.emplace_back("unload");
        EXPECT_EQ(FindForm("frmCanvas"), this);  // what it does may still need it
        EXPECT_FALSE(IsUnloaded());
    }
};

class frmBehind : public SingleForm<frmBehind> {
  public:
    frmBehind() { setObjectName("frmBehind"); }

  private:
    void Form_Deactivate() override { Told.emplace_back("behind is left"); }
};

class frmThird : public SingleForm<frmThird> {
  public:
    frmThird() { setObjectName("frmThird"); }
};

class FormWindows : public GuiTest {
  protected:
    FormWindows() {
        Told.clear();
        frmCanvas::LayOut = {};
        NoteFrame(QWidget());  // no window has told its frame yet
    }
    ~FormWindows() override {
        UnloadAllForms();
        frmCanvas::LayOut = {};
    }

    static frmCanvas& Open() {
        ShowAndActivate(frmCanvas::Instance());
        return frmCanvas::Instance();
    }

    // A body of that size at least.
    static void NeedRoom(int width, int height) {
        frmCanvas::LayOut = [width, height](frmCanvas& form) {
            auto* body = new QWidget;
            body->setObjectName("body");
            auto* layout = new QVBoxLayout(body);
            auto* block = new QPushButton("block");
            block->setObjectName("block");
            block->setMinimumSize(width, height);
            layout->addWidget(block);
            form.setCentralWidget(body);
            form.resize(50, 50);
            block->setFocus();
        };
    }

    static int TitleBar(const QWidget& form) { return form.style()->pixelMetric(QStyle::PM_TitleBarHeight); }
};

TEST_F(FormWindows, AFormThatFitsIsAsLargeAsItNeedsInTheMiddleOfTheScreen) {
    NeedRoom(300, 200);
    const frmCanvas& form = Open();
    EXPECT_EQ(form.findChild<QScrollArea*>("contentsView"), nullptr);
    EXPECT_GE(form.width(), 300);
    EXPECT_GE(form.height(), 200);
    EXPECT_EQ(form.pos(), QPoint((800 - form.width()) / 2, (800 - form.height()) / 2));
}

TEST_F(FormWindows, AFormThatIsDrawnLargerThanItNeedsKeepsItsSize) {
    frmCanvas::LayOut = [](frmCanvas& form) {
        form.setCentralWidget(new QLabel("small"));
        form.resize(500, 400);
    };
    EXPECT_EQ(Open().size(), QSize(500, 400));
}

TEST_F(FormWindows, ATallFormTakesTheScreenBelowATitleBarAndScrolls) {
    NeedRoom(100, 2000);
    frmCanvas& form = Open();
    EXPECT_EQ(form.height(), 800 - TitleBar(form));
    auto& view = Find<QScrollArea>(form, "contentsView");
    EXPECT_EQ(view.widget()->objectName(), "body");
    EXPECT_GT(view.verticalScrollBar()->maximum(), 1000);
    EXPECT_EQ(view.frameShape(), QFrame::NoFrame);
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(form.focusWidget(), &Find(form, "block"));
    form.resize(600, 500);
    EXPECT_EQ(view.widget()->width(), view.viewport()->width());  // the body fills what there is
}

TEST_F(FormWindows, AWideFormTakesTheScreensWidthAndScrolls) {
    NeedRoom(2000, 100);
    frmCanvas& form = Open();
    EXPECT_EQ(form.width(), 800);
    EXPECT_LT(form.height(), 400);
    auto& view = Find<QScrollArea>(form, "contentsView");
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 1000);
}

TEST_F(FormWindows, WrappedTextIsShownToItsLastLine) {
    frmCanvas::LayOut = [](frmCanvas& form) {
        auto* body = new QWidget;
        auto* text = new QLabel(QString("word ").repeated(300));
        text->setObjectName("text");
        text->setWordWrap(true);
        (new QVBoxLayout(body))->addWidget(text);
        form.setCentralWidget(body);
        form.resize(400, 50);
    };
    frmCanvas& form = Open();
    const auto& text = Find<QLabel>(form, "text");
    EXPECT_EQ(form.width(), 400);
    EXPECT_GE(text.height(), text.heightForWidth(text.width()));
}

// The desktop's font, as long as it lives.
class FontOfDesktop {
  public:
    explicit FontOfDesktop(const QFont& font) { QApplication::setFont(font); }
    ~FontOfDesktop() { QApplication::setFont(before_); }
    FontOfDesktop(const FontOfDesktop&) = delete;
    FontOfDesktop& operator=(const FontOfDesktop&) = delete;

  private:
    const QFont before_ = QApplication::font();
};

// Some desktops tell their font only when the first windows stand.
TEST_F(FormWindows, AFontThatComesLateGetsItsRoom) {
    frmCanvas::LayOut = [](frmCanvas& form) {
        auto* body = new QWidget;
        auto* layout = new QVBoxLayout(body);
        auto* text = new QLabel(QString("A sentence of several words. ").repeated(20));
        text->setObjectName("text");
        text->setWordWrap(true);
        auto* box = new QLineEdit;
        box->setObjectName("box");
        box->setFixedWidth(20);
        layout->addWidget(text);
        layout->addWidget(box);
        form.setCentralWidget(body);
        form.resize(400, 100);
    };
    frmCanvas& form = Open();
    const auto& text = Find<QLabel>(form, "text");
    const auto& box = Find<QLineEdit>(form, "box");
    const int before = form.height();
    const FontOfDesktop large(QFont("DejaVu Sans", 18));
    EXPECT_TRUE(WaitUntil(
        [&] { return form.height() > before && text.height() >= text.heightForWidth(text.width()); }));
    EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance("0000000000"));
    EXPECT_EQ(form.geometry().center().y(), form.screen()->geometry().center().y());
}

TEST_F(FormWindows, ABoxOfAFixedWidthShowsTenDigitsInEveryForm) {
    frmCanvas::LayOut = [](frmCanvas& form) {
        auto* box = new QLineEdit;
        box->setObjectName("box");
        box->setFixedWidth(20);
        form.setCentralWidget(box);
    };
    const auto& box = Find<QLineEdit>(Open(), "box");
    EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance("0000000000"));
}

// The user makes the form as large as that.
void DragTo(QWidget& form, const QSize& size) {
    const QSize before = form.size();
    form.resize(size);
    QResizeEvent by_user(size, before);
    QSpontaneKeyEvent::setSpontaneous(&by_user);
    qApp->notify(&form, &by_user);
}

TEST_F(FormWindows, AChosenSizeComesBackInTheMiddleAndNoLargerThanTheScreen) {
    DragTo(Open(), QSize(300, 300));
    frmCanvas::Instance().Unload();
    EXPECT_EQ(frmCanvas::Instance().size(), QSize(300, 300));
    EXPECT_EQ(frmCanvas::Instance().pos(), QPoint(250, 250));
    DragTo(Open(), QSize(1000, 1000));
    frmCanvas::Instance().Unload();
    EXPECT_EQ(frmCanvas::Instance().size(), QSize(800, 800 - TitleBar(frmCanvas::Instance())));
    DragTo(Open(), QSize(310, 310));
    for (const Qt::WindowState filled : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        DragTo(Open(), QSize(700, 700));
        frmCanvas::Instance().setWindowState(filled);
        frmCanvas::Instance().Unload();
        EXPECT_NE(frmCanvas::Instance().size(), QSize(700, 700)) << filled;
    }
}

TEST_F(FormWindows, AFormWithAnOwnerIsADialogAboveIt) {
    ShowAndActivate(frmBehind::Instance());
    frmCanvas& form = frmCanvas::Instance();
    form.ShowModeless(&frmBehind::Instance());
    EXPECT_EQ(form.windowType(), Qt::Dialog);
    EXPECT_FALSE(form.isModal());
    EXPECT_EQ(form.windowHandle()->transientParent(), frmBehind::Instance().windowHandle());
    EXPECT_EQ(frmBehind::Instance().windowType(), Qt::Window);
    EXPECT_EQ(frmBehind::Instance().windowHandle()->transientParent(), nullptr);
}

TEST_F(FormWindows, AFormWithoutAnOwnerStandsAboveTheActiveWindow) {
    ShowAndActivate(frmBehind::Instance());
    frmCanvas::Instance().ShowModeless();
    EXPECT_EQ(frmCanvas::Instance().windowType(), Qt::Window);
    EXPECT_EQ(frmCanvas::Instance().windowHandle()->transientParent(), frmBehind::Instance().windowHandle());
}

TEST_F(FormWindows, AModalFormHoldsAllOthersAndGivesItsOpenerTheFrontBack) {
    ShowAndActivate(frmBehind::Instance());
    WhenShown("frmCanvas", [](FormBase& form) {
        EXPECT_EQ(form.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(form.windowType(), Qt::Dialog);
        EXPECT_EQ(form.windowHandle()->transientParent(), frmBehind::Instance().windowHandle());
        form.Unload();
        EXPECT_FALSE(form.isVisible());
    });
    frmCanvas::Instance().ShowModal();
    EXPECT_TRUE(WaitUntil([] { return frmBehind::Instance().isActiveWindow(); }));
}

TEST_F(FormWindows, TheOwnerOfAModalFormGetsTheFrontWhoeverHadItBefore) {
    ShowAndActivate(frmBehind::Instance());
    ShowAndActivate(frmThird::Instance());
    WhenShown("frmCanvas", [](FormBase& form) {
        EXPECT_EQ(form.windowHandle()->transientParent(), frmBehind::Instance().windowHandle());
        form.Unload();
    });
    frmCanvas::Instance().ShowModal(&frmBehind::Instance());
    EXPECT_TRUE(WaitUntil([] { return frmBehind::Instance().isActiveWindow(); }));
}

TEST_F(FormWindows, AFormThatIsShownAgainComesToTheFront) {
    Open();
    ShowAndActivate(frmBehind::Instance());
    ASSERT_FALSE(frmCanvas::Instance().isActiveWindow());
    frmCanvas::Instance().ShowModeless();
    EXPECT_TRUE(WaitUntil([] { return frmCanvas::Instance().isActiveWindow(); }));
}

// Some desktops give a new window the keyboard late, or never.
TEST_F(FormWindows, WhoWasInFrontIsLeftAtOnce) {
    ShowAndActivate(frmBehind::Instance());
    frmCanvas::Instance();
    Told.clear();
    frmCanvas::Instance().ShowModeless();
    EXPECT_THAT(Told, Contains("behind is left"));
    EXPECT_THAT(Told, Not(Contains("activate")));
}

TEST_F(FormWindows, AFormThatIsUnloadedIsNotLeftAnyMore) {
    Open().Unload();
    ShowAndActivate(frmBehind::Instance());
    EXPECT_THAT(Told, Not(Contains("deactivate")));
}

TEST_F(FormWindows, TheEndOfAnotherFormIsNoNewActivation) {
    frmThird::Instance();
    Open();
    Told.clear();
    frmThird::Instance().Abandon();
    RunEvents();
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&frmCanvas::Instance(), &activation);
    EXPECT_THAT(Told, IsEmpty());
}

TEST_F(FormWindows, AnActiveFormThatIsDisabledAndEnabledMissedNoActivation) {
    frmCanvas& form = Open();
    Told.clear();
    form.setEnabled(false);
    form.setEnabled(true);
    EXPECT_THAT(Told, ElementsAre("deactivate"));
}

TEST_F(FormWindows, AFormThatIsUnloadedIsShownNoMore) {
    frmCanvas& form = frmCanvas::Instance();
    form.Unload();
    EXPECT_TRUE(form.IsUnloaded());
    form.ShowModeless();
    EXPECT_FALSE(form.isVisible());
    form.ShowModal();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.Unload());
    EXPECT_EQ(std::count(Told.begin(), Told.end(), "unload"), 1);
}

TEST_F(FormWindows, AFormThatIsUnloadedHearsOfNoSize) {
    frmCanvas& form = Open();
    EXPECT_THAT(Told, Contains("resize"));
    form.Unload();
    Told.clear();
    form.resize(321, 123);
    EXPECT_THAT(Told, IsEmpty());
}

TEST_F(FormWindows, TheEndOfTheProgramAsksNoForm) {
    Open();
    frmBehind::Instance();
    ASSERT_EQ(LoadedForms().size(), 2u);
    EXPECT_EQ(LoadedForms()[0], &frmCanvas::Instance());
    UnloadAllForms();
    EXPECT_THAT(LoadedForms(), IsEmpty());
    EXPECT_THAT(Told, Not(Contains("query")));
    EXPECT_THAT(Told, Not(Contains("unload")));
}

TEST_F(FormWindows, ADisabledFormIsLeftAndItsEnablingBringsItToTheFront) {
    frmCanvas& form = Open();
    Told.clear();
    form.setEnabled(false);
    EXPECT_THAT(Told, ElementsAre("deactivate"));
    ShowAndActivate(frmBehind::Instance());
    EXPECT_FALSE(form.isActiveWindow());
    EnableAndFocus("frmCanvas");
    EXPECT_TRUE(form.isEnabled());
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    EXPECT_THAT(Told, ElementsAre("deactivate", "behind is left", "activate"));
}

// Two buttons, of which Enter and Escape press one each.
void LayOutButtons(frmCanvas& form) {
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    for (const char* name : {"cmdOK", "cmdCancel"}) {
        auto* button = new QPushButton(name);
        button->setObjectName(name);
        QObject::connect(button, &QPushButton::clicked, [name] { Told.emplace_back(name); });
        layout->addWidget(button);
    }
    auto* box = new QLineEdit;
    box->setObjectName("box");
    layout->addWidget(box);
    form.setCentralWidget(body);
    form.findChild<QPushButton*>("cmdOK")->setDefault(true);
    form.findChild<QPushButton*>("cmdCancel")->setProperty("cancel", true);
}

TEST_F(FormWindows, EnterAndEscapePressNothingThatCannotBePressed) {
    frmCanvas::LayOut = LayOutButtons;
    frmCanvas& form = Open();
    Find(form, "box").setFocus();
    const auto pressed = [&form](Qt::Key key) {
        Told.clear();
        Press(form, key);
        return Told;
    };
    EXPECT_THAT(pressed(Qt::Key_Return), ElementsAre("cmdOK"));
    EXPECT_THAT(pressed(Qt::Key_Enter), ElementsAre("cmdOK"));
    EXPECT_THAT(pressed(Qt::Key_Escape), ElementsAre("cmdCancel"));
    for (const char* name : {"cmdOK", "cmdCancel"}) Find(form, name).setEnabled(false);
    EXPECT_THAT(pressed(Qt::Key_Return), IsEmpty());
    EXPECT_THAT(pressed(Qt::Key_Escape), IsEmpty());
    for (const char* name : {"cmdOK", "cmdCancel"}) {
        Find(form, name).setEnabled(true);
        Find(form, name).hide();
    }
    EXPECT_THAT(pressed(Qt::Key_Return), IsEmpty());
    EXPECT_THAT(pressed(Qt::Key_Escape), IsEmpty());
}

// What a control shows of itself.
QImage LookOf(QWidget& control) {
    return PictureOf(control);
}

// The look of the default goes to the button that has the focus, as Enter does.
TEST_F(FormWindows, OneButtonAtATimeLooksLikeTheDefault) {
    frmCanvas::LayOut = LayOutButtons;
    frmCanvas& form = Open();
    auto& ok = Find<QPushButton>(form, "cmdOK");
    auto& cancel = Find<QPushButton>(form, "cmdCancel");
    Find(form, "box").setFocus();
    const QImage as_default = LookOf(ok);
    cancel.setFocus();
    const QImage besides = LookOf(ok);
    EXPECT_NE(besides, as_default);
    Told.clear();
    Press(form, Qt::Key_Return);
    EXPECT_THAT(Told, ElementsAre("cmdCancel"));
    Find(form, "box").setFocus();
    EXPECT_EQ(LookOf(ok), as_default);
    EXPECT_TRUE(ok.isDefault());
    ok.setDefault(false);
    EXPECT_EQ(LookOf(ok), besides);
}

// On the screen, too, as the focus goes on.
TEST_F(FormWindows, TheDefaultButtonIsDrawnAnewWhenAnotherOneTakesEnter) {
    class Watch : public QObject {
      public:
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints;
            return false;
        }
    } watch;
    frmCanvas::LayOut = LayOutButtons;
    frmCanvas& form = Open();
    Find(form, "box").setFocus();
    RunEvents();
    Find(form, "cmdOK").installEventFilter(&watch);
    Find(form, "cmdCancel").setFocus();
    EXPECT_TRUE(WaitUntil([&] { return watch.paints == 1; }));
    Find(form, "box").setFocus();
    EXPECT_TRUE(WaitUntil([&] { return watch.paints == 2; }));
}

TEST_F(FormWindows, TheFocusShowsAfterCtrlTabFromTheButtons) {
    frmCanvas::LayOut = [](frmCanvas& form) {
        LayOutButtons(form);
        auto* tabs = new QTabWidget;
        for (const char* name : {"first", "second"}) {
            auto* page = new QWidget;
            auto* layout = new QVBoxLayout(page);
            auto* choice = new QCheckBox(name);
            choice->setObjectName(name);
            layout->addWidget(choice);
            tabs->addTab(page, name);
        }
        form.centralWidget()->layout()->addWidget(tabs);
    };
    frmCanvas& form = Open();
    auto& choice = Find<QCheckBox>(form, "second");
    QTest::mouseClick(&Find(form, "cmdCancel"), Qt::LeftButton);
    Find(form, "cmdCancel").setFocus();
    choice.window()->findChild<QTabWidget*>()->setCurrentIndex(1);
    const QImage plain = LookOf(choice);
    choice.window()->findChild<QTabWidget*>()->setCurrentIndex(0);
    Press(form, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(choice.hasFocus());
    EXPECT_NE(LookOf(choice), plain);
}

}  // namespace
}  // namespace tarvokol
