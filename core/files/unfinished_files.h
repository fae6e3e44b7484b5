// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are being built, ".tarvokol-PROCESS-NUMBER" beside the place that they are for: made, found again by the
// handler of a signal, and taken away where a process has left them behind.
#pragma once

#include <string>

#include <sys/types.h>

#include "core/files/file_lock.h"

namespace tarvokol {

// An empty file of this process's own. Its lock tells the others that somebody is building it.
struct UnfinishedFile {
    std::string path;
    FileLock lock;
};

// Creates one in the folder, its name with `ending` behind, and first takes away what has been left there. Returns the
// error of the system, 0 for none.
int CreateUnfinishedFile(const std::string& folder, const std::string& ending, mode_t rights,
                         UnfinishedFile& file);

// Creates an empty file under the first free name: `start`, a number, `ending`. It is nothing unfinished. Returns the
// error of the system, 0 for none.
int CreateFreeFile(const std::string& start, const std::string& ending, mode_t rights, std::string& path);

// What was built is in place or gone.
void ForgetUnfinishedFile(const std::string& path);

// Takes away what is being built at the moment, for a signal that ends the process: it may be called by its handler.
void RemoveUnfinishedFiles() noexcept;

// Takes away what processes of this user which are no more have left unfinished in the folder.
void RemoveResidues(const std::string& folder);

// A folder of this process's own in the system's folder for temporary files, for a file that goes elsewhere when it is whole.
// It is gone with that file when this is, and treated like an unfinished file until then.
class ScratchFolder {
  public:
    // `name`: of the only file that will be made in it. Raises the errors of the files.
    explicit ScratchFolder(const std::string& name);
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    const std::string& FilePath() const { return file_; }

  private:
    std::string folder_;
    std::string file_;
};

// The folder for temporary files: that of the environment (TMPDIR) where it is one, else the system's. Raises "Path not found"
// where there is none.
std::string TemporaryFolder();

}  // namespace tarvokol
