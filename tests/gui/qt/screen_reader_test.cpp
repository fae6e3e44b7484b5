// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader is told of pictures, tabs and pages.
#include "qt/session/screen_reader.h"

#include <QAccessible>
#include <QLabel>
#include <QTabWidget>

#include "tests/gui/qt/chart_fixture.h"

namespace tarvokol {
namespace {

QAccessibleInterface& ToldOf(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

// The value between its bounds.
std::vector<double> ValueOf(QWidget& widget) {
    QAccessibleValueInterface* value = ToldOf(widget).valueInterface();
    if (value == nullptr) return {};
    value->setCurrentValue(7);  // nobody sets it from outside
    EXPECT_EQ(value->minimumStepSize(), 0.0);
    return {value->minimumValue().toDouble(), value->currentValue().toDouble(),
            value->maximumValue().toDouble()};
}

using ::testing::ElementsAre;

TEST_F(ChartLooks, IsAChartWithTheValueOfThePointThatTheKeysReached) {
    EXPECT_EQ(ToldOf(Chart).role(), QAccessible::Chart);
    EXPECT_EQ(ToldOf(Chart).text(QAccessible::Name), "Graph");
    EXPECT_THAT(ValueOf(Chart), ElementsAre(0, 0, 0));
    Chart.SetNumSeries(2);
    for (int series = 1; series <= 2; ++series) Chart.SetNumPoints(series, 4);
    for (int point = 1; point <= 4; ++point) {
        Chart.SetX(1, point, point);
        Chart.SetY(1, point, 2.5 - 0.25 * point);
        Chart.SetX(2, point, point);
        Chart.SetY(2, point, 10.0 * point);
    }
    Chart.SetY(2, 4, HoleValue);
    Show();
    EXPECT_THAT(ValueOf(Chart), ElementsAre(0, 0, 0));
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_THAT(ValueOf(Chart), ElementsAre(1.5, 2, 2.25));
    Key(Qt::Key_Down);
    EXPECT_THAT(ValueOf(Chart), ElementsAre(10, 20, 30));
    Chart.SetNumSeries(1);
    EXPECT_THAT(ValueOf(Chart), ElementsAre(0, 0, 0));  // that curve is gone
}

TEST(ScreenReaderTest, TabsTellWhichPageShowsAndPagesTheirCaption) {
    QTabWidget tabs;
    tabs.setAccessibleName("Parameter groups");
    auto* first = new QWidget;
    auto* second = new QWidget;
    tabs.addTab(first, "&Standard");
    tabs.addTab(second, "Sizing");
    EXPECT_EQ(ToldOf(tabs).role(), QAccessible::LayeredPane);
    EXPECT_EQ(ToldOf(tabs).text(QAccessible::Name), "Parameter groups");
    EXPECT_EQ(ToldOf(tabs).text(QAccessible::Description), "Standard");
    EXPECT_THAT(ValueOf(tabs), ElementsAre(1, 1, 2));
    tabs.setCurrentIndex(1);
    EXPECT_EQ(ToldOf(tabs).text(QAccessible::Description), "Sizing");
    EXPECT_THAT(ValueOf(tabs), ElementsAre(1, 2, 2));
    EXPECT_EQ(ToldOf(*first).role(), QAccessible::Grouping);
    EXPECT_EQ(ToldOf(*first).text(QAccessible::Name), "Standard");
    EXPECT_EQ(ToldOf(*second).text(QAccessible::Name), "Sizing");
    EXPECT_EQ(ToldOf(*second).text(QAccessible::Description), "");
}

TEST(ScreenReaderTest, WhatTheToolkitKnowsItKeeps) {
    QLabel label("some words");
    EXPECT_EQ(ToldOf(label).role(), QAccessible::StaticText);
    EXPECT_EQ(ToldOf(label).text(QAccessible::Name), "some words");
    EXPECT_THAT(ValueOf(label), ElementsAre());
    QWidget alone;
    EXPECT_EQ(ToldOf(alone).role(), QAccessible::Client);
    QWidget inner(&alone);
    EXPECT_EQ(ToldOf(inner).role(), QAccessible::Client);
}

}  // namespace
}  // namespace tarvokol
