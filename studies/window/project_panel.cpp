// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/project_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/statistics/study_numbers.h"
#include "core/studies/picture_parts.h"
#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"
#include "studies/window/field_row.h"

namespace tarvokol {

ProjectPanel::ProjectPanel(StudyModel& model, QWidget* parent) : QScrollArea(parent), model_(model) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* page = new QWidget;
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(3, 1);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(6, 6, 6, 6);
    title_ = new QLineEdit(page);
    title_->setObjectName("Title_Box");
    title_->setAccessibleName("Title of the project");
    title_->setPlaceholderText("Title of the project");
    title_->setToolTip("Title of the project; pictures carry it");
    layout->addWidget(title_);
    auto* fields = new QWidget(page);
    fields->setLayout(grid);
    grid->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fields);
    int row = 0;
    for (const PanelFieldFacts& facts : kPanelFields) {
        rows_.push_back(new FieldRow(model_, facts.field, *grid, row));
        row += FieldRow::kGridRows;
    }
    fault_ = new QLabel(page);
    fault_->setObjectName("Panel_Fault");
    fault_->setWordWrap(true);
    layout->addWidget(fault_);
    layout->addWidget(BuildFigures());
    layout->addStretch(1);
    setWidget(page);
    setFocusProxy(rows_.front()->Box());
    connect(title_, &QLineEdit::textEdited, this, &ProjectPanel::Title_Edited);
    connect(title_, &QLineEdit::editingFinished, this, &ProjectPanel::Title_Finished);
    model_.Tell([this] { Model_Changed(); });
    Model_Changed();
}

QSize ProjectPanel::sizeHint() const {
    return {widget()->sizeHint().width() + verticalScrollBar()->sizeHint().width() + 4, 480};
}

QSize ProjectPanel::minimumSizeHint() const {
    constexpr int kFewRows = 200;
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width() + 4, kFewRows};
}

QWidget* ProjectPanel::BuildFigures() {
    auto* box = new QGroupBox("Figures of the panel", widget());
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const StudyFigure& figure : kStudyFigures) {
        auto* name = new QLabel(figure.legend, box);
        auto* value = new QLabel(box);
        value->setObjectName(QString("Figure_") + figure.name);
        value->setAccessibleName(figure.title);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(name, row, 0);
        grid->addWidget(value, row++, 1);
        figures_[static_cast<std::size_t>(row - 1)] = value;
    }
    return box;
}

void ProjectPanel::Model_Changed() {
    for (FieldRow* row : rows_) row->Show();
    const QString title = ToQt(model_.Document().title);
    if (title_->text() != title) title_->setText(title);
    const std::string& fault = model_.GeneralFault();
    fault_->setText(fault.empty() ? QString() : QString("\u26a0 ") + ToQt(fault));
    fault_->setVisible(!fault.empty());
    ShowFigures();
}

// What misses its target is bold, has a sign, and says what it misses.
void ProjectPanel::ShowFigures() {
    const PanelFigures& figures = model_.Reading().figures;
    const tarvokol::Panel panel = model_.ProjectPanel();  // a frame has one of its own
    for (std::size_t i = 0; i < kStudyFigures.size(); ++i) {
        const StudyFigure& figure = kStudyFigures[i];
        const bool misses = MissesTarget(figure, figures, panel);
        QString text = ToQt(FigureInWords(figure, figures));
        if (misses)
            text = QString("\u25bc %1, below %2")
                       .arg(text, ToQt(RoundedText(TargetOfFigure(figure, panel), kFigureDigits)));
        QLabel& label = *figures_[i];
        label.setText(text);
        QFont font = label.font();
        font.setBold(misses);
        label.setFont(font);
        std::string digits;
        AppendShortest(digits, ShownFigure(figure, figures));
        label.setToolTip(digits.empty() ? ToQt(figures.message) : ToQt(digits));
    }
}

void ProjectPanel::Title_Edited(const QString& title) {
    model_.SetTitle(FromQt(title));
}

void ProjectPanel::Title_Finished() {
    model_.EndGesture();
}

}  // namespace tarvokol
