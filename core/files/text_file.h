// SPDX-License-Identifier: GPL-3.0-or-later
// Sequential text files under file numbers, as the program reads and writes all its texts. CR LF and a bare
// LF both end a line when reading; CR LF is written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvokol {

// What stands between the bytes of a file and the texts of the program.
enum class FileContent {
    Text,  // decoded and encoded by the rule of charset.h
    Raw    // bytes as they stand, for copies
};

// The longest line or token, in bytes; a longer one raises "Out of memory", so that a file of one endless
// line cannot take the machine's memory.
constexpr std::size_t kLongestText = std::size_t{16} * 1024 * 1024;

// A number from 1 on under which no file is open.
int FreeFile();

// Opens the regular file `path` for reading or for writing under `number`. Writing empties an existing file at
// once. Raises "File already open" for a number in use, "Path/File access error" for a folder, a pipe, a socket
// or a device, else the error of the operating system.
void OpenForInput(int number, const std::string& path, FileContent content = FileContent::Text);
void OpenForOutput(int number, const std::string& path, FileContent content = FileContent::Text);

// Hands everything printed so far to the system; a text file's character set is settled here, so it is to be
// called once, behind the last print. Raises "Disk full" and its kind.
void FlushFile(int number);

// Returns once everything flushed is on the disk. Raises "Device I/O error" and its kind.
void SyncFile(int number);

// Closes the file; nothing happens where none is open. What was printed and not flushed is written first.
void CloseFile(int number);

// Closes every file; what was printed and not flushed is dropped. Never fails.
void AbandonAllFiles();

// Prints a text and a line end, or a whole number with a place for its sign before it and a blank behind it.
void PrintLine(int number, std::string_view text);
void PrintNumber(int number, long value);

// One whole line without its end. Raises "Input past end of file" at the end of the file.
std::string LineInput(int number);

// One value: leading blanks are skipped; it ends at a comma or at the end of the line, a number also at a
// blank; one that begins with a double quote runs to the next double quote. What ended it is consumed, with
// the blanks and the line end behind it. Raises "Input past end of file" where no value begins.
std::string TokenText(int number);

// The first at most `limit` bytes of a token as they stand, for a comparison with a shorter ASCII text; the
// rest of a longer one stays unread.
std::string TokenStart(int number, std::size_t limit);

// A number token through the numeric parse.
double TokenNumber(int number);

// True where no byte is left to read.
bool EndOfFile(int number);

}  // namespace tarvokol
