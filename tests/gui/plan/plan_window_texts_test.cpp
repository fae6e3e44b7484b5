// SPDX-License-Identifier: GPL-3.0-or-later
// All that the plan's window shows, reads out and tells, and how it follows a drag of its edge.
#include <QAbstractEventDispatcher>

#include <xcb/xproto.h>

#include "core/project/working_parameters.h"
#include "core/report/results_state.h"
#include "desktop/plan/frmPicture.h"
#include "tests/support/form_facts.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/planned_panel.h"
#include "tests/support/window_menus.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class PlanWindowTexts : public MainWindowTest {};

TEST_F(PlanWindowTexts, OfThePlan) {
    ResultsReturn = results_return::Normal;
    frmPicture& form = frmPicture::Instance();
    ShowAndActivate(form);
    EXPECT_THAT(
        FactsOf(form),
        UnorderedElementsAre("frmPicture 'View Plan'",
                             "client read 'Plan of the panel' told 'A left click makes the figures larger, a "
                             "right click smaller'"));
    EXPECT_THAT(
        MenusOf(form),
        ElementsAre("&File: '&Print' Ctrl+P - 'E&xit'",
                    "&Edit: '&Copy' Ctrl+C 'Increase font size' Ctrl++ 'Decrease font size' Ctrl+-",
                    "&Settings: '&Pillar dimensions' 'Unit pillar strength' 'Pillar load bearing capacity'"));
    EXPECT_THAT(TabOrderOf(form), ElementsAre("client"));
    EXPECT_EQ(form.size(), QSize(640, 674));
    EXPECT_EQ(form.minimumSize(), QSize(150, 184));
    for (const char* name : {"mnuPlotSetItem_0", "mnuPlotSetItem_1", "mnuPlotSetItem_2"}) {
        EXPECT_TRUE(Find<QAction>(form, name).isCheckable());
        EXPECT_FALSE(Find<QAction>(form, name).isChecked());
        EXPECT_FALSE(Find<QAction>(form, name).isEnabled());
    }
}

class PlanWindowSize : public MainWindowTest {
  protected:
    // Three holes, so that there is a plan to be drawn at every size.
    PlanWindowSize() {
        PlanPanel(3);
        ShowAndActivate(Form);
    }
    void TearDown() override { EXPECT_TRUE(UnhandledErrors().empty()); }

    // What the X server sends when the window manager takes the keyboard for a drag, and when it gives it back.
    void Send(int kind, int mode) {
        xcb_focus_in_event_t event{};
        event.response_type = static_cast<uint8_t>(kind);
        event.event = static_cast<xcb_window_t>(Form.winId());
        event.mode = static_cast<uint8_t>(mode);
        qintptr result = 0;
        QCoreApplication::eventDispatcher()->filterNativeEvent("xcb_generic_event_t", &event, &result);
    }
    void Resize(int width, int height) {
        Form.resize(width, height);
        QTest::qWait(20);
    }

    frmPicture& Form = frmPicture::Instance();
};

// 34 pixels are the menu bar.
TEST_F(PlanWindowSize, IsSquaredWhenADragEnds) {
    Resize(400, 434);
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Resize(500, 450);
    EXPECT_EQ(Form.size(), QSize(500, 450));
    Resize(520, 460);
    EXPECT_EQ(Form.size(), QSize(520, 460));
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    EXPECT_TRUE(WaitUntil([this] { return Form.size() == QSize(520, 554); }));
}

TEST_F(PlanWindowSize, StaysAfterADragThatChangedNothing) {
    Resize(400, 434);
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    QTest::qWait(10);
    EXPECT_EQ(Form.size(), QSize(400, 434));
    // And the next size is squared at once.
    Resize(450, 434);
    EXPECT_EQ(Form.size(), QSize(450, 484));
}

// Counts the paints of the sheet.
class SheetPaints : public QObject {
  public:
    explicit SheetPaints(QWidget& sheet) { sheet.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

// Within a while nothing paints the sheet any more, neither after a size nor after a drag that changed none.
TEST_F(PlanWindowSize, ASettledWindowIsDrawnNoMore) {
    SheetPaints paints(Find(Form, "client"));
    const auto settles = [&paints] {
        for (int tries = 0; tries < 50; ++tries) {
            paints.count = 0;
            QTest::qWait(30);
            if (paints.count == 0) return true;
        }
        return false;
    };
    Resize(400, 434);
    EXPECT_TRUE(settles());
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Resize(500, 434);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    EXPECT_TRUE(WaitUntil([this] { return Form.size() == QSize(500, 534); }));
    EXPECT_TRUE(settles());
    // The copied picture's place is set whenever the size is answered.
    auto& copy = Find<QLabel>(Form, "picTMPCopy");
    copy.move(5, 5);
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    QTest::qWait(30);
    EXPECT_EQ(copy.pos(), QPoint(5, 5));
}

// As high as wide, the width wins.
TEST_F(PlanWindowSize, AWidthThatEqualsTheHeightWins) {
    Resize(400, 434);
    Resize(500, 500);
    EXPECT_TRUE(WaitUntil([this] { return Form.size() == QSize(500, 534); }));
}

// Nine tenths of the screen's 800 pixels, in its middle, and only for the time that it was maximised.
TEST_F(PlanWindowSize, AMaximisedWindowStandsInTheMiddleAndMayBeSizedAfterwards) {
    Form.showMaximized();
    ASSERT_TRUE(WaitUntil([this] { return !Form.isMaximized() && Form.size() == QSize(686, 720); }));
    const QPoint middle = Form.screen()->availableGeometry().center();
    EXPECT_NEAR(Form.geometry().center().x(), middle.x(), 2);
    EXPECT_NEAR(Form.geometry().center().y(), middle.y(), 2);
    Resize(400, 434);
    ASSERT_EQ(Form.size(), QSize(400, 434));
    Form.showMinimized();
    QTest::qWait(20);
    Form.showNormal();
    QTest::qWait(20);
    EXPECT_EQ(Form.size(), QSize(400, 434));
}

}  // namespace
}  // namespace tarvokol
