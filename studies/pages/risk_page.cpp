// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/risk_page.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaObject>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>

#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "qt/charts/study_plot.h"
#include "qt/charts/study_view.h"
#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"
#include "studies/pages/correlation_row.h"
#include "studies/pages/uncertain_row.h"
#include "studies/pages/width_line.h"
#include "studies/pages/work_bar.h"

namespace tarvokol {
namespace {

// Of so many samples each step of a slider is calculated; more of them begin anew with each.
constexpr std::uint32_t kFollowedSamples = 200000;

// A whole number within bounds; 0 and a fault for another text.
double WholeIn(const QLineEdit& box, double low, double high, const char* what, QString& fault) {
    const auto value = WholeNumber(Trim(FromQt(box.text())));
    if (value && *value == std::floor(*value) && *value >= low && *value <= high) return *value;
    fault = QString("%1: \"%2\" is not a whole number from %3 to %4")
                .arg(what, box.text(), QString::number(low, 'f', 0), QString::number(high, 'f', 0));
    return low;
}

// The largest of the probabilities below a target: the one number for a picture of three factors.
double ProbabilityToSpeak(const std::array<FactorRisk, kFactors>& risk) {
    double largest = 0;
    for (const FactorRisk& factor : risk)
        for (const BelowTarget& below : factor.below) largest = std::max(largest, below.share.value);
    return largest;
}

// Nobody finds it by its name any more.
template <typename Row>
void TakeAway(std::vector<Row*>& rows, std::size_t i) {
    rows[i]->setObjectName(QString());
    rows[i]->hide();
    rows[i]->deleteLater();
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
}

}  // namespace

RiskPage::RiskPage(StudyModel& model, QWidget* parent)
    : StudyPage(parent), model_(model), work_([this](std::function<void()> call) {
          QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
      }) {
    Build();
    connect(add_, &QPushButton::clicked, this, &RiskPage::Add_Clicked);
    connect(correlate_, &QPushButton::clicked, this, &RiskPage::Correlate_Clicked);
    connect(bar_, &WorkBar::Cancelled, this, &RiskPage::Work_Cancelled);
    for (QLineEdit* box : {samples_, seed_}) {
        connect(box, &QLineEdit::textEdited, this, &RiskPage::Row_Changed);
        connect(box, &QLineEdit::editingFinished, this, &RiskPage::Box_Finished);
    }
    ShowPlan();
    model_.Tell([this] { Model_Changed(); });
}

QLineEdit* RiskPage::MakeNumber(const QString& name, const QString& accessible, const QString& text) {
    auto* box = new QLineEdit(text, this);
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    constexpr int kDigits = 9;
    box->setMaximumWidth(box->fontMetrics().horizontalAdvance("0") * kDigits + 12);
    return box;
}

void RiskPage::Build() {
    auto* page = new QVBoxLayout(this);
    rows_layout_ = new QVBoxLayout;
    rows_layout_->setSpacing(2);
    page->addLayout(rows_layout_);
    correlations_layout_ = new QVBoxLayout;
    correlations_layout_->setSpacing(2);
    page->addLayout(correlations_layout_);
    auto* line = new QHBoxLayout;
    add_ = new QPushButton("Add Fie&ld", this);
    add_->setObjectName("Risk_Add");
    add_->setToolTip("Another field whose figure is uncertain");
    correlate_ = new QPushButton("C&orrelate", this);
    correlate_->setObjectName("Risk_Correlate");
    correlate_->setToolTip("Two uncertain fields that move together");
    samples_ = MakeNumber("Risk_Samples", "Samples", "100000");
    samples_->setToolTip("Panels that are drawn and calculated, up to 4 million");
    seed_ = MakeNumber("Risk_Seed", "Seed", "1");
    seed_->setToolTip("The same seed draws the same panels");
    bar_ = new WorkBar(work_, "Risk", this);
    line->addWidget(add_);
    line->addWidget(correlate_);
    for (const auto& [text, box] : {std::pair("Sam&ples", samples_), std::pair("See&d", seed_)}) {
        auto* label = new QLabel(text, this);
        label->setBuddy(box);
        line->addWidget(label);
        line->addWidget(box);
    }
    line->addStretch(1);
    page->addLayout(line);
    fault_ = new QLabel(this);
    fault_->setObjectName("Risk_Fault");
    fault_->setWordWrap(true);
    fault_->hide();
    page->addWidget(fault_);
    width_ = new WidthLine(
        model_, [this] { return Plan(); }, this);
    width_->setObjectName("Risk_Width");
    page->addWidget(width_);
    BuildPoints(*page);
    view_ = new StudyView;
    view_->setObjectName("Risk_View");
    view_->setAccessibleName("Spread of the factors");
    view_->setCursor(Qt::ArrowCursor);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(view_);
    page->addWidget(scroll, 1);
}

void RiskPage::BuildPoints(QVBoxLayout& page) {
    points_ = new QCheckBox("Desi&gn points of rare targets", this);
    points_->setObjectName("Risk_Points");
    points_->setToolTip(
        "Reliability index, probability and importance of each field where few samples lie below");
    auto* line = new QHBoxLayout;
    line->addWidget(points_);
    line->addWidget(bar_, 1);
    page.addLayout(line);
    points_words_ = new QLabel(this);
    points_words_->setObjectName("Risk_PointsWords");
    points_words_->setWordWrap(true);
    points_words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    points_words_->hide();
    page.addWidget(points_words_);
    connect(points_, &QCheckBox::toggled, this, &RiskPage::Row_Changed);
}

void RiskPage::Choose(const RiskPlan& plan) {
    model_.AskFor(plan);
}

// A row that stays keeps its controls, and with them the focus.
void RiskPage::ShowPlan() {
    shown_ = model_.Requests().risk;
    samples_->setText(QString::number(shown_.samples));
    seed_->setText(QString::number(shown_.seed));
    {
        const QSignalBlocker asked_below(points_);
        points_->setChecked(shown_.design_points);
    }
    while (rows_.size() > shown_.fields.size()) TakeAway(rows_, rows_.size() - 1);
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->Show(shown_.fields[i]);
    while (rows_.size() < shown_.fields.size()) AddRow(shown_.fields[rows_.size()]);
    while (correlations_.size() > shown_.correlations.size())
        TakeAway(correlations_, correlations_.size() - 1);
    for (std::size_t i = 0; i < correlations_.size(); ++i) correlations_[i]->Show(shown_.correlations[i]);
    while (correlations_.size() < shown_.correlations.size())
        AddCorrelation(shown_.correlations[correlations_.size()]);
    NumberRows();
}

void RiskPage::AddRow(const UncertainField& field) {
    auto* row = new UncertainRow(field, this);
    rows_.push_back(row);
    rows_layout_->addWidget(row);
    row->show();
    connect(row, &UncertainRow::Changed, this, &RiskPage::Row_Changed);
    connect(row, &UncertainRow::Finished, this, &RiskPage::Box_Finished);
    connect(row, &UncertainRow::Removed, this, &RiskPage::Row_Removed);
}

void RiskPage::NumberRows() {
    int number = 0;
    QWidget* before = nullptr;
    for (UncertainRow* row : rows_) {
        row->SetNumber(number++);
        if (before != nullptr) setTabOrder(before, row);
        before = row;
    }
    number = 0;
    for (CorrelationRow* row : correlations_) {
        row->SetNumber(number++);
        if (before != nullptr) setTabOrder(before, row);
        before = row;
    }
    if (before != nullptr) setTabOrder(before, add_);
    add_->setEnabled(rows_.size() < kPanelFields.size());
    correlate_->setEnabled(rows_.size() > 1);
}

void RiskPage::AddCorrelation(const FieldCorrelation& correlation) {
    auto* row = new CorrelationRow(correlation, this);
    correlations_.push_back(row);
    correlations_layout_->addWidget(row);
    row->show();
    connect(row, &CorrelationRow::Changed, this, &RiskPage::Row_Changed);
    connect(row, &CorrelationRow::Finished, this, &RiskPage::Box_Finished);
    connect(row, &CorrelationRow::Removed, this, &RiskPage::Correlation_Removed);
}

// The first two fields; whoever means others chooses them.
void RiskPage::Correlate_Clicked() {
    if (rows_.size() < 2) return;
    AddCorrelation({rows_[0]->Field().field, rows_[1]->Field().field, 0.5});
    NumberRows();
    Row_Changed();
}

void RiskPage::Correlation_Removed() {
    const auto gone = std::find(correlations_.begin(), correlations_.end(), sender());
    if (gone == correlations_.end()) return;
    TakeAway(correlations_, static_cast<std::size_t>(gone - correlations_.begin()));
    NumberRows();
    add_->setFocus();
    Row_Changed();
}

// The first field that is certain so far.
void RiskPage::Add_Clicked() {
    const RiskPlan plan = Plan();
    for (const PanelField wanted :
         {PanelField::CoalStrength, PanelField::DepthCover, PanelField::Height, PanelField::WebThickness,
          PanelField::HoleWidth, PanelField::BarrierPillarWidth, PanelField::UnitWeight,
          PanelField::AbutmentAngle, PanelField::NumberHoles, PanelField::SFWeb, PanelField::SFBarrier}) {
        if (std::any_of(plan.fields.begin(), plan.fields.end(),
                        [wanted](const UncertainField& field) { return field.field == wanted; }))
            continue;
        AddRow({wanted, "normal:100%:5%"});
        break;
    }
    NumberRows();
    Row_Changed();
}

void RiskPage::Row_Changed() {
    shown_ = SoundPlan();
    model_.AskFor(shown_);
    Ask();
}

void RiskPage::Box_Finished() {
    model_.EndGesture();
}

void RiskPage::Row_Removed() {
    const auto gone = std::find(rows_.begin(), rows_.end(), sender());
    if (gone == rows_.end()) return;
    TakeAway(rows_, static_cast<std::size_t>(gone - rows_.begin()));
    NumberRows();
    add_->setFocus();
    Row_Changed();
}

RiskPlan RiskPage::Plan() const {
    RiskPlan plan;
    for (const UncertainRow* row : rows_) plan.fields.push_back(row->Field());
    plan.correlations.reserve(correlations_.size());
    for (const CorrelationRow* row : correlations_) plan.correlations.push_back(row->Correlation());
    QString ignored;
    plan.samples = static_cast<std::uint32_t>(WholeIn(*samples_, 1, kMostPlannedSamples, "Samples", ignored));
    plan.seed = static_cast<std::uint64_t>(WholeIn(*seed_, 0, kLargestPlannedSeed, "Seed", ignored));
    plan.design_points = points_->isChecked();
    return plan;
}

// The plan with the last number of each box that holds none now.
RiskPlan RiskPage::SoundPlan() const {
    RiskPlan plan = Plan();
    for (std::size_t i = 0; i < correlations_.size(); ++i)
        plan.correlations[i] = correlations_[i]->SoundCorrelation();
    QString fault;
    WholeIn(*samples_, 1, kMostPlannedSamples, "Samples", fault);
    if (!fault.isEmpty()) plan.samples = shown_.samples;
    fault.clear();
    WholeIn(*seed_, 0, kLargestPlannedSeed, "Seed", fault);
    if (!fault.isEmpty()) plan.seed = shown_.seed;
    return plan;
}

// True if there is nothing wrong with what is asked for.
bool RiskPage::ShowFaults(const RiskPlan& plan) {
    QString fault;
    WholeIn(*seed_, 0, kLargestPlannedSeed, "Seed", fault);
    WholeIn(*samples_, 1, kMostPlannedSamples, "Samples", fault);
    fault_->setText("\u26a0 " + fault);
    fault_->setVisible(!fault.isEmpty());
    return ShowFaultsOfRows(plan) && fault.isEmpty();
}

bool RiskPage::ShowFaultsOfRows(const RiskPlan& plan) {
    bool sound = true;
    const Panel panel = model_.ProjectPanel();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const std::string row_fault = FaultOfRow(plan, i, panel);
        const PanelField field = plan.fields[i].field;
        rows_[i]->ShowState(ToQt(row_fault), ValueOfField(panel, field), UnitOfField(field, panel.units));
        sound = sound && row_fault.empty();
    }
    for (std::size_t i = 0; i < correlations_.size(); ++i) {
        const std::string fault = FaultOfCorrelation(plan, i, panel);
        correlations_[i]->ShowFault(ToQt(fault));
        sound = sound && fault.empty();
    }
    return sound;
}

void RiskPage::Model_Changed() {
    if (shown_ != model_.Requests().risk) ShowPlan();
    Ask();
}

// What nobody sees waits until it is seen.
void RiskPage::showEvent(QShowEvent* event) {
    StudyPage::showEvent(event);
    Ask();
}

void RiskPage::Ask() {
    if (!isVisible()) return;
    const RiskPlan plan = Plan();
    if (!ShowFaults(plan)) return;
    const std::string text = DocumentText(model_.Document()) + model_.FileName();
    if (asked_ == plan && asked_text_ == text) return;
    if (asked_ != plan || plan.samples > kFollowedSamples) work_.Drop();
    asked_ = plan;
    asked_text_ = text;
    width_->Forget();
    work_.Ask([this, plan, panel = model_.ProjectPanel(), title = model_.Title()](StudyObserver& observer) {
        const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
        auto outcome = std::make_shared<RiskOutcome>(CalculateRisk(plan, panel, title, threads, observer));
        return [this, outcome] { Show(std::move(*outcome)); };
    });
    bar_->Watch();
}

void RiskPage::Show(RiskOutcome outcome) {
    if (auto* reading = std::get_if<RiskReading>(&outcome)) {
        reading_ = std::move(*reading);
        view_->setMinimumHeight(StudyPictureSize(reading_->picture).height());
        view_->Show(reading_->picture);
        std::string words;
        for (std::size_t factor = 0; factor < reading_->picture.panels.size(); ++factor)
            for (const std::string& line : reading_->picture.panels[factor].words)
                words += std::string(kStudyFigures[factor].legend) + ": " + line + ". ";
        view_->Tell(ToQt(words), {ProbabilityToSpeak(reading_->risk), 0, 1});
    }
    if (const auto* words = std::get_if<std::string>(&outcome)) {
        reading_.reset();
        view_->setMinimumHeight(0);
        view_->ShowWords(ToQt(*words));
        view_->Tell(ToQt(*words), {});
    }
    ShowPoints();
}

void RiskPage::ShowPoints() {
    QStringList lines;
    if (reading_)
        for (const std::string& line : reading_->design_points) lines.append(ToQt(line));
    points_words_->setText(lines.join('\n'));
    points_words_->setVisible(!lines.isEmpty());
    points_->setAccessibleDescription(lines.join(". "));
}

void RiskPage::Work_Cancelled() {
    fault_->setText("Cancelled: the picture is of the figures before");
    fault_->show();
    add_->setFocus();
}

AnyStudyPicture RiskPage::PictureNow() const {
    return view_->Shown();
}

std::vector<std::string> RiskPage::ReportNow() const {
    std::vector<std::string> lines = LinesOfPanel(model_.ProjectPanel(), model_.Reading());
    const RiskPlan plan = Plan();
    for (const UncertainField& field : plan.fields)
        lines.push_back(std::string("Uncertain: ") + TitleOfField(field.field) + ", " + field.distribution);
    for (const FieldCorrelation& one : plan.correlations) {
        std::string& line = lines.emplace_back("Correlated: ");
        line.append(TitleOfField(one.first)).append(" and ").append(TitleOfField(one.second)).append(", ");
        AppendShortest(line, one.value);
    }
    if (width_->Answer()) lines.push_back(FromQt(width_->findChild<QLabel*>("Width_Words")->text()));
    if (reading_) lines.insert(lines.end(), reading_->design_points.begin(), reading_->design_points.end());
    lines.push_back(std::to_string(plan.samples) + " samples, seed " + std::to_string(plan.seed));
    return lines;
}

std::string RiskPage::CsvNow() const {
    return reading_ ? CsvOfRisk(*reading_) : "";
}

std::string RiskPage::CommandNow() const {
    return model_.Path().empty() ? "" : CommandOfRisk(Plan(), model_.Path());
}

}  // namespace tarvokol
