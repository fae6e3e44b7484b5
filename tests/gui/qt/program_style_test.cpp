// SPDX-License-Identifier: GPL-3.0-or-later
// The mark of a toolbar that is too narrow for its buttons.
#include "qt/session/program_style.h"

#include <QImage>
#include <QToolBar>
#include <QToolButton>

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

}  // namespace
}  // namespace tarvokol
