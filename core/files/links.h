// SPDX-License-Identifier: GPL-3.0-or-later
// Where a path leads, and whether it may be followed there.
#pragma once

#include <string>

namespace tarvokol {

// The place that a path names in the end, behind all links; nothing need stand there. A path without links comes back as
// it is. Raises "Path not found" for more links than the system follows, and "Permission denied" for a link that another
// user has put into a folder to which all may write: it may lead to any file of this user. The administrator's are
// followed.
std::string PlaceBehindLinks(const std::string& path);

}  // namespace tarvokol
