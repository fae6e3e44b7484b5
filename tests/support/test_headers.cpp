// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing but a place for the precompiled header of the tests without a window.
