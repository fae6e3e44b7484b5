// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is clicked, typed and dragged in whatever order, the window stands and says the same as its model.
#include <QAbstractButton>
#include <QTabWidget>

#include "core/platform/message_box.h"
#include "tests/studies/window/studies_window_fixture.h"
#include "tests/support/random_panels.h"

namespace tarvokol {
namespace {

class RandomInput : public StudiesWindowTest {
  protected:
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
        static const std::vector<Qt::Key> keys{
            Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Enter, Qt::Key_Escape,
            Qt::Key_Delete, Qt::Key_PageUp, Qt::Key_Home,   Qt::Key_End,   Qt::Key_Tab,   Qt::Key_Backspace,
            Qt::Key_0,      Qt::Key_9,      Qt::Key_Period, Qt::Key_Minus, Qt::Key_E,     Qt::Key_Percent};
        QTest::keyClick(&widget,
                        keys[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(keys.size()) - 1))],
                        dice.Whole(0, 4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    }
    void ChooseAny() {
        static const std::vector<std::string> actions{
            "actNew",         "actNewMetric",        "actUndo",        "actUndo", "actRedo", "actSave",
            "actCopyCommand", "actCopyWidthCommand", "actCopyFigures", "actAbout"};
        Host.Messages.Answers = {dice.Whole(0, 1) == 0 ? box_result::No : box_result::Cancel};
        Choose(actions[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(actions.size()) - 1))]);
    }
    void Step() {
        QWidget& widget = *AnyVisible();
        switch (dice.Whole(0, 6)) {
            case 0:
                // A list that drops down would wait for its user.
                if (qobject_cast<QComboBox*>(&widget) == nullptr)
                    QTest::mouseClick(&widget, Qt::LeftButton, {}, AnyPlace(widget));
                break;
            case 1:
                if (qobject_cast<QComboBox*>(&widget) == nullptr)
                    QTest::mouseDClick(&widget, Qt::LeftButton, {}, AnyPlace(widget));
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
            default:
                PressAnyKey(widget);
        }
        if (dice.Whole(0, 20) == 0)
            Find<QTabWidget>("Pages").setCurrentIndex(dice.Whole(0, Find<QTabWidget>("Pages").count() - 1));
        QApplication::processEvents();
    }

    PanelDice dice{2024};
};

TEST_F(RandomInput, LeavesTheWindowStanding) {
    constexpr int kSteps = 500;
    for (int step = 0; step < kSteps; ++step) {
        Step();
        ASSERT_TRUE(window->isVisible()) << step;
    }
    EXPECT_EQ(window->isWindowModified(), window->Model().IsChanged());
    for (const PanelFieldFacts& facts : kPanelFields)
        if (!Find(std::string(facts.name) + "_Box").hasFocus()) {
            EXPECT_EQ(TextOf(std::string(facts.name) + "_Box"), window->Model().TextOf(facts.field));
        }
}

}  // namespace
}  // namespace tarvokol
