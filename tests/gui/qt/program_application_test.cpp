// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/program_application.h"

#include <new>
#include <stdexcept>

#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/project_state.h"
#include "core/settings/folders.h"
#include "qt/session/owner_window.h"
#include "qt/session/program_style.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

class ProgramApplicationTest : public GuiTest {};

TEST_F(ProgramApplicationTest, TellsNumberAndTextOfAnUnhandledError) {
    EXPECT_EQ(UnhandledErrorMessage(RunTimeError(53)), "Run-time error '53':\r\n\r\nFile not found");
}

TEST_F(ProgramApplicationTest, LooksAsTheDesktopWantsIt) {
    auto* style = qobject_cast<ProgramStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->baseStyle()->name(), "fusion");
}

TEST_F(ProgramApplicationTest, WorkOutsideTheEventLoopFollowsTheSameRule) {
    static_cast<ProgramApplication*>(qApp)->Run([] { Raise(11); });
    ASSERT_EQ(UnhandledErrors().size(), 1u);
    EXPECT_EQ(UnhandledErrors()[0].text, "Division by zero");
}

TEST_F(ProgramApplicationTest, FailuresOfTheLanguagesLibraryAreRunTimeErrors) {
    auto* application = static_cast<ProgramApplication*>(qApp);
    application->Run([] { throw std::bad_alloc(); });
    application->Run([] { throw std::logic_error("a bug"); });
    ASSERT_EQ(UnhandledErrors().size(), 2u);
    EXPECT_EQ(UnhandledErrors()[0].number, 7);
    EXPECT_EQ(UnhandledErrors()[0].text, "Out of memory");
    EXPECT_EQ(UnhandledErrors()[1].number, 51);
    EXPECT_EQ(UnhandledErrors()[1].text, "a bug");
}

// Tells on standard error what it is asked to show, and whether the pointer is the program's own.
class TellingBox : public MessageBox {
  public:
    int Show(const BoxRequest& request) override {
        std::fprintf(stderr, "box %d \"%s\" %s", request.style, request.title.c_str(),
                     QApplication::overrideCursor() == nullptr ? "under the arrow" : "under the hourglass");
        return box_result::Ok;
    }
};

TEST_F(ProgramApplicationTest, TheLastBoxIsCriticalUnderTheOrdinaryPointer) {
    testing::FLAGS_gtest_death_test_style = "fast";
    const auto end = [](const std::string& title) {
        TellingBox box;
        Platform.Messages = &box;
        AppLongTitle = title;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        auto* application = static_cast<ProgramApplication*>(qApp);
        application->SetErrorSink({});
        application->Run([] { Raise(11); });
    };
    EXPECT_EXIT(end("Ridge"), testing::ExitedWithCode(1), "box 16 \"Ridge\" under the arrow");
    EXPECT_EXIT(end(""), testing::ExitedWithCode(1), "box 16 \"TARVO-KOL\" under the arrow");
}

TEST_F(ProgramApplicationTest, TheEndByAnErrorKeepsUnsavedWorkAndSaysWhere) {
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_EXIT(
        {
            TempDataFolder = PathTo("");
            ProjectFileName = "ridge.TKL";
            ProjectSaved = 0;
            auto* application = static_cast<ProgramApplication*>(qApp);
            application->SetErrorSink({});
            application->Run([] { Raise(62); });
        },
        testing::ExitedWithCode(1),
        "Run-time error '62':\r\n\r\nInput past end of file\r\n\r\nThe unsaved project is kept in: " +
            PathTo("") + "~unsaved ridge ");
}

TEST_F(ProgramApplicationTest, AnUnhandledErrorEndsTheProgramWithStatusOne) {
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_EXIT(
        {
            auto* application = static_cast<ProgramApplication*>(qApp);
            application->SetErrorSink({});
            QTimer::singleShot(0, [] { Raise(62); });
            application->exec();
        },
        testing::ExitedWithCode(1), "Run-time error '62':");
}

// A shortcut of an action or of a box inside the window; a window above it has shortcuts of its own.
TEST_F(ProgramApplicationTest, ADisabledWindowTakesNoShortcuts) {
    const QKeySequence key("Ctrl+K");
    QMainWindow window;
    auto* inner = new QWidget(&window);
    QMainWindow above(&window);
    QAction of_window(&window), of_inner(inner), of_above(&above), of_none;
    int taken = 0;
    for (QAction* action : {&of_window, &of_inner, &of_above, &of_none}) {
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, [&taken] { ++taken; });
    }
    const auto taken_by = [&](QAction& action) {
        taken = 0;
        QShortcutEvent press(key, 1);
        EXPECT_TRUE(QApplication::sendEvent(&action, &press));
        return taken;
    };
    for (const bool enabled : {true, false}) {
        window.setEnabled(enabled);
        above.setEnabled(true);
        EXPECT_EQ(taken_by(of_window), enabled ? 1 : 0);
        EXPECT_EQ(taken_by(of_inner), enabled ? 1 : 0);
        EXPECT_EQ(taken_by(of_above), 1);
        EXPECT_EQ(taken_by(of_none), 1);
    }
    inner->setEnabled(false);
    window.setEnabled(true);
    EXPECT_EQ(taken_by(of_inner), 1);  // the window counts
}

TEST_F(ProgramApplicationTest, TheWindowThatWasActiveLastIsRemembered) {
    QWidget window;
    window.show();
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &activate);
    LeaveNoWindowActive();
    EXPECT_EQ(OwnerWindow(), &window);
    QWidget other;
    other.show();
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&other, &deactivate);
    LeaveNoWindowActive();
    EXPECT_EQ(OwnerWindow(), &window);
}

// What the receiver says of the event comes back to the sender.
TEST_F(ProgramApplicationTest, ReceiversAnswerTheirEvents) {
    QObject plain;
    QEvent enter(QEvent::Enter);
    EXPECT_FALSE(QApplication::sendEvent(&plain, &enter));
    QWidget widget;
    QEvent polish(QEvent::Polish);
    EXPECT_TRUE(QApplication::sendEvent(&widget, &polish));
}

}  // namespace
}  // namespace tarvokol
