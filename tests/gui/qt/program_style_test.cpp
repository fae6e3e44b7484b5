// SPDX-License-Identifier: GPL-3.0-or-later
// The mark of a toolbar that is too narrow for its buttons, and disabled texts that can be read.
#include "qt/session/program_style.h"

#include <QApplication>
#include <QImage>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

// True if the picture has a pixel that is not wholly transparent.
bool ShowsSomething(const QIcon& icon) {
    const QImage picture = icon.pixmap(16, 16).toImage();
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(picture.pixel(x, y)) > 0) return true;
    return false;
}

TEST(ProgramStyleTest, DrawsTheMarkOfANarrowToolbarBothWays) {
    const ProgramStyle style;
    EXPECT_TRUE(
        ShowsSomething(style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr)));
    EXPECT_TRUE(
        ShowsSomething(style.standardIcon(QStyle::SP_ToolBarVerticalExtensionButton, nullptr, nullptr)));
}

TEST(ProgramStyleTest, LeavesTheOtherIconsToTheDesktop) {
    const ProgramStyle style;
    EXPECT_TRUE(ShowsSomething(style.standardIcon(QStyle::SP_MessageBoxQuestion, nullptr, nullptr)));
}

TEST(ProgramStyleTest, MarksAToolbarThatIsTooNarrow) {
    ProgramStyle style;
    QToolBar toolbar;
    toolbar.setStyle(&style);
    for (int i = 0; i < 5; ++i) toolbar.addAction("A long caption");
    toolbar.resize(80, 30);
    toolbar.show();
    auto* mark = toolbar.findChild<QToolButton*>("qt_toolbar_ext_button");
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisible());
    mark->setStyle(&style);
    EXPECT_TRUE(ShowsSomething(mark->icon()));
    toolbar.setStyle(nullptr);
}

TEST(ProgramStyleTest, MeasuresContrastAsThatOfBlackAndWhiteIs21) {
    EXPECT_NEAR(ContrastOf(Qt::black, Qt::white), 21, 1e-6);
    EXPECT_NEAR(ContrastOf(Qt::white, Qt::black), 21, 1e-6);
    EXPECT_EQ(ContrastOf(Qt::red, Qt::red), 1);
    EXPECT_NEAR(ContrastOf(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(ContrastOf(Qt::blue, Qt::white), 8.59, 0.005);
}

// The lowest contrast of a disabled text with anything that it may stand on.
double LowestContrast(const QPalette& palette) {
    double lowest = 21;
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button})
            lowest = std::min(lowest, ContrastOf(palette.color(QPalette::Disabled, text),
                                                 palette.color(QPalette::Disabled, ground)));
    return lowest;
}

TEST(ProgramStyleTest, WhatIsDisabledCanBeRead) {
    ProgramStyle style;
    QPalette dark(QColor(0x35, 0x35, 0x35));
    dark.setColor(QPalette::Base, QColor(0x19, 0x19, 0x19));
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(text, Qt::white);
        dark.setColor(QPalette::Disabled, text, QColor(0x50, 0x50, 0x50));
    }
    for (const QPalette& before : {style.standardPalette(), dark}) {
        EXPECT_LT(LowestContrast(before), 3);
        QPalette palette = before;
        style.polish(palette);
        EXPECT_GE(LowestContrast(palette), 3);
        // Still paler than what is enabled, which stays as it was.
        EXPECT_LT(LowestContrast(palette), 6);
        EXPECT_EQ(palette.color(QPalette::Active, QPalette::Text),
                  before.color(QPalette::Active, QPalette::Text));
    }
    EXPECT_GE(LowestContrast(QApplication::palette()), 3);
}

TEST(ProgramStyleTest, WhatAnEmptyBoxSaysOfItselfCanBeRead) {
    ProgramStyle style;
    QPalette dark(QColor(0x35, 0x35, 0x35));
    dark.setColor(QPalette::Base, QColor(0x19, 0x19, 0x19));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    style.polish(dark);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor placeholder = dark.color(group, QPalette::PlaceholderText);
        EXPECT_EQ(placeholder.alpha(), 255);
        EXPECT_GE(ContrastOf(placeholder, QColor(0x19, 0x19, 0x19)), 3);
        EXPECT_LT(ContrastOf(placeholder, QColor(0x19, 0x19, 0x19)), 6);  // paler than what is typed
    }
}

TEST(ProgramStyleTest, APlaceholderThatCanBeReadStaysAsTheDesktopHasIt) {
    ProgramStyle style;
    QPalette light = style.standardPalette();
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    style.polish(light);
    EXPECT_EQ(light.color(QPalette::Active, QPalette::PlaceholderText), QColor(0, 0, 0, 128));
}

TEST(ProgramStyleTest, ADisabledTextThatCanBeReadStaysAsTheDesktopHasIt) {
    ProgramStyle style;
    QPalette palette = style.standardPalette();
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, text, QColor(0x60, 0x40, 0x40));
    style.polish(palette);
    EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::ButtonText), QColor(0x60, 0x40, 0x40));
}

}  // namespace
}  // namespace tarvokol
