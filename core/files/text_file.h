// SPDX-License-Identifier: GPL-3.0-or-later
// Sequential text files under file numbers, as the program reads and writes all its texts. CR LF and a bare
// LF both end a line when reading; CR LF is written.
#pragma once

#include <string>
#include <string_view>

#include "core/files/text_input.h"

namespace tarvokol {

// A number from 1 on under which no file is open.
int FreeFile();

// Opens the regular file `path` for reading or for writing under `number`. Writing empties an existing file at
// once. Raises "File already open" for a number in use, "Path/File access error" for a folder, a pipe, a socket
// or a device, else the error of the operating system.
void OpenForInput(int number, const std::string& path, FileContent content = FileContent::Text);
void OpenForOutput(int number, const std::string& path, FileContent content = FileContent::Text);

// Opens a scratch file for writing, under a name that several programs use: it is a new file of this process's own, and one
// that has the name already loses it. What it holds is read back through `number`, never through its name, so nobody reads
// what another wrote. Raises as above.
void OpenScratch(int number, const std::string& path);

// Hands everything printed to the scratch file to the system and lets `number` read it from its beginning.
void ReadScratch(int number);

// Hands everything printed so far to the system; a text file's character set is settled here, so it is to be
// called once, after the last print. Raises "Disk full" and its kind.
void FlushFile(int number);

// Returns once everything flushed is on the disk. Raises "Device I/O error" and its kind.
void SyncFile(int number);

// Closes the file; nothing happens where none is open. What was printed and not flushed is written first.
void CloseFile(int number);

// Closes every file; what was printed and not flushed is dropped. Never fails.
void AbandonAllFiles();

// Prints a text as it stands, a text and a line end, or a whole number with a place for its sign before it, a blank
// after it and a line end.
void PrintText(int number, std::string_view text);
void PrintLine(int number, std::string_view text);
void PrintNumber(int number, long value);

// What a file that is open for reading holds. Raises "Bad file name or number" where none is open, "Bad file mode"
// for one that is open for writing.
TextInput& InputOf(int number);

// The next line, text or number of InputOf.
std::string LineInput(int number);
std::string TokenText(int number);
double TokenNumber(int number);

// True where no byte is left to read.
bool EndOfFile(int number);

}  // namespace tarvokol
