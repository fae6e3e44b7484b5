// SPDX-License-Identifier: GPL-3.0-or-later
// The one way in which the program writes an output: the new content is built beside its place and takes it
// when it is whole on the disk. Until then what stood there stays.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <sys/stat.h>

#include "core/files/descriptor.h"
#include "core/files/file_lock.h"
#include "core/files/file_rights.h"
#include "core/files/unfinished_files.h"

namespace tarvokol {

struct ReplacementRules {
    // What becomes of a file that stands in the place. With Refuse it stays, whenever it came there, until the very end.
    enum class Existing { Replace, Refuse };
    Existing existing = Existing::Replace;

    // The file of which the new one is a copy: it gives nobody more rights than that one does. Empty for no copy.
    std::string copy_of;
};

// New content for one file, which need not exist yet. It is written to the file at `BuildPath()`, which is
// empty at first, by `Fill` or by a library that wants a path; `Commit` puts it in place. Without that the
// object takes it away again and leaves everything as it was.
//
// A link is followed and stays a link, but for one that another user has put where all may (core/files/links.h). The file
// keeps its owner, its group, its rights and its attributes. Where the user may not give them to a new file, where the file has
// several names, and where the folder takes no new file, it is rewritten where it is, after its content was copied beside it,
// or else to the system's folder for temporary files: a failure brings the old content back, or tells the path of the copy.
//
// Raises the errors of the files ("Path not found", "Permission denied", "Disk full" ...): "Path/File access
// error" for a folder, a pipe, a socket or a device, "Permission denied" for a file that is marked
// read-only, even where the user could override the mark, and "File already exists" where it is not to be replaced.
class FileReplacement {
  public:
    explicit FileReplacement(const std::string& path, const ReplacementRules& rules = {});
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // Has the extension of the file that it is for.
    const std::string& BuildPath() const { return build_.path; }

    // Makes these bytes the new content.
    void Fill(std::string_view bytes);

    // Puts the new content in place; returns once it is on the disk under its name. What has failed may be tried again.
    void Commit();

    // The lock on the new content, which it has from its beginning, for whoever wants to go on holding it.
    FileLock TakeLock() { return std::move(build_.lock); }

  private:
    void ExamineTarget(const std::string& path);
    bool IsTarget(const std::string& path) const;
    void CreateBuildFile();
    int CreateIn(const std::string& folder);
    void KeepWithinBound(const Descriptor& file) const;
    void FinishBuildFile();
    void MoveIntoPlace();
    bool RenameIntoPlace() const;
    std::string CreateOldCopy() const;
    void RewriteInPlace() const;
    void FillTargetFrom(const std::string& source) const;
    void Drop();

    ReplacementRules rules_;
    std::string target_;                     // behind all links
    std::optional<struct stat> old_status_;  // of the file that stands there
    std::optional<RightsBound> bound_;
    UnfinishedFile build_;
    bool folder_refuses_ = false;  // takes no new file
    std::string in_place_;         // why a new file would not do
};

// Is told of every file that could not be replaced by a new one: its path, and why in words that follow it.
using InPlaceListener = std::function<void(const std::string& path, const std::string& why)>;
void SetInPlaceListener(InPlaceListener listener);

// Replaces the content of a file, or creates it.
void ReplaceWholeFile(const std::string& path, std::string_view bytes, const ReplacementRules& rules = {});

// Copies a regular file's content to another file, which is replaced or created and gives nobody more rights.
void CopyWholeFile(const std::string& source, const std::string& dest);

}  // namespace tarvokol
