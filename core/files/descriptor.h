// SPDX-License-Identifier: GPL-3.0-or-later
// Open files of the operating system. Every call of the system that reads or writes the content of a file
// stands here.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace tarvokol {

// One open regular file. A failure raises the run-time error that it stands for.
class Descriptor {
  public:
    // The rights of a file that nobody has chosen any for; the user's mask is taken off.
    static constexpr mode_t kOrdinaryRights = 0666;

    // Of a file that nobody but its owner reads or writes.
    static constexpr mode_t kOwnersRights = 0600;

    // The flags of who reads only.
    static constexpr int kReadOnly = O_RDONLY;

    // Opens with these flags of open(2), and never waits: a pipe, a socket, a device or a folder raises
    // "Path/File access error".
    Descriptor(std::string path, int flags, mode_t rights = kOrdinaryRights);
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    int Number() const { return number_; }
    const struct stat& Status() const { return status_; }  // as it was on opening

    // Reads at most `size` bytes; 0 at the end of the file. ReadAt leaves the place of reading alone.
    std::size_t Read(char* buffer, std::size_t size);
    std::size_t ReadAt(char* buffer, std::size_t size, off_t offset) const;

    // Writes all of it. A failed write goes back to where it began, so that writing the same again goes over
    // what it left.
    void Write(std::string_view bytes);

    // Drops the content.
    void Empty();

    // Goes back to the beginning.
    void Rewind();

    // Lets the system begin to bring to the disk what was written, and does not wait: Sync then has less to wait for.
    void BeginSync() const noexcept;

    // Returns once the content is on the disk.
    void Sync();

    // Closes now; raises where the system tells only here that something written was lost.
    void Close();

  private:
    [[noreturn]] void RaiseErrno(int error) const;

    std::string path_;
    int number_ = -1;
    struct stat status_ {};
};

// Writes everything that is left to read in one file to another.
void CopyContent(Descriptor& source, Descriptor& dest);

}  // namespace tarvokol
