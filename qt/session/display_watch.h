// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a start without a display.
#pragma once

namespace tarvokol {

// Lives while the application object is made. Where the toolkit finds no display for it and would abort, the process says so
// in one line on standard error, names the command line, and ends with status 1. What else the toolkit has complained of
// meanwhile is passed on at the end.
class DisplayWatch {
  public:
    DisplayWatch();
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;
    ~DisplayWatch();
};

}  // namespace tarvokol
