// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarvokol::cli {

// Starts the toolkit, without a display, for what draws or prints; a second call does nothing. Commands that
// only calculate never pay for it.
void StartToolkit();

}  // namespace tarvokol::cli
