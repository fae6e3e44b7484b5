// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is clicked, typed and dragged in whatever order, the window stands and says the same as its model.
// TARVOKOL_RANDOM_STEPS tells how many steps are taken, TARVOKOL_RANDOM_SEED which ones.
#include <QAbstractButton>
#include <QClipboard>
#include <QTabWidget>
#include <QWheelEvent>

#include "core/platform/message_box.h"
#include "tests/studies/window/studies_window_fixture.h"
#include "tests/support/random_panels.h"
#include "tests/support/test_settings.h"

namespace tarvokol {
namespace {

class RandomInput : public StudiesWindowTest {
  protected:
    template <typename Choice>
    Choice AnyOf(const std::vector<Choice>& choices) {
        return choices[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(choices.size()) - 1))];
    }
    QWidget* AnyVisible() {
        QList<QWidget*> shown;
        for (QWidget* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && widget->isEnabled() && widget->window() == window.get())
                shown.append(widget);
        return shown[dice.Whole(0, static_cast<int>(shown.size()) - 1)];
    }
    QPoint AnyPlace(const QWidget& widget) {
        return {dice.Whole(0, std::max(0, widget.width() - 1)),
                dice.Whole(0, std::max(0, widget.height() - 1))};
    }
    void PressAnyKey(QWidget& widget) {
        const Qt::Key key = AnyOf<Qt::Key>(
            {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Enter, Qt::Key_Escape,
             Qt::Key_Delete, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_Tab, Qt::Key_Backspace,
             Qt::Key_0, Qt::Key_9, Qt::Key_Period, Qt::Key_Minus, Qt::Key_E, Qt::Key_Percent});
        QTest::keyClick(&widget, key, dice.Whole(0, 4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    }
    void ChooseAny() {
        Host.Messages.Answers = {dice.Whole(0, 1) == 0 ? box_result::No : box_result::Cancel};
        Choose(AnyOf<std::string>({"actNew", "actNewMetric", "actUndo", "actUndo", "actRedo", "actSave",
                                   "actCopyCommand", "actCopyWidthCommand", "actCopyFigures",
                                   "actCopyPicture", "actAbout"}));
    }
    // Pressed at one place, moved over others, let go at a last one.
    void DragOver(QWidget& widget) {
        QTest::mousePress(&widget, Qt::LeftButton, {}, AnyPlace(widget));
        for (int moves = dice.Whole(1, 8); moves > 0; --moves) {
            const QPointF at = AnyPlace(widget);
            QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(&widget, &move);
        }
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, AnyPlace(widget));
    }
    void Wheel(QWidget& widget) {
        const QPointF at = AnyPlace(widget);
        const int turn = 120 * dice.Whole(-3, 3);
        QWheelEvent wheel(at, widget.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&widget, &wheel);
    }
    void TypeOrPaste(QWidget& widget) {
        const std::string text =
            AnyOf<std::string>({"12", "0", "-5", "1e9", "1e-300", "nan", "10%", "normal:80%:10%", "3,5", "",
                                "Height\tDepthCover\n6\t200\n7\t-1\n", "Hole,WebThickness\r\nA,5\r\nB,x\r\n",
                                "\xc3\xa4 \xe2\x82\xac"});
        const bool keys_have_it =
            text.find_first_not_of("+-.,%:0123456789abcdefghijklmnopqrstuvwxyz") == std::string::npos;
        if (!keys_have_it || dice.Whole(0, 1) == 0) {
            QApplication::clipboard()->setText(ToQt(text));
            QTest::keyClick(&widget, Qt::Key_V, Qt::ControlModifier);
        } else {
            QTest::keyClicks(&widget, ToQt(text));
        }
    }
    void Step() {
        QWidget& widget = *AnyVisible();
        const bool drops_down =
            qobject_cast<QComboBox*>(&widget) != nullptr;  // a list would wait for its user
        switch (dice.Whole(0, 9)) {
            case 0:
                if (!drops_down) QTest::mouseClick(&widget, Qt::LeftButton, {}, AnyPlace(widget));
                break;
            case 1:
                if (!drops_down) QTest::mouseDClick(&widget, Qt::LeftButton, {}, AnyPlace(widget));
                break;
            case 2:
                QTest::mouseMove(&widget, AnyPlace(widget));
                break;
            case 3:
                window->resize(dice.Whole(600, 1400), dice.Whole(400, 900));
                break;
            case 4:
                if (auto* box = qobject_cast<QComboBox*>(&widget))
                    box->setCurrentIndex(dice.Whole(0, box->count() - 1));
                if (auto* slider = qobject_cast<QSlider*>(&widget))
                    slider->setValue(dice.Whole(slider->minimum(), slider->maximum()));
                break;
            case 5:
                if (dice.Whole(0, 9) == 0) ChooseAny();
                break;
            case 6:
                if (!drops_down) DragOver(widget);
                break;
            case 7:
                Wheel(widget);
                break;
            case 8:
                if (!drops_down) TypeOrPaste(widget);
                break;
            default:
                PressAnyKey(widget);
        }
        if (dice.Whole(0, 20) == 0)
            Find<QTabWidget>("Pages").setCurrentIndex(dice.Whole(0, Find<QTabWidget>("Pages").count() - 1));
        QApplication::processEvents();
    }

    // What is shown is what the model has, but for the box that is being typed into.
    void ExpectFiguresOfTheModel(int step) {
        EXPECT_EQ(window->isWindowModified(), window->Model().IsChanged()) << step;
        for (const PanelFieldFacts& facts : kPanelFields) {
            const std::string box = std::string(facts.name) + "_Box";
            if (!Find(box).hasFocus()) {
                EXPECT_EQ(TextOf(box), window->Model().TextOf(facts.field)) << step;
            }
        }
    }

    PanelDice dice{static_cast<std::uint64_t>(NumberFrom("TARVOKOL_RANDOM_SEED", 2024))};
};

TEST_F(RandomInput, LeavesTheWindowStanding) {
    constexpr int kStepsBetweenLooks = 100;
    const int steps = NumberFrom("TARVOKOL_RANDOM_STEPS", 500);
    for (int step = 1; step <= steps; ++step) {
        Step();
        ASSERT_TRUE(window->isVisible()) << step;
        if (step % kStepsBetweenLooks == 0) ExpectFiguresOfTheModel(step);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace tarvokol
