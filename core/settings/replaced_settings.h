// SPDX-License-Identifier: GPL-3.0-or-later
// A settings file that this version cannot use, before a new one takes its place.
#pragma once

#include <string>

namespace tarvokol {

struct ReplacedSettings {
    bool may_replace = true;  // false if the file cannot be kept
    std::string place;        // where it is kept; empty if there is nothing in it
    std::string reason;       // why it cannot be used; empty for that of an older version
};

// Keeps what stands at `IniPath` beside it, under the first free name "TARVOKOL.INI.kept-N" unless it is kept already. Shows
// nothing: the new file is to be whole before anything shows.
ReplacedSettings KeepReplacedSettings();

// A file that another program or a newer version has written is told of in a box, an older one by a line of the history.
void TellReplacedSettings(const ReplacedSettings& replaced);

}  // namespace tarvokol
