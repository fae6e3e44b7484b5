// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of one uncertain field: which it is, how it is distributed, a small picture of that, and what is wrong.
#pragma once

#include <QWidget>
#include <array>

#include "core/statistics/distributions.h"
#include "studies/model/risk_plan.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tarvokol {

// The density of a distribution, from its lowest to its highest thousandth.
class DensityPicture : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;
    void Show(DistributionPtr distribution);
    QSize sizeHint() const override { return {84, 26}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    DistributionPtr distribution_;
};

class UncertainRow : public QWidget {
    Q_OBJECT

  public:
    explicit UncertainRow(const UncertainField& field, QWidget* parent = nullptr);

    // As the command line writes it.
    UncertainField Field() const;

    // Another one in its place; says nothing of it.
    void Show(const UncertainField& field);

    // Its place among the rows: controls are named for it, "Risk_Field_0".
    void SetNumber(int number);

    // What is wrong with it, empty where nothing is, and the project's value, of which a percentage is a share.
    void ShowState(const QString& fault, double base, const QString& unit);

  signals:
    void Changed();
    void Finished();  // what was typed
    void Removed();

  private:
    static constexpr std::size_t kMostFigures = 4;

    void Form_Chosen();
    void ShowForm();
    void FillFigures(const std::string& distribution);

    QComboBox* field_;
    QComboBox* form_;
    std::array<QLineEdit*, kMostFigures> figures_{};
    DensityPicture* density_;
    QToolButton* remove_;
    QLabel* fault_;
};

}  // namespace tarvokol
