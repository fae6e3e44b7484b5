// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarvokol {

// From now on a screen reader knows pictures (SpokenPicture) by their kind and value, drawings as graphics, the tabs of a
// form as such, with the number of the page that shows, and the page by its caption. The toolkit alone takes all of them for
// containers.
void TellScreenReaders();

}  // namespace tarvokol
