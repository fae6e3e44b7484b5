// Settings of the graph windows, section "Graph" of the configuration file.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

inline int16_t GraphSetParams = 0;  // 1 keep the last used format, 0 use the defaults
inline int16_t GridStyle = 0;       // 0 none, 1 grid of the Y axis, 2 of the X axis, 3 both
inline int16_t GraphStyle = 3;      // 1 lines, 2 symbols, 3 both
inline int16_t CurveLegend = 1;
inline int16_t SymbolSize = 5;
inline int16_t GraphUnits = 0;  // unit system for which the axis titles were composed
inline std::string GraphTitle;
inline ZeroBased<std::string, 2> XAxisTitle;  // stability graphs 0 to 2
inline ZeroBased<std::string, 2> YAxisTitle;
inline ZeroBased<std::string, 1> XAxisTitleS;  // sizing graphs 0 and 1
inline ZeroBased<std::string, 1> YAxisTitleS;

// The unchanging set of the same fields: base titles without units and the default styles.
struct GraphDefaultSet {
    int16_t GridStyle = 0;
    int16_t GraphStyle = 3;
    int16_t CurveLegend = 1;
    int16_t SymbolSize = 5;
    std::string GraphTitle;
    ZeroBased<std::string, 2> XAxisTitle;
    ZeroBased<std::string, 2> YAxisTitle;
    ZeroBased<std::string, 1> XAxisTitleS;
    ZeroBased<std::string, 1> YAxisTitleS;
};
inline GraphDefaultSet GraphDefaults;

// Curves that the graph options dialog restyles.
inline int16_t GraphRestyleCount = 0;

// Colours of the curves in the byte order blue, green, red.
inline OneBased<int32_t, 6> CurveColor;

// Fills `CurveColor`, empties the current titles and `GraphTitle`, sets `GraphRestyleCount` to 0.
void InitGraphDefaults();

// Sets the default titles and styles and copies the styles and the graph title to the settings in use.
void InitGraphFactoryValues();

// Copies the defaults over the settings, X titles and sizing titles with the length label of the present unit
// system.
void ResetGraphDefaults();

}  // namespace tarvokol
