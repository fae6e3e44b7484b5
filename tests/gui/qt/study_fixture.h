// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the studies' plots look at.
#pragma once

#include <numeric>
#include <vector>

#include <qcustomplot.h>

#include "qt/charts/study_plot.h"
#include "tests/gui/qt/drawing_words.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

inline std::vector<double> Rising(int count) {
    std::vector<double> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0.0);
    return numbers;
}

template <typename Item>
std::vector<Item*> All(QCustomPlot& plot) {
    std::vector<Item*> found;
    for (int i = 0; i < plot.plottableCount(); ++i)
        if (auto* one = qobject_cast<Item*>(plot.plottable(i))) found.push_back(one);
    return found;
}

inline std::vector<QCPItemText*> LabelsOf(QCustomPlot& plot) {
    std::vector<QCPItemText*> labels;
    for (int i = 0; i < plot.itemCount(); ++i) labels.push_back(qobject_cast<QCPItemText*>(plot.item(i)));
    return labels;
}

// Looks that all studies have in common.
inline void ExpectLooks(const QCPAxis& axis, const QString& title) {
    EXPECT_EQ(axis.label(), title);
    EXPECT_EQ(FontOf(axis.labelFont()), "Arial 11");
    EXPECT_EQ(FontOf(axis.tickLabelFont()), "Arial 9");
    EXPECT_EQ(axis.numberFormat(), "gb");
    EXPECT_EQ(axis.numberPrecision(), 6);
    EXPECT_EQ(PenOf(axis.grid()->pen()), "#cdcdcd 1 dot");
    EXPECT_EQ(axis.grid()->zeroLinePen().style(), Qt::NoPen);
    EXPECT_EQ(PenOf(axis.basePen()), "#000000 1 solid");
}

inline void ExpectFullBox(const QCPAxisRect& box) {
    for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) EXPECT_TRUE(box.axis(side)->visible());
    EXPECT_FALSE(box.axis(QCPAxis::atTop)->tickLabels());
}

inline void ExpectHeader(const QCustomPlot& plot, const QString& title) {
    const auto* header = qobject_cast<QCPTextElement*>(plot.plotLayout()->element(0, 0));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->text(), title);
    EXPECT_EQ(FontOf(header->font()), "Arial 13 bold");
    EXPECT_EQ(header->margins(), QMargins(0, 8, 0, 0));
    EXPECT_EQ(plot.locale(), QLocale::c());
}

inline void ExpectLabel(const QCPItemText& label, const QString& text, double x, double y) {
    EXPECT_EQ(label.text(), text);
    EXPECT_NEAR(label.position->key(), x, 1e-9) << qPrintable(text);
    EXPECT_NEAR(label.position->value(), y, 1e-9) << qPrintable(text);
    EXPECT_EQ(label.position->typeX(), QCPItemPosition::ptPlotCoords);
    EXPECT_EQ(label.brush().color(), QColor(255, 255, 255, 225));
    EXPECT_EQ(label.padding(), QMargins(2, 0, 2, 0));
}

}  // namespace tarvokol
