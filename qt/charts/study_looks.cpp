// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_looks.h"

#include <algorithm>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/chart_ticker.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Pixels.
constexpr int kSideRoom = 20;  // on either side of a row of text
constexpr int kAboveHeader = 8;
constexpr int kKeyWidth = 34;
constexpr int kKeyHeight = 16;
constexpr int kKeyGap = 8;
constexpr int kBetweenKeys = 16;
constexpr int kToneHeight = 10;

// Pixels that half a tick's label may take beyond the end of its axis.
constexpr int kBesideLeast = 28;
constexpr int kAboveLeast = 9;

constexpr int kTicks = 6;

// A row that takes no more room than it needs.
constexpr double kNoStretch = 0.001;

void StyleAxis(QCPAxisRect& box, QCPAxis::AxisType side, QCPAxis::AxisType beside, const PictureAxis& axis) {
    for (const auto one : {side, beside}) {
        QCPAxis& drawn = *box.axis(one);
        drawn.setRange(axis.low, axis.high);
        if (axis.whole)
            drawn.setTicker(QSharedPointer<QCPAxisTicker>(new WholeTicker));
        else
            drawn.setTicker(QSharedPointer<QCPAxisTicker>(new ChartTicker));
        drawn.ticker()->setTickCount(kTicks);
        drawn.setBasePen(QPen(kInk, 1));
        drawn.setTickPen(QPen(kInk, 1));
        drawn.setSubTickPen(QPen(kInk, 1));
        drawn.setTickLabelFont(ChartFont(kStudyTextPoints));
        drawn.grid()->setPen(QPen(kGridGrey, 1, Qt::DotLine));
        drawn.grid()->setZeroLinePen(Qt::NoPen);
    }
    box.axis(side)->setLabel(ToQt(axis.title));
    box.axis(side)->setLabelFont(ChartFont(kStudyTitlePoints));
    box.axis(beside)->setTickLabels(false);
}

// As many columns as fit side by side, each as wide as its widest key.
int ColumnsOf(const std::vector<int>& widths, int room) {
    const int count = static_cast<int>(widths.size());
    for (int columns = count; columns > 1; --columns) {
        int width = (columns - 1) * kBetweenKeys;
        for (int column = 0; column < columns; ++column) {
            int widest = 0;
            for (int key = column; key < count; key += columns)
                widest = std::max(widest, widths[static_cast<std::size_t>(key)]);
            width += widest;
        }
        if (width <= room) return columns;
    }
    return 1;
}

constexpr const char* kWidth = "StudyWidth";

int RoomOfTexts(const QCustomPlot& plot) {
    const QVariant width = plot.property(kWidth);
    return (width.isValid() ? width.toInt() : kPictureSize.width()) - 2 * kSideRoom;
}

}  // namespace

void SetStudyWidth(QCustomPlot& plot, int pixels) {
    plot.setProperty(kWidth, pixels);
}

StudyKeyItem::StudyKeyItem(QCPLegend* legend, StudyKey key)
    : QCPAbstractLegendItem(legend), key_(std::move(key)) {
    setFont(ChartFont(kStudyTextPoints));
}

QSize StudyKeyItem::minimumOuterSizeHint() const {
    const QFontMetrics metrics(mFont);
    return {kKeyWidth + kKeyGap + metrics.horizontalAdvance(key_.text),
            std::max(kKeyHeight, metrics.height())};
}

void StudyKeyItem::draw(QCPPainter* painter) {
    const QRectF sign(mRect.left(), mRect.top(), kKeyWidth, mRect.height());
    painter->setAntialiasing(true);
    if (key_.tone.isValid()) {
        painter->setPen(QPen(kInk, 0.5));
        painter->setBrush(key_.tone);
        painter->drawRect(
            QRectF(sign.left(), sign.center().y() - kToneHeight / 2.0, sign.width(), kToneHeight));
    }
    painter->setPen(key_.line);
    if (key_.line.style() != Qt::NoPen)
        painter->drawLine(QLineF(sign.left(), sign.center().y(), sign.right(), sign.center().y()));
    if (!key_.symbol.isNone()) {
        key_.symbol.applyTo(painter, QPen(kInk));
        key_.symbol.drawShape(painter, sign.center());
    }
    painter->setPen(kInk);
    painter->setFont(mFont);
    const QRectF text(sign.right() + kKeyGap, mRect.top(), mRect.width(), mRect.height());
    painter->drawText(text, Qt::TextDontClip | Qt::AlignVCenter | Qt::AlignLeft, key_.text);
}

void AddStudyHeader(QCustomPlot& plot, const std::string& title) {
    plot.setLocale(QLocale::c());
    plot.plotLayout()->setRowSpacing(0);
    const FittedText header = FitText(ToQt(title), ChartFont(kStudyHeaderPoints, true), RoomOfTexts(plot));
    auto* element = new QCPTextElement(&plot, header.text, header.font);
    element->setMargins(QMargins(0, kAboveHeader, 0, 2));
    plot.plotLayout()->insertRow(0);
    plot.plotLayout()->addElement(0, 0, element);
    plot.plotLayout()->setRowStretchFactor(0, kNoStretch);
}

int AddStudyText(QCustomPlot& plot, int row, const std::string& text) {
    const FittedText fitted = FitText(ToQt(text), ChartFont(kStudyTextPoints), RoomOfTexts(plot));
    auto* element = new QCPTextElement(&plot, fitted.text, fitted.font);
    element->setMargins(QMargins(0, 0, 0, 1));
    plot.plotLayout()->insertRow(row);
    plot.plotLayout()->addElement(row, 0, element);
    plot.plotLayout()->setRowStretchFactor(row, kNoStretch);
    return QFontMetrics(fitted.font).height() * static_cast<int>(fitted.text.count('\n') + 1) + 1;
}

void StyleStudyAxes(QCPAxisRect& box, const PictureAxis& x, const PictureAxis& y) {
    box.setupFullAxesBox(true);
    box.setMinimumMargins(QMargins(kBesideLeast, kAboveLeast, kBesideLeast, 0));
    StyleAxis(box, QCPAxis::atBottom, QCPAxis::atTop, x);
    StyleAxis(box, QCPAxis::atLeft, QCPAxis::atRight, y);
}

void PlaceStudyKeys(QCustomPlot& plot, const std::vector<StudyKey>& keys) {
    plot.legend->setVisible(true);
    plot.legend->setFont(ChartFont(kStudyTextPoints));
    plot.legend->setBorderPen(Qt::NoPen);
    plot.legend->setBrush(Qt::NoBrush);
    plot.legend->setMargins(QMargins(0, 0, 0, 0));
    plot.legend->setColumnSpacing(kBetweenKeys);
    plot.legend->setFillOrder(QCPLegend::foColumnsFirst);
    plot.legend->clearItems();
    std::vector<int> widths;
    widths.reserve(keys.size());
    for (const StudyKey& key : keys)
        widths.push_back(kKeyWidth + kKeyGap +
                         QFontMetrics(ChartFont(kStudyTextPoints)).horizontalAdvance(key.text));
    plot.legend->setWrap(ColumnsOf(widths, RoomOfTexts(plot)));
    for (const StudyKey& key : keys) plot.legend->addItem(new StudyKeyItem(plot.legend, key));
    auto* row = new QCPLayoutGrid;
    const int last = plot.plotLayout()->rowCount();
    plot.plotLayout()->addElement(last, 0, row);
    plot.plotLayout()->setRowStretchFactor(last, kNoStretch);
    row->addElement(0, 0, new QCPLayoutElement);
    row->addElement(0, 1, plot.legend);
    row->addElement(0, 2, new QCPLayoutElement);
    row->setColumnStretchFactor(1, kNoStretch);
    row->setMargins(QMargins(0, 0, 0, kAboveHeader));
}

}  // namespace tarvokol
