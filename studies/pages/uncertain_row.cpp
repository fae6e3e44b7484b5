// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/uncertain_row.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/runtime/text.h"
#include "core/statistics/study_refusal.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

const std::vector<DistributionForm>& Forms() {
    static const std::vector<DistributionForm> forms = DistributionForms();
    return forms;
}

// "SD" for people.
QString FigureName(const std::string& name) {
    static const std::pair<const char*, const char*> names[] = {
        {"MEAN", "mean"},        {"SD", "standard deviation"},
        {"LO", "lowest"},        {"HI", "highest"},
        {"MODE", "most likely"}, {"SCALE", "scale"},
        {"SHAPE", "shape"},      {"A", "shape A"},
        {"B", "shape B"},        {"V1@P1,V2@P2,...", "values with their shares"}};
    for (const auto& [written, read] : names)
        if (name == written) return read;
    return ToQt(name).toLower();
}

// A share of the project's own value, so that a new row says something of any project.
QString ProposedFigure(const std::string& name, bool is_first) {
    if (name == "SD") return "15%";
    if (name == "LO") return "80%";
    if (name == "HI") return "120%";
    if (name == "A" || name == "B") return "2";
    if (name == "SHAPE") return "5";
    if (name == "SCALE" && !is_first) return "10%";
    if (name.find('@') != std::string::npos) return "90%@25%,100%@50%,110%@25%";
    return "100%";
}

}  // namespace

void DensityPicture::Show(DistributionPtr distribution) {
    distribution_ = std::move(distribution);
    update();
}

void DensityPicture::paintEvent(QPaintEvent*) {
    if (!distribution_) return;
    constexpr double kTail = 0.001;
    const double low = distribution_->Quantile(kTail);
    const double high = distribution_->Quantile(1 - kTail);
    const double room = (high - low) * 0.05;
    std::vector<double> densities(static_cast<std::size_t>(std::max(2, width())));
    const double step = (high - low + 2 * room) / static_cast<double>(densities.size() - 1);
    double highest = 0;
    for (std::size_t i = 0; i < densities.size(); ++i) {
        densities[i] = distribution_->Density(low - room + step * static_cast<double>(i));
        if (std::isfinite(densities[i])) highest = std::max(highest, densities[i]);
    }
    if (!(highest > 0) || !(step > 0)) return;
    QPolygonF curve;
    const double base = height() - 2;
    for (std::size_t i = 0; i < densities.size(); ++i)
        curve << QPointF(static_cast<double>(i),
                         base - std::min(1.0, densities[i] / highest) * (height() - 5));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPolygonF area = curve;
    area << QPointF(width(), base) << QPointF(0, base);
    QColor tone = palette().color(QPalette::WindowText);
    painter.setPen(Qt::NoPen);
    tone.setAlpha(60);
    painter.setBrush(tone);
    painter.drawPolygon(area);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.2));
    painter.drawPolyline(curve);
}

UncertainRow::UncertainRow(const UncertainField& field, QWidget* parent) : QWidget(parent) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(0);
    field_ = new QComboBox(this);
    field_->setAccessibleName("Uncertain field");
    for (const PanelFieldFacts& facts : kPanelFields) field_->addItem(facts.title);
    field_->setCurrentIndex(static_cast<int>(field.field));
    form_ = new QComboBox(this);
    form_->setAccessibleName("Distribution");
    for (const DistributionForm& form : Forms()) form_->addItem(ToQt(form.name));
    constexpr int kLeastCharacters = 5;  // on a narrow screen; the list that opens shows the whole names
    for (QComboBox* box : {field_, form_}) {
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        box->setMinimumContentsLength(kLeastCharacters);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    int column = 0;
    grid->setColumnStretch(column, 4);
    grid->addWidget(field_, 0, column++);
    grid->setColumnStretch(column, 3);
    grid->addWidget(form_, 0, column++);
    for (QLineEdit*& figure : figures_) {
        figure = new QLineEdit(this);
        constexpr int kLeastDigits = 8, kMostDigits = 10;
        const int digit = figure->fontMetrics().horizontalAdvance("0");
        figure->setMinimumWidth(digit * kLeastDigits);
        figure->setMaximumWidth(digit * kMostDigits);
        grid->addWidget(figure, 0, column++);
        connect(figure, &QLineEdit::textEdited, this, &UncertainRow::Changed);
        connect(figure, &QLineEdit::editingFinished, this, &UncertainRow::Finished);
    }
    density_ = new DensityPicture(this);
    density_->setFixedSize(density_->sizeHint());
    grid->addWidget(density_, 0, column++);
    remove_ = new QToolButton(this);
    remove_->setText("\u00d7");
    remove_->setToolTip("Remove this field");
    remove_->setAccessibleName("Remove this field");
    grid->addWidget(remove_, 0, column++);
    fault_ = new QLabel(this);
    fault_->setWordWrap(true);
    fault_->hide();
    grid->addWidget(fault_, 1, 0, 1, column);
    FillFigures(field.distribution);
    connect(field_, &QComboBox::currentIndexChanged, this, &UncertainRow::Changed);
    connect(form_, &QComboBox::currentIndexChanged, this, &UncertainRow::Form_Chosen);
    connect(remove_, &QToolButton::clicked, this, &UncertainRow::Removed);
}

void UncertainRow::Show(const UncertainField& field) {
    if (Field() == field) return;
    const QSignalBlocker quiet(field_);
    field_->setCurrentIndex(static_cast<int>(field.field));
    FillFigures(field.distribution);
}

void UncertainRow::FillFigures(const std::string& distribution) {
    const QStringList words = ToQt(distribution).split(':');
    const QSignalBlocker quiet(form_);
    form_->setCurrentIndex(std::max(0, form_->findText(words.value(0))));
    ShowForm();
    for (std::size_t i = 0; i < kMostFigures; ++i)
        if (static_cast<qsizetype>(i) + 1 < words.size())
            figures_[i]->setText(words[static_cast<qsizetype>(i) + 1]);
}

// Each form has its own figures; what they are stands in the empty box and in its tip.
void UncertainRow::ShowForm() {
    const std::vector<std::string>& names = Forms()[static_cast<std::size_t>(form_->currentIndex())].figures;
    for (std::size_t i = 0; i < kMostFigures; ++i) {
        QLineEdit& box = *figures_[i];
        box.setVisible(i < names.size());
        if (i >= names.size()) continue;
        const QString name = FigureName(names[i]);
        box.setPlaceholderText(name);
        box.setAccessibleName(name);
        box.setText(ProposedFigure(names[i], i == 0));
    }
}

void UncertainRow::Form_Chosen() {
    ShowForm();
    emit Changed();
}

UncertainField UncertainRow::Field() const {
    UncertainField field{static_cast<PanelField>(field_->currentIndex()), FromQt(form_->currentText())};
    const std::size_t count = Forms()[static_cast<std::size_t>(form_->currentIndex())].figures.size();
    for (std::size_t i = 0; i < std::min(count, kMostFigures); ++i)
        field.distribution += ":" + Trim(FromQt(figures_[i]->text()));
    return field;
}

void UncertainRow::SetNumber(int number) {
    const QString end = QString("_%1").arg(number);
    setObjectName("Risk_Row" + end);
    field_->setObjectName("Risk_Field" + end);
    form_->setObjectName("Risk_Form" + end);
    for (std::size_t i = 0; i < kMostFigures; ++i)
        figures_[i]->setObjectName("Risk_Figure" + end + QString("_%1").arg(i));
    remove_->setObjectName("Risk_Remove" + end);
    fault_->setObjectName("Risk_Fault" + end);
}

void UncertainRow::ShowState(const QString& fault, double base, const QString& unit) {
    fault_->setText("\u26a0 " + fault);
    fault_->setVisible(!fault.isEmpty());
    const QString share = QString("a figure%1, or a share of the project's own %2 like 15%")
                              .arg(unit.isEmpty() ? QString() : " in " + unit, QString::number(base, 'g', 6));
    for (QLineEdit* figure : figures_) figure->setToolTip(figure->accessibleName() + ": " + share);
    DistributionPtr distribution;
    try {
        if (fault.isEmpty()) distribution = ParseDistribution(Field().distribution, base);
    } catch (const StudyRefusal&) {
        distribution = nullptr;  // the line below the row says why
    }
    density_->setToolTip(distribution ? ToQt(distribution->InWords(FromQt(unit))) : QString());
    density_->Show(std::move(distribution));
}

}  // namespace tarvokol
