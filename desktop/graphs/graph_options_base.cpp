// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/graph_options_base.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/settings/configuration.h"
#include "core/settings/graph_settings.h"
#include "desktop/graphs/frmGraph.h"
#include "qt/session/qt_text.h"

namespace tarvokol {

void GraphOptionsBase::BindControls() {
    Text1_ = findChild<QLineEdit*>("Text1");
    Text2_ = ControlArray<QLineEdit>(*this, "Text2");
    Text3_ = ControlArray<QLineEdit>(*this, "Text3");
    Option1_ = OptionGroup(*this, "Option1");
    Combo1_ = findChild<QComboBox*>("Combo1");
    Combo2_ = findChild<QComboBox*>("Combo2");
    Check1_ = findChild<QCheckBox*>("Check1");
    Label1_ = findChild<QLabel*>("Label1");
    HScroll1_ = findChild<QScrollBar*>("HScroll1");
    txtSS_ = findChild<QLineEdit*>("txtSS");
    for (QComboBox* combo : {Combo1_, Combo2_}) {
        combo->setCompleter(nullptr);
        combo->lineEdit()->setAccessibleName(combo->accessibleName());
    }
    SelectAllOnFocus(*findChild<QWidget*>("titles"));
    ConnectClicks(Option1_, this, &GraphOptionsBase::Option1_Click);
    connect(Combo1_, &QComboBox::editTextChanged, this, &GraphOptionsBase::Combo1_Change);
    connect(Combo2_, &QComboBox::editTextChanged, this, &GraphOptionsBase::Combo2_Change);
    connect(Combo2_, &QComboBox::currentIndexChanged, this, &GraphOptionsBase::Combo2_Click);
    connect(HScroll1_, &QScrollBar::valueChanged, this, &GraphOptionsBase::HScroll1_Change);
    connect(findChild<QPushButton*>("Command1"), &QPushButton::clicked, this,
            &GraphOptionsBase::Command1_Click);
    connect(findChild<QPushButton*>("Command2"), &QPushButton::clicked, this,
            &GraphOptionsBase::Command2_Click);
    connect(findChild<QPushButton*>("Command3"), &QPushButton::clicked, this,
            &GraphOptionsBase::Command3_Click);
}

void GraphOptionsBase::Form_Load() {
    Combo1_->addItems({"None", "Horizontal", "Vertical", "Horizontal & Vertical"});
    Combo2_->addItems({"Lines Only", "Symbols Only", "Lines & Symbols"});
    Combo1_->setCurrentIndex(GridStyle);
    Combo2_->setCurrentIndex(GraphStyle - 1);
    SetArrayIndex(Option1_, GraphSetParams);
    InitForm();
    Option1_[GetOptionIndex(Option1_)].setFocus();
}

void GraphOptionsBase::SetGraphParms() {
    if (GraphSetParams != 0) return;
    GraphTitle = GraphDefaults.GraphTitle;
    ResetTitles();
    GraphStyle = GraphDefaults.GraphStyle;
    CurveLegend = GraphDefaults.CurveLegend;
    SymbolSize = GraphDefaults.SymbolSize;
}

void GraphOptionsBase::InitForm() {
    Text1_->setText(ToQt(GraphTitle));
    for (int i = 0; i < TitleCount(); ++i) {
        Text2_[i].setText(ToQt(XTitle(i)));
        Text3_[i].setText(ToQt(YTitle(i)));
    }
    Check1_->setChecked(CurveLegend == 1);
    Combo2_Click();
    Combo1_->setCurrentIndex(GridStyle);
    Combo2_->setCurrentIndex(GraphStyle - 1);
    HScroll1_->setValue(SymbolSize);
}

void GraphOptionsBase::Option1_Click(int Index) {
    if (Index == 0) {
        if (!before_defaults_) before_defaults_ = GraphSettingsInUse();
        GraphSetParams = 0;
        SetGraphParms();
        InitForm();
    }
    EnableFormatting(Index != 0);
    BlankOtherTitles(Text2_);
    BlankOtherTitles(Text3_);
}

void GraphOptionsBase::EnableFormatting(bool on) {
    for (const auto& [index, box] : Text2_) box->setEnabled(on);
    for (const auto& [index, box] : Text3_) box->setEnabled(on);
    for (QWidget* control :
         std::initializer_list<QWidget*>{Text1_, Combo1_, Combo2_, Check1_, txtSS_, Label1_, HScroll1_})
        control->setEnabled(on);
}

// The boxes of the graph on show stay open, whatever was chosen.
void GraphOptionsBase::BlankOtherTitles(const ControlArray<QLineEdit>& boxes) {
    for (const auto& [index, box] : boxes) {
        const bool on_show = index == GraphOnShow(Family());
        if (!on_show) box->clear();
        box->setEnabled(on_show);
    }
}

void GraphOptionsBase::Combo1_Change() {
    RequireListItem(*Combo1_);
}

void GraphOptionsBase::Combo2_Change() {
    RequireListItem(*Combo2_);
}

void GraphOptionsBase::RequireListItem(QComboBox& combo) {
    const int item = combo.findText(combo.currentText());
    if (item >= 0) {
        combo.setCurrentIndex(item);
        return;
    }
    Notify("Please select a valid entry", box_style::Plain);
    combo.setCurrentIndex(0);
    combo.setEditText(combo.itemText(0));
}

// Symbols have a size.
void GraphOptionsBase::Combo2_Click() {
    const bool symbols = Combo2_->currentIndex() >= 1;
    Label1_->setVisible(symbols);
    HScroll1_->setVisible(symbols);
}

void GraphOptionsBase::HScroll1_Change() {
    txtSS_->setText(QString::number(HScroll1_->value()));
}

void GraphOptionsBase::Command1_Click() {
    Unload();
}

void GraphOptionsBase::Command2_Click() {
    Accepted = true;
    Unload();
}

// The button is captioned "Help" and clears the chart.
void GraphOptionsBase::Command3_Click() {
    frmGraph::Instance().ClearGraph();
}

void GraphOptionsBase::Form_Unload() {
    if (Accepted) {
        StoreSettings();
        SaveSettings(section::Graph);
    } else {
        RestoreSettings();
    }
    ApplyGraphOptions(frmGraph::Instance().Graph1(), Family());
}

// Showing the defaults makes them the settings; a cancelled dialog has changed nothing. What ClearGraph did in
// between stays.
void GraphOptionsBase::RestoreSettings() {
    if (!before_defaults_) return;
    before_defaults_->GraphRestyleCount = GraphRestyleCount;
    RestoreGraphSettings(*before_defaults_);
}

void GraphOptionsBase::StoreSettings() {
    GraphTitle = FromQt(Text1_->text());
    for (int i = 0; i < StoredTitleCount(); ++i) {
        XTitle(i) = FromQt(Text2_[i].text());
        YTitle(i) = FromQt(Text3_[i].text());
    }
    GridStyle = static_cast<int16_t>(Combo1_->currentIndex());
    GraphStyle = static_cast<int16_t>(Combo2_->currentIndex() + 1);
    CurveLegend = Check1_->isChecked() ? 1 : 0;
    SymbolSize = static_cast<int16_t>(HScroll1_->value());
    GraphSetParams = GetOptionIndex(Option1_);
}

}  // namespace tarvokol
