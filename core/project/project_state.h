// The open project's identity and its flags.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

inline std::string ProjectFileName;     // path, or "Untitled"
inline std::string PreviousFileName;    // its value when the last Open or recent-file pick began
inline std::string ProjectTitle;        // one line
inline std::string ProjectDescription;  // lines joined by CR LF
inline int16_t DescriptionLineCount =
    0;  // read by nothing; stays at its highest value once it has reached it
inline int16_t FileFormatLevel = 0;
inline int16_t ProjectFileMode = 0;

inline uint8_t ProjectSaved = 255;   // 255 nothing to save, 0 unsaved changes
inline uint8_t ProjectEmpty = 255;   // 255 no data entered, 0 the project has data
inline uint8_t UnitsLocked = 0;      // 255 once the unit system must not be changed lightly
inline uint8_t RecentListShown = 0;  // 255 once a recent-file entry is visible at start-up

// Set when a file dialog was cancelled.
inline bool DialogCancelled = false;

// The report's pages 0 to 2.
inline ZeroBased<std::string, 2> OutputBuffers;

}  // namespace tarvokol
