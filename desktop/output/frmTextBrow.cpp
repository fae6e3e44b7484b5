// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/output/frmTextBrow.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextDocument>
#include <new>

#include "core/files/file_system.h"
#include "core/messages/command_guard.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/platform/shell.h"
#include "core/report/text_browser.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/text_browse_settings.h"
#include "core/settings/viewer_copy.h"
#include "qt/session/qt_common_dialogs.h"
#include "qt/session/qt_text.h"
#include "ui_frmTextBrow.h"

namespace tarvokol {
namespace {

constexpr int16_t kTrue = -1;

FontChoice BrowseFont() {
    return {BrowseFontName, BrowseFontSize, BrowseFontBold != 0, BrowseFontItalic != 0};
}

// A viewer that cannot be started is the user's own affair.
void StartViewer(const std::string& file) {
    try {
        Platform.TheShell->StartViewer(ExternalEditor, file);
    } catch (const RunTimeError&) {
    }
}

}  // namespace

frmTextBrow::frmTextBrow() : ui_(std::make_unique<Ui::frmTextBrow>()) {
    ui_->setupUi(this);
    connect(ui_->Drive1, &DriveList::DriveChanged, this, &frmTextBrow::Drive1_Change);
    connect(ui_->Dir1, &FolderList::FolderChanged, this, &frmTextBrow::Dir1_Change);
    connect(ui_->File1, &FileList::FileOpened, this, &frmTextBrow::File1_Open);
    connect(ui_->Text2, &QLineEdit::textChanged, this, &frmTextBrow::Text2_Change);
    connect(ui_->Check1, &QCheckBox::toggled, this, &frmTextBrow::Check1_Click);
    connect(ui_->cmdSetFont, &QPushButton::clicked, this, &frmTextBrow::cmdSetFont_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmTextBrow::Command1_Click);
    SelectAllOnFocus(*this);
    ui_->Text2->installEventFilter(this);
    loading_.setSingleShot(true);
    connect(&loading_, &QTimer::timeout, this, &frmTextBrow::LoadOn);
}

frmTextBrow::~frmTextBrow() = default;

void frmTextBrow::Form_Load() {
    if (IsBlank(BrowseDefaultFilter)) BrowseDefaultFilter = "*." + FileExtension;
    GoTo(BrowseFolder.empty() ? DataPath : BrowseFolder);
    ui_->File1->SetPattern(BrowseDefaultFilter);
    {
        const QSignalBlocker quiet(ui_->Text2);
        ui_->Text2->setText(ToQt(BrowseDefaultFilter));
    }
    ApplyFont();
    ui_->Check1->setChecked(BrowseUseNotepad != 0);
    Check1_Click();
}

// A folder that is gone since it was chosen is reported, and the form opens elsewhere.
void frmTextBrow::GoTo(const std::string& folder) {
    CommandGuard guard(DialogCancelled_);
    guard([&] { ui_->Drive1->SetDrive(folder); });
    guard([&] { ui_->Dir1->SetFolder(folder); });
    guard([&] { ui_->File1->SetFolder(ui_->Dir1->Folder()); });
}

void frmTextBrow::Form_Activate() {
    ui_->Command1->setFocus();
}

void frmTextBrow::Form_Unload() {
    BrowseDefaultFilter = FromQt(ui_->Text2->text());
    BrowseFolder = ui_->Dir1->Folder();
    BrowseUseNotepad = ui_->Check1->isChecked() ? 1 : 0;
    SaveSettings(section::TextBrowse);
}

void frmTextBrow::Drive1_Change() {
    CommandGuard guard(DialogCancelled_);
    guard([this] { ui_->Dir1->SetFolder(ui_->Drive1->Drive()); });
}

void frmTextBrow::Dir1_Change() {
    CommandGuard guard(DialogCancelled_);
    guard([this] { ui_->File1->SetFolder(ui_->Dir1->Folder()); });
}

void frmTextBrow::Text2_Change() {
    const std::string text = FromQt(ui_->Text2->text());
    CommandGuard guard(DialogCancelled_);
    guard([&] { ui_->File1->SetFileName(text); });
    guard([&] { ui_->File1->SetPattern(text); });
}

// Enter in the pattern box is for the pattern; anywhere else it closes the form.
bool frmTextBrow::eventFilter(QObject* watched, QEvent* event) {
    const bool enter = event->type() == QEvent::KeyPress && IsEnter(*static_cast<QKeyEvent*>(event));
    if (watched != ui_->Text2 || !enter) return FormBase::eventFilter(watched, event);
    ui_->File1->SetPattern(FromQt(ui_->Text2->text()));
    return true;
}

void frmTextBrow::Check1_Click() {
    ui_->cmdSetFont->setDisabled(ui_->Check1->isChecked());
}

void frmTextBrow::File1_Open() {
    const std::string file = WithSeparator(ui_->File1->Folder()) + ui_->File1->FileName();
    ui_->Label1->SetFullText(ToQt(file));
    ClearView();  // never one file's text under another one's name
    if (ui_->Check1->isChecked())
        ShowInViewer(file);
    else
        ShowInForm(file);
}

// Without a fresh copy the viewer would show what was copied before.
void frmTextBrow::ShowInViewer(const std::string& file) {
    std::string copy;
    CommandGuard guard(DialogCancelled_);
    guard([&] { copy = CopyForViewer(file); });
    if (!copy.empty()) StartViewer(copy);
}

// The window stays alive while a long file comes in; another file, or the end of the form, ends the loading.
void frmTextBrow::ShowInForm(const std::string& file) {
    CommandGuard guard(DialogCancelled_);
    guard([&] { reading_ = std::make_unique<FileReading>(file); });
    if (reading_ != nullptr) LoadOn();
}

void frmTextBrow::LoadOn() {
    bool more = false, loaded = false;
    CommandGuard guard(DialogCancelled_);
    guard([&] {
        more = LoadPiece();
        loaded = true;
    });
    if (!loaded) ClearView();  // never a part for the whole
    if (more) loading_.start(0);
}

// True while there is more.
bool frmTextBrow::LoadPiece() {
    try {
        if (reading_->ReadMore()) {
            TellLoading();
            return true;
        }
        const std::string text = reading_->TakeText();
        QTextDocument& view = *ui_->RichTextBox1->document();
        if (view.isEmpty()) {
            ui_->RichTextBox1->setPlainText(ToQt(text));
        } else {
            QTextCursor end(&view);
            end.movePosition(QTextCursor::End);
            end.insertText(ToQt(text));
        }
        if (!reading_->IsDone()) {
            TellLoading();
            return true;
        }
    } catch (const std::bad_alloc&) {
        Raise(error_number::OutOfMemory);
    }
    ui_->lblCut->setText("Very long lines are continued in the next line.");
    ui_->lblCut->setVisible(reading_->Folded());
    reading_.reset();
    return false;
}

void frmTextBrow::TellLoading() {
    ui_->lblCut->setText("Loading: " + QString::number(reading_->Percent()) + " %");
    ui_->lblCut->show();
}

void frmTextBrow::ClearView() {
    loading_.stop();
    reading_.reset();
    ui_->RichTextBox1->clear();
    ui_->lblCut->hide();
}

void frmTextBrow::cmdSetFont_Click() {
    CommandGuard guard(DialogCancelled_);
    guard([] {
        const FontChoice font = Platform.Dialogs->ShowFont(BrowseFont(), dialog_flag::ScreenFonts);
        BrowseFontName = font.name;
        BrowseFontSize = font.size;
        BrowseFontBold = font.bold ? kTrue : 0;
        BrowseFontItalic = font.italic ? kTrue : 0;
    });
    guard([this] { ApplyFont(); });
}

void frmTextBrow::ApplyFont() {
    CommandGuard guard(DialogCancelled_);
    guard([this] { ui_->RichTextBox1->setFont(FontOfChoice(BrowseFont())); });
}

void frmTextBrow::Command1_Click() {
    Unload();
}

}  // namespace tarvokol
