// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/input/frmTARVOParm.h"

#include <algorithm>
#include <utility>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/program/program_help.h"
#include "core/project/figure_range.h"
#include "core/project/parameter_validation.h"
#include "core/project/pillar_sizing.h"
#include "core/project/preview_record.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/report/report_builder.h"
#include "core/report/results_state.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/option_settings.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/form_services.h"
#include "desktop/base/modCapture.h"
#include "desktop/base/refused_box.h"
#include "desktop/base/results_caller.h"
#include "desktop/base/used_value.h"
#include "qt/session/qt_text.h"
#include "ui_frmTARVOParm.h"

namespace tarvokol {
namespace {

constexpr int kTitles = 2;
constexpr int kFewestHoles = 2;
constexpr int kNoUnit = -1;

// To the words beside a box, and to what a screen reader says of it.
void AppendUnit(QLabel& label, QLineEdit& box, int row) {
    if (row == kNoUnit) return;
    const QString unit = ToQt(UnitLabels(row));
    label.setText(label.text() + unit);
    box.setAccessibleName(box.accessibleName() + unit);
}

// What the history says when the box cannot show the project's number of holes: OK would store a figure that
// nobody typed.
std::string HolesNotShownText(const std::string& holes, const std::string& shown) {
    return "Number of holes " + holes + " of the project is outside 2-20: " +
           (shown.empty() ? "the box is left empty" : "the box shows " + shown);
}

// A text that stands already is left alone, and with it the caret.
void SetText(QLineEdit& box, const std::string& text) {
    if (box.text() != ToQt(text)) box.setText(ToQt(text));
}

}  // namespace

frmTARVOParm::frmTARVOParm() : ui_(std::make_unique<Ui::frmTARVOParm>()) {
    ui_->setupUi(this);
    ListInputBoxes();
    ConnectControls();
    for (QWidget* frame : {ui_->Frame1, ui_->Frame0, ui_->Frame3}) SelectAllOnFocus(*frame);
    for (const InputBox& input : inputs_)
        NoteUsedValue(*input.box,
                      input.field == PanelField::NumberHoles ? StoredAs::Whole : StoredAs::Figure);
    ui_->txtHeight->setFocus();
}

frmTARVOParm::~frmTARVOParm() = default;

void frmTARVOParm::ListInputBoxes() {
    using Field = PanelField;
    using Texts = ParameterTexts;
    const Ui::frmTARVOParm& ui = *ui_;
    inputs_ = {
        {Field::Height, ui.txtHeight, &Texts::txtHeight, ui.Label1, unit_row::Length},
        {Field::DepthCover, ui.txtDepthCover, &Texts::txtDepthCover, ui.Label2, unit_row::Length},
        {Field::HoleWidth, ui.txtHoleWidth, &Texts::txtHoleWidth, ui.Label4, unit_row::Length},
        {Field::WebThickness, ui.txtWebThickness, &Texts::txtWebThickness, ui.Label3, unit_row::Length},
        {Field::BarrierPillarWidth, ui.txtBarrierPillarWidth, &Texts::txtBarrierPillarWidth, ui.Label5,
         unit_row::Length},
        {Field::NumberHoles, ui.txtNumberHoles, &Texts::txtNumberHoles, ui.Label6, kNoUnit},
        {Field::CoalStrength, ui.txtCoalStrength, &Texts::txtCoalStrength, ui.lblInsituCoal,
         unit_row::Strength},
        {Field::UnitWeight, ui.txtUnitWeight, &Texts::txtUnitWeight, ui.lblUnitWeight, unit_row::UnitWeight},
        {Field::AbutmentAngle, ui.txtAbutmentAngleActiveGob, &Texts::txtAbutmentAngleActiveGob,
         ui.lblAbutAngle, kNoUnit},
        {Field::SFWeb, ui.txtSFWeb, &Texts::txtSFWeb, ui.Label10, kNoUnit},
        {Field::SFBarrier, ui.txtSFBarrier, &Texts::txtSFBarrier, ui.Label12, kNoUnit},
    };
}

void frmTARVOParm::ConnectControls() {
    for (QLineEdit* box : {ui_->txtBarrierPillarWidth, ui_->txtWebThickness, ui_->txtHoleWidth})
        connect(box, &QLineEdit::textChanged, this, &frmTARVOParm::PanelWidths_Change);
    connect(ui_->txtNumberHoles, &QLineEdit::textChanged, this, &frmTARVOParm::txtNumberHoles_Change);
    connect(ui_->HScroll1, &QScrollBar::valueChanged, this, &frmTARVOParm::HScroll1_Change);
    connect(ui_->SSTab1, &QTabWidget::currentChanged, this, &frmTARVOParm::FixTabStops);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmTARVOParm::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmTARVOParm::Unload);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &ShowHelpTip);
    connect(ui_->cmdHelpStability, &QPushButton::clicked, this, &frmTARVOParm::cmdHelpStability_Click);
    connect(ui_->cmdHelpDesign, &QPushButton::clicked, this, &frmTARVOParm::cmdHelpDesign_Click);
    connect(ui_->cmdCopyClip, &QPushButton::clicked, this, &frmTARVOParm::cmdCopyClip_Click);
    connect(ui_->cmdSize, &QPushButton::clicked, this, &frmTARVOParm::cmdSize_Click);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmTARVOParm::cmdView_Click);
    connect(ui_->cmdResults, &QPushButton::clicked, this, &frmTARVOParm::cmdResults_Click);
}

void frmTARVOParm::Form_Load() {
    SetMessageTitles(kTitles);
    PlotFromResults = false;
    FormLoading_ = true;
    ParmsModified_ = false;
    ResultsReturn = results_return::Normal;
    FillControls();
    LogMessage("Editing Project Parameters");
    ui_->SSTab1->setCurrentIndex(0);
    FixTabStops();
    UpdateCalculatedFields();
    FormLoading_ = false;
    typed_ = std::make_unique<TypedTextsKeeper>(*this);
}

void frmTARVOParm::FillControls() {
    const ParameterTexts texts = TextsOfRecord(ProjectRecord);
    for (const InputBox& input : inputs_) {
        AppendUnit(*input.label, *input.box, input.unit_row);
        if (input.field == PanelField::NumberHoles)
            FillHoles(texts.txtNumberHoles);
        else
            SetText(*input.box, texts.*input.text);
    }
    AppendUnit(*ui_->lblPanelWidth, *ui_->txtPanelWidth, unit_row::Length);
    ShowSuggestedUnit();
}

// The labels have no room for a unit: a note tells one that is not the project's, and a screen reader says either.
void frmTARVOParm::ShowSuggestedUnit() {
    const QString note = ToQt(SuggestedUnitNote());
    const QString unit = note.isEmpty() ? ToQt(UnitLabels(unit_row::Length)) : QString(" (in)");
    ui_->lblSugUnit->setText(note);
    ui_->lblSugUnit->setVisible(!note.isEmpty());
    for (QLineEdit* box : {ui_->txtSugWeb, ui_->txtSugBarrier}) {
        box->setToolTip(note);
        box->setAccessibleDescription(note);
        box->setAccessibleName(box->accessibleName() + unit);
    }
}

// The handlers of both controls run; the bar takes the nearest number that it has. A project of one hole
// shows 10, one of more than 20 is refused.
void frmTARVOParm::FillHoles(const std::string& text) {
    ui_->HScroll1->setMinimum(kFewestHoles);
    ui_->HScroll1->setMaximum(MaxHoles);
    ui_->HScroll1->setValue(ProjectRecord.NumberHoles);
    SetText(*ui_->txtNumberHoles, text);
    LastHolesText_ = FromQt(ui_->txtNumberHoles->text());
    if (LastHolesText_ != text) LogMessage(HolesNotShownText(text, LastHolesText_));
}

// Back from the results viewer the project gets its own figures again.
void frmTARVOParm::Form_Activate() {
    if (ResultsReturn == results_return::FromViewer) ProjectRecord = SavedRecord_;
    ResultsReturn = results_return::Normal;
}

void frmTARVOParm::Form_Unload() {
    if (Accepted) StoreParameters();
    typed_->Drop();
    LogMessage(ParmsModified_ ? "Project Parameters Modified" : "Project Parameters Not Modified");
    EnableAndFocus("frmMain");
}

ParameterTexts frmTARVOParm::Texts() const {
    ParameterTexts texts;
    for (const InputBox& input : inputs_) texts.*input.text = FromQt(input.box->text());
    return texts;
}

bool frmTARVOParm::Accept(const std::optional<PanelField>& refused) {
    if (!refused) return true;
    const auto input = std::find_if(inputs_.begin(), inputs_.end(),
                                    [&](const InputBox& candidate) { return candidate.field == *refused; });
    ui_->SSTab1->setCurrentIndex(TabOfField(*refused));
    FocusRefused(*input->box);
    return false;
}

bool frmTARVOParm::ValidateAll() {
    return Accept(ValidateParameterTexts(Texts()));
}

bool frmTARVOParm::ValidateForSizing() {
    return Accept(ValidateSizingTexts(Texts()));
}

void frmTARVOParm::StoreParameters() {
    StoreParameterTexts(Texts(), ProjectRecord);
    MarkProjectChanged();
    ParmsModified_ = true;
}

void frmTARVOParm::LoadPreview() {
    LoadPreviewFromTexts(Texts());
}

void frmTARVOParm::UpdateCalculatedFields() {
    const ParameterTexts texts = Texts();
    SetText(*ui_->txtPanelWidth, PanelWidthText(texts));
    SetText(*ui_->txtExtractRatio, ExtractionRatioText(texts));
}

void frmTARVOParm::FixTabStops() {
    tarvokol::FixTabStops(*ui_->SSTab1);
}

void frmTARVOParm::PanelWidths_Change() {
    if (!FormLoading_) UpdateCalculatedFields();
}

void frmTARVOParm::HScroll1_Change() {
    SetText(*ui_->txtNumberHoles, GeneralText(ui_->HScroll1->value()));
}

// A 1 is the first digit of 10 to 19, so it becomes a 10 whose 0 the next digit replaces.
void frmTARVOParm::txtNumberHoles_Change() {
    const HolesVerdict verdict = JudgeHolesText(FromQt(ui_->txtNumberHoles->text()));
    if (verdict.refused) {
        SetText(*ui_->txtNumberHoles, LastHolesText_);
        return;
    }
    if (verdict.single_one) ShowTenWithZeroSelected();
    ScrollTo(verdict.scroll_value);
    if (FormLoading_) return;
    ui_->txtNumberHoles->setFocus();
    UpdateCalculatedFields();
    LastHolesText_ = FromQt(ui_->txtNumberHoles->text());
}

void frmTARVOParm::ShowTenWithZeroSelected() {
    ui_->txtNumberHoles->setText("10");
    ui_->txtNumberHoles->setFocus();
    ui_->txtNumberHoles->setSelection(1, 1);
}

// A bar that stands there already reports no change, but the text must be the whole number all the same.
void frmTARVOParm::ScrollTo(int16_t holes) {
    ui_->HScroll1->setValue(holes);
    HScroll1_Change();
}

void frmTARVOParm::cmdOK_Click() {
    if (!ValidateAll()) return;
    Accepted = true;
    Unload();
}

// Each of the two buttons opens the other one's topic.
void frmTARVOParm::cmdHelpStability_Click() {
    ShowHelpTopic(0, "DesignProceduresforTARVOKOL.htm");
}

void frmTARVOParm::cmdHelpDesign_Click() {
    ShowHelpTopic(0, "Table1StabilityFactors.htm");
}

void frmTARVOParm::cmdCopyClip_Click() {
    CopyDialogImage(*this);
}

// An error that ends the program, as that of a blank abutment angle does, takes nothing with it that was
// typed.
void frmTARVOParm::KeepTypedOnError(const std::function<void()>& trial) {
    try {
        trial();
    } catch (const RunTimeError&) {
        KeepTypedFigures();
        throw;
    }
}

void frmTARVOParm::KeepTypedFigures() {
    typed_->Keep();
    PanelInputs typed = ProjectRecord;
    try {
        StoreParameterTexts(Texts(), typed);
    } catch (const RunTimeError&) {
        return;  // beyond what a project can hold
    }
    std::swap(typed, ProjectRecord);
    KeepRecoveryCopy();
    std::swap(typed, ProjectRecord);
}

void frmTARVOParm::cmdSize_Click() {
    if (!ValidateForSizing()) return;
    KeepTypedOnError([this] {
        const SuggestedSizes sizes = SuggestPillarSizes(
            Texts(), [this](const std::string& web_text) { SetText(*ui_->txtSugWeb, web_text); });
        SetText(*ui_->txtSugBarrier, sizes.txtSugBarrier);
    });
}

void frmTARVOParm::cmdView_Click() {
    KeepTypedOnError([this] { ShowLayout(); });
}

void frmTARVOParm::ShowLayout() {
    PlotMode = plot_mode::Dimensions;
    if (!ValidateAll()) return;
    const bool in_window = ViewChildWindow == 1;
    const bool shown = DoneWithinRange(ProjectRecord, [&] {
        LoadPreview();
        if (!in_window) ui_->Picture1->Draw(DrawPanelPreview);
    });
    if (!shown || !in_window) return;
    setEnabled(false);
    FormNamed("frmPicture").ShowModeless(this);
}

// The run takes the dialog's figures for the project's. They stay in the project if the input check refuses
// them; otherwise the project gets its own back when the dialog is active again.
void frmTARVOParm::cmdResults_Click() {
    KeepTypedOnError([this] { RunResults(); });
}

void frmTARVOParm::RunResults() {
    if (!ValidateAll()) return;
    if (!DoneWithinRange(ProjectRecord, [this] { LoadPreview(); })) return;
    SavedRecord_ = ProjectRecord;
    ProjectRecord = PreviewRecord;
    bool calculated = false;
    if (!DoneWithinRange(ProjectRecord, [&] { calculated = CalculateReport(ProjectRecord); }))
        ProjectRecord = SavedRecord_;
    if (!calculated) return;
    LoadOutBuf0(2);
    ResultsCaller = this;
    setEnabled(false);
    FormNamed("frmResTxtPlt").ShowModeless(this);
}

}  // namespace tarvokol
