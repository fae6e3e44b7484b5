// SPDX-License-Identifier: GPL-3.0-or-later
// Ticks of an axis of the chart: round steps, labels with even decimals.
#pragma once

#include <qcustomplot.h>

namespace tarvokol {

// Tick labels that all carry the decimals of the tick step, with "." in every locale. An axis that has room
// for them gets at least four ticks.
class ChartTicker : public QCPAxisTicker {
  protected:
    double getTickStep(const QCPRange& range) override;
    QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override;

  private:
    int DecimalsOfStep(double exponent) const;

    double step_ = 1;
};

// Ticks of counts: at whole numbers, and nothing between them.
class WholeTicker : public QCPAxisTickerFixed {
  public:
    WholeTicker() { setScaleStrategy(ssMultiples); }

  protected:
    int getSubTickCount(double) override { return 0; }
};

}  // namespace tarvokol
