// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/studies_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "qt/session/qt_text.h"
#include "qt/session/room_on_screen.h"
#include "studies/pages/compare_page.h"
#include "studies/pages/map_page.h"
#include "studies/pages/risk_page.h"
#include "studies/pages/table_page.h"
#include "studies/window/notice_bar.h"
#include "studies/window/project_panel.h"
#include "studies/window/window_memory.h"

// The artwork stands in a library, from which it must be asked for.
static void UseArtwork() {
    Q_INIT_RESOURCE(artwork);
}

namespace tarvokol {

StudiesWindow::StudiesWindow() : unsaved_(model_) {
    UseArtwork();
    setObjectName("StudiesWindow");
    setWindowIcon(QIcon(":/artwork/tarvokol.svg"));
    setAcceptDrops(true);
    BuildPages();
    BuildFileMenu();
    BuildEditMenu();
    BuildPictureMenu();
    BuildViewMenu();
    BuildHelpMenu();
    BuildToolbar();
    statusBar();
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &StudiesWindow::File_Changed);
    Restore();
    model_.Tell([this] { Model_Changed(); });
    Model_Changed();
}

StudiesWindow::~StudiesWindow() = default;

void StudiesWindow::BuildPages() {
    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(4, 4, 4, 0);
    notice_ = new NoticeBar(middle);
    layout->addWidget(notice_);
    splitter_ = new QSplitter(Qt::Horizontal, middle);
    splitter_->setObjectName("Splitter");
    splitter_->setChildrenCollapsible(false);
    panel_ = new ProjectPanel(model_);
    pages_ = new QTabWidget;
    pages_->setObjectName("Pages");
    pages_->setDocumentMode(true);
    map_ = new MapPage(model_);
    pages_->addTab(map_, "M&ap");
    risk_ = new RiskPage(model_);
    pages_->addTab(risk_, "R&isk");
    table_ = new TablePage(model_);
    pages_->addTab(table_, "Ta&ble");
    pages_->addTab(new ComparePage(model_, [this] { return risk_->Plan(); }), "&Compare");
    splitter_->addWidget(panel_);
    splitter_->addWidget(pages_);
    splitter_->setStretchFactor(0, 0);
    splitter_->setStretchFactor(1, 1);
    layout->addWidget(splitter_, 1);
    setCentralWidget(middle);
    panel_->setFocus();
    connect(pages_, &QTabWidget::currentChanged, this, &StudiesWindow::Page_Shown);
}

void StudiesWindow::Restore() {
    const WindowMemory memory = WindowMemory::Read();
    constexpr int kWidth = 1180, kHeight = 720;
    resize(WithinScreen(*this, {kWidth, kHeight}));
    if (!memory.geometry.isEmpty()) restoreGeometry(memory.geometry);
    if (!memory.splitter.isEmpty()) splitter_->restoreState(memory.splitter);
    pages_->setCurrentIndex(memory.page);
    const auto x = FieldNamed(FromQt(memory.map_x));
    const StudyFigure* figure = FigureNamed(FromQt(memory.map_figure));
    if (x == std::nullopt || figure == nullptr) return;
    PageRequests requests = model_.Requests();
    requests.map = {*x, FieldNamed(FromQt(memory.map_y)), figure};
    model_.Begin(requests);
}

// A range that its field no longer takes is proposed anew.
void StudiesWindow::RestoreRanges() {
    const QStringList ranges = RememberedRanges(ToQt(model_.Path()));
    PageRequests requests = model_.Requests();
    for (const PanelFieldFacts& facts : kPanelFields) {
        const QStringList ends = ranges.value(static_cast<int>(facts.field)).split(':');
        const auto low = WholeNumber(FromQt(ends.value(0))), high = WholeNumber(FromQt(ends.value(1)));
        if (low && high) requests.ranges[static_cast<std::size_t>(facts.field)] = {*low, *high};
    }
    model_.Begin(requests);
}

void StudiesWindow::RememberRangesNow() const {
    if (model_.Path().empty()) return;
    QStringList ranges;
    for (const PanelFieldFacts& facts : kPanelFields) {
        const FieldRange& range = model_.RangeOf(facts.field);
        std::string ends;
        AppendShortest(ends, range.low);
        AppendShortest(ends += ':', range.high);
        ranges.append(ToQt(ends));
    }
    RememberRanges(ToQt(model_.Path()), ranges);
}

void StudiesWindow::Remember() {
    RememberRangesNow();
    const MapRequest map = map_->Request();
    WindowMemory memory;
    memory.geometry = saveGeometry();
    memory.splitter = splitter_->saveState();
    memory.page = pages_->currentIndex();
    memory.map_x = NameOfField(map.x.field);
    memory.map_y = map.y ? NameOfField(map.y->field) : "";
    memory.map_figure = map.figure->name;
    memory.Write();
}

StudyPage& StudiesWindow::Page() const {
    return *qobject_cast<StudyPage*>(pages_->currentWidget());
}

bool StudiesWindow::MayLeave() {
    if (!model_.IsChanged()) return true;
    const int answer = NotifyChoice("Save changes to: " + model_.FileName() + "?",
                                    box_style::YesNoCancelQuestion, {"&Save", "&Discard", ""});
    if (answer == box_result::Yes) return Save();
    if (answer == box_result::No) unsaved_.GiveUp();
    return answer == box_result::No;
}

void StudiesWindow::closeEvent(QCloseEvent* event) {
    if (!MayLeave()) {
        event->ignore();
        return;
    }
    unsaved_.GiveUp();
    Remember();
    event->accept();
}

void StudiesWindow::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) event->acceptProposedAction();
}

void StudiesWindow::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (!url.isLocalFile()) continue;
        event->acceptProposedAction();
        OpenDropped(FromQt(url.toLocalFile()));
        return;
    }
}

// A table goes to its page, anything else is taken for a project.
void StudiesWindow::OpenDropped(const std::string& path) {
    if (!QFileInfo(ToQt(path)).suffix().compare("csv", Qt::CaseInsensitive)) {
        pages_->setCurrentWidget(table_);
        table_->OpenTable(path);
        return;
    }
    OpenPath(path);
}

// Watches fail on some file systems; who comes back to the window learns of a change all the same.
void StudiesWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !tells_file_change_)
        TellThatFileChanged();
}

void StudiesWindow::OpenPath(const std::string& path) {
    if (!MayLeave()) return;
    if (!QFileInfo(ToQt(path)).suffix().compare("tks", Qt::CaseInsensitive))
        OpenStudyFile(path);
    else
        OpenProjectFile(path);
}

void StudiesWindow::OpenProjectFile(const std::string& path) {
    RememberRangesNow();
    try {
        model_.Open(path);
        RestoreRanges();
    } catch (const RunTimeError& error) {
        return OfferCopy(path, error.text);
    } catch (const StudyRefusal& refusal) {
        return OfferCopy(path, refusal.what());
    }
    notice_->Dismiss();
    RememberProject(ToQt(model_.Path()));
    WatchFile();
}

void StudiesWindow::NewProject(std::int16_t unit_system) {
    if (!MayLeave()) return;
    model_.New(unit_system);
    notice_->Dismiss();
    WatchFile();
}

bool StudiesWindow::Save() {
    if (model_.Path().empty()) return AskPathAndSave();
    if (model_.FileHasChanged()) {
        TellThatFileChanged();
        return false;
    }
    return SaveTo(model_.Path());
}

bool StudiesWindow::SaveTo(const std::string& path) {
    try {
        if (!model_.SaveAs(path)) return false;
    } catch (const RunTimeError& error) {
        TellFault(path, error.text);
        return false;
    }
    tells_file_change_ = false;
    notice_->Dismiss();
    RememberProject(ToQt(model_.Path()));
    WatchFile();
    statusBar()->showMessage("Saved: " + ToQt(model_.Path()), 5000);
    return true;
}

void StudiesWindow::WatchFile() {
    if (!watched_.empty()) watcher_.removePath(ToQt(watched_));
    watched_ = model_.Path();
    tells_file_change_ = false;
    if (!watched_.empty()) watcher_.addPath(ToQt(watched_));
}

// A file that is replaced as a whole is no longer watched under its name.
void StudiesWindow::File_Changed() {
    if (!watched_.empty() && watcher_.files().isEmpty()) watcher_.addPath(ToQt(watched_));
    TellThatFileChanged();
}

void StudiesWindow::TellThatFileChanged() {
    if (!model_.FileHasChanged()) return;
    tells_file_change_ = true;
    notice_->Show(ToQt(model_.Path()) + " has been changed by somebody else since it was read or saved here.",
                  {{"Reload", [this] { Reload(); }},
                   {"Save Over It", [this] { SaveTo(model_.Path()); }},
                   {"Save As...", [this] { AskPathAndSave(); }}});
}

void StudiesWindow::Reload() {
    const std::string path = model_.Path();
    OpenPath(path);
}

void StudiesWindow::TellFault(const std::string& about, const std::string& fault) {
    notice_->Show(ToQt(about.empty() ? fault : about + ": " + fault));
}

void StudiesWindow::Model_Changed() {
    setWindowTitle(ToQt(model_.FileName()) + "[*] \u2013 TARVO-KOL Studies");
    setWindowModified(model_.IsChanged());
    undo_->setEnabled(model_.CanUndo());
    redo_->setEnabled(model_.CanRedo());
    // A design may be called "A & B".
    const auto step = [](const std::string& words) { return ToQt(words).replace('&', "&&"); };
    undo_->setText(model_.CanUndo() ? "&Undo: " + step(model_.UndoWords()) : QString("&Undo"));
    redo_->setText(model_.CanRedo() ? "&Redo: " + step(model_.RedoWords()) : QString("&Redo"));
}

// Whoever undoes sees what.
void StudiesWindow::ShowPage(std::optional<StudyPages> page) {
    if (page) pages_->setCurrentIndex(static_cast<int>(*page));
}

void StudiesWindow::Page_Shown() {
    statusBar()->clearMessage();
}

}  // namespace tarvokol
