// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/compare_page.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMetaObject>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"
#include "studies/pages/work_bar.h"

namespace tarvokol {
namespace {

constexpr int kNameRow = 0;  // the designs' names stand above their figures, where they can be edited

}  // namespace

ComparePage::ComparePage(StudyModel& model, std::function<RiskPlan()> plan, QWidget* parent)
    : StudyPage(parent), model_(model), plan_(std::move(plan)), work_([this](std::function<void()> call) {
          QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
      }) {
    auto* page = new QVBoxLayout(this);
    auto* line = new QHBoxLayout;
    keep_ = MakeButton("Compare_Keep", "&Keep This Design", "Puts the project as it stands beside the others",
                       &ComparePage::Keep_Clicked);
    take_ = MakeButton("Compare_Take", "&Take into Project",
                       "Gives the project all figures of the chosen design; Undo takes them back",
                       &ComparePage::Take_Clicked);
    remove_ =
        MakeButton("Compare_Remove", "Re&move", "Takes the chosen design away", &ComparePage::Remove_Clicked);
    risks_ =
        MakeButton("Compare_Risks", "&Probabilities",
                   "How likely each design falls below its targets, by the uncertain fields of the page Risk",
                   &ComparePage::Risks_Clicked);
    for (QPushButton* button : {keep_, take_, remove_, risks_}) line->addWidget(button);
    bar_ = new WorkBar(work_, "Compare", this);
    connect(bar_, &WorkBar::Cancelled, this, &ComparePage::Work_Cancelled);
    line->addStretch(1);
    page->addLayout(line);
    hint_ = new QLabel(
        "Up to six designs stand here side by side. Bold with \u2260 differs from the first one, \u25bc "
        "lies below its target.",
        this);
    hint_->setObjectName("Compare_Hint");
    hint_->setWordWrap(true);
    auto* notes = new QHBoxLayout;
    notes->addWidget(hint_, 1);
    notes->addWidget(bar_);
    page->addLayout(notes);
    table_ = new QTableWidget(this);
    table_->setObjectName("Compare_Table");
    table_->setAccessibleName("Designs side by side");
    table_->setSelectionBehavior(QAbstractItemView::SelectItems);
    table_->setTabKeyNavigation(false);
    table_->horizontalHeader()->setVisible(false);
    table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    page->addWidget(table_, 1);
    connect(table_, &QTableWidget::itemChanged, this, &ComparePage::Name_Edited);
    connect(table_, &QTableWidget::currentCellChanged, this, &ComparePage::Cell_Chosen);
    Show();
    model_.Tell([this] { Model_Changed(); });
    Model_Changed();
}

QPushButton* ComparePage::MakeButton(const QString& name, const QString& caption, const QString& tip,
                                     void (ComparePage::*handler)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, handler);
    return button;
}

// The design whose column has the cursor, -1 for none.
int ComparePage::Chosen() const {
    const int column = table_->currentColumn();
    return column < static_cast<int>(board_.Designs().size()) ? column : -1;
}

void ComparePage::Keep_Clicked() {
    if (board_.IsFull()) return;
    std::vector<AskedDesign> designs = shown_;
    designs.push_back({FreeDesignName(board_), std::make_shared<const Panel>(model_.ProjectPanel())});
    model_.AskFor(designs);
    table_->setCurrentCell(kNameRow, table_->columnCount() - 1);
}

void ComparePage::Model_Changed() {
    const std::vector<AskedDesign>& designs = model_.Requests().designs;
    if (shown_ == designs) return;
    const bool same_panels =
        std::ranges::equal(shown_, designs, {}, &AskedDesign::panel, &AskedDesign::panel);
    shown_ = designs;
    if (same_panels)
        ShowNames();
    else
        ShowDesigns();
}

void ComparePage::ShowDesigns() {
    board_ = {};
    for (const AskedDesign& design : shown_) board_.Keep(design.name, *design.panel);
    Change();
}

// The cells stay, of which one is just being edited, and so do the probabilities.
void ComparePage::ShowNames() {
    shows_ = true;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        board_.Rename(i, shown_[i].name);
        table_->item(kNameRow, static_cast<int>(i))->setText(ToQt(shown_[i].name));
    }
    shows_ = false;
}

// Its figures stand in its own units; those of a project in the other system are not meant by them.
void ComparePage::Take_Clicked() {
    if (Chosen() < 0) return;
    const KeptDesign& design = board_.Designs()[static_cast<std::size_t>(Chosen())];
    if (design.panel.units != model_.ProjectUnits()) return;
    std::vector<std::pair<PanelField, double>> values;
    for (const PanelFieldFacts& facts : kPanelFields)
        values.emplace_back(facts.field, ValueOfField(design.panel, facts.field));
    model_.SetAll(values, design.name);
}

void ComparePage::Remove_Clicked() {
    if (Chosen() < 0) return;
    std::vector<AskedDesign> designs = shown_;
    designs.erase(designs.begin() + Chosen());
    model_.AskFor(designs);
}

// Other designs than those whose probabilities were asked for.
void ComparePage::Change() {
    work_.Drop();
    asked_.reset();
    board_.ForgetRisks();
    Show();
}

// Probabilities of other uncertain fields than those of the page "Risk" now are none.
void ComparePage::showEvent(QShowEvent* event) {
    StudyPage::showEvent(event);
    if (asked_ && *asked_ != plan_()) Change();
}

void ComparePage::Risks_Clicked() {
    asked_ = plan_();
    std::vector<Panel> panels;
    for (const KeptDesign& design : board_.Designs()) panels.push_back(design.panel);
    work_.Ask(
        [this, plan = *asked_, panels = std::move(panels)](StudyObserver& observer) -> LatestWork::Show {
            const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
            auto risks = CalculateDesignRisks(plan, panels, threads, observer);
            if (!risks) return {};
            return [this, found = std::make_shared<std::vector<DesignRisk>>(std::move(*risks))] {
                TakeRisks(std::move(*found));
            };
        });
    bar_->Watch();
}

void ComparePage::Work_Cancelled() {
    asked_.reset();
    risks_->setFocus();
}

void ComparePage::TakeRisks(std::vector<DesignRisk> risks) {
    board_.TakeRisks(std::move(risks));
    Show();
}

void ComparePage::Name_Edited(QTableWidgetItem* item) {
    if (shows_ || item->row() != kNameRow) return;
    std::vector<AskedDesign> designs = shown_;
    designs[static_cast<std::size_t>(item->column())].name = FromQt(item->text());
    model_.AskFor(designs);
}

void ComparePage::Cell_Chosen() {
    const bool chosen = Chosen() >= 0;
    remove_->setEnabled(chosen);
    take_->setEnabled(chosen && board_.Designs()[static_cast<std::size_t>(Chosen())].panel.units ==
                                    model_.ProjectUnits());
}

void ComparePage::Show() {
    const int column = table_->currentColumn();
    shows_ = true;
    ShowCells();
    shows_ = false;
    if (table_->columnCount() > 0)
        table_->setCurrentCell(kNameRow, std::min(std::max(column, 0), table_->columnCount() - 1));
    keep_->setEnabled(!board_.IsFull());
    risks_->setEnabled(!board_.Designs().empty());
    Cell_Chosen();
}

void ComparePage::ShowCells() {
    const std::vector<ComparedLine> lines = board_.Lines();
    table_->clear();
    table_->setColumnCount(static_cast<int>(board_.Designs().size()));
    table_->setRowCount(lines.empty() ? 0 : static_cast<int>(lines.size()) + 1);
    QStringList titles{"Design"};
    for (const ComparedLine& line : lines) titles.append(ToQt(line.title));
    table_->setVerticalHeaderLabels(titles);
    for (std::size_t design = 0; design < board_.Designs().size(); ++design) {
        const int column = static_cast<int>(design);
        auto* name = new QTableWidgetItem(ToQt(board_.Designs()[design].name));
        name->setToolTip("F2 or a double click edits the name");
        table_->setItem(kNameRow, column, name);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const ComparedLine& line = lines[i];
            QString text = ToQt(line.texts[design]);
            if (line.misses[design]) text = "\u25bc " + text;
            if (line.differs[design]) text = "\u2260 " + text;
            auto* cell = new QTableWidgetItem(text);
            cell->setFlags(cell->flags() & ~Qt::ItemIsEditable);
            QFont font = table_->font();
            font.setBold(line.differs[design] || line.misses[design]);
            cell->setFont(font);
            table_->setItem(static_cast<int>(i) + 1, column, cell);
        }
    }
    table_->resizeColumnsToContents();
}

}  // namespace tarvokol
