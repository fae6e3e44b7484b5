// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/width_line.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaObject>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <memory>
#include <thread>
#include <utility>

#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"

namespace tarvokol {
namespace {

constexpr std::array kWidths{PanelField::WebThickness, PanelField::BarrierPillarWidth};

}  // namespace

WidthLine::WidthLine(StudyModel& model, std::function<RiskPlan()> plan, QWidget* parent)
    : QWidget(parent), model_(model), plan_(std::move(plan)), work_([this](std::function<void()> call) {
          QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
      }) {
    Build();
    connect(find_, &QPushButton::clicked, this, &WidthLine::Find_Clicked);
    connect(take_, &QPushButton::clicked, this, &WidthLine::Take_Clicked);
    for (QLineEdit* box : {probability_, step_}) {
        connect(box, &QLineEdit::returnPressed, this, &WidthLine::Find_Clicked);
        connect(box, &QLineEdit::textEdited, this, &WidthLine::Question_Changed);
        connect(box, &QLineEdit::editingFinished, this, &WidthLine::Box_Finished);
    }
    connect(field_, &QComboBox::currentIndexChanged, this, &WidthLine::Question_Changed);
    ShowQuestion();
    model_.Tell([this] { Model_Changed(); });
}

void WidthLine::Build() {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    field_ = new QComboBox(this);
    field_->setObjectName("Width_Field");
    field_->setAccessibleName("Width that is sought");
    field_->setToolTip("The width that is sought: of the webs, or of the barrier beside them");
    for (const PanelField field : kWidths) field_->addItem(TitleOfField(field));
    field_->setMaximumWidth(field_->sizeHint().width());
    constexpr int kLeastCharacters = 5;  // on a narrow screen
    field_->setMinimumContentsLength(kLeastCharacters);
    field_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const auto box = [this](const char* name, const char* accessible, const char* tip) {
        auto* made = new QLineEdit(this);
        made->setObjectName(name);
        made->setAccessibleName(accessible);
        made->setToolTip(tip);
        constexpr int kDigits = 7, kLeastDigits = 4, kFrame = 12;
        const int digit = made->fontMetrics().horizontalAdvance("0");
        made->setMinimumWidth(digit * kLeastDigits + kFrame);
        made->setMaximumWidth(digit * kDigits + kFrame);
        return made;
    };
    probability_ = box("Width_Probability", "Probability at most",
                       "How likely the factor may lie below the project's target: 5% or 0.05");
    step_ =
        box("Width_Step", "Rounded up to", "The width is rounded up to a multiple of this; empty: it is not");
    find_ = new QPushButton("&Which Width?", this);
    find_->setObjectName("Width_Find");
    find_->setToolTip("Finds the least width at which the factor is unlikely enough to miss its target");
    take_ = new QPushButton("Ta&ke Width", this);
    take_->setObjectName("Width_Take");
    take_->setToolTip("Gives the project the width that was found; Undo takes it back");
    take_->setEnabled(false);
    words_ = new QLabel(this);
    words_->setObjectName("Width_Words");
    words_->setWordWrap(true);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words_->hide();
    int column = 0;
    grid->addWidget(find_, 0, column++);
    grid->setColumnStretch(column, 3);
    grid->addWidget(field_, 0, column++);
    for (const auto& [text, field] : {std::pair("in at &most", probability_), std::pair("s&tep", step_)}) {
        auto* label = new QLabel(text, this);
        label->setBuddy(field);
        grid->addWidget(label, 0, column++);
        grid->addWidget(field, 0, column++);
    }
    grid->addWidget(take_, 0, column++);
    grid->setColumnStretch(column, 1);
    grid->addWidget(words_, 1, 0, 1, column + 1);
}

WidthQuestion WidthLine::Question() const {
    return {kWidths[static_cast<std::size_t>(std::max(0, field_->currentIndex()))],
            FromQt(probability_->text()), FromQt(step_->text())};
}

void WidthLine::ShowQuestion() {
    const WidthQuestion& question = model_.Requests().width;
    const QSignalBlocker quiet(field_);
    field_->setCurrentIndex(question.field == PanelField::BarrierPillarWidth ? 1 : 0);
    probability_->setText(ToQt(question.probability));
    step_->setText(ToQt(question.step));
    Forget();
}

void WidthLine::Model_Changed() {
    if (Question() != model_.Requests().width) ShowQuestion();
}

void WidthLine::Question_Changed() {
    Forget();
    model_.AskFor(Question());
}

void WidthLine::Box_Finished() {
    model_.EndGesture();
}

void WidthLine::Forget() {
    work_.Drop();
    answer_.reset();
    answered_.reset();
    take_->setEnabled(false);
    Tell("");
}

void WidthLine::Tell(const QString& words) {
    words_->setText(words);
    words_->setVisible(!words.isEmpty());
    find_->setAccessibleDescription(words);
}

void WidthLine::Find_Clicked() {
    Forget();
    Tell("Searching\u2026");
    const WidthQuestion question = Question();
    work_.Ask([this, question, plan = plan_(), panel = model_.ProjectPanel()](StudyObserver& observer) {
        const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
        auto outcome =
            std::make_shared<WidthOutcome>(CalculateWidth(question, plan, panel, threads, observer));
        return [this, outcome] { Show(std::move(*outcome)); };
    });
}

void WidthLine::Show(WidthOutcome outcome) {
    if (auto* answer = std::get_if<WidthAnswer>(&outcome)) {
        answer_ = std::move(*answer);
        answered_ = Question().field;
        take_->setEnabled(true);
        Tell(ToQt(std::string(TitleOfField(*answered_)) + " " + answer_->words));
    }
    if (const auto* words = std::get_if<std::string>(&outcome)) Tell("\u26a0 " + ToQt(*words));
}

void WidthLine::Take_Clicked() {
    if (!answer_ || !answered_) return;
    const std::optional<WidthAnswer> taken = answer_;
    model_.SetAll({{*answered_, taken->width}}, "Width for a probability");
}

std::string WidthLine::Command(const std::string& project_path) const {
    return CommandOfWidth(Question(), plan_(), model_.ProjectPanel(), project_path);
}

}  // namespace tarvokol
