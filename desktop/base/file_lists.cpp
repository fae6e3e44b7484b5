// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/file_lists.h"

#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <algorithm>

#include "core/files/file_system.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Below these a system shows its own state as volumes; nobody keeps files there.
constexpr std::string_view kSystemFolders[] = {"/proc", "/sys", "/dev", "/run", "/boot", "/etc", "/snap"};
constexpr std::string_view kRemovableFolder = "/run/media";

// True if `folder` is `outer` or lies below it.
bool LiesIn(std::string_view folder, std::string_view outer) {
    if (!folder.starts_with(outer)) return false;
    return folder.size() == outer.size() || outer.ends_with('/') || folder[outer.size()] == '/';
}

bool HoldsUserFiles(const QStorageInfo& volume) {
    const std::string root = FromQt(volume.rootPath());
    return volume.isValid() && volume.isReady() && FolderExists(root) && MayHoldUserFiles(root);
}

QString CaptionOf(const QStorageInfo& volume) {
    const QString root = QDir::toNativeSeparators(volume.rootPath());
    return volume.name().isEmpty() ? root : root + " [" + volume.name() + "]";
}

std::string FullName(const std::string& path) {
    return FromQt(QDir::cleanPath(QFileInfo(ToQt(path)).absoluteFilePath()));
}

// The folder's full name, once it is known that its content can be listed.
std::string ListableFolder(const std::string& path) {
    if (path.empty() || !FolderExists(path)) Raise(error_number::PathNotFound);
    const QFileInfo folder(ToQt(path));
    if (!folder.isReadable() || !folder.isExecutable()) Raise(error_number::PathFileAccess);
    return FullName(path);
}

// A bracket in a pattern stands for itself.
QStringList NameFiltersOf(const std::string& pattern) {
    QStringList filters;
    for (const QString& part : ToQt(pattern).split(';')) {
        const QString name = part.trimmed().replace("[", "[[]");
        if (!name.isEmpty()) filters << (name == "*.*" ? QString("*") : name);
    }
    return filters;
}

}  // namespace

bool MayHoldUserFiles(std::string_view root) {
    if (LiesIn(root, kRemovableFolder)) return true;
    return std::none_of(std::begin(kSystemFolders), std::end(kSystemFolders),
                        [&](std::string_view system) { return LiesIn(root, system); });
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool HasWildcards(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

DriveList::DriveList(QWidget* parent) : DriveList(QStorageInfo::mountedVolumes(), parent) {}

DriveList::DriveList(QList<QStorageInfo> volumes, QWidget* parent) : QComboBox(parent) {
    std::sort(volumes.begin(), volumes.end(), [](const QStorageInfo& left, const QStorageInfo& right) {
        return left.rootPath() < right.rootPath();
    });
    for (const QStorageInfo& volume : volumes)
        if (HoldsUserFiles(volume) && findData(volume.rootPath()) < 0)
            addItem(CaptionOf(volume), volume.rootPath());
    const QString root = QDir::rootPath();
    if (findData(root) < 0) insertItem(0, QDir::toNativeSeparators(root), root);
    setCurrentIndex(0);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::currentIndexChanged, this, &DriveList::DriveChanged);
}

std::string DriveList::Drive() const {
    return FromQt(currentData().toString());
}

void DriveList::SetDrive(const std::string& path) {
    const std::string wanted = FullName(path);
    int best = -1;
    std::size_t longest = 0;
    for (int index = 0; index < count(); ++index) {
        const std::string root = FromQt(itemData(index).toString());
        if (!LiesIn(wanted, root) || root.size() <= longest) continue;
        best = index;
        longest = root.size();
    }
    if (best < 0) Raise(error_number::DeviceUnavailable);
    setCurrentIndex(best);
}

FolderList::FolderList(QWidget* parent) : QTreeView(parent), folder_(FullName(".")) {
    model_.setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
    model_.setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    // The model sorts below its root only, and folders above the current one are seen too.
    model_.setRootPath(QString());
    setModel(&model_);
    setHeaderHidden(true);
    for (int column = 1; column < model_.columnCount(); ++column) hideColumn(column);
    setExpandsOnDoubleClick(true);
    // Folders above the current one are listed after it was shown, and sorted after that; both moves it.
    const auto repaint = qOverload<>(&QWidget::update);
    connect(&model_, &QFileSystemModel::rowsInserted, viewport(), repaint);
    connect(&model_, &QFileSystemModel::layoutChanged, viewport(), repaint);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { keeps_in_view_ = false; });
}

void FolderList::SetFolder(const std::string& path) {
    const std::string folder = ListableFolder(path);
    const bool changed = folder != folder_;
    folder_ = folder;
    keeps_in_view_ = true;
    {
        // The change is reported once, below, and with the name as it was asked for.
        const QSignalBlocker quiet(this);
        setCurrentIndex(model_.index(ToQt(folder)));
    }
    expand(currentIndex());
    scrollTo(currentIndex());
    if (changed) emit FolderChanged();
}

void FolderList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (!current.isValid() || signalsBlocked()) return;
    const std::string folder = FromQt(model_.filePath(current));
    if (folder == folder_) return;
    folder_ = folder;
    emit FolderChanged();
}

// Whatever the model has added since, no picture of the list is without the current folder.
void FolderList::paintEvent(QPaintEvent* event) {
    if (keeps_in_view_) ScrollToCurrent();
    QTreeView::paintEvent(event);
}

void FolderList::mousePressEvent(QMouseEvent* event) {
    keeps_in_view_ = false;
    QTreeView::mousePressEvent(event);
}

void FolderList::ScrollToCurrent() {
    if (currentIndex().isValid()) scrollTo(currentIndex());
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    keeps_in_view_ = false;
    if (!IsEnter(*event)) {
        QTreeView::keyPressEvent(event);
        return;
    }
    setExpanded(currentIndex(), !isExpanded(currentIndex()));
    event->accept();
}

FileList::FileList(QWidget* parent) : QListView(parent), folder_(FullName(".")) {
    model_.setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
    model_.setFilter(QDir::Files);
    model_.setNameFilterDisables(false);
    setModel(&model_);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(this, &QListView::doubleClicked, this, &FileList::OpenSelected);
    // The model lists and filters behind the caller's back.
    connect(&model_, &QFileSystemModel::rowsInserted, this, &FileList::SelectWanted);
    connect(&model_, &QFileSystemModel::layoutChanged, this, &FileList::SelectWanted);
    connect(&model_, &QFileSystemModel::rowsInserted, this, &FileList::HideFolders);
    connect(&model_, &QFileSystemModel::layoutChanged, this, &FileList::HideFolders);
}

void FileList::SetFolder(const std::string& path) {
    folder_ = ListableFolder(path);
    wanted_.clear();
    clearSelection();
    setRootIndex(model_.setRootPath(ToQt(folder_)));
    HideFolders();
}

// The model lets a folder pass its filter once it has been the root.
void FileList::HideFolders() {
    for (int row = 0; row < model_.rowCount(rootIndex()); ++row)
        if (model_.isDir(model_.index(row, 0, rootIndex())) && !isRowHidden(row)) setRowHidden(row, true);
}

// A list that nobody has given a folder shows the current one. Not earlier: that may hold thousands of files,
// and the form's load goes elsewhere.
void FileList::showEvent(QShowEvent* event) {
    if (!rootIndex().isValid()) setRootIndex(model_.setRootPath(ToQt(folder_)));
    QListView::showEvent(event);
}

void FileList::SetPattern(const std::string& pattern) {
    pattern_ = pattern.substr(pattern.find_last_of("/\\") + 1);
    model_.setNameFilters(NameFiltersOf(pattern_));
}

std::string FileList::FileName() const {
    const QModelIndex current = currentIndex();
    const bool listed = current.isValid() && current.parent() == rootIndex();
    return listed && !model_.isDir(current) ? FromQt(model_.fileName(current)) : std::string();
}

void FileList::SetFileName(const std::string& text) {
    const std::size_t separator = text.find_last_of("/\\");
    const std::string name = separator == std::string::npos ? text : text.substr(separator + 1);
    wanted_.clear();
    if (separator != std::string::npos)
        SetFolder(FromQt(QDir(ToQt(folder_)).absoluteFilePath(ToQt(text.substr(0, separator + 1)))));
    if (name.empty()) return;
    if (HasWildcards(name)) {
        SetPattern(name);
        return;
    }
    const std::string file = WithSeparator(folder_) + name;
    if (!FileExists(file)) Raise(error_number::FileNotFound);
    wanted_ = file;
    SelectWanted();
}

// A file that the pattern hides is selected once a pattern lets it pass.
void FileList::SelectWanted() {
    if (wanted_.empty()) return;
    const QModelIndex file = model_.index(ToQt(wanted_));
    if (!file.isValid() || file.parent() != rootIndex()) return;
    setCurrentIndex(file);
    wanted_.clear();
}

void FileList::OpenSelected() {
    if (!FileName().empty()) emit FileOpened();
}

void FileList::keyPressEvent(QKeyEvent* event) {
    if (!IsEnter(*event)) {
        QListView::keyPressEvent(event);
        return;
    }
    event->accept();
    OpenSelected();
}

}  // namespace tarvokol
