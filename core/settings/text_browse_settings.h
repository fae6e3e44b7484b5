// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of the text file browser, section "TextBrowse" of the configuration file.
#pragma once

#include <cstdint>
#include <string>

namespace tarvokol {

struct TextBrowseValues {
    std::string BrowseFontName;
    float BrowseFontSize = 10.0f;
    int16_t BrowseFontBold = 0;
    int16_t BrowseFontItalic = 0;
    std::string BrowseDefaultFilter;
    int16_t BrowseUseNotepad = 0;
};
namespace state {
inline TextBrowseValues TextBrowse;
}

// Written by core/settings/configuration, core/settings/key_tables and desktop/output/frmTextBrow.
inline auto& BrowseFontName = state::TextBrowse.BrowseFontName;
// Written by core/settings/key_tables and desktop/output/frmTextBrow.
inline auto& BrowseFontSize = state::TextBrowse.BrowseFontSize;
inline auto& BrowseFontBold = state::TextBrowse.BrowseFontBold;
inline auto& BrowseFontItalic = state::TextBrowse.BrowseFontItalic;
inline auto& BrowseDefaultFilter = state::TextBrowse.BrowseDefaultFilter;
inline auto& BrowseUseNotepad = state::TextBrowse.BrowseUseNotepad;

}  // namespace tarvokol
