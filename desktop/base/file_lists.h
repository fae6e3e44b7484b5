// SPDX-License-Identifier: GPL-3.0-or-later
// The three lists that a user picks a file with: drives, folders, files. Systems without drive letters list
// their mounted volumes as drives.
#pragma once

#include <QComboBox>
#include <QFileSystemModel>
#include <QListView>
#include <QStorageInfo>
#include <QTreeView>
#include <string>
#include <string_view>

namespace tarvokol {

// The drives of the system; one of them is always the current one. The system's root is always among them, also
// where the table of mounted volumes leaves it out, as it does for a program whose root is a folder of another
// system.
class DriveList : public QComboBox {
    Q_OBJECT

  public:
    explicit DriveList(QWidget* parent = nullptr);
    explicit DriveList(QList<QStorageInfo> volumes, QWidget* parent = nullptr);

    // Root folder of the current drive.
    std::string Drive() const;

    // Makes the drive that holds the path the current one; where that changes, DriveChanged follows. Raises
    // "Device unavailable" if no drive holds it.
    void SetDrive(const std::string& path);

  signals:
    void DriveChanged();
};

// The folders of all drives as a tree; the current one is the list's folder.
class FolderList : public QTreeView {
    Q_OBJECT

  public:
    explicit FolderList(QWidget* parent = nullptr);

    // Full name without a separator at its end (a root folder has one).
    std::string Folder() const { return folder_; }

    // Goes to the folder; where that changes it, FolderChanged follows. Raises "Path not found", or
    // "Path/File access error" for a folder that may not be read.
    void SetFolder(const std::string& path);

  signals:
    void FolderChanged();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void ScrollToCurrent();

    QFileSystemModel model_;
    std::string folder_;
    bool keeps_in_view_ = true;  // until the user moves the list himself
};

// The files of one folder whose names match a pattern.
class FileList : public QListView {
    Q_OBJECT

  public:
    explicit FileList(QWidget* parent = nullptr);

    // The folder whose files are listed; as FolderList.
    std::string Folder() const { return folder_; }
    void SetFolder(const std::string& path);

    // Patterns as "*.TKL;*.TXT", without regard to case. "*.*" and an empty pattern let every file pass;
    // a folder in front is left out.
    std::string Pattern() const { return pattern_; }
    void SetPattern(const std::string& pattern);

    // Name of the selected file; empty if none is.
    std::string FileName() const;

    // Selects a file by its name, as soon as the list shows it; a text with "*" or "?" in it is a pattern. A folder
    // in front of the name becomes the list's folder. Raises "Path not found" and "File not found".
    void SetFileName(const std::string& text);

  signals:
    // A double click on a file, or the Enter key.
    void FileOpened();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void OpenSelected();
    void SelectWanted();
    void HideFolders();

    QFileSystemModel model_;
    std::string folder_;
    std::string pattern_;
    std::string wanted_;  // full name of a file that is to be selected, empty for none
};

// False for the root of a volume in which a system shows its own state.
bool MayHoldUserFiles(std::string_view root);

// True for the two keys that open or accept what is chosen.
bool IsEnter(const QKeyEvent& event);

// True if a text is a pattern rather than a file's name.
bool HasWildcards(std::string_view text);

}  // namespace tarvokol
