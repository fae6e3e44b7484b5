// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/field_row.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"

namespace tarvokol {
namespace {

// A digit of room for each place of a common figure.
constexpr int kBoxDigits = 7;
constexpr int kRangeDigits = 6;

QString Shortest(double value) {
    std::string text;
    AppendShortest(text, value);
    return ToQt(text);
}

// On one line of a label.
QString InOneLine(const std::string& message) {
    return ToQt(message).replace("\r\n", ". ");
}

double NumberOf(const QLineEdit& box) {
    return WholeNumber(Trim(FromQt(box.text()))).value_or(std::nan(""));
}

}  // namespace

FieldRow::FieldRow(StudyModel& model, PanelField field, QGridLayout& grid, int row)
    : QObject(grid.parentWidget()), model_(model), field_(field), page_(grid.parentWidget()) {
    const QString title = TitleOfField(field);
    title_ = new QLabel(page_);
    box_ = MakeBox("Box", "Figure of the project; figures follow while you type", kBoxDigits);
    low_ = MakeBox("Low", "Lower end of the slider and of a map over this field", kRangeDigits);
    slider_ = new QSlider(Qt::Horizontal, page_);
    slider_->setObjectName(QString(NameOfField(field)) + "_Slider");
    slider_->setAccessibleName(title + ", slider");
    slider_->setMinimumWidth(50);
    slider_->installEventFilter(this);  // a wheel that scrolls the page moves no figure
    high_ = MakeBox("High", "Upper end of the slider and of a map over this field", kRangeDigits);
    for (QLineEdit* end : {low_, high_}) {
        end->setFrame(false);
        QPalette plain = end->palette();
        plain.setBrush(QPalette::Base, Qt::transparent);
        end->setPalette(plain);
    }
    for (QLineEdit* end : {low_, high_}) end->setAlignment(end == low_ ? Qt::AlignRight : Qt::AlignLeft);
    low_->setAccessibleName(title + ", lower end of the range");
    high_->setAccessibleName(title + ", upper end of the range");
    title_->setBuddy(box_);
    fault_ = new QLabel(page_);
    fault_->setObjectName(QString(NameOfField(field)) + "_Fault");
    fault_->setWordWrap(true);
    fault_->hide();
    int column = 0;
    for (QWidget* control : std::initializer_list<QWidget*>{title_, box_, low_, slider_, high_})
        grid.addWidget(control, row, column++);
    grid.addWidget(fault_, row + 1, 0, 1, column);
    connect(box_, &QLineEdit::textEdited, this, &FieldRow::Box_Edited);
    connect(box_, &QLineEdit::editingFinished, this, &FieldRow::Box_Finished);
    connect(slider_, &QSlider::valueChanged, this, &FieldRow::Slider_Moved);
    connect(slider_, &QSlider::sliderReleased, this, &FieldRow::Slider_Released);
    connect(low_, &QLineEdit::editingFinished, this, &FieldRow::Range_Finished);
    connect(high_, &QLineEdit::editingFinished, this, &FieldRow::Range_Finished);
}

QLineEdit* FieldRow::MakeBox(const QString& ending, const QString& tip, int characters) {
    auto* box = new QLineEdit(page_);
    box->setObjectName(QString(NameOfField(field_)) + "_" + ending);
    box->setToolTip(tip);
    box->setMaxLength(40);
    constexpr int kFrame = 12;  // pixels of a box beside its text
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("0") * characters + kFrame);
    return box;
}

QWidget* FieldRow::Box() const {
    return box_;
}

void FieldRow::Show() {
    const QString unit = UnitOfField(field_, model_.ProjectUnits());
    title_->setText(unit.isEmpty() ? QString(TitleOfField(field_))
                                   : QString("%1 (%2)").arg(TitleOfField(field_), unit));
    box_->setAccessibleName(title_->text());
    ShowBox();
    ShowRange();
    ShowSlider();
    const std::string fault = model_.FaultOf(field_);
    fault_->setText(fault.empty() ? QString() : QString("\u26a0 ") + InOneLine(fault));
    fault_->setVisible(!fault.empty());
    box_->setAccessibleDescription(InOneLine(fault));
}

// While somebody types, "1." is on its way to "1.5" and stays.
void FieldRow::ShowBox() {
    const QString text = ToQt(model_.TextOf(field_));
    const auto typed = WholeNumber(Trim(FromQt(box_->text())));
    const bool says_the_same = !model_.HasTypedFault(field_) && typed && FitsField(field_, *typed) && [&] {
        PanelInputs inputs = model_.Document().inputs;
        StoreInField(inputs, field_, *typed);
        return ValueOfField(inputs, field_) == ValueOfField(model_.Document().inputs, field_);
    }();
    if (box_->text() == text || (box_->hasFocus() && says_the_same)) return;
    box_->setText(text);
    box_->setCursorPosition(box_->hasFocus() ? static_cast<int>(text.size()) : 0);
}

void FieldRow::ShowRange() {
    const FieldRange& range = model_.RangeOf(field_);
    if (range == shown_range_) return;
    shown_range_ = range;
    const FieldScale scale(field_, range);
    const QSignalBlocker quiet(slider_);
    slider_->setRange(0, static_cast<int>(scale.Last() - scale.First()));
    slider_->setPageStep(std::max(1, static_cast<int>((scale.Last() - scale.First()) / 10)));
    for (auto [box, end] : {std::pair(low_, range.low), std::pair(high_, range.high)}) {
        box->setText(Shortest(end));
        box->setCursorPosition(0);
    }
}

void FieldRow::ShowSlider() {
    const FieldScale scale(field_, shown_range_);
    const double value = ValueOfField(model_.Document().inputs, field_);
    const QSignalBlocker quiet(slider_);
    slider_->setValue(static_cast<int>(scale.Nearest(value) - scale.First()));
    const QString unit = UnitOfField(field_, model_.ProjectUnits());
    slider_->setToolTip(QString("%1: %2 %3").arg(TitleOfField(field_), Shortest(value), unit).trimmed());
}

void FieldRow::Box_Edited(const QString& text) {
    model_.Type(field_, FromQt(text));
}

void FieldRow::Box_Finished() {
    model_.EndGesture();
    if (box_->hasFocus()) return;
    Show();
}

void FieldRow::Slider_Moved(int value) {
    const FieldScale scale(field_, shown_range_);
    model_.Set(field_, scale.Value(scale.First() + value));
}

void FieldRow::Slider_Released() {
    model_.EndGesture();
}

void FieldRow::Range_Finished() {
    const FieldRange range{NumberOf(*low_), NumberOf(*high_)};
    if (range == shown_range_) return;
    const std::string fault = model_.SetRange(field_, range);
    shown_range_ = {0, 0};
    Show();
    if (fault.empty()) return;
    fault_->setText(QString("\u26a0 ") + InOneLine(fault));
    fault_->show();
}

bool FieldRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == slider_ && event->type() == QEvent::Wheel && !slider_->hasFocus()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarvokol
