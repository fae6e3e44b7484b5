// SPDX-License-Identifier: GPL-3.0-or-later
// Owner, group, rights and extended attributes of a file that another one takes the place of, or is a copy of.
#pragma once

#include <optional>
#include <string>

#include <sys/stat.h>
#include <sys/types.h>

namespace tarvokol {

// What the users of a file have, as a bound for those of its copies.
struct RightsBound {
    mode_t rights = 0;  // of owner, group and others
    gid_t group = 0;
};

// Of an existing file; its owner may always write a copy of his own. The rights of a group that a list of more users stands
// behind are those of the others: the list does not go along. Nothing where there is no file.
std::optional<RightsBound> BoundOf(const std::string& path);

// Takes from a new file what is beyond the bound: its group becomes that of the bound, or gets no more than the others. A file
// system that gives all files the same rights is left alone. Returns the error of the system, 0 for none.
int KeepWithin(const RightsBound& bound, int file);

// Gives a new file the owner, group, rights, access list and attributes of the old one at `old_path`, each by itself, so that
// what the system allows is kept. True if nothing that counts is lost; marks of the system's own guards do not count, they
// belong to it.
bool TakeOver(const std::string& old_path, const struct stat& old_status, int file);

}  // namespace tarvokol
