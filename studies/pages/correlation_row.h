// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of one correlation: two uncertain fields, how they move together, and what is wrong with it.
#pragma once

#include <QWidget>

#include "core/studies/risk_study.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tarvokol {

class CorrelationRow : public QWidget {
    Q_OBJECT

  public:
    explicit CorrelationRow(const FieldCorrelation& correlation, QWidget* parent = nullptr);

    // NaN for a value that is no number.
    FieldCorrelation Correlation() const;

    // The last that was a number.
    FieldCorrelation SoundCorrelation() const;

    // Another one in its place; says nothing of it.
    void Show(const FieldCorrelation& correlation);

    // Its place among the rows: controls are named for it, "Correlation_First_0".
    void SetNumber(int number);

    // What is wrong with it, empty where nothing is.
    void ShowFault(const QString& fault);

  signals:
    void Changed();
    void Finished();  // what was typed
    void Removed();

  private:
    void Value_Edited();

    QComboBox* first_;
    QComboBox* second_;
    QLineEdit* value_;
    QToolButton* remove_;
    QLabel* fault_;
    double sound_;
};

}  // namespace tarvokol
