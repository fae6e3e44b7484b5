// The open project's identity and its flags.
#pragma once

#include <cstdint>
#include <string>

namespace tarvokol {

inline std::string ProjectFileName;     // path, or "Untitled"
inline std::string PreviousFileName;    // its value when the last Open or recent-file pick began
inline std::string ProjectTitle;        // one line
inline std::string ProjectDescription;  // lines joined by CR LF
inline int16_t DescriptionLineCount = 0;  // read by nothing
inline int16_t FileFormatLevel = 0;
inline int16_t ProjectFileMode = 0;

inline uint8_t ProjectSaved = 255;  // 255 nothing to save, 0 unsaved changes
inline uint8_t ProjectEmpty = 255;  // 255 no data entered, 0 the project has data
inline uint8_t UnitsLocked = 0;     // 255 once the unit system must not be changed lightly
inline uint8_t RecentListShown = 0; // 255 once a recent-file entry is visible at start-up

// Set when a file dialog was cancelled; start paths of the file dialog, 1 for Open, 2 for Save As.
inline bool DialogCancelled = false;

}  // namespace tarvokol
