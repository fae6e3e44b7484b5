// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/frmUnsaved.h"

#include <QDir>
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "core/files/file_image.h"
#include "core/messages/command_guard.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/text.h"
#include "desktop/base/form_registry.h"
#include "desktop/base/typed_texts.h"
#include "desktop/main/frmMain.h"
#include "qt/session/qt_text.h"
#include "ui_frmUnsaved.h"

namespace tarvokol {
namespace {

constexpr int kDescriptionDialog = 0;
constexpr int kParametersDialog = 1;

// The copy to be opened once the form is closed.
std::optional<LeftCopy> TheChosen;

QTreeWidgetItem* RowOf(const LeftCopy& copy) {
    const QString project = QDir::toNativeSeparators(ToQt(copy.project));
    auto* row = new QTreeWidgetItem({project, ToQt(LocalTimeText(copy.kept)), ToQt(copy.newer)});
    row->setToolTip(0, project);
    row->setToolTip(1, ToQt(copy.path));
    row->setToolTip(2, ToQt(copy.newer));
    return row;
}

// The dialog comes up with the texts that stood there.
void OpenDialogOf(const TypedTexts& typed) {
    const bool is_description = typed.dialog == "frmTARVODesc";
    if (!is_description && typed.dialog != "frmTARVOParm") return;
    PutTypedTexts(FormNamed(typed.dialog), typed);
    frmMain::Instance().mnuEditItem_Click(is_description ? kDescriptionDialog : kParametersDialog);
}

}  // namespace

frmUnsaved::frmUnsaved() : ui_(std::make_unique<Ui::frmUnsaved>()) {
    ui_->setupUi(this);
    ui_->lstCopies->header()->setSectionResizeMode(QHeaderView::Interactive);
    connect(ui_->cmdOpen, &QPushButton::clicked, this, &frmUnsaved::cmdOpen_Click);
    connect(ui_->cmdKeep, &QPushButton::clicked, this, &frmUnsaved::cmdKeep_Click);
    connect(ui_->cmdRemove, &QPushButton::clicked, this, &frmUnsaved::cmdRemove_Click);
    connect(ui_->lstCopies, &QTreeWidget::itemSelectionChanged, this, &frmUnsaved::lstCopies_Change);
    connect(ui_->lstCopies, &QTreeWidget::itemDoubleClicked, this, &frmUnsaved::cmdOpen_Click);
}

frmUnsaved::~frmUnsaved() = default;

void frmUnsaved::List(std::vector<LeftCopy> copies) {
    copies_ = std::move(copies);
    for (const LeftCopy& copy : copies_) ui_->lstCopies->addTopLevelItem(RowOf(copy));
    for (int column = 0; column < ui_->lstCopies->columnCount(); ++column) {
        constexpr int kWidest = 320;
        ui_->lstCopies->resizeColumnToContents(column);
        ui_->lstCopies->setColumnWidth(column, std::min(ui_->lstCopies->columnWidth(column), kWidest));
    }
    ui_->lstCopies->setCurrentItem(ui_->lstCopies->topLevelItem(0));
    lstCopies_Change();
}

std::vector<int> frmUnsaved::SelectedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < ui_->lstCopies->topLevelItemCount(); ++row)
        if (ui_->lstCopies->topLevelItem(row)->isSelected()) rows.push_back(row);
    return rows;
}

void frmUnsaved::lstCopies_Change() {
    const std::size_t selected = SelectedRows().size();
    ui_->cmdOpen->setEnabled(selected == 1);
    ui_->cmdRemove->setEnabled(selected > 0);
}

void frmUnsaved::cmdOpen_Click() {
    const std::vector<int> rows = SelectedRows();
    if (rows.size() != 1) return;
    TheChosen = std::move(copies_[static_cast<std::size_t>(rows.front())]);
    Unload();
}

void frmUnsaved::cmdKeep_Click() {
    Unload();
}

void frmUnsaved::cmdRemove_Click() {
    const std::vector<int> rows = SelectedRows();
    const std::string what =
        rows.size() == 1 ? "the unsaved copy of " + copies_[static_cast<std::size_t>(rows.front())].project
                         : std::to_string(rows.size()) + " unsaved copies";
    if (Notify("Remove " + what + "?" + std::string(CrLf) + "What is in no file is lost then.",
               box_style::YesNoQuestionNoDefault) != box_result::Yes)
        return;
    std::for_each(rows.rbegin(), rows.rend(), [this](int row) { RemoveRow(row); });
    if (copies_.empty()) Unload();
}

void frmUnsaved::RemoveRow(int row) {
    const auto at = copies_.begin() + row;
    bool removed = false;
    CommandGuard guard;
    guard([&] {
        RemoveLeftCopy(*at);
        removed = true;
    });
    if (!removed) return;
    copies_.erase(at);
    delete ui_->lstCopies->takeTopLevelItem(row);
}

bool OfferLeftCopies() {
    std::vector<LeftCopy> copies = CopiesLeftBehind();
    if (copies.empty()) return false;
    TheChosen.reset();
    frmUnsaved& form = frmUnsaved::Instance();
    form.List(std::move(copies));
    form.ShowModal(&frmMain::Instance());
    const std::optional<LeftCopy> chosen = std::exchange(TheChosen, std::nullopt);
    if (!chosen || !frmMain::IsLoaded()) return false;
    bool opened = false;
    CommandGuard guard;
    guard([&] { opened = OpenLeftCopy(*chosen); });
    if (opened) guard([&] { OpenDialogOf(chosen->typed); });
    return opened;
}

}  // namespace tarvokol
