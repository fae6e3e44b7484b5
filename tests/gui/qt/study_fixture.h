// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the studies' plots look at.
#pragma once

#include <memory>
#include <numeric>
#include <vector>

#include <qcustomplot.h>

#include "qt/charts/study_looks.h"
#include "qt/charts/study_picture.h"
#include "qt/charts/study_plot.h"
#include "qt/session/qt_text.h"
#include "tests/gui/qt/drawing_words.h"
#include "tests/gui/qt/svg_reading.h"
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
        if (auto* one = dynamic_cast<Item*>(plot.plottable(i))) found.push_back(one);
    return found;
}

// Looks that all studies have in common.
inline void ExpectLooks(const QCPAxis& axis, const QString& title, double points = 11) {
    EXPECT_EQ(axis.label(), title);
    EXPECT_EQ(FontOf(axis.labelFont()), QString("Arial %1").arg(points));
    EXPECT_EQ(FontOf(axis.tickLabelFont()), "Arial 9");
    EXPECT_EQ(PenOf(axis.grid()->pen()), "#cdcdcd 1 dot");
    EXPECT_EQ(axis.grid()->zeroLinePen().style(), Qt::NoPen);
    for (const QPen& pen : {axis.basePen(), axis.tickPen(), axis.subTickPen()})
        EXPECT_EQ(PenOf(pen), "#000000 1 solid");
}

inline void ExpectFullBox(const QCPAxisRect& box) {
    for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) EXPECT_TRUE(box.axis(side)->visible());
    EXPECT_FALSE(box.axis(QCPAxis::atTop)->tickLabels());
}

inline const QCPTextElement& TextInRow(const QCustomPlot& plot, int row) {
    return *qobject_cast<QCPTextElement*>(plot.plotLayout()->element(row, 0));
}

inline void ExpectHeader(const QCustomPlot& plot, const QString& title) {
    EXPECT_EQ(TextInRow(plot, 0).text(), title);
    EXPECT_EQ(FontOf(TextInRow(plot, 0).font()), "Arial 13 bold");
    EXPECT_EQ(plot.locale(), QLocale::c());
}

inline std::vector<StudyKey> KeysOf(const QCustomPlot& plot) {
    std::vector<StudyKey> keys;
    for (int i = 0; i < plot.legend->itemCount(); ++i)
        keys.push_back(dynamic_cast<StudyKeyItem*>(plot.legend->item(i))->Key());
    return keys;
}

inline std::vector<QString> KeyTexts(const QCustomPlot& plot) {
    std::vector<QString> texts;
    for (const StudyKey& key : KeysOf(plot)) texts.push_back(key.text);
    return texts;
}

// A plot of a picture, laid out as in a file.
template <typename Picture>
std::unique_ptr<QCustomPlot> PlotOf(const Picture& picture) {
    auto plot = std::make_unique<QCustomPlot>();
    ComposeStudyPlot(*plot, picture);
    const QSize size = StudyPictureSize(picture);
    plot->toPixmap(size.width(), size.height(), 1);
    return plot;
}

class StudyPlotTest : public CoreTest {
  protected:
    template <typename Picture>
    SvgPicture SvgOf(const Picture& picture) const {
        WriteStudyPicture(picture, PathTo("study.svg"));
        return SvgReader::Read(ReadBytes(PathTo("study.svg")));
    }
};

// All texts lie whole in the picture, and none touches another.
inline void ExpectWholeAndApart(const SvgPicture& svg) {
    for (std::size_t i = 0; i < svg.texts.size(); ++i) {
        EXPECT_TRUE(svg.box.contains(svg.texts[i].room)) << qPrintable(svg.texts[i].text);
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(svg.texts[i].room.intersects(svg.texts[j].room))
                << qPrintable(svg.texts[i].text) << ", " << qPrintable(svg.texts[j].text);
    }
}

}  // namespace tarvokol
