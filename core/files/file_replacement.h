// SPDX-License-Identifier: GPL-3.0-or-later
// The one way in which the program writes an output: the new content is built beside its place and takes it
// when it is whole on the disk. Until then what stood there stays.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace tarvokol {

// New content for one file, which need not exist yet. It is written to the file at `BuildPath()`, which is
// empty at first, by `Fill` or by a library that wants a path; `Commit` puts it in place. Without that the
// object takes it away again and leaves everything as it was.
//
// A link is followed and stays a link. The file keeps its rights and, where the system allows it, its owner.
// A file whose folder takes no new one is rewritten where it is, after its content was copied to the system's
// folder for temporary files: a failure brings the old content back, or tells the path of the copy.
//
// Raises the errors of the files ("Path not found", "Permission denied", "Disk full" ...): "Path/File access
// error" for a folder, a pipe, a socket or a device, and "Permission denied" for a file that is marked
// read-only, even where the user could override the mark.
class FileReplacement {
  public:
    explicit FileReplacement(const std::string& path);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // Has the extension of the file that it is for.
    const std::string& BuildPath() const { return build_path_; }

    // Makes these bytes the new content.
    void Fill(std::string_view bytes);

    // Puts the new content in place; returns once it is on the disk under its name. What has failed may be tried again.
    void Commit();

  private:
    void ExamineTarget();
    void CreateBuildFile();
    int CreateIn(const std::string& folder);
    void FinishBuildFile() const;
    void MoveIntoPlace();
    bool RenameIntoPlace() const;
    void RewriteInPlace() const;
    void Drop();

    std::string target_;                     // behind all links
    std::optional<struct stat> old_status_;  // of the file that stands there
    std::string build_path_;
    bool rewrite_ = false;  // the folder takes no new file
};

// Takes away what is being built at the moment, for a signal that ends the process: it may be called by its handler.
void RemoveUnfinishedFiles() noexcept;

// Replaces the content of a file, or creates it.
void ReplaceWholeFile(const std::string& path, std::string_view bytes);

// Copies a regular file's content to another file, which is replaced or created.
void CopyWholeFile(const std::string& source, const std::string& dest);

}  // namespace tarvokol
