// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmUnits.h"

#include <QEvent>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "desktop/base/used_value.h"
#include "qt/session/qt_text.h"
#include "ui_frmUnits.h"

namespace tarvokol {
namespace {

constexpr int kUnitsTitles = 12;
constexpr int kFirstTab = 0;

}  // namespace

frmUnits::frmUnits() : ui_(std::make_unique<Ui::frmUnits>()) {
    ui_->setupUi(this);
    BuildTabs();
    for (const Tab& tab : tabs_) Connect(tab);
    connect(ui_->SSTab1, &QTabWidget::currentChanged, this, &frmUnits::SSTab1_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmUnits::Command1_Click);
    connect(ui_->Command3, &QPushButton::clicked, this, &frmUnits::Command3_Click);
}

frmUnits::~frmUnits() = default;

void frmUnits::BuildTabs() {
    const Ui::frmUnits& ui = *ui_;
    tabs_ = {
        {Quantity::Length,
         ui.txtLength,
         OptionGroup(*this, "Option2"),
         {ui.Text7, ui.Text8, ui.Text9, ui.Text10}},
        {Quantity::Load,
         ui.txtLoad,
         OptionGroup(*this, "Option5"),
         {ui.Text21, ui.Text22, ui.Text23, ui.Text24, ui.Text25}},
        {Quantity::LoadGrad,
         ui.txtLoadGrad,
         OptionGroup(*this, "Option4"),
         {ui.Text17, ui.Text18, ui.Text19, ui.Text20}},
        {Quantity::Stress,
         ui.txtStress,
         OptionGroup(*this, "Option1"),
         {ui.Text2, ui.Text3, ui.Text4, ui.Text5, ui.Text6}},
        {Quantity::StressGrad,
         ui.txtStressGrad,
         OptionGroup(*this, "Option3"),
         {ui.Text12, ui.Text13, ui.Text14, ui.Text15}},
    };
}

// The input box selects its text at every click, not only when it gets the focus.
void frmUnits::Connect(const Tab& tab) {
    connect(tab.input, &QLineEdit::textChanged, this, [&tab] { Fill(tab); });
    for (const auto& [index, option] : tab.units)
        connect(option, &QRadioButton::toggled, this, [&tab](bool on) {
            if (on) Fill(tab);
        });
    tab.input->installEventFilter(this);
    NoteUsedValue(*tab.input);
}

bool frmUnits::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease)
        if (auto* box = qobject_cast<QLineEdit*>(watched)) SelectWhole(*box);
    return FormBase::eventFilter(watched, event);
}

void frmUnits::Form_Load() {
    SetMessageTitles(kUnitsTitles);
    LogMessage("Loading Unit Conversion Form");
    for (const Tab& tab : tabs_) SetArrayIndex(tab.units, 0);
    ui_->SSTab1->setCurrentIndex(kFirstTab);
    tabs_[kFirstTab].input->setFocus();
}

void frmUnits::Form_Activate() {
    FixTabStops(*ui_->SSTab1);
}

void frmUnits::SSTab1_Click(int Index) {
    QLineEdit* input = tabs_.at(static_cast<std::size_t>(Index)).input;
    input->setFocus();
    SelectWhole(*input);
    FixTabStops(*ui_->SSTab1);
}

void frmUnits::Command1_Click() {
    Unload();
}

void frmUnits::Command3_Click() {
    ShowHelpTip();
}

void frmUnits::Fill(const Tab& tab) {
    const std::vector<std::string> texts =
        UnitBoxTexts(tab.quantity, GetOptionIndex(tab.units), FromQt(tab.input->text()));
    for (std::size_t i = 0; i < texts.size(); ++i) tab.boxes[i]->setText(ToQt(texts[i]));
}

}  // namespace tarvokol
