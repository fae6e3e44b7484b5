// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>
#include <utility>

#include "core/messages/command_guard.h"
#include "core/program/start_up.h"
#include "core/project/lifecycle.h"
#include "core/project/project_state.h"
#include "core/project/recent_files.h"
#include "core/settings/main_settings.h"
#include "core/settings/update_reminder.h"
#include "desktop/base/form_registry.h"
#include "desktop/main/form_table.h"
#include "qt/session/qt_text.h"
#include "ui_frmMain.h"

// The artwork stands in a library, from which it must be asked for.
static void UseArtwork() {
    Q_INIT_RESOURCE(artwork);
}

namespace tarvokol {
namespace {

constexpr int kMostRecentEntries = 4;
constexpr const char* kIcon = ":/artwork/tarvokol.svg";
constexpr QSize kFirstIconSize(32, 32);

QString RecentName(int index) {
    return "mnuFileArray_" + QString::number(index);
}

// However long, a path is shown whole: two that differ in the middle must not read the same.
QString ShownRecentCaption(QString caption) {
    return caption.replace("&", "&&");
}

// The entry that opens a submenu goes by the submenu's name.
void NameEntry(const QMenu& submenu) {
    submenu.menuAction()->setObjectName(submenu.objectName());
    submenu.menuAction()->setProperty("helpContextID", submenu.property("helpContextID"));
}

// The one file of a drop; empty for anything else.
std::string DroppedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? FromQt(urls.front().toLocalFile())
                                                          : std::string();
}

}  // namespace

frmMain::frmMain() : ui_(std::make_unique<Ui::frmMain>()) {
    UseArtwork();
    EnterAllForms();
    // The forms and boxes that have no icon of their own show the program's.
    QApplication::setWindowIcon(QIcon(kIcon).pixmap(kFirstIconSize));
    ui_->setupUi(this);
    mnuUtilItem_ = ControlArray<QAction>(*this, "mnuUtilItem");
    ui_->Picture1->load(QString(":/artwork/highwall_panel.svg"));
    for (const QMenu* submenu : {ui_->mnuCalcItem_2, ui_->mnuCalcItem_4}) NameEntry(*submenu);
    for (QAction* action : findChildren<QAction*>()) {
        if (action->property("separator").toBool()) action->setSeparator(true);
        // A tool button goes by its command's name too.
        if (QWidget* button = ui_->Toolbar1->widgetForAction(action))
            button->setObjectName(action->objectName());
    }
    ConnectMenus();
}

frmMain::~frmMain() = default;

// The system takes the icon in several sizes, which are drawn longer than what the window shows: at first it gets one of
// them, and the others when the window is on the screen. A timer without a delay comes before the toolkit sends what is
// painted.
void frmMain::paintEvent(QPaintEvent* event) {
    SingleForm::paintEvent(event);
    constexpr int kOnTheScreen = 50;  // milliseconds
    if (std::exchange(has_whole_icon_, true)) return;
    QTimer::singleShot(kOnTheScreen, this, [] { QApplication::setWindowIcon(QIcon(kIcon)); });
}

void frmMain::ConnectMenus() {
    ConnectItems("mnuFileItem", &frmMain::mnuFileItem_Click);
    ConnectItems("mnuEditItem", &frmMain::mnuEditItem_Click);
    ConnectItems("mnuCalcItem", &frmMain::mnuCalcItem_Click);
    ConnectItems("mnuCalcGrafItem", &frmMain::mnuCalcGrafItem_Click);
    ConnectItems("mnuSizGrafItem", &frmMain::mnuSizGrafItem_Click);
    ConnectItems("mnuUtilItem", &frmMain::mnuUtilItem_Click);
    ConnectItems("mnuHelpItem", &frmMain::mnuHelpItem_Click);
    ConnectItems("Toolbar1", &frmMain::Toolbar1_ButtonClick);
}

void frmMain::ConnectItems(const QString& array, Handler handler) {
    for (const auto& [index, action] : ControlArray<QAction>(*this, array))
        connect(action, &QAction::triggered, this, [this, handler, item = index] { (this->*handler)(item); });
}

QAction& frmMain::RecentEntry(int index) {
    if (index < 1 || index > kMostRecentEntries) RaiseMissingElement();
    if (auto* entry = findChild<QAction*>(RecentName(index))) return *entry;
    auto* entry = new QAction(this);
    entry->setObjectName(RecentName(index));
    connect(entry, &QAction::triggered, this, [this, index] { mnuFileArray_Click(index); });
    QAction* following = nullptr;
    for (int next = index + 1; next <= kMostRecentEntries && following == nullptr; ++next)
        following = findChild<QAction*>(RecentName(next));
    ui_->mnuFile->insertAction(following, entry);
    return *entry;
}

void frmMain::SetRecentCaption(int index, const std::string& caption) {
    QAction& entry = RecentEntry(index);
    entry.setData(ToQt(caption));
    entry.setText(ShownRecentCaption(ToQt(caption)));
    entry.setVisible(!caption.empty());
}

std::string frmMain::RecentCaption(int index) const {
    const auto* entry = findChild<QAction*>(RecentName(index));
    return entry == nullptr ? std::string() : FromQt(entry->data().toString());
}

void frmMain::ShowRecentSeparator() {
    ui_->mnuFileArray_0->setVisible(true);
}

bool frmMain::HasRecentEntry() const {
    for (int index = 1; index <= kMostRecentEntries; ++index)
        if (!RecentCaption(index).empty()) return true;
    return false;
}

std::string frmMain::Tag() const {
    return FromQt(property("tag").toString());
}

QPlainTextEdit& frmMain::History() const {
    return *ui_->txtMain;
}

QSvgWidget& frmMain::Logo() const {
    return *ui_->Picture1;
}

QLabel& frmMain::VersionLabel() const {
    return *ui_->lblVer;
}

QToolBar& frmMain::Toolbar() const {
    return *ui_->Toolbar1;
}

void frmMain::Form_Load() {
    EnterProgramFolder();
    SetHelpFile();
    LoadRecentFileMenu();
    ApplyMainWindowSettings(*this);
    CenterLogo(*this);
    PlaceVersionLabel(*this, Toolbar());
    if (ShowDisclaim == 1) ShowDisclaimer();
    CenterForm(*this);
    CheckForUpdateReminder([this] { FormNamed("frmUpdate").ShowModal(this); });
}

void frmMain::Form_Activate() {
    if (HasRecentEntry()) ShowRecentSeparator();
    LayoutMainWindow(*this);
}

void frmMain::Form_Resize() {
    LayoutMainWindow(*this);
    CenterLogo(*this);
    PlaceVersionLabel(*this, Toolbar());
}

bool frmMain::Form_QueryUnload() {
    return MayCloseProgram();
}

void frmMain::Form_Unload() {
    ShutDown();
    emit Ended();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (isEnabled() && !DroppedFile(*event->mimeData()).empty()) event->acceptProposedAction();
}

// The program that the file is dragged from waits for the drop to end, so nothing is asked or shown before.
void frmMain::dropEvent(QDropEvent* event) {
    const std::string path = DroppedFile(*event->mimeData());
    if (!isEnabled() || path.empty()) return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path] { OpenDropped(path); }, Qt::QueuedConnection);
}

// As a pick from the recent files.
void frmMain::OpenDropped(const std::string& path) {
    CommandGuard guard;
    guard([] { PreviousFileName = ProjectFileName; });
    guard([&] { ProjectFileName = path; });
    if (!guard.Left()) LoadProjFileCommand();
}

void ShowDisclaimer() {
    FormNamed("frmDisclaimer").ShowModal();
}

}  // namespace tarvokol
