// SPDX-License-Identifier: GPL-3.0-or-later
// Questions about files and folders, paths as the program writes them, and removing a file.
#pragma once

#include <string>

namespace tarvokol {

// The separator of folders in a path.
inline constexpr char PathSeparator = '/';

// True if the path names an existing file (a folder does not count). Any failure gives false.
bool FileExists(const std::string& path);

// True if the path names an existing folder. Any failure gives false.
bool FolderExists(const std::string& path);

// The whole path from the root, behind all links, so that one file has one path, whatever it is called by. The path as it
// is where the system does not tell.
std::string WholePath(const std::string& path);

// Removes the file if it exists. Raises the error of the operating system.
void RemoveFile(const std::string& path);

// Makes an empty file in the folder, which ends in a separator, and removes it. Raises the error of the operating system:
// rights alone do not tell of a volume that is mounted read-only, nor of root.
void RequireWritableFolder(const std::string& folder);

// True if the path ends in a separator, "\" or "/".
bool EndsInSeparator(const std::string& path);

// The folder with one separator at its end: added unless one stands there.
std::string WithSeparator(const std::string& folder);

}  // namespace tarvokol
