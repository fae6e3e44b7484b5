// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help/help_window.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QHelpSearchResult>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include "qt/help/help_browser.h"
#include "qt/session/room_on_screen.h"

namespace tarvokol {
namespace {

const char* const home_topic = "index.htm";
constexpr int contents_tab = 0;
constexpr int index_tab = 1;
constexpr int search_tab = 2;
constexpr int most_results = 50;

QAction* AddTool(QToolBar& bar, const QString& name, const QString& text, QStyle::StandardPixmap icon,
                 const QKeySequence& key) {
    QAction* action = bar.addAction(bar.style()->standardIcon(icon), text);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setToolTip(key.isEmpty() ? text : text + " (" + key.toString(QKeySequence::NativeText) + ")");
    return action;
}

}  // namespace

HelpWindow::HelpWindow(const QString& compiled_file)
    : compiled_file_(compiled_file),
      collection_(compiled_file),
      browser_(new HelpBrowser(collection_.Engine())),
      tabs_(new QTabWidget) {
    setObjectName("helpWindow");
    setWindowTitle(tr("TARVO-KOL Help"));
    auto* splitter = new QSplitter(this);
    BuildNavigation();
    splitter->addWidget(tabs_);
    splitter->addWidget(browser_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({280, 720});
    setCentralWidget(splitter);
    resize(WithinScreen(*this, {1120, 760}));
    BuildToolbar();
    Connect();
}

void HelpWindow::BuildNavigation() {
    tabs_->setObjectName("navigation");
    QHelpContentWidget* contents = collection_.Engine().contentWidget();
    contents->setObjectName("contents");
    contents->setAccessibleName(tr("Help contents"));
    contents->setHeaderHidden(true);
    tabs_->addTab(contents, tr("&Contents"));
    tabs_->addTab(BuildIndexPage(), tr("&Index"));
    tabs_->addTab(BuildSearchPage(), tr("&Search"));
}

QWidget* HelpWindow::BuildIndexPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* label = new QLabel(tr("&Look for:"));
    index_filter_ = new QLineEdit;
    index_filter_->setObjectName("indexFilter");
    index_filter_->setClearButtonEnabled(true);
    label->setBuddy(index_filter_);
    index_ = collection_.Engine().indexWidget();
    index_->setObjectName("index");
    index_->setAccessibleName(tr("Help index"));
    layout->addWidget(label);
    layout->addWidget(index_filter_);
    layout->addWidget(index_);
    return page;
}

QWidget* HelpWindow::BuildSearchPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* label = new QLabel(tr("&Words to find:"));
    search_text_ = new QLineEdit;
    search_text_->setObjectName("searchText");
    search_text_->setClearButtonEnabled(true);
    label->setBuddy(search_text_);
    auto* find = new QPushButton(tr("&Find"));
    find->setObjectName("searchFind");
    results_ = new QListWidget;
    results_->setObjectName("searchResults");
    results_->setAccessibleName(tr("Topics found"));
    layout->addWidget(label);
    layout->addWidget(search_text_);
    layout->addWidget(find);
    layout->addWidget(results_);
    connect(find, &QPushButton::clicked, this, &HelpWindow::Search_Run);
    return page;
}

void HelpWindow::BuildToolbar() {
    auto* bar = addToolBar(tr("Navigation"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* back = AddTool(*bar, "back", tr("Back"), QStyle::SP_ArrowBack, QKeySequence::Back);
    QAction* forward =
        AddTool(*bar, "forward", tr("Forward"), QStyle::SP_ArrowForward, QKeySequence::Forward);
    QAction* home = AddTool(*bar, "home", tr("Home"), QStyle::SP_DirHomeIcon, QKeySequence("Alt+Home"));
    QAction* print =
        AddTool(*bar, "print", tr("Print topic..."), QStyle::SP_FileDialogDetailedView, QKeySequence::Print);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(home, &QAction::triggered, this, &HelpWindow::Home_Triggered);
    connect(print, &QAction::triggered, this, &HelpWindow::Print_Triggered);
    auto* close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
}

void HelpWindow::Connect() {
    QHelpEngine& engine = collection_.Engine();
    connect(tabs_, &QTabWidget::currentChanged, this, &HelpWindow::Page_Changed);
    // A click is told before the page shows.
    connect(tabs_, &QTabWidget::tabBarClicked, this, &HelpWindow::FocusOnPage, Qt::QueuedConnection);
    connect(engine.contentModel(), &QHelpContentModel::contentsCreated, this, &HelpWindow::Contents_Created);
    connect(engine.contentWidget(), &QTreeView::clicked, this, &HelpWindow::Contents_Clicked);
    connect(engine.contentWidget(), &QTreeView::activated, this, &HelpWindow::Contents_Clicked);
    connect(index_, &QHelpIndexWidget::documentActivated, this, &HelpWindow::Index_Activated);
    connect(index_filter_, &QLineEdit::textChanged, this, &HelpWindow::IndexFilter_Changed);
    connect(index_filter_, &QLineEdit::returnPressed, this, &HelpWindow::IndexFilter_Entered);
    connect(search_text_, &QLineEdit::returnPressed, this, &HelpWindow::Search_Run);
    connect(engine.searchEngine(), &QHelpSearchEngine::searchingFinished, this, &HelpWindow::Search_Finished);
    connect(results_, &QListWidget::itemClicked, this, &HelpWindow::Result_Activated);
    connect(results_, &QListWidget::itemActivated, this, &HelpWindow::Result_Activated);
    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::Source_Changed);
}

void HelpWindow::ShowContents() {
    tabs_->setCurrentIndex(contents_tab);
    ShowHomeUnlessOnPage();
    PutInFront();
}

void HelpWindow::ShowIndex() {
    tabs_->setCurrentIndex(index_tab);
    ShowHomeUnlessOnPage();
    PutInFront();
    FocusOnPage(index_tab);
}

// Whoever steps along the tabs by the arrow keys stays there.
void HelpWindow::Page_Changed(int page) {
    if (!tabs_->tabBar()->hasFocus()) FocusOnPage(page);
}

// Whoever turns to a page with a box wants to type into it.
void HelpWindow::FocusOnPage(int page) {
    QLineEdit* box = page == index_tab ? index_filter_ : page == search_tab ? search_text_ : nullptr;
    if (box == nullptr) return;
    box->setFocus();
    box->selectAll();
}

void HelpWindow::ShowTopic(const QString& topic) {
    const QUrl address = collection_.TopicAddress(topic);
    if (address.isValid()) {
        browser_->setSource(address);
    } else if (!collection_.Usable()) {
        ShowNotice(
            tr("Help is not available"),
            tr("The help file \"%1\" is missing or cannot be read. Installing the program again brings it "
               "back.")
                .arg(compiled_file_));
    } else {
        ShowNotice(tr("No such topic"),
                   tr("The help has no topic \"%1\". Look for it under Contents, Index or "
                      "Search.")
                       .arg(topic));
    }
    PutInFront();
}

void HelpWindow::ShowHomeUnlessOnPage() {
    if (browser_->source().isEmpty()) ShowTopic(home_topic);
}

void HelpWindow::ShowNotice(const QString& title, const QString& text) {
    browser_->setHtml("<h1>" + title.toHtmlEscaped() + "</h1><p>" + text.toHtmlEscaped() + "</p>");
}

// A dialog that is open keeps every other window from taking input, except those that belong to it. Help must
// be readable beside the dialog, so the window belongs to that dialog for as long as it is open.
void HelpWindow::BelongTo(QWidget* dialog) {
    QWindow* owner = dialog ? dialog->window()->windowHandle() : nullptr;
    winId();  // makes the window handle
    if (windowHandle()->transientParent() == owner) return;
    hide();
    windowHandle()->setTransientParent(owner);
}

void HelpWindow::PutInFront() {
    BelongTo(QApplication::activeModalWidget());
    if (isMinimized()) showNormal();
    // The window manager would choose a place for a window that comes back.
    if (!isVisible() && last_place_) {
        move(*last_place_);
        windowHandle()->setFramePosition(*last_place_);  // told again, as nothing has moved
    }
    if (!isVisible()) browser_->setFocus();
    show();
    raise();
    activateWindow();
}

bool HelpWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) {
        QMetaObject::invokeMethod(this, &HelpWindow::FollowDialog, Qt::QueuedConnection);
    }
    return QMainWindow::event(event);
}

void HelpWindow::hideEvent(QHideEvent* event) {
    if (!isMinimized() && !event->spontaneous()) RememberPlace();
    QMainWindow::hideEvent(event);
}

// Closed as soon as it is open, the window does not know its frame yet and would take the corner of its contents for its place:
// it would come back lower each time.
void HelpWindow::RememberPlace() {
    const bool framed = geometry().topLeft() != pos();
    if (was_framed_ && !framed) return;
    was_framed_ = framed;
    last_place_ = pos();
}

// A message box is answered at once; only a dialog that stays is followed. The dialog keeps the focus.
void HelpWindow::FollowDialog() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!isVisible() || !dialog || qobject_cast<QMessageBox*>(dialog) || isAncestorOf(dialog)) return;
    if (dialog->parentWidget() && dialog->parentWidget()->window() == this) return;
    setAttribute(Qt::WA_ShowWithoutActivating);
    BelongTo(dialog);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void HelpWindow::Contents_Created() {
    collection_.Engine().contentWidget()->expandToDepth(0);
    Source_Changed(browser_->source());
}

void HelpWindow::Contents_Clicked(const QModelIndex& index) {
    const QHelpContentItem* item = collection_.Engine().contentModel()->contentItemAt(index);
    if (item && item->url().isValid()) browser_->setSource(item->url());
}

void HelpWindow::Index_Activated(const QHelpLink& link) {
    browser_->setSource(link.url);
}

void HelpWindow::IndexFilter_Changed(const QString& text) {
    index_->filterIndices(text);
}

void HelpWindow::IndexFilter_Entered() {
    index_->activateCurrentItem();
}

void HelpWindow::Search_Run() {
    results_->clear();
    if (!search_text_->text().trimmed().isEmpty()) {
        collection_.Engine().searchEngine()->search(search_text_->text());
    }
}

void HelpWindow::Search_Finished(int hits) {
    results_->clear();
    for (const QHelpSearchResult& result :
         collection_.Engine().searchEngine()->searchResults(0, most_results)) {
        auto* item = new QListWidgetItem(result.title(), results_);
        item->setData(Qt::UserRole, result.url());
    }
    if (hits > 0) return;
    auto* none = new QListWidgetItem(tr("No topic has these words"), results_);
    none->setFlags(Qt::NoItemFlags);
}

void HelpWindow::Result_Activated(QListWidgetItem* item) {
    const QUrl address = item->data(Qt::UserRole).toUrl();
    if (address.isValid()) browser_->setSource(address);
}

void HelpWindow::Home_Triggered() {
    ShowTopic(home_topic);
}

void HelpWindow::Print_Triggered() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(browser_->documentTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) browser_->print(&printer);
}

// The contents follow the topic on show. While it changes, the browser still names the one before.
void HelpWindow::Source_Changed(const QUrl& address) {
    QHelpContentWidget* contents = collection_.Engine().contentWidget();
    const QModelIndex place = contents->indexOf(address.adjusted(QUrl::RemoveFragment));
    if (place.isValid()) contents->setCurrentIndex(place);
    const QString title = browser_->documentTitle();
    const QString help = tr("TARVO-KOL Help");
    setWindowTitle(title.isEmpty() || title == help ? help : title + " - " + help);
}

}  // namespace tarvokol
