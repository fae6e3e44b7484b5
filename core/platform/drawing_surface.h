// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// A font whose line of writing is turned. It is upright, of normal weight, as wide as the face has it.
struct TurnedFont {
    std::string face;
    int height = 0;      // logical pixels, 96 to the inch
    int escapement = 0;  // tenths of a degree against the clock
};

// The target of the plan drawing. World coordinates run from (0, height) at the top left corner of the
// surface to (width, 0) at the bottom right one; y grows upwards. The current point is kept in world units.
class DrawingSurface {
  public:
    virtual ~DrawingSurface() = default;

    // Sets the world window; left is 0, top is `height`.
    virtual void SetScale(double width, double height) = 0;

    // Clears the surface and puts the current point at the origin.
    virtual void Cls() = 0;

    // Drawing mode; 13 copies the pen colour.
    virtual void SetDrawMode(int mode) = 0;

    // A black line; its end becomes the current point.
    virtual void Line(double x1, double y1, double x2, double y2) = 0;
    virtual void LineTo(double x, double y) = 0;

    virtual double CurrentX() const = 0;
    virtual double CurrentY() const = 0;
    virtual void SetCurrentPoint(double x, double y) = 0;

    // Size of a text in the current font, world units.
    virtual double TextWidth(const std::string& text) = 0;
    virtual double TextHeight(const std::string& text) = 0;

    // Writes a text with its top left corner at the current point. Where the current point is afterwards is
    // not defined.
    virtual void Print(const std::string& text) = 0;

    // Writes a turned text whose line of writing begins at the current point.
    virtual void PrintTurned(const TurnedFont& font, const std::string& text) = 0;

    // The current font's size in points.
    virtual double FontSize() const = 0;
};

}  // namespace tarvokol
