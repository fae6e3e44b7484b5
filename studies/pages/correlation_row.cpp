// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/correlation_row.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <cmath>
#include <limits>

#include "core/engine/panel_fields.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

QComboBox* FieldBox(QWidget& row, PanelField field, const QString& accessible) {
    auto* box = new QComboBox(&row);
    box->setAccessibleName(accessible);
    for (const PanelFieldFacts& facts : kPanelFields) box->addItem(facts.title);
    box->setCurrentIndex(static_cast<int>(field));
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

PanelField ChosenIn(const QComboBox& box) {
    return static_cast<PanelField>(box.currentIndex());
}

QString DigitsOf(double value) {
    std::string digits;
    AppendShortest(digits, value);
    return ToQt(digits);
}

}  // namespace

CorrelationRow::CorrelationRow(const FieldCorrelation& correlation, QWidget* parent)
    : QWidget(parent), sound_(correlation.value) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(0);
    first_ = FieldBox(*this, correlation.first, "Correlated field");
    second_ = FieldBox(*this, correlation.second, "Field that it is correlated with");
    value_ = new QLineEdit(DigitsOf(sound_), this);
    value_->setAccessibleName("Correlation");
    value_->setToolTip(
        "From -1 to 1: the correlation of their normal scores; of normal fields their own, of lognormal ones "
        "that of the logarithms");
    constexpr int kDigits = 7;
    value_->setMaximumWidth(value_->fontMetrics().horizontalAdvance("0") * kDigits + 12);
    remove_ = new QToolButton(this);
    remove_->setText("\u00d7");
    remove_->setToolTip("Remove this correlation");
    remove_->setAccessibleName("Remove this correlation");
    fault_ = new QLabel(this);
    fault_->setWordWrap(true);
    fault_->hide();
    int column = 0;
    grid->addWidget(first_, 0, column++);
    grid->addWidget(new QLabel("goes with", this), 0, column++);
    grid->addWidget(second_, 0, column++);
    grid->addWidget(new QLabel("by", this), 0, column++);
    grid->addWidget(value_, 0, column++);
    grid->addWidget(remove_, 0, column++);
    grid->addWidget(fault_, 1, 0, 1, column);
    for (const QComboBox* box : {first_, second_})
        connect(box, &QComboBox::currentIndexChanged, this, &CorrelationRow::Changed);
    connect(value_, &QLineEdit::textEdited, this, &CorrelationRow::Value_Edited);
    connect(value_, &QLineEdit::editingFinished, this, &CorrelationRow::Finished);
    connect(remove_, &QToolButton::clicked, this, &CorrelationRow::Removed);
}

FieldCorrelation CorrelationRow::Correlation() const {
    const auto value = WholeNumber(Trim(FromQt(value_->text())));
    return {ChosenIn(*first_), ChosenIn(*second_), value.value_or(std::numeric_limits<double>::quiet_NaN())};
}

FieldCorrelation CorrelationRow::SoundCorrelation() const {
    return {ChosenIn(*first_), ChosenIn(*second_), sound_};
}

void CorrelationRow::Show(const FieldCorrelation& correlation) {
    if (Correlation() == correlation) return;
    const QSignalBlocker quiet_first(first_), quiet_second(second_);
    first_->setCurrentIndex(static_cast<int>(correlation.first));
    second_->setCurrentIndex(static_cast<int>(correlation.second));
    sound_ = correlation.value;
    value_->setText(DigitsOf(sound_));
}

void CorrelationRow::Value_Edited() {
    const double value = Correlation().value;
    if (!std::isnan(value)) sound_ = value;
    emit Changed();
}

void CorrelationRow::SetNumber(int number) {
    const QString end = QString("_%1").arg(number);
    setObjectName("Correlation_Row" + end);
    first_->setObjectName("Correlation_First" + end);
    second_->setObjectName("Correlation_Second" + end);
    value_->setObjectName("Correlation_Value" + end);
    remove_->setObjectName("Correlation_Remove" + end);
    fault_->setObjectName("Correlation_Fault" + end);
}

void CorrelationRow::ShowFault(const QString& fault) {
    fault_->setText("\u26a0 " + fault);
    fault_->setVisible(!fault.isEmpty());
}

}  // namespace tarvokol
