// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the studies' plots look at.
#pragma once

#include <numeric>
#include <vector>

#include <qcustomplot.h>

#include "qt/charts/study_looks.h"
#include "qt/charts/study_picture.h"
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

inline std::vector<QString> LegendOf(const QCustomPlot& plot) {
    std::vector<QString> names;
    for (int i = 0; i < plot.legend->itemCount(); ++i)
        names.push_back(qobject_cast<QCPPlottableLegendItem*>(plot.legend->item(i))->plottable()->name());
    return names;
}

inline void ExpectLegendLooks(const QCustomPlot& plot) {
    EXPECT_TRUE(plot.legend->visible());
    EXPECT_EQ(FontOf(plot.legend->font()), "Arial 9");
    EXPECT_EQ(plot.legend->fillOrder(), QCPLegend::foColumnsFirst);
    EXPECT_EQ(plot.legend->borderPen().style(), Qt::NoPen);
    const int last = plot.plotLayout()->rowCount() - 1;
    EXPECT_EQ(last, 2);  // header, plot, legend
    EXPECT_EQ(plot.legend->layout(), plot.plotLayout()->element(last, 0));
    EXPECT_EQ(plot.legend->layout()->elementCount(), 1);
    EXPECT_EQ(plot.plotLayout()->rowStretchFactors().last(), 0.001);
    EXPECT_EQ(plot.plotLayout()->element(1, 0), plot.axisRect());
}

// The room of a label on the picture, in pixels.
inline QRectF RoomOf(const QCPItemText& label) {
    const QSizeF size = TextSize(label.text(), label.font().bold());
    const double x = label.position->keyAxis()->coordToPixel(label.position->key());
    const double y = label.position->valueAxis()->coordToPixel(label.position->value());
    const auto side = label.positionAlignment();
    const double left = side.testFlag(Qt::AlignHCenter) ? x - size.width() / 2
                        : side.testFlag(Qt::AlignRight) ? x - size.width()
                                                        : x;
    const double top = side.testFlag(Qt::AlignVCenter)  ? y - size.height() / 2
                       : side.testFlag(Qt::AlignBottom) ? y - size.height()
                                                        : y;
    return {left, top, size.width(), size.height()};
}

inline void ExpectWholeAndApart(QCustomPlot& plot) {
    const auto labels = LabelsOf(plot);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const QRectF room = RoomOf(*labels[i]);
        EXPECT_TRUE(QRectF(labels[i]->clipAxisRect()->rect()).adjusted(-1, -1, 1, 1).contains(room))
            << qPrintable(labels[i]->text());
        for (std::size_t j = 0; j < i; ++j)
            if (labels[j]->clipAxisRect() == labels[i]->clipAxisRect())
                EXPECT_FALSE(RoomOf(*labels[j]).adjusted(0.5, 0.5, -0.5, -0.5).intersects(room))
                    << qPrintable(labels[i]->text()) << ", " << qPrintable(labels[j]->text());
    }
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
